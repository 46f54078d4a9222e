// SPDX-License-Identifier: BSL-1.0
#include "free_station/Readings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace FreeStation {

namespace {

using Ruv::Calculations::PolarPoint;

constexpr double kHalfTurn = 3.141592653589793;

PolarPoint inFirstFace(const PolarPoint& polar) {
  if (!isSecondFace(polar)) return polar;
  return {polar.horizontalAngle + kHalfTurn, 2.0 * kHalfTurn - polar.verticalAngle,
          polar.slopeDistance};
}

/// To the point below what was sighted.
PolarPoint lowered(const PolarPoint& polar, double height) {
  if (height == 0.0) return polar;
  const double across = polar.slopeDistance * std::sin(polar.verticalAngle);
  const double up = polar.slopeDistance * std::cos(polar.verticalAngle) - height;
  return {polar.horizontalAngle, std::atan2(across, up), std::hypot(across, up)};
}

/// What is to be added to the first angle to get the second, by the shorter way.
double turn(double from, double to) { return std::remainder(to - from, 2.0 * kHalfTurn); }

/// Means of differences from a first reading: angles on both sides of zero need no care then.
class Mean {
 public:
  explicit Mean(const PolarPoint& first) : m_first(first) {}

  void add(const PolarPoint& polar) {
    m_horizontal += turn(m_first.horizontalAngle, polar.horizontalAngle);
    m_zenith += polar.verticalAngle - m_first.verticalAngle;
    m_distance += polar.slopeDistance - m_first.slopeDistance;
    ++m_count;
  }

  bool isEmpty() const { return m_count == 0; }

  PolarPoint value() const {
    const auto count = static_cast<double>(m_count);
    return {m_first.horizontalAngle + m_horizontal / count,
            m_first.verticalAngle + m_zenith / count, m_first.slopeDistance + m_distance / count};
  }

 private:
  PolarPoint m_first;
  double m_horizontal = 0.0;
  double m_zenith = 0.0;
  double m_distance = 0.0;
  std::size_t m_count = 0;
};

/// From the smallest to the largest.
class Range {
 public:
  void add(double value) {
    m_least = std::min(m_least, value);
    m_most = std::max(m_most, value);
  }
  double width() const { return m_most - m_least; }

 private:
  double m_least = 0.0;  // of differences from the first
  double m_most = 0.0;
};

Measurement meanOf(const std::vector<const Reading*>& readings) {
  const Reading& first = *readings.front();
  const auto reduced = [](const Reading& s) {
    return lowered(inFirstFace(s.polar), s.targetHeight);
  };
  const PolarPoint start = reduced(first);
  std::array<Mean, 2> faces = {Mean(start), Mean(start)};
  Range horizontal;
  Range zenith;
  Range distance;
  Measurement measurement;
  for (const Reading* reading : readings) {
    const PolarPoint polar = reduced(*reading);
    faces[isSecondFace(reading->polar) ? 1 : 0].add(polar);
    horizontal.add(turn(start.horizontalAngle, polar.horizontalAngle));
    zenith.add(polar.verticalAngle - start.verticalAngle);
    distance.add(polar.slopeDistance - start.slopeDistance);
    measurement.targetHeight = std::max(measurement.targetHeight, std::abs(reading->targetHeight));
  }
  measurement.line = first.line;
  measurement.id = first.id;
  measurement.readings = readings.size();
  measurement.spread = {horizontal.width(), zenith.width(), distance.width()};
  measurement.hasBothFaces = !faces[0].isEmpty() && !faces[1].isEmpty();
  Mean mean(start);
  for (const Mean& face : faces) {
    if (!face.isEmpty()) mean.add(face.value());
  }
  measurement.polar = mean.value();
  return measurement;
}

}  // namespace

double Measurement::spreadInSpace() const {
  const double across = polar.slopeDistance * std::sin(polar.verticalAngle) * spread.horizontal;
  return std::hypot(across, polar.slopeDistance * spread.zenith, spread.distance);
}

bool isSecondFace(const PolarPoint& polar) { return polar.verticalAngle > kHalfTurn; }

std::vector<Measurement> measurementsOf(const std::vector<Reading>& readings) {
  std::map<std::string, std::size_t> places;  // of points, by id
  std::vector<std::vector<const Reading*>> points;
  for (const Reading& reading : readings) {
    const auto [place, isNew] = places.emplace(reading.id, points.size());
    if (isNew) points.emplace_back();
    points[place->second].push_back(&reading);
  }
  std::vector<Measurement> measurements;
  measurements.reserve(points.size());
  for (const auto& point : points) {
    measurements.push_back(meanOf(point));
  }
  return measurements;
}

std::vector<Reading> withAnglesTimes(double factor, std::vector<Reading> readings) {
  for (Reading& reading : readings) {
    reading.polar.horizontalAngle *= factor;
    reading.polar.verticalAngle *= factor;
  }
  return readings;
}

}  // namespace FreeStation
