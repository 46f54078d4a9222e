// SPDX-License-Identifier: BSL-1.0
#include "support/AxisWorkload.h"

#include "support/Angles.h"
#include "testing/Random.h"

#include <algorithm>
#include <cmath>

namespace Benchmarks {

namespace {

using TestSupport::Random;

constexpr ExactPlace kStart = {600000.0L, 200000.0L, 0.3L};
constexpr double kStartStationing = 1000.0;
constexpr double kStartHeight = 500.0;
constexpr double kGradeInterval = 400.0;
constexpr double kSteepestGrade = 0.02;
constexpr double kRoundingRadius = 5000.0;

constexpr std::uint64_t kRadiusSeed = 1;
constexpr std::uint64_t kGradeSeed = 2;
constexpr std::uint64_t kPlaceSeed = 3;
constexpr std::uint64_t kScanSeed = 4;
constexpr std::uint64_t kSectionSeed = 5;
constexpr std::uint64_t kSlabSeed = 9;

constexpr double kScanWidth = 20.0;   // offsets to either side
constexpr double kScanHeight = 10.0;  // above and below

AxisPoint anywhereAround(double stationing, Random& random) {
  const double offset = 2.0 * kScanWidth * random.uniform() - kScanWidth;
  const double rise = 2.0 * kScanHeight * random.uniform() - kScanHeight;
  return {stationing, offset, rise};
}

ENHPoint pointBeside(const ExactAxis& axis, const AxisPoint& place) {
  const ExactPlace foot = axis.at(place.stationing);
  const auto azimuth = static_cast<double>(foot.azimuth);
  return {static_cast<double>(foot.east + place.offset * std::cos(azimuth)),
          static_cast<double>(foot.north - place.offset * std::sin(azimuth)),
          static_cast<double>(axis.heightAt(place.stationing) + place.height)};
}

/// A stationing in one of so many equal parts of the axis. Even distances would keep step with the
/// elements, whose kinds come round every four.
double placeInPart(const ExactAxis& axis, std::size_t part, std::size_t numParts, Random& random) {
  const double share =
      (static_cast<double>(part) + random.uniform()) / static_cast<double>(numParts);
  return axis.startStationing() + axis.length() * share;
}

PlanElement elementOf(std::size_t placeInGroup, double radius) {
  switch (placeInGroup) {
    case 0:
      return {PlanKind::Straight, 0.0, 100.0, 0.0, 0.0};
    case 1:
      return {PlanKind::Clothoid, 0.0, 60.0, 0.0, radius};
    case 2:
      return {PlanKind::Arc, 0.0, 120.0, radius, radius};
    default:
      return {PlanKind::Clothoid, 0.0, 60.0, radius, 0.0};
  }
}

std::vector<PlanElement> planOf(std::size_t numElements) {
  constexpr std::size_t kGroup = 4;
  Random random(kRadiusSeed);
  double radius = 0.0;
  double stationing = kStartStationing;
  std::vector<PlanElement> plan;
  plan.reserve(numElements);
  for (std::size_t i = 0; i < numElements; ++i) {
    if (i % (2 * kGroup) == 0) radius = 300.0 + 700.0 * random.uniform();
    const bool turnsRight = (i / kGroup) % 2 == 0;
    PlanElement element = elementOf(i % kGroup, turnsRight ? radius : -radius);
    element.stationing = stationing;
    stationing += element.length;
    plan.push_back(element);
  }
  return plan;
}

std::vector<GradePoint> profileAlong(const std::vector<PlanElement>& plan) {
  const double end = plan.back().stationing + plan.back().length;
  const auto numIntervals =
      static_cast<int>(std::max(1.0, std::floor((end - kStartStationing) / kGradeInterval)));
  Random random(kGradeSeed);
  std::vector<GradePoint> profile = {{kStartStationing, kStartHeight}};
  for (int i = 1; i <= numIntervals; ++i) {
    const GradePoint& before = profile.back();
    const double stationing = i < numIntervals ? kStartStationing + kGradeInterval * i : end;
    const double grade = kSteepestGrade * (2.0 * random.uniform() - 1.0);
    profile.push_back({stationing, before.height + grade * (stationing - before.stationing)});
  }
  return profile;
}

ExactAxis exactAxisOf(std::size_t numElements) {
  std::vector<PlanElement> plan = planOf(numElements);
  std::vector<GradePoint> profile = profileAlong(plan);
  return {kStart, std::move(plan), std::move(profile), kRoundingRadius};
}

}  // namespace

AxisWorkload::AxisWorkload(std::size_t numElements) : m_exact(exactAxisOf(numElements)) {
  m_starts.reserve(numElements);
  for (std::size_t i = 0; i < numElements; ++i) {
    const ExactPlace& joint = m_exact.joint(i);
    m_starts.push_back({static_cast<double>(joint.east), static_cast<double>(joint.north),
                        static_cast<double>(joint.azimuth)});
  }
}

boost::shared_ptr<const AxisDefinition> AxisWorkload::build() const {
  const boost::shared_ptr<AxisDefinition> axis(
      Ruv::Calculations::AxisDefinitionFactory::createHoralVeralAxis());
  for (std::size_t i = 0; i < m_starts.size(); ++i) {
    addSegment(*axis, i);
  }
  const std::vector<GradePoint>& profile = m_exact.profile();
  axis->addVeralPointKink(profile.front().stationing, profile.front().height);
  for (std::size_t i = 1; i + 1 < profile.size(); ++i) {
    axis->addVeralPointArc(profile[i].stationing, profile[i].height, kRoundingRadius);
  }
  axis->addVeralPointKink(profile.back().stationing, profile.back().height);
  return axis;
}

void AxisWorkload::addSegment(AxisDefinition& axis, std::size_t index) const {
  const PlanElement& element = m_exact.plan()[index];
  const Start& start = m_starts[index];
  switch (element.kind) {
    case PlanKind::Straight:
      axis.addHoralSegmentStraight(element.stationing, start.east, start.north, start.azimuth,
                                   element.length);
      break;
    case PlanKind::Arc:
      axis.addHoralSegmentArc(element.stationing, start.east, start.north, start.azimuth,
                              element.radiusStart, element.length);
      break;
    case PlanKind::Clothoid:
      axis.addHoralSegmentClothoid(element.stationing, start.east, start.north, start.azimuth,
                                   element.radiusStart, element.radiusEnd, element.length);
      break;
  }
}

std::vector<AxisPoint> AxisWorkload::randomPlaces(std::size_t count) const {
  Random random(kPlaceSeed);
  std::vector<AxisPoint> places;
  places.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    places.emplace_back(m_exact.startStationing() + m_exact.length() * random.uniform(), 0.0, 0.0);
  }
  return places;
}

