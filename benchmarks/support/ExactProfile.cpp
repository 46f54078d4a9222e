// SPDX-License-Identifier: BSL-1.0
#include "support/ExactProfile.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace Benchmarks {

namespace {

LongPoint operator+(const LongPoint& a, const LongPoint& b) { return {a.x + b.x, a.y + b.y}; }
LongPoint operator-(const LongPoint& a, const LongPoint& b) { return {a.x - b.x, a.y - b.y}; }
LongPoint operator*(const LongPoint& a, long double s) { return {a.x * s, a.y * s}; }

long double dot(const LongPoint& a, const LongPoint& b) { return a.x * b.x + a.y * b.y; }
long double cross(const LongPoint& a, const LongPoint& b) { return a.x * b.y - a.y * b.x; }
long double length(const LongPoint& a) { return std::sqrt(dot(a, a)); }
LongPoint toTheRight(const LongPoint& a) { return {a.y, -a.x}; }

LongPoint turnedClockwise(const LongPoint& a, long double angle) {
  const long double sine = std::sin(angle);
  const long double cosine = std::cos(angle);
  return {a.x * cosine + a.y * sine, a.y * cosine - a.x * sine};
}

/// Whether a ray from the centre of a clockwise arc meets it. The ends count, with room for the
/// rounding of rays through them.
bool isInSector(const LongPoint& toStart, const LongPoint& toEnd, const LongPoint& ray) {
  constexpr long double kSlack = 1e-15L;
  const long double slack = kSlack * length(ray);
  return cross(toStart, ray) <= slack && cross(toEnd, ray) >= -slack &&
         dot(toStart + toEnd, ray) > 0.0L;
}

}  // namespace

long double distanceBetween(const LongPoint& a, const LongPoint& b) { return length(a - b); }

ExactProfile::ExactProfile(std::vector<ProfileNode> nodes) : m_nodes(std::move(nodes)) {
  m_stations.push_back(0.0L);
  for (std::size_t i = 1; i < m_nodes.size(); ++i) {
    m_segments.push_back(segmentBetween(m_nodes[i - 1], m_nodes[i]));
    m_stations.push_back(m_stations.back() + m_segments.back().length);
  }
}

ExactProfile::Segment ExactProfile::segmentBetween(const ProfileNode& from, const ProfileNode& to) {
  Segment segment;
  segment.start = {from.x, from.y};
  segment.end = {to.x, to.y};
  const LongPoint chord = segment.end - segment.start;
  segment.length = length(chord);
  if (to.radius == 0.0) return segment;
  segment.radius = to.radius;
  const long double half = length(chord) / 2.0L;
  const long double rise = std::sqrt((segment.radius - half) * (segment.radius + half));
  segment.centre = segment.start + chord * 0.5L + toTheRight(chord) * (rise / (2.0L * half));
  segment.length = 2.0L * segment.radius * std::asin(half / segment.radius);
  return segment;
}

ExactProfile::Place ExactProfile::at(long double station) const {
  const auto beyond = std::upper_bound(m_stations.begin() + 1, m_stations.end() - 1, station);
  const auto index = static_cast<std::size_t>(beyond - m_stations.begin()) - 1;
  const Segment& segment = m_segments[index];
  const long double along = station - m_stations[index];
  if (segment.radius == 0.0L) {
    const LongPoint direction = (segment.end - segment.start) * (1.0L / segment.length);
    return {segment.start + direction * along, toTheRight(direction) * -1.0L};
  }
  const LongPoint ray = turnedClockwise(segment.start - segment.centre, along / segment.radius);
  return {segment.centre + ray, ray * (1.0L / segment.radius)};
}

