// SPDX-License-Identifier: BSL-1.0
// Answers one of the benchmarks' questions a number of times, and does nothing else: what one
// answer takes is the difference of two runs. Without a question it lists them, with the answers
// per round.

#include "support/AxisWorkload.h"
#include "support/FitWorkload.h"
#include "support/ProfileWorkload.h"
#include "support/ResectionWorkload.h"
#include "testing/FixPoints.h"

#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <string>

namespace {

using namespace Benchmarks;
using namespace Ruv::Calculations;

constexpr std::size_t kElements = 1000;
constexpr std::size_t kPlaces = 1000;
/// An axis that no small cache holds, and places enough to come by all of it.
constexpr std::size_t kManyElements = 10000;
constexpr std::size_t kManyPlaces = 20000;
constexpr std::size_t kListPoints = 50000;
constexpr std::size_t kSectionPoints = 2000;
constexpr std::size_t kFitPoints = 1000;
constexpr std::size_t kPairs = 10;

using Round = std::function<double()>;  // its result is printed, so that no answer is left out

struct Question {
  std::string name;
  std::size_t answersPerRound;
  std::function<Round()> prepare;
};

Round entering() {
  return [workload = AxisWorkload(kElements)] { return workload.build()->maximumStng2d(); };
}

Round placingOn(std::size_t numElements, std::size_t numPlaces) {
  const AxisWorkload workload(numElements);
  return [calculator = std::make_shared<AxisCalculator>(workload.build()),
          places = workload.randomPlaces(numPlaces)] {
    double sum = 0.0;
    for (const AxisPoint& place : places) {
      ENHPoint point;
      if (calculator->axisPointToEnhPointVertical(place, point)) sum += point.east;
    }
    return sum;
  };
}

Round locatingOn(std::size_t numElements, std::size_t numPlaces) {
  const AxisWorkload workload(numElements);
  return [calculator = std::make_shared<AxisCalculator>(workload.build()),
          scan = scanAround(workload.exact(), numPlaces)] {
    double sum = 0.0;
    for (const ENHPoint& point : scan.points) {
      AxisPoint place;
      if (calculator->enhPointToAxisPointVertical(point, place)) sum += place.stationing;
    }
    return sum;
  };
}

Round locatingList(const std::vector<ENHPoint>& points) {
  return [calculator = std::make_shared<AxisCalculator>(AxisWorkload(kElements).build()), points] {
    std::vector<AxisPoint> places(points.size());
    calculator->enhPointsToAxisPoints(points.data(), points.size(), places.data(), nullptr, false,
                                      true);
    double sum = 0.0;
    for (const AxisPoint& place : places) {
      sum += place.stationing;
    }
    return sum;
  };
}

Round locatingRandom() {
  return locatingList(scanAround(AxisWorkload(kElements).exact(), kListPoints).points);
}

Round locatingSections() {
  return locatingList(sectionsAlong(AxisWorkload(kElements).exact(), kListPoints));
}

Round locatingSlabs() {
  return locatingList(slabsAlong(AxisWorkload(kElements).exact(), kListPoints));
}

double sumOfDistances(const std::vector<ProfilePointResult>& results) {
  double sum = 0.0;
  for (const ProfilePointResult& result : results) {
    sum += result.distance;
  }
  return sum;
}

Round profile() {
  return [calculator = std::make_shared<ThProfileCalculator>(enterTunnelProfile()),
          points = pointsAround(tunnelProfile(), kPlaces).points] {
    return sumOfDistances(calculator->calculateProfilePoints(points));
  };
}

Round areas() {
  return [design = enterTunnelProfile(),
          section = measuredThrough(measuredSection(kSectionPoints, 50))] {
    const MeasuredProfileCalculator calculator(design, section);
    return calculator.overProfileArea() + calculator.underProfileArea();
  };
}

Round movement() {
  return [reference = measuredThrough(measuredSection(kSectionPoints, 60)),
          points = measuredSection(kSectionPoints, 61)] {
    const MeasuredProfileCalculator calculator(reference, {});
    return sumOfDistances(calculator.calculateProfilePoints(points));
  };
}

using Fit = FittingResult (*)(const std::vector<Point2D>&);

FittingResult ellipse(const std::vector<Point2D>& points) {
  std::vector<bool> used;
  return FittingHelper::ellipseFitFitzgibbon(points, used, 1);
}

std::function<Round()> fitting(Fit fit, const std::vector<Point2D>& points) {
  return [fit, points] { return [fit, points] { return fit(points).center.x; }; };
}

using SetUp = bool (Resection::*)(ENHPoint&, double&, double&, ENHPoint&, double&, double&) const;

std::function<Round()> settingUp(SetUp solve) {
  return [solve] {
    return [solve, resection = ResectionWorkload(kPairs).enter()] {
      ENHPoint station;
      ENHPoint deviation;
      double orientation = 0.0;
      double scale = 1.0;
      double ofOrientation = 0.0;
      double ofScale = 0.0;
      (resection.*solve)(station, orientation, scale, deviation, ofOrientation, ofScale);
      return station.east;
    };
  };
}

Round identifying() {
  return [workload = TestSupport::FixPointWorkload(200, 12, 0, 1000)] {
    TestSupport::PointDetermination determination = workload.enter();
    return determination.determineMeasuredPointsStrict() ? 1.0 : 0.0;
  };
}

std::vector<Question> questions() {
  return {
      {"entering", kElements, entering},
      {"placing", kPlaces, [] { return placingOn(kElements, kPlaces); }},
      {"placing.long", kManyPlaces, [] { return placingOn(kManyElements, kManyPlaces); }},
      {"locating", kPlaces, [] { return locatingOn(kElements, kPlaces); }},
      {"locating.long", kManyPlaces, [] { return locatingOn(kManyElements, kManyPlaces); }},
      {"locating.random", kListPoints, locatingRandom},
      {"locating.sections", kListPoints, locatingSections},
      {"locating.slabs", kListPoints, locatingSlabs},
      {"profile", kPlaces, profile},
      {"areas", 1, areas},
      {"movement", kSectionPoints, movement},
      {"fitting.landau", kFitPoints,
       fitting(FittingHelper::circleFitLandau, circlePoints(kFitPoints))},
      {"fitting.kasa", kFitPoints, fitting(FittingHelper::circleFitKasa, circlePoints(kFitPoints))},
      {"fitting.ellipse", kFitPoints, fitting(ellipse, ellipsePoints(kFitPoints))},
      {"resection.plan", 1, settingUp(&Resection::calculateResectionHelmert2d)},
      {"resection.space", 1, settingUp(&Resection::calculateResectionHelmert3d)},
      {"identification", 1, identifying}};
}

}  // namespace

int main(int argc, char** argv) {
  std::clog.rdbuf(nullptr);
  for (const Question& question : questions()) {
    if (argc < 3) {
      std::cout << question.name << ' ' << question.answersPerRound << '\n';
    } else if (question.name == argv[1]) {
      const Round round = question.prepare();
      double sum = 0.0;
      for (int rounds = std::atoi(argv[2]); rounds > 0; --rounds) {
        sum += round();
      }
      std::cout << sum << '\n';
    }
  }
  return 0;
}
