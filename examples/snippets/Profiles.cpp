// SPDX-License-Identifier: BSL-1.0
#include "snippets/Snippets.h"

#include <boost/make_shared.hpp>

#include <algorithm>

namespace Snippets {

boost::shared_ptr<ThProfileDefinition> defineProfile() {
  //! [ThProfileDefinition]
  auto profile = boost::make_shared<ThProfileDefinition>();  // clockwise from the lower left
  profile->addSegmentStraight(-5, 0, -5, 2);
  profile->addSegmentArc(-5, 2, 0, 7, 5);
  profile->addSegmentArc(0, 7, 5, 2, 5);
  profile->addSegmentStraight(5, 2, 5, 0);
  profile->addSegmentStraight(5, 0, -5, 0);
  //! [ThProfileDefinition]
  return profile;
}

boost::shared_ptr<MeasuredProfile> defineMeasuredProfile() {
  //! [MeasuredProfile]
  auto measured = boost::make_shared<MeasuredProfile>();
  for (const Point2D& point : {Point2D(-5.1, 0), Point2D(-5.1, 2), Point2D(-3.7, 5.6),
                               Point2D(0, 7.2), Point2D(3.5, 5.5), Point2D(5, 2), Point2D(5, 0)}) {
    measured->addPoint(point);
  }
  //! [MeasuredProfile]
  return measured;
}

ProfilePointResult positionInProfile(const boost::shared_ptr<const ThProfileDefinition>& design) {
  //! [ThProfileCalculator]
  const ThProfileCalculator calculator(design);
  const ProfilePointResult outside = calculator.calculateProfilePoint(Point2D(0, 7.25));
  // outside.distance is 0.25, outside.derolment 0: at the crown
  //! [ThProfileCalculator]
  return outside;
}

double overExcavation(const boost::shared_ptr<const ThProfileDefinition>& design,
                      const boost::shared_ptr<const MeasuredProfile>& measured,
                      std::vector<Polygon>& places) {
  //! [MeasuredProfileCalculator]
  MeasuredProfileCalculator comparison(design, measured);
  comparison.setFilterExcludeBelow(0.5);  // the floor does not count
  const double over = comparison.overProfileArea();
  places = comparison.overProfileAreaPathes();  // where it was excavated too much
  //! [MeasuredProfileCalculator]
  return over;
}

double geologicalOverBreak(const MeasuredProfileCalculator& comparison) {
  //! [GeologicalOverProfileMethod]
  // What broke out more than 0.15 m beyond the design, and nothing beside it.
  const double area = comparison.geologicalOverProfileArea(
      GeologicalOverProfileMethod::GeologicalBeyondLimitOnly, 0.15, 0);
  //! [GeologicalOverProfileMethod]
  return area;
}

unsigned numArcs(const IProfileSegmentProvider& profile) {
  //! [IProfileSegmentProvider]
  unsigned arcs = 0;
  for (unsigned i = 0; i < profile.getNumSegments(); ++i) {
    if (profile.getSegmentRadiusAt(i) != 0) ++arcs;
  }
  //! [IProfileSegmentProvider]
  return arcs;
}

double greatestDistance(const IProfileCalculator& calculator, const std::vector<Point2D>& points) {
  //! [IProfileCalculator]
  double greatest = 0;
  for (const ProfilePointResult& result : calculator.calculateProfilePoints(points)) {
    greatest = std::max(greatest, result.distance);
  }
  //! [IProfileCalculator]
  return greatest;
}

FittingResult fitEllipse(const std::vector<Point2D>& points, std::vector<bool>& used) {
  //! [FittingHelper]
  const FittingResult ellipse = FittingHelper::ellipseFitFitzgibbon(points, used, 5);
  // points[i] was rejected as an outlier where used[i] is false
  //! [FittingHelper]
  return ellipse;
}

double areaOfLShape() {
  //! [Pathes]
  Path square;
  Path corner;
  for (const Point2D& p : {Point2D(0, 0), Point2D(4, 0), Point2D(4, 4), Point2D(0, 4)}) {
    square.addSegment(PathSegment(p.x, p.y));
    corner.addSegment(PathSegment(p.x + 2, p.y + 2));
  }
  square.close(false);
  corner.close(false);
  const double area = Path::without(square, corner).area();  // 12
  //! [Pathes]
  return area;
}

double areaOnTheGrid(const Path& path) {
  //! [PathHelper]
  const ClipperLib::Path outline = PathHelper::clipperLibPathFromPath(path);
  const double area = PathHelper::fromClipperLibArea(ClipperLib::Area(outline));  // path.area()
  //! [PathHelper]
  return area;
}

boost::shared_ptr<const ThProfileDefinition> profileInTransition(
    const boost::shared_ptr<const ThProfileDefinition>& standard,
    const boost::shared_ptr<const ThProfileDefinition>& layBy) {
  //! [ThProfileMorpher]
  const ThProfileMorpher morpher(standard, layBy, 1200, 1230);
  boost::shared_ptr<const ThProfileDefinition> between = morpher.getMorphedProfile(1210);
  // an empty pointer where the profiles cannot be matched
  //! [ThProfileMorpher]
  return between;
}

}  // namespace Snippets