long double ExactProfile::distanceTo(const LongPoint& p) const {
  long double least = std::numeric_limits<long double>::infinity();
  for (const Segment& segment : m_segments) {
    least = std::min({least, length(p - segment.start), length(p - segment.end)});
    if (segment.radius != 0.0L) {
      const LongPoint ray = p - segment.centre;
      if (isInSector(segment.start - segment.centre, segment.end - segment.centre, ray)) {
        least = std::min(least, std::abs(length(ray) - segment.radius));
      }
      continue;
    }
    const LongPoint chord = segment.end - segment.start;
    const long double along = dot(p - segment.start, chord) / segment.length;
    if (along >= 0.0L && along <= segment.length) {
      least = std::min(least, std::abs(cross(chord, p - segment.start)) / segment.length);
    }
  }
  return least;
}

long double ExactProfile::reachFrom(const LongPoint& inside, long double bearing) const {
  constexpr long double kSlack = 1e-15L;  // at the ends of straights
  const LongPoint direction = {std::sin(bearing), std::cos(bearing)};
  long double reach = 0.0L;
  for (const Segment& segment : m_segments) {
    if (segment.radius != 0.0L) {
      const LongPoint fromCentre = inside - segment.centre;
      const long double middle = -dot(fromCentre, direction);
      const long double off = cross(direction, fromCentre);
      if (std::abs(off) > segment.radius) continue;
      const long double candidate =
          middle + std::sqrt((segment.radius - off) * (segment.radius + off));
      const LongPoint ray = fromCentre + direction * candidate;
      if (isInSector(segment.start - segment.centre, segment.end - segment.centre, ray)) {
        reach = std::max(reach, candidate);
      }
      continue;
    }
    const LongPoint chord = segment.end - segment.start;
    const long double across = cross(direction, chord);
    const long double part = cross(segment.start - inside, direction) / across;
    if (part >= -kSlack && part <= 1.0L + kSlack) {
      reach = std::max(reach, cross(segment.start - inside, chord) / across);
    }
  }
  return reach;
}

std::vector<long double> ExactProfile::stationsOfPieces(
    const std::vector<std::size_t>& piecesOfSegments) const {
  std::vector<long double> stations;
  for (std::size_t i = 0; i < m_segments.size(); ++i) {
    const auto pieces = static_cast<long double>(piecesOfSegments[i]);
    for (std::size_t piece = 0; piece < piecesOfSegments[i]; ++piece) {
      stations.push_back(m_stations[i] +
                         m_segments[i].length * static_cast<long double>(piece) / pieces);
    }
  }
  return stations;
}

std::vector<Point2D> ExactProfile::pointsAt(const std::vector<long double>& stations) const {
  std::vector<Point2D> points;
  points.reserve(stations.size());
  for (const long double station : stations) {
    const LongPoint p = at(station).point;
    points.emplace_back(static_cast<double>(p.x), static_cast<double>(p.y));
  }
  return points;
}

std::vector<Point2D> ExactProfile::outlineOfPiecesAbout(double length,
                                                        std::size_t mostPieces) const {
  std::vector<std::size_t> pieces;
  for (const Segment& segment : m_segments) {
    const auto fitting = static_cast<std::size_t>(segment.length / length);
    pieces.push_back(segment.radius == 0.0L ? 1 : std::min(fitting, mostPieces));
  }
  return pointsAt(stationsOfPieces(pieces));
}

std::vector<std::size_t> ExactProfile::numPiecesBelow(double length) const {
  std::vector<std::size_t> pieces;
  for (const Segment& segment : m_segments) {
    pieces.push_back(static_cast<std::size_t>(std::ceil(segment.length / length)));
  }
  return pieces;
}

std::vector<Point2D> ExactProfile::outlineOfPiecesBelow(double length) const {
  return pointsAt(stationsOfPieces(numPiecesBelow(length)));
}

std::vector<double> ExactProfile::stationsOfPiecesBelow(double length) const {
  std::vector<double> stations;
  for (const long double station : stationsOfPieces(numPiecesBelow(length))) {
    stations.push_back(static_cast<double>(station));
  }
  stations.push_back(static_cast<double>(circumference()));
  return stations;
}

}  // namespace Benchmarks