std::vector<Point2D> AxisWorkload::polyline(double step) const {
  const auto numSteps = static_cast<std::size_t>(std::llround(m_exact.length() / step));
  std::vector<Point2D> vertices;
  vertices.reserve(numSteps + 1);
  for (std::size_t i = 0; i <= numSteps; ++i) {
    const double along = m_exact.length() * static_cast<double>(i) / static_cast<double>(numSteps);
    const ExactPlace place = m_exact.at(m_exact.startStationing() + along);
    vertices.emplace_back(static_cast<double>(place.east), static_cast<double>(place.north));
  }
  return vertices;
}

Scan scanAround(const ExactAxis& axis, std::size_t count) {
  Random random(kScanSeed);
  Scan scan;
  scan.points.reserve(count);
  scan.truth.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const double stationing = axis.startStationing() + axis.length() * random.uniform();
    scan.truth.push_back(anywhereAround(stationing, random));
    scan.points.push_back(pointBeside(axis, scan.truth.back()));
  }
  return scan;
}

std::vector<ENHPoint> slabsAlong(const ExactAxis& axis, std::size_t count) {
  constexpr std::size_t kPointsOfSlab = 1000;
  constexpr double kSpacing = 0.001;
  Random random(kSlabSeed);
  const double end = axis.startStationing() + axis.length();
  const std::size_t numSlabs = std::max<std::size_t>(1, count / kPointsOfSlab);
  std::vector<ENHPoint> points;
  points.reserve(numSlabs * kPointsOfSlab);
  for (std::size_t slab = 0; slab < numSlabs; ++slab) {
    const double start = placeInPart(axis, slab, numSlabs, random);
    for (std::size_t i = 0; i < kPointsOfSlab; ++i) {
      const double stationing = std::min(start + kSpacing * static_cast<double>(i), end);
      points.push_back(pointBeside(axis, anywhereAround(stationing, random)));
    }
  }
  return points;
}

std::vector<ENHPoint> sectionsAlong(const ExactAxis& axis, std::size_t count) {
  constexpr std::size_t kPointsOfSection = 200;
  constexpr double kRadius = 6.0;
  constexpr double kSpread = 0.05;  // along the axis, of the points of a section
  Random random(kSectionSeed);
  const std::size_t numSections = std::max<std::size_t>(1, count / kPointsOfSection);
  std::vector<ENHPoint> points;
  points.reserve(numSections * kPointsOfSection);
  for (std::size_t section = 0; section < numSections; ++section) {
    const double stationing = placeInPart(axis, section, numSections, random);
    const ExactPlace foot = axis.at(stationing);
    const auto height = static_cast<double>(axis.heightAt(stationing));
    const auto azimuth = static_cast<double>(foot.azimuth);
    for (std::size_t i = 0; i < kPointsOfSection; ++i) {
      const double angle =
          kFullTurn * static_cast<double>(i) / static_cast<double>(kPointsOfSection);
      const double offset = kRadius * std::sin(angle);
      const double ahead = kSpread * (random.uniform() - 0.5);
      const double east = offset * std::cos(azimuth) + ahead * std::sin(azimuth);
      const double north = ahead * std::cos(azimuth) - offset * std::sin(azimuth);
      points.emplace_back(static_cast<double>(foot.east + east),
                          static_cast<double>(foot.north + north),
                          height + kRadius * std::cos(angle));
    }
  }
  return points;
}

}  // namespace Benchmarks
