// SPDX-License-Identifier: BSL-1.0
/// @file
/// The fix points, arranged for the question which of them lie at a given distance from one.

#ifndef CALCULATIONS_STATIONS_FIX_POINT_FIELD_H
#define CALCULATIONS_STATIONS_FIX_POINT_FIELD_H

#include <Calculations/Points.h>

#include "stations/Matching.h"

#include <cstddef>
#include <vector>

namespace Ruv {
namespace Calculations {

/// Fix points sorted along the line of their largest extent. Fix points of a tunnel lie near a
/// line: those at a given distance from one of them are then found in two short stretches. Other
/// layouts are answered as correctly, only slower.
///
/// Points that are not finite are left out: no distance from them is within a tolerance. Of more
/// than two points at exactly the same place the field keeps two. Any further one would only
/// repeat solutions with the same score on the same coordinates, and ten such points measured ten
/// times would repeat them ten thousand million times. Two are kept because both may be needed:
/// the partner of a point is never the point itself.
class FixPointField {
 public:
  /// @param points in the order of their ids
  explicit FixPointField(const std::vector<ENHPoint>& points);

  /// The places of the points kept run from 0, those along the line.
  std::size_t size() const { return m_points.size(); }
  const ENHPoint& point(FieldPlace place) const { return m_points[indexOf(place)]; }

  /// The index of the point as given to the constructor.
  std::size_t index(FieldPlace place) const { return m_indices[indexOf(place)]; }

  /// All places, in the order of the ids.
  const std::vector<FieldPlace>& placesInIdOrder() const { return m_inIdOrder; }

  /// Appends the places whose distance from the given one differs from a finite distance by less
  /// than the tolerance; never the given place.
  void appendPartners(FieldPlace place, double distance, double tolerance,
                      std::vector<FieldPlace>& partners) const;

  /// The length of line (m) on which points at a distance from one are looked for: what it costs
  /// to find them.
  double stretchToSearch(double distance) const;

  /// Whether at least count points, points left out for coinciding and the one at the place
  /// included, lie nearer to the place than the radius.
  bool hasNeighbours(FieldPlace place, double radius, std::size_t count) const;

 private:
  /// The partners looked for from one place.
  struct Query {
    FieldPlace place{};
    double distance = 0.0;
    double tolerance = 0.0;
    double leastSquare = 0.0;    ///< squared distances outside these two limits are
    double largestSquare = 0.0;  ///< not within the tolerance
  };

  double leastAlong(double distance) const;
  void appendPartnersBetween(double low, double high, const Query& query,
                             std::vector<FieldPlace>& partners) const;

  // For each place:
  std::vector<double> m_along;  ///< position on the line, ascending
  std::vector<ENHPoint> m_points;
  std::vector<std::size_t> m_indices;
  std::vector<std::size_t> m_coincident;  ///< number of points that the place stands for

  std::vector<FieldPlace> m_inIdOrder;
  double m_width = 0.0;   ///< no two points are farther apart square to the line
  double m_margin = 0.0;  ///< more than the rounding of the positions on the line
};

}  // namespace Calculations
}  // namespace Ruv

#endif
