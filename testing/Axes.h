// SPDX-License-Identifier: BSL-1.0
/// @file
/// Axes to test with.

#ifndef CALCULATIONS_TESTING_AXES_H
#define CALCULATIONS_TESTING_AXES_H

#include "testing/Random.h"

#include <Calculations/AxisCalculator.h>
#include <Calculations/AxisDefinition.h>
#include <Calculations/Points.h>

#include <boost/shared_ptr.hpp>

#include <string>

namespace TestSupport {

using AxisPtr = boost::shared_ptr<Ruv::Calculations::AxisDefinition>;

AxisPtr newAxis();

/// An even grade over a straight that begins at the origin.
AxisPtr straightAxis(double azimuth, double stationing, double length, double heightStart,
                     double heightEnd);

struct AxisProperties {
  double azimuth = -1, radius = -1, slopeRad = -1, slopePercent = -1;
  double transRad = -1, transPercent = -1;
  bool ok;

  AxisProperties(const Ruv::Calculations::AxisCalculator& axis, double stationing)
      : ok(axis.axisPropertiesAtStationing(stationing, azimuth, radius, slopeRad, slopePercent,
                                           transRad, transPercent)) {}
};

/// An axis of tests/golden/alignments.
AxisPtr goldenAxis(const std::string& name);

/// Adds segments one behind the other. Headings are exact sums; end points are the library's own.
class ChainBuilder {
 public:
  ChainBuilder(AxisPtr axis, double stationing, double east, double north, double azimuth);

  ChainBuilder& straight(double length);
  ChainBuilder& arc(double radius, double length);
  ChainBuilder& clothoid(double radiusStart, double radiusEnd, double length);
  /// Makes a corner.
  ChainBuilder& turn(double angle);
  /// From here on, start points lie beside the end before by up to this in east and north.
  ChainBuilder& printedTo(double error, Random& random);

  double stationing() const { return m_stationing; }

 private:
  void proceed(double length, double turning);
  double printed(double coordinate);

  AxisPtr m_axis;
  double m_printingError = 0.0;
  Random* m_random = nullptr;
  double m_stationing;
  double m_east;
  double m_north;
  double m_azimuth;
};

/// Straights, arcs and clothoids in random order with tangent joints, from about 300 m radius, in
/// national coordinates, with circles and parabolas in the profile and changing cross fall.
/// @param printingError by which start points may be off in east and north
AxisPtr randomSmoothAxis(Random& random, double printingError = 0.0);

/// A point of a curve of linear curvature that starts at the origin heading north, by quadrature.
/// x is east, y north.
Ruv::Calculations::Point2D referencePoint(double curvatureStart, double curvatureEnd, double length,
                                          double l);

}  // namespace TestSupport

#endif
