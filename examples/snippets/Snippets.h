// SPDX-License-Identifier: BSL-1.0
/// @file
/// The examples of the class pages. The tests run them.

#ifndef CALCULATIONS_EXAMPLES_SNIPPETS_SNIPPETS_H
#define CALCULATIONS_EXAMPLES_SNIPPETS_SNIPPETS_H

#include <Calculations/Calculations.h>

#include <string>
#include <vector>

namespace Snippets {

using namespace Ruv::Calculations;

boost::shared_ptr<AxisDefinition> defineAxis();
bool isContinuous(const AxisDefinition& axis);
boost::shared_ptr<const AxisDefinition> defineShaft();
boost::shared_ptr<ThProfileDefinition> defineProfile();
boost::shared_ptr<MeasuredProfile> defineMeasuredProfile();

ENHPoint pointAhead();
ENHPoint measuredPoint();
double rawLength();

ENHPoint gridPointOfAxisPoint(const boost::shared_ptr<const AxisDefinition>& axis, AxisPoint& back);
AxisPoint positionInBlock(const boost::shared_ptr<const AxisDefinition>& axis);
double stationingOnOtherAxis(const boost::shared_ptr<const AxisDefinition>& axis,
                             const boost::shared_ptr<const AxisDefinition>& other);
double lengthInSpace(const AxisDefinition& axis);
double lengthCurvingRight(const AxisDefinition& axis);
void flattenRounding(const AxisDefinition& axis);
bool endOfClothoid(Point2D& end);

ProfilePointResult positionInProfile(const boost::shared_ptr<const ThProfileDefinition>& design);
double overExcavation(const boost::shared_ptr<const ThProfileDefinition>& design,
                      const boost::shared_ptr<const MeasuredProfile>& measured,
                      std::vector<Polygon>& places);
double geologicalOverBreak(const MeasuredProfileCalculator& comparison);
unsigned numArcs(const IProfileSegmentProvider& profile);
double greatestDistance(const IProfileCalculator& calculator, const std::vector<Point2D>& points);
FittingResult fitEllipse(const std::vector<Point2D>& points, std::vector<bool>& used);
double areaOfLShape();
double areaOnTheGrid(const Path& path);
boost::shared_ptr<const ThProfileDefinition> profileInTransition(
    const boost::shared_ptr<const ThProfileDefinition>& standard,
    const boost::shared_ptr<const ThProfileDefinition>& layBy);

GuidanceOffsets boomBesideVector(const boost::shared_ptr<const AxisDefinition>& axis,
                                 ENHPoint& ahead);
double riseOfVector();
double driftOfVector(const boost::shared_ptr<const AxisDefinition>& axis);

ENHPoint freeStation(double& orientation);
ENHPoint placeTarget(std::vector<ENHPoint>& residuals);
std::wstring identifyFixPoint();

}  // namespace Snippets

#endif
