// SPDX-License-Identifier: BSL-1.0
/// @file
/// A profile evaluated by other means than the library's, to check its results.

#ifndef CALCULATIONS_BENCHMARKS_EXACT_PROFILE_H
#define CALCULATIONS_BENCHMARKS_EXACT_PROFILE_H

#include "testing/Profiles.h"

#include <Calculations/Points.h>

#include <cstddef>
#include <vector>

namespace Benchmarks {

using Ruv::Calculations::Point2D;
using TestSupport::ProfileNode;

/// Wider than a double, so that the error of a comparison with doubles is theirs alone.
struct LongPoint {
  long double x = 0.0L;
  long double y = 0.0L;
};

/// A closed convex profile, clockwise, of straights and of arcs that bulge outwards.
class ExactProfile {
 public:
  /// Where the profile is at a station, and the unit normal to the outside.
  struct Place {
    LongPoint point;
    LongPoint normal;
  };

  /// @param nodes the last one repeats the first one's coordinates
  explicit ExactProfile(std::vector<ProfileNode> nodes);

  const std::vector<ProfileNode>& nodes() const { return m_nodes; }
  long double circumference() const { return m_stations.back(); }
  /// Length from the first node to another.
  long double stationOf(std::size_t node) const { return m_stations[node]; }

  Place at(long double station) const;

  /// Distance of a point from the nearest place, which is looked for on all segments.
  long double distanceTo(const LongPoint& p) const;

  /// How far the profile is from a point inside, in a direction clockwise from up.
  long double reachFrom(const LongPoint& inside, long double bearing) const;

  /// The profile as points, without its first one at the end. Every arc is cut into as many pieces
  /// of a length as fit, but at most a number of pieces; straights stay whole.
  std::vector<Point2D> outlineOfPiecesAbout(double length, std::size_t mostPieces) const;
  /// The same with straights and arcs cut into pieces of at most a length.
  std::vector<Point2D> outlineOfPiecesBelow(double length) const;
  /// The stations of the points of outlineOfPiecesBelow, with the circumference at the end.
  std::vector<double> stationsOfPiecesBelow(double length) const;

 private:
  struct Segment {
    LongPoint start;
    LongPoint end;
    LongPoint centre;  // of an arc
    long double radius = 0.0L;
    long double length = 0.0L;
  };

  static Segment segmentBetween(const ProfileNode& from, const ProfileNode& to);
  std::vector<long double> stationsOfPieces(const std::vector<std::size_t>& piecesOfSegments) const;
  std::vector<std::size_t> numPiecesBelow(double length) const;
  std::vector<Point2D> pointsAt(const std::vector<long double>& stations) const;

  std::vector<ProfileNode> m_nodes;
  std::vector<Segment> m_segments;
  std::vector<long double> m_stations;  // of the nodes
};

long double distanceBetween(const LongPoint& a, const LongPoint& b);

}  // namespace Benchmarks

#endif
