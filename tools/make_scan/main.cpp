// SPDX-License-Identifier: BSL-1.0
// Makes the scan of a blasted road tunnel along an axis: points (east, north, height) around the
// design profile with the over break and under break that blasting leaves. Always the same points.

#include "common/console/Files.h"
#include "common/exchange/AxisBuilder.h"
#include "common/exchange/DesignProfile.h"
#include "common/exchange/LandXmlReader.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <exception>
#include <iostream>
#include <random>
#include <string>
#include <vector>

namespace {

using Drawing::fixed;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::Point2D;

constexpr std::uint32_t kSeed = 20080612;
constexpr double kPi = 3.14159265358979323846;

constexpr double kFrom = 7297.0;  // stationings: clothoid and arc, the grade rises
constexpr double kTo = 7363.0;
constexpr double kAdvance = 0.1;  // of the scanner in a revolution
constexpr int kPointsOfRevolution = 36;
constexpr double kScannerNoise = 0.004;

/// Uniform in [low, high); the distributions of the standard library differ between libraries.
class Random {
 public:
  double uniform(double low, double high) {
    constexpr double kRange = 4294967296.0;
    return low + (high - low) * (static_cast<double>(m_engine()) / kRange);
  }

 private:
  std::mt19937 m_engine{kSeed};
};

/// A long uneven wave over the surface of the tunnel.
struct Wave {
  double alongTunnel;  // rad/m
  double alongProfile;
  double phase;
  double height;

  double at(double station, double derolment) const {
    return height * std::sin(alongTunnel * station + alongProfile * derolment + phase);
  }
};

std::vector<Wave> unevenRock(Random& random) {
  constexpr int kWaves = 20;
  std::vector<Wave> waves;
  for (int i = 0; i < kWaves; ++i) {
    const double direction = random.uniform(0.0, 2.0 * kPi);
    const double frequency = 2.0 * kPi / random.uniform(1.2, 7.0);
    waves.push_back({frequency * std::cos(direction), frequency * std::sin(direction),
                     random.uniform(0.0, 2.0 * kPi), random.uniform(0.003, 0.018)});
  }
  return waves;
}

/// 1 in the middle of a place, 0 far from it.
double bump(double station, double middle, double reach, double derolment, double middleDerolment,
            double reachAround) {
  const double along = (station - middle) / reach;
  const double around = (derolment - middleDerolment) / reachAround;
  return std::exp(-(along * along + around * around));
}

/// Distance of the rock from the design above the floor.
double brokenRock(double station, double derolment) {
  constexpr double kRound = 4.0;  // length of a blast
  constexpr double kHoles = 0.8;  // distance of the contour holes
  // The holes of a round point outwards, as the drill needs room beside the profile of the last.
  const double partOfRound = std::fmod(station - kFrom, kRound) / kRound;
  const double lookOut = 0.03 + 0.20 * partOfRound;
  const double betweenHoles = std::pow(std::sin(kPi * derolment / kHoles), 2.0);
  const double fallOut = bump(station, 7327.0, 5.0, derolment, 2.8, 1.9);
  const double hardRock = bump(station, 7345.0, 4.0, derolment, -6.8, 1.6);
  return lookOut - 0.06 * betweenHoles + 0.75 * fallOut - 0.42 * hardRock;
}

/// Half the circumference less half the floor, which is the straight at the bottom.
double derolmentOfWallFoot(const Exchange::DesignProfile& design) {
  const Point2D foot(design.upperRight().x, design.lowerLeft().y);
  return design.calculator().calculateProfilePoint(foot).derolment;
}

class ScanMaker {
 public:
  ScanMaker(const AxisCalculator& axis, const Exchange::DesignProfile& design)
      : m_axis(axis), m_design(design), m_wallFoot(derolmentOfWallFoot(design)) {}

  void write(std::ostream& out) {
    const double goldenPart = (std::sqrt(5.0) - 1.0) / 2.0;  // spreads the revolutions evenly
    const auto revolutions = static_cast<int>(std::lround((kTo - kFrom) / kAdvance));
    out << "# Made by tools/make_scan, not measured.\neast,north,height\n";
    for (int i = 0; i < revolutions * kPointsOfRevolution; ++i) {
      const int revolution = i / kPointsOfRevolution;
      const double turn = (i + goldenPart * revolution) / kPointsOfRevolution;
      const double station = kFrom + kAdvance * i / kPointsOfRevolution;
      writePoint(out, station, (turn - std::floor(turn) - 0.5) * m_design.circumference());
    }
  }

 private:
  double distanceAt(double station, double derolment) {
    constexpr double kBelowFloor = 0.12;
    double distance =
        std::abs(derolment) < m_wallFoot ? brokenRock(station, derolment) : kBelowFloor;
    for (const Wave& wave : m_waves) {
      distance += wave.at(station, derolment);
    }
    return distance + m_random.uniform(-kScannerNoise, kScannerNoise);
  }

  void writePoint(std::ostream& out, double station, double derolment) {
    const auto& calculator = m_design.calculator();
    const Point2D foot = calculator.calcPointOnProfileAtDerolment(derolment);
    const Point2D at = calculator.applyRadialOffset(foot, distanceAt(station, derolment));
    ENHPoint point;
    if (!m_axis.axisPointToEnhPointVertical(AxisPoint(station, at.x, at.y), point)) {
      throw Console::Failure("the axis does not reach stationing " + fixed(station, 3));
    }
    out << fixed(point.east, 3) << ',' << fixed(point.north, 3) << ',' << fixed(point.height, 3)
        << '\n';
  }

  const AxisCalculator& m_axis;
  const Exchange::DesignProfile& m_design;
  double m_wallFoot;
  Random m_random;
  std::vector<Wave> m_waves = unevenRock(m_random);
};

void run(const std::string& landXml, const std::string& profile) {
  const Exchange::Alignment alignment =
      Console::valueOrFail(Exchange::readLandXml(Console::textOf(landXml)), landXml);
  const AxisCalculator axis(Console::valueOrFail(Exchange::buildAxis(alignment), landXml).axis);
  std::ifstream profileFile = Console::openFile(profile);
  const Exchange::DesignProfile design =
      Console::valueOrFail(Exchange::readDesignProfile(profileFile), profile);
  ScanMaker(axis, design).write(std::cout);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    if (argc != 3) throw Console::Failure("usage: make_scan LANDXML DESIGN_CSV > SCAN_CSV");
    run(argv[1], argv[2]);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "make_scan: " << error.what() << '\n';
    return 1;
  }
}
