// SPDX-License-Identifier: BSL-1.0
/// @file
/// Comparison of a measured profile with a reference.

#ifndef CALCULATIONS_MEASURED_PROFILE_CALCULATOR_H
#define CALCULATIONS_MEASURED_PROFILE_CALCULATOR_H

#include <Calculations/Export.h>
#include <Calculations/FittingResult.h>
#include <Calculations/GeologicalOverProfileMethod.h>
#include <Calculations/MeasuredProfile.h>
#include <Calculations/PointLists.h>
#include <Calculations/Points.h>
#include <Calculations/ProfilePointResult.h>
#include <Calculations/ThProfileCalculator.h>
#include <Calculations/ThProfileDefinition.h>

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace Ruv {
namespace Calculations {

class MeasuredProfileCalculatorImpl;

/// Compares a measured profile, the comparison, with a reference: the design profile or an earlier
/// measured one.
///
/// Conventions: metres, x to the right, y up; distances and derolments as in ThProfileCalculator.
/// Filters: exclude parts of the section plane. They act on fits, circumferences, outlines, areas
///   and offset intersections, not on point results and distances.
/// Areas: computed on a grid of 0.1 mm with arcs as chords of about 1 cm (at most 100 an arc).
///   Polygons of results have no holes: where the excavation surrounds the reference, the ring of
///   over profile comes in pieces. Pieces below 0.0001 m2 are left out of polygon lists.
///   Outlines are cleaned as by Path::close, which takes more of smooth ones with points less than
///   1 cm apart: 0.02 m2 of a circle of 5 m every 5 mm, 0.17 m2 every millimetre.
/// Points that are not finite are left out of outlines, areas, circumferences, fits, distances and
///   intersections, and of a reference before points are compared with it.
/// Failure: degenerate profiles give zero results, empty lists or zero areas. An area or length is
///   not-a-number, and a list of outlines empty, when the polygon clipper fails, which has not been
///   seen. Only leastSquarePointOfComparisonProfile throws, for an unknown method; std::bad_alloc
///   for want of memory may leave any operation, and the calculator then answers as before.
/// Cost: point results prepare the reference once, O(n log n), and again only after it changed;
///   then O(log n) a point, plus O(n) a call to see whether it changed. Areas cost a few polygon
///   clippings.
/// Lifetime: shares ownership of both profiles. Not for concurrent use, although operations are
///   const. Not copyable.
/// @snippet snippets/Profiles.cpp MeasuredProfileCalculator
class CALCULATIONS_EXPORT MeasuredProfileCalculator : public IProfileCalculator {
 public:
  /// Takes a design profile as reference. Null pointers count as empty profiles.
  MeasuredProfileCalculator(const boost::shared_ptr<const ThProfileDefinition>& reference,
                            const boost::shared_ptr<const MeasuredProfile>& comparison);
  /// Takes an earlier measured profile as reference.
  MeasuredProfileCalculator(const boost::shared_ptr<const MeasuredProfile>& reference,
                            const boost::shared_ptr<const MeasuredProfile>& comparison);
  MeasuredProfileCalculator(const MeasuredProfileCalculator&) = delete;
  MeasuredProfileCalculator& operator=(const MeasuredProfileCalculator&) = delete;
  ~MeasuredProfileCalculator() override;

  /// @name Points relative to the reference
  /// @{

  /// The results are those of ThProfileCalculator; derolments count from the reference's crown. All
  /// zero, the distance too, for a point that is not finite and for a reference without segments.
  ProfilePointResult calculateProfilePoint(const Point2D& point) const override;
  std::vector<ProfilePointResult> calculateProfilePoints(
      const std::vector<Point2D>& points) const override;
  /// The same without a list of results of its own, see ThProfileCalculator.
  std::size_t calculateProfilePoints(const Point2D* in, std::size_t count,
                                     ProfilePointResult* out) const;
  /// @}

  /// @name Distances to the comparison
  /// @{

  /// The nearest point of the comparison on a line through p, which is horizontal, vertical,
  /// or along the reference's normal through p. Both coordinates are 3.4028234663852886e38 when
  /// the line misses the comparison.
  Point2D horizontalDistanceToComparisonProfile(Point2D p) const;
  Point2D verticalDistanceToComparisonProfile(Point2D p) const;
  Point2D radialDistanceToComparisonProfile(Point2D p) const;
  /// @}

  /// @name Intersections with a horizontal or vertical line
  /// @{

  /// The crossings of the line with the polygon of unfiltered segment start points, in its order,
  /// within 1000 m of the origin. A vertex on the line counts for both its edges; edges along the
  /// line count for none. Arcs of the reference count as chords. Empty for fewer than three points.
  std::vector<Point2D> intersectionsAtGivenUpOffsetOfComparisonProfile(double up) const;
  std::vector<Point2D> intersectionsAtGivenRightOffsetOfComparisonProfile(double right) const;
  std::vector<Point2D> intersectionsAtGivenUpOffsetOfReferenceProfile(double up) const;
  std::vector<Point2D> intersectionsAtGivenRightOffsetOfReferenceProfile(double right) const;
  /// @}

  /// Fits the unfiltered finite points of the comparison. One point or two give themselves or their
  /// middle as centre, with the radius 0. FittingHelper tells what each fit returns when it fails;
  /// the radius of the legacy fit may be negative.
  /// @throws std::runtime_error "Fitting method not implemented" for a value that is no method,
  ///   with three or more points
  FittingResult leastSquarePointOfComparisonProfile(FittingMethod::Method method) const;

  /// @name Filters
  /// @{

  /// Excludes what lies beyond a line. Setting a limit again replaces it; not-a-number removes it.
  /// As soon as any filter is set, everything beyond 1000 m from the axes is excluded too. Limits
  /// that cross allow what lies between them.
  void setFilterExcludeAbove(double y);
  void setFilterExcludeBelow(double y);
  void setFilterExcludeLeftOf(double x);
  void setFilterExcludeRightOf(double x);
  /// Excludes the triangle from the centre with sides of 1000 m in two bearings (clockwise from
  /// up). A span of half a turn or more does not exclude its reflex side. Areas that two
  /// triangles share stay allowed. Values that are not finite set no filter.
  void setFilterExcludeBetweenAngles(double startAngle, double endAngle, const Point2D& centre);
  /// Allows everything again.
  void resetAllFilters();
  /// False when no filter is set. The border of the allowed area is excluded, and so is a point
  /// that is not finite.
  bool isInFilteredArea(const Point2D& p) const;
  /// @}

  /// @name Circumferences and outlines
  /// @{

  /// The length of what is not filtered.
  double comparisonCircumference() const;
  double referenceCircumference() const;
  /// The parts that are not filtered; clean removes points closer than 0.14 mm to the line of
  /// their neighbours.
  std::vector<Polyline> comparisonCircumferenceLines(bool clean) const;
  /// The same parts of the reference.
  std::vector<Polyline> referenceCircumferenceLines(bool clean) const;
  /// @}

  /// @name Areas
  /// @{

  /// Area of the profile in square metres, without what the filters exclude.
  double comparisonArea() const;
  double referenceArea() const;
  /// Area that was excavated beyond the reference.
  double overProfileArea() const;
  /// Area within the reference that was not excavated.
  double underProfileArea() const;
  /// Outlines of what was excavated beyond the reference, in the order that Pathes tells.
  std::vector<Polygon> overProfileAreaPathes() const;
  /// Outlines of what was not excavated within the reference.
  std::vector<Polygon> underProfileAreaPathes() const;
  /// @}

  /// @name Geological over profile
  /// @{

  /// What is excavated beyond the distance a from the reference, and with it a band beside those
  /// places: from the reference to a, from b to a, or none. The band is not clipped to the
  /// excavation; where it overlaps what lies beyond, the area counts twice. Limits that are not
  /// finite are a failure: not-a-number, or empty lists.
  double geologicalOverProfileArea(GeologicalOverProfileMethod::Method method, double a,
                                   double b) const;
  std::vector<Polygon> geologicalOverProfileAreaPathes(GeologicalOverProfileMethod::Method method,
                                                       double a, double b) const;
  /// The geological part, and the over profile within a that is not in its band.
  std::pair<std::vector<Polygon>, std::vector<Polygon>> overProfileDividedByGeologicalAreaPathes(
      GeologicalOverProfileMethod::Method method, double a, double b) const;
  /// @}

 private:
  std::unique_ptr<MeasuredProfileCalculatorImpl> m_impl;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
