// SPDX-License-Identifier: BSL-1.0
#include "FuzzAxes.h"

#include <Calculations/AxisCalculator.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace Fuzz {

namespace {

using namespace Ruv::Calculations;

class AxisMaker {
 public:
  explicit AxisMaker(Input& input) : m_input(input) {}

  FuzzedAxis shaft();
  FuzzedAxis horalVeral();

 private:
  void addElements();
  double addElement(double azimuth, double length);
  void addTameHeights();
  void addWildHeights();
  void addVeralPoint(double stationing, double height, double value, bool kink);
  void addTransSlopes();

  Input& m_input;
  FuzzedAxis m_made;
  double m_stationing = 0.0;
  double m_east = 0.0;
  double m_north = 0.0;
};

FuzzedAxis AxisMaker::shaft() {
  std::array<double, 5> v{};
  for (double& value : v)
    value = m_input.number(-500.0, 500.0);
  m_made.axis.reset(AxisDefinitionFactory::createShaftAxis(v[0], v[1], v[2], v[3], v[4]));
  return m_made;
}

FuzzedAxis AxisMaker::horalVeral() {
  m_made.axis.reset(AxisDefinitionFactory::createHoralVeralAxis());
  // Before the elements, whose end points are asked for while the axis grows.
  if (m_input.isTame()) {
    addTameHeights();
  } else {
    addWildHeights();
  }
  addElements();
  addTransSlopes();
  const double origin = m_input.number(-100.0, 1000.0);
  m_made.axis->setStationingMappingValues(origin, m_input.number(0.0, 1000.0));
  return m_made;
}

/// @return by how much it turns
double AxisMaker::addElement(double azimuth, double length) {
  AxisDefinition& axis = *m_made.axis;
  const double side = m_input.yes() ? 1.0 : -1.0;
  const double radius = side * m_input.number(150.0, 2000.0);
  switch (m_input.count(4)) {
    case 0:
      axis.addHoralSegmentStraight(m_stationing, m_east, m_north, azimuth, length);
      return 0.0;
    case 1:
      axis.addHoralSegmentArc(m_stationing, m_east, m_north, azimuth, radius, length);
      return length / radius;
    case 2:
      axis.addHoralSegmentClothoid(m_stationing, m_east, m_north, azimuth, 0.0, radius, length);
      return length / radius / 2.0;
    case 3:
      axis.addHoralSegmentClothoid(m_stationing, m_east, m_north, azimuth, radius, 0.0, length);
      return length / radius / 2.0;
    default: {
      const double other = (m_input.yes() ? 1.0 : -1.0) * m_input.number(150.0, 2000.0);
      axis.addHoralSegmentClothoid(m_stationing, m_east, m_north, azimuth, radius, other, length);
      return (length / radius + length / other) / 2.0;
    }
  }
}

void AxisMaker::addElements() {
  m_stationing = m_input.number(-100.0, 100.0);
  m_east = m_input.number(-4e5, 4e5);
  m_north = m_input.number(-4e5, 4e5);
  double azimuth = m_input.number(0.0, 6.28);
  for (int left = 1 + m_input.count(7); left > 0; --left) {
    const double length = m_input.number(1.0, 200.0);
    azimuth += addElement(azimuth, length);
    m_stationing += length;
    ENHPoint end(m_east, m_north, 0.0);
    AxisCalculator(m_made.axis).axisPointToEnhPointVertical(AxisPoint(m_stationing, 0.0, 0.0), end);
    const bool isTorn = !m_input.isTame() && m_input.count(3) == 0;
    m_east = isTorn ? m_input.number(-4e5, 4e5) : end.east;
    m_north = isTorn ? m_input.number(-4e5, 4e5) : end.north;
    if (isTorn) azimuth = m_input.number(0.0, 6.28);
  }
}

void AxisMaker::addVeralPoint(double stationing, double height, double value, bool kink) {
  if (kink) {
    m_made.axis->addVeralPointKink(stationing, height);
    m_made.hasKinks = true;
  } else if (m_input.yes()) {
    m_made.axis->addVeralPointArc(stationing, height, value);
  } else {
    m_made.axis->addVeralPointParabola(stationing, height, value);
  }
}

/// Grades change by at most 0.08, so tangents are at most 40 m long.
void AxisMaker::addTameHeights() {
  constexpr double kFirst = -200.0;
  constexpr double kSpacing = 250.0;
  const bool withKinks = m_input.yes();
  m_made.axis->addVeralPointKink(kFirst, m_input.number(0.0, 10.0));
  for (int i = 1; i < 8; ++i) {
    const double height = m_input.number(0.0, 10.0);
    addVeralPoint(kFirst + i * kSpacing, height, m_input.number(10.0, 1000.0),
                  withKinks && m_input.yes());
  }
  m_made.axis->addVeralPointKink(kFirst + 8 * kSpacing, m_input.number(0.0, 10.0));
}

void AxisMaker::addWildHeights() {
  m_made.axis->addVeralPointKink(-200.0, m_input.number(0.0, 10.0));
  for (int left = m_input.count(4); left > 0; --left) {
    const double stationing = m_input.number(-150.0, 1800.0);
    const double height = m_input.number(0.0, 10.0);
    addVeralPoint(stationing, height, m_input.number(-100.0, 5000.0), m_input.yes());
  }
  m_made.axis->addVeralPointKink(1800.0, m_input.number(0.0, 10.0));
}

void AxisMaker::addTransSlopes() {
  double from = m_input.number(-200.0, 500.0);
  for (int left = m_input.count(3); left > 0; --left) {
    const double to = from + m_input.number(1.0, 300.0);
    const double slope = m_input.number(-9.0, 9.0);
    m_made.axis->addTransSlopeSegmentLinear(from, to, slope, m_input.number(-9.0, 9.0));
    from = to + m_input.number(1.0, 300.0);
  }
}

}  // namespace

FuzzedAxis fuzzedAxis(Input& input) {
  AxisMaker maker(input);
  return input.count(7) == 0 ? maker.shaft() : maker.horalVeral();
}

}  // namespace Fuzz
