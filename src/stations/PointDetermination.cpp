// SPDX-License-Identifier: BSL-1.0
// The class that callers see knows ids; the search knows indices only. Fix points and measurements
// are stored in the order of adding, handed to a matcher as plain lists, and its solutions
// translated back. Each determination starts from nothing and appends its solutions, so the answers
// come from the first one that succeeded since reset().

#include <Calculations/PointDetermination.h>
#include <Calculations/Utilities.h>

#include "foundation/MakeRoom.h"
#include "stations/ChanceAssignments.h"
#include "stations/FixPointMatcher.h"
#include "stations/IdentifiedList.h"
#include "stations/Matching.h"
#include "stations/RobustDetermination.h"
#include "stations/SolutionSignificance.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

namespace Ruv {
namespace Calculations {

namespace {

/// A rigid motion in space is determined by three points.
constexpr int kFewestMeasurements = 3;

void setTolerance(double& tolerance, double value) {
  if (value >= 0.0) tolerance = value;
}

}  // namespace

class PointDeterminationImpl {
 public:
  /// What the determination that found the first solution had before it. Points and measurements
  /// can be added afterwards, always behind these, and the settings changed.
  struct Circumstances {
    MatchSettings settings;
    std::size_t fixPoints = 0;
    std::size_t measurements = 0;
  };

  IdentifiedList<ENHPoint> fixPoints;
  IdentifiedList<PolarPoint> measurements;
  MatchSettings settings;
  std::vector<MatchedSolution> solutions;
  Circumstances ofFirstSolution;

  /// The matcher counts fix points in the order of their ids, so that equally good solutions come
  /// out in an order that does not depend on that of adding fix points.
  template <class Search>
  bool determine(const Search& search) {
    const std::vector<std::size_t> idOrder = fixPoints.indicesInIdOrder();
    std::vector<ENHPoint> pointsInIdOrder;
    pointsInIdOrder.reserve(idOrder.size());
    for (const std::size_t index : idOrder) {
      pointsInIdOrder.push_back(fixPoints.entries()[index]);
    }
    FixPointMatcher matcher(settings, pointsInIdOrder, localPoints());
    if (!search(matcher)) return false;
    const bool isFirst = solutions.empty();
    appendSolutions(copyOf(matcher.solutions()), idOrder);
    if (isFirst) {
      ofFirstSolution = {settings, fixPoints.entries().size(), measurements.entries().size()};
    }
    return true;
  }

 private:
  std::vector<ENHPoint> localPoints() const {
    std::vector<ENHPoint> points;
    points.reserve(measurements.entries().size());
    for (const PolarPoint& measurement : measurements.entries()) {
      points.push_back(Utilities::convertToLocalCoordinates(measurement));
    }
    return points;
  }

  /// Back from the order of the ids to that of adding, which the ids are looked up by.
  void appendSolutions(std::vector<MatchedSolution> found,
                       const std::vector<std::size_t>& idOrder) {
    makeRoomFor(found.size(), solutions);  // all of them or none
    for (MatchedSolution& solution : found) {
      for (std::size_t& fixPoint : solution.fixPoints) {
        if (fixPoint != kNotAssigned) fixPoint = idOrder[fixPoint];
      }
    }
    std::move(found.begin(), found.end(), std::back_inserter(solutions));
  }
};

PointDetermination::PointDetermination() : m_impl(std::make_shared<PointDeterminationImpl>()) {}

PointDetermination::PointDetermination(const PointDetermination& other) = default;
PointDetermination& PointDetermination::operator=(const PointDetermination& other) = default;
PointDetermination::~PointDetermination() = default;

void PointDetermination::reset() {
  m_impl->fixPoints.clear();
  m_impl->measurements.clear();
  m_impl->solutions.clear();
  m_impl->settings = MatchSettings();
}

unsigned int PointDetermination::getNumPoints() const {
  return static_cast<unsigned int>(m_impl->fixPoints.entries().size());
}

unsigned int PointDetermination::getNumMeasurements() const {
  return static_cast<unsigned int>(m_impl->measurements.entries().size());
}

bool PointDetermination::addPoint(const std::wstring& id, const ENHPoint& point) {
  return m_impl->fixPoints.add(id, point);
}

bool PointDetermination::addMeasurement(const std::wstring& id, const PolarPoint& measurement) {
  return m_impl->measurements.add(id, measurement);
}

bool PointDetermination::determineMeasuredPointsStrict() {
  return m_impl->determine([](FixPointMatcher& matcher) { return matcher.matchAll(); });
}

bool PointDetermination::determineMeasuredPointsRobust() {
  return m_impl->determine(
      [](FixPointMatcher& matcher) { return RobustDetermination(matcher).run(); });
}

bool PointDetermination::isBestSolutionSignificantlyBetter() const {
  return isFirstSolutionSignificant(m_impl->solutions, m_impl->fixPoints.entries());
}

double PointDetermination::expectedChanceSolutions() const {
  constexpr double kNoEvidence = std::numeric_limits<double>::infinity();
  if (m_impl->solutions.empty()) return kNoEvidence;
  const PointDeterminationImpl::Circumstances& before = m_impl->ofFirstSolution;
  const std::vector<ENHPoint>& all = m_impl->fixPoints.entries();
  // Lists only grow, so what was there before is at their front.
  const std::vector<ENHPoint> fixPoints(
      all.begin(), all.begin() + static_cast<std::ptrdiff_t>(before.fixPoints));
  const std::size_t matched = numMatchedPlaces(m_impl->solutions.front(), fixPoints,
                                               before.settings.toleranceDistanceDifference);
  if (matched < kFewestInFigure) return kNoEvidence;
  return expectedChanceAssignments(fixPoints, before.measurements, matched, before.settings);
}

std::wstring PointDetermination::getFixPointIdForMeasurementId(
    const std::wstring& measurementId) const {
  const auto measurement = m_impl->measurements.indexOf(measurementId);
  if (!measurement || m_impl->solutions.empty()) return std::wstring();
  const std::vector<std::size_t>& fixPoints = m_impl->solutions.front().fixPoints;
  // Measurements may have been added after the determination.
  if (*measurement >= fixPoints.size() || fixPoints[*measurement] == kNotAssigned) {
    return std::wstring();
  }
  return m_impl->fixPoints.id(fixPoints[*measurement]);
}

void PointDetermination::setMinNumberOfFixPointMeasurementsRequired(int number) {
  m_impl->settings.minNumberOfFixPointMeasurementsRequired = std::max(number, kFewestMeasurements);
}

int PointDetermination::getMinNumberOfFixPointMeasurementsRequired() const {
  return m_impl->settings.minNumberOfFixPointMeasurementsRequired;
}

void PointDetermination::setToleranceDistanceDifference(double tolerance) {
  setTolerance(m_impl->settings.toleranceDistanceDifference, tolerance);
}

double PointDetermination::getToleranceDistanceDifference() const {
  return m_impl->settings.toleranceDistanceDifference;
}

void PointDetermination::setToleranceHeightDifference(double tolerance) {
  setTolerance(m_impl->settings.toleranceHeightDifference, tolerance);
}

double PointDetermination::getToleranceHeightDifference() const {
  return m_impl->settings.toleranceHeightDifference;
}

void PointDetermination::setToleranceTilt(double degrees) {
  setTolerance(m_impl->settings.toleranceTilt, degrees);
}

double PointDetermination::getToleranceTilt() const { return m_impl->settings.toleranceTilt; }

}  // namespace Calculations
}  // namespace Ruv
