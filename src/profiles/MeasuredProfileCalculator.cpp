// SPDX-License-Identifier: BSL-1.0
// A comparison of two closed outlines in one plane. Question by question: points are seen from the
// reference, distances and fits are taken of the comparison, areas of both. What is shared between
// questions, and when it is prepared anew, is the implementation's business.

#include <Calculations/FittingHelper.h>
#include <Calculations/MeasuredProfileCalculator.h>

#include "profiles/LineCuts.h"
#include "profiles/MeasuredProfileCalculatorImpl.h"
#include "profiles/paths/PathPoints.h"

#include <cstddef>
#include <stdexcept>

namespace Ruv {
namespace Calculations {

namespace {

/// Polygons of results below this (m2) are noise of the clipping grid: a sliver one grid step wide
/// has it at 1 m of length.
constexpr double kSmallestArea = 0.0001;

/// Rounds of the ellipse fit, without and with the rejection of outliers. Rejecting ends by itself
/// once a round finds none; the limit is for points that lose some in every round.
constexpr int kSingleRound = 1;
constexpr int kMostRounds = 10;

FittingResult ellipseFit(const std::vector<Point2D>& points, int rounds) {
  std::vector<bool> used;
  return FittingHelper::ellipseFitFitzgibbon(points, used, rounds);
}

FittingResult fitted(FittingMethod::Method method, const std::vector<Point2D>& points) {
  switch (method) {
    case FittingMethod::CircleLegacy:
      return FittingHelper::circleFitRuvLegacy(points);
    case FittingMethod::CircleKasa:
      return FittingHelper::circleFitKasa(points);
    case FittingMethod::CircleLandau:
      return FittingHelper::circleFitLandau(points);
    case FittingMethod::EllipseFitzgibbon:
      return ellipseFit(points, kSingleRound);
    case FittingMethod::EllipseFitzgibbonIterative:
      return ellipseFit(points, kMostRounds);
    default:
      throw std::runtime_error("Fitting method not implemented");
  }
}

/// Through two points pass any number of circles, so they only tell a centre. The radius stays 0.
FittingResult centredAt(FittingMethod::Method method, const Point2D& centre) {
  FittingResult result(method);
  result.center = centre;
  return result;
}

std::vector<Polygon> polygonsOf(const Pathes& area) { return polygonsOf(area, kSmallestArea); }

/// An empty profile in place of none, so that no question has to ask.
template <class Profile>
boost::shared_ptr<const Profile> orEmpty(const boost::shared_ptr<const Profile>& profile) {
  return profile ? profile : boost::shared_ptr<const Profile>(new Profile);
}

}  // namespace

MeasuredProfileCalculator::MeasuredProfileCalculator(
    const boost::shared_ptr<const ThProfileDefinition>& reference,
    const boost::shared_ptr<const MeasuredProfile>& comparison)
    : m_impl(new MeasuredProfileCalculatorImpl) {
  m_impl->reference = orEmpty(reference);
  m_impl->comparison = orEmpty(comparison);
}

MeasuredProfileCalculator::MeasuredProfileCalculator(
    const boost::shared_ptr<const MeasuredProfile>& reference,
    const boost::shared_ptr<const MeasuredProfile>& comparison)
    : m_impl(new MeasuredProfileCalculatorImpl) {
  m_impl->reference = orEmpty(reference);
  m_impl->comparison = orEmpty(comparison);
}

MeasuredProfileCalculator::~MeasuredProfileCalculator() = default;

ProfilePointResult MeasuredProfileCalculator::calculateProfilePoint(const Point2D& point) const {
  return m_impl->calculator().calculateProfilePoint(point);
}

std::vector<ProfilePointResult> MeasuredProfileCalculator::calculateProfilePoints(
    const std::vector<Point2D>& points) const {
  return m_impl->calculator().calculateProfilePoints(points);
}

std::size_t MeasuredProfileCalculator::calculateProfilePoints(const Point2D* in, std::size_t count,
                                                              ProfilePointResult* out) const {
  return m_impl->calculator().calculateProfilePoints(in, count, out);
}

Point2D MeasuredProfileCalculator::horizontalDistanceToComparisonProfile(Point2D p) const {
  return nearestCrossing(*m_impl->comparison, p, Point2D(1.0, 0.0));
}

Point2D MeasuredProfileCalculator::verticalDistanceToComparisonProfile(Point2D p) const {
  return nearestCrossing(*m_impl->comparison, p, Point2D(0.0, 1.0));
}

Point2D MeasuredProfileCalculator::radialDistanceToComparisonProfile(Point2D p) const {
  // The direction of the normal. The point at offset 1 and p itself tell it too, but coincide
  // where p lies 1 m outside.
  const ThProfileCalculator& calculator = m_impl->calculator();
  const Point2D normal =
      calculator.applyRadialOffset(p, 1.0) - calculator.applyRadialOffset(p, 0.0);
  return nearestCrossing(*m_impl->comparison, p, normal);
}

std::vector<Point2D> MeasuredProfileCalculator::intersectionsAtGivenUpOffsetOfComparisonProfile(
    double up) const {
  return m_impl->cutAtUpOffset(*m_impl->comparison, up);
}

std::vector<Point2D> MeasuredProfileCalculator::intersectionsAtGivenRightOffsetOfComparisonProfile(
    double right) const {
  return m_impl->cutAtRightOffset(*m_impl->comparison, right);
}

std::vector<Point2D> MeasuredProfileCalculator::intersectionsAtGivenUpOffsetOfReferenceProfile(
    double up) const {
  return m_impl->cutAtUpOffset(*m_impl->reference, up);
}

std::vector<Point2D> MeasuredProfileCalculator::intersectionsAtGivenRightOffsetOfReferenceProfile(
    double right) const {
  return m_impl->cutAtRightOffset(*m_impl->reference, right);
}

FittingResult MeasuredProfileCalculator::leastSquarePointOfComparisonProfile(
    FittingMethod::Method method) const {
  const std::vector<Point2D> points = m_impl->keptPoints(*m_impl->comparison);
  switch (points.size()) {
    case 0:
      return FittingResult(method);
    case 1:
      return centredAt(method, points[0]);
    case 2:
      return centredAt(method, (points[0] + points[1]) / 2.0);
    default:
      return fitted(method, points);
  }
}

void MeasuredProfileCalculator::setFilterExcludeAbove(double y) {
  m_impl->filters.set(LineFilter::ExcludeAbove, y);
}

void MeasuredProfileCalculator::setFilterExcludeBelow(double y) {
  m_impl->filters.set(LineFilter::ExcludeBelow, y);
}

void MeasuredProfileCalculator::setFilterExcludeLeftOf(double x) {
  m_impl->filters.set(LineFilter::ExcludeLeftOf, x);
}

void MeasuredProfileCalculator::setFilterExcludeRightOf(double x) {
  m_impl->filters.set(LineFilter::ExcludeRightOf, x);
}

void MeasuredProfileCalculator::setFilterExcludeBetweenAngles(double startAngle, double endAngle,
                                                              const Point2D& centre) {
  m_impl->filters.addAngles(startAngle, endAngle, centre);
}

void MeasuredProfileCalculator::resetAllFilters() { m_impl->filters.reset(); }

bool MeasuredProfileCalculator::isInFilteredArea(const Point2D& p) const {
  return m_impl->filters.excludes(p);
}

double MeasuredProfileCalculator::comparisonCircumference() const {
  return m_impl->circumferenceOf(*m_impl->comparison);
}

double MeasuredProfileCalculator::referenceCircumference() const {
  return m_impl->circumferenceOf(*m_impl->reference);
}

std::vector<Polyline> MeasuredProfileCalculator::comparisonCircumferenceLines(bool clean) const {
  return m_impl->linesOf(*m_impl->comparison, clean);
}

std::vector<Polyline> MeasuredProfileCalculator::referenceCircumferenceLines(bool clean) const {
  return m_impl->linesOf(*m_impl->reference, clean);
}

double MeasuredProfileCalculator::comparisonArea() const {
  return m_impl->areaOf(m_impl->comparisonOutline());
}

double MeasuredProfileCalculator::referenceArea() const {
  return m_impl->areaOf(m_impl->referenceOutline());
}

double MeasuredProfileCalculator::overProfileArea() const { return m_impl->overArea(); }

double MeasuredProfileCalculator::underProfileArea() const { return m_impl->underArea(); }

std::vector<Polygon> MeasuredProfileCalculator::overProfileAreaPathes() const {
  return polygonsOf(m_impl->overProfile());
}

std::vector<Polygon> MeasuredProfileCalculator::underProfileAreaPathes() const {
  return polygonsOf(m_impl->underProfile());
}

double MeasuredProfileCalculator::geologicalOverProfileArea(
    GeologicalOverProfileMethod::Method method, double a, double b) const {
  return m_impl->geologicalArea(m_impl->division({method, a, b}));
}

std::vector<Polygon> MeasuredProfileCalculator::geologicalOverProfileAreaPathes(
    GeologicalOverProfileMethod::Method method, double a, double b) const {
  return polygonsOf(m_impl->geologicalPart(m_impl->division({method, a, b})));
}

std::pair<std::vector<Polygon>, std::vector<Polygon>>
MeasuredProfileCalculator::overProfileDividedByGeologicalAreaPathes(
    GeologicalOverProfileMethod::Method method, double a, double b) const {
  const GeologicalDivision division = m_impl->division({method, a, b});
  return {polygonsOf(m_impl->geologicalPart(division)),
          polygonsOf(m_impl->remainingPart(division))};
}

}  // namespace Calculations
}  // namespace Ruv
