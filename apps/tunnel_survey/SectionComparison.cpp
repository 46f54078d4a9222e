// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/SectionComparison.h"

#include "common/exchange/AreaFrame.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>

namespace TunnelSurvey {

namespace {

using Ruv::Calculations::FittingMethod;
using Ruv::Calculations::GeologicalOverProfileMethod;
using Ruv::Calculations::MeasuredProfile;
using Ruv::Calculations::MeasuredProfileCalculator;
using Ruv::Calculations::Point2D;

boost::shared_ptr<const MeasuredProfile> measuredProfile(const std::vector<Point2D>& points) {
  const auto profile = boost::make_shared<MeasuredProfile>();
  for (const Point2D& point : points) {
    profile->addPoint(point);
  }
  return profile;
}

/// The shorter way round a closed profile, clockwise positive.
double wayBetween(double from, double to, double circumference) {
  return std::remainder(to - from, circumference);
}

/// Parts of at most 10 cm.
int partsOf(double way) {
  constexpr double kStep = 0.1;
  constexpr double kMost = 1e6;
  const double parts = std::floor(std::abs(way) / kStep) + 1.0;
  return parts < kMost ? static_cast<int>(parts) : 1;
}

/// The points, and between neighbours others 10 cm apart whose distances from the design run
/// linearly with the derolment.
std::vector<Point2D> outlineAlongDesign(const std::vector<Point2D>& points,
                                        const Exchange::DesignProfile& design) {
  const double circumference = design.circumference();
  const auto deviations = design.calculator().calculateProfilePoints(points);
  std::vector<Point2D> outline;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Deviation& here = deviations[i];
    const Deviation& next = deviations[(i + 1) % points.size()];
    outline.push_back(points[i]);
    const double way = wayBetween(here.derolment, next.derolment, circumference);
    const int parts = partsOf(way);
    for (int part = 1; part < parts; ++part) {
      const double share = static_cast<double>(part) / parts;
      const double derolment = here.derolment + way * share;
      const double distance = here.distance + (next.distance - here.distance) * share;
      const Point2D foot = design.calculator().calcPointOnProfileAtDerolment(derolment);
      outline.push_back(design.calculator().applyRadialOffset(foot, distance));
    }
  }
  return outline;
}

void setFilters(MeasuredProfileCalculator& calculator, const ComparisonRule& rule) {
  if (rule.excludeAbove) calculator.setFilterExcludeAbove(*rule.excludeAbove);
  if (rule.excludeBelow) calculator.setFilterExcludeBelow(*rule.excludeBelow);
}

void takeDeviation(SectionResult& result, const Extreme& extreme) {
  const double distance = extreme.deviation.distance;
  result.deviations.push_back(extreme.deviation);
  if (distance > (result.largestOver ? result.largestOver->deviation.distance : 0.0)) {
    result.largestOver = extreme;
  }
  if (distance < (result.largestUnder ? result.largestUnder->deviation.distance : 0.0)) {
    result.largestUnder = extreme;
  }
}

/// Everything that rests on the measured points themselves.
void comparePoints(SectionResult& result, const Exchange::DesignProfile& design,
                   const ComparisonRule& rule) {
  const std::vector<Point2D>& points = result.section.points;
  MeasuredProfileCalculator calculator(design.definition(), measuredProfile(points));
  setFilters(calculator, rule);
  const auto deviations = calculator.calculateProfilePoints(points);
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (!calculator.isInFilteredArea(points[i])) takeDeviation(result, {points[i], deviations[i]});
  }
  result.circle = calculator.leastSquarePointOfComparisonProfile(FittingMethod::CircleLandau);
  result.ellipse =
      calculator.leastSquarePointOfComparisonProfile(FittingMethod::EllipseFitzgibbonIterative);
}

ComparisonRule movedInto(const Exchange::AreaFrame& frame, ComparisonRule rule) {
  if (rule.excludeAbove) rule.excludeAbove = frame.movedHeight(*rule.excludeAbove);
  if (rule.excludeBelow) rule.excludeBelow = frame.movedHeight(*rule.excludeBelow);
  return rule;
}

/// Everything that rests on the outline through them.
void compareAreas(SectionResult& result, const Exchange::DesignProfile& design,
                  const ComparisonRule& rule) {
  constexpr double kMargin = 1.0;
  const double beyond = rule.geology ? rule.geology->beyond : 0.0;
  const Exchange::AreaFrame frame(design, result.outline, beyond + kMargin);
  std::vector<Point2D> outline;
  for (const Point2D& point : result.outline) {
    outline.push_back(frame.moved(point));
  }
  MeasuredProfileCalculator calculator(frame.design(), measuredProfile(outline));
  setFilters(calculator, movedInto(frame, rule));
  const bool isWhole = !rule.excludeAbove && !rule.excludeBelow;
  result.designArea = isWhole ? design.area() : calculator.referenceArea();
  result.measuredArea = calculator.comparisonArea();
  result.overArea = calculator.overProfileArea();
  result.underArea = calculator.underProfileArea();
  result.under = frame.back(calculator.underProfileAreaPathes());
  result.comparedOutline = frame.back(calculator.comparisonCircumferenceLines(false));
  if (!rule.geology) {
    result.over = frame.back(calculator.overProfileAreaPathes());
    return;
  }
  const double from = rule.geology->from.value_or(0.0);
  const auto method = rule.geology->method();
  result.geologicalArea = calculator.geologicalOverProfileArea(method, beyond, from);
  const auto parts = calculator.overProfileDividedByGeologicalAreaPathes(method, beyond, from);
  result.geological = frame.back(parts.first);
  result.over = frame.back(parts.second);
}

}  // namespace

GeologicalOverProfileMethod::Method GeologyRule::method() const {
  if (!from) return GeologicalOverProfileMethod::GeologicalBeyondLimitOnly;
  return *from > 0.0 ? GeologicalOverProfileMethod::GeologicalBandBetweenLimits
                     : GeologicalOverProfileMethod::GeologicalBandFromReference;
}

SectionResult compareWithDesign(const MeasuredSection& section,
                                const Exchange::DesignProfile& design, const ComparisonRule& rule) {
  SectionResult result;
  result.section = section;
  result.outline = rule.followDesign ? outlineAlongDesign(section.points, design) : section.points;
  comparePoints(result, design, rule);
  compareAreas(result, design, rule);
  return result;
}

std::optional<Volumes> volumesOf(const std::vector<SectionResult>& sections,
                                 const std::function<double(double, double)>& lengthBetween) {
  const auto hasStation = [](const SectionResult& result) {
    return result.section.station.has_value();
  };
  if (sections.size() < 2 || !std::all_of(sections.begin(), sections.end(), hasStation)) {
    return std::nullopt;
  }
  Volumes volumes;
  for (std::size_t i = 1; i < sections.size(); ++i) {
    const SectionResult& a = sections[i - 1];
    const SectionResult& b = sections[i];
    const double length = lengthBetween(*a.section.station, *b.section.station);
    const auto between = [&](double SectionResult::*area) {
      return (a.*area + b.*area) / 2.0 * length;
    };
    volumes.parts.push_back({length, between(&SectionResult::designArea),
                             between(&SectionResult::overArea), between(&SectionResult::underArea),
                             between(&SectionResult::geologicalArea)});
    for (double VolumePart::*quantity :
         {&VolumePart::length, &VolumePart::design, &VolumePart::over, &VolumePart::under,
          &VolumePart::geological}) {
      volumes.total.*quantity += volumes.parts.back().*quantity;
    }
  }
  return volumes;
}

}  // namespace TunnelSurvey
