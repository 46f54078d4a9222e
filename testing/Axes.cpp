// SPDX-License-Identifier: BSL-1.0
#include "testing/Axes.h"

#include "testing/Csv.h"

#include <Calculations/ShapeElements.h>

#include <cmath>
#include <utility>

namespace TestSupport {

using namespace Ruv::Calculations;

AxisPtr newAxis() { return AxisPtr(AxisDefinitionFactory::createHoralVeralAxis()); }

AxisPtr straightAxis(double azimuth, double stationing, double length, double heightStart,
                     double heightEnd) {
  AxisPtr axis = newAxis();
  axis->addHoralSegmentStraight(stationing, 0, 0, azimuth, length);
  axis->addVeralPointKink(stationing, heightStart);
  axis->addVeralPointKink(stationing + length, heightEnd);
  return axis;
}

namespace {

void addHoral(AxisDefinition& axis, const CsvRow& row) {
  const double stationing = row.number("start_station");
  const double east = row.number("east");
  const double north = row.number("north");
  const double azimuth = row.number("azimuth");
  const double length = row.number("length");
  if (row.text("kind") == "straight") {
    axis.addHoralSegmentStraight(stationing, east, north, azimuth, length);
  } else if (row.text("kind") == "arc") {
    axis.addHoralSegmentArc(stationing, east, north, azimuth, row.number("radius_start"), length);
  } else {
    axis.addHoralSegmentClothoid(stationing, east, north, azimuth, row.number("radius_start"),
                                 row.number("radius_end"), length);
  }
}

void addVeral(AxisDefinition& axis, const CsvRow& row) {
  const double stationing = row.number("station");
  const double height = row.number("height");
  if (row.text("kind") == "kink") {
    axis.addVeralPointKink(stationing, height);
  } else if (row.text("kind") == "arc") {
    axis.addVeralPointArc(stationing, height, row.number("rounding"));
  } else {
    axis.addVeralPointParabola(stationing, height, row.number("rounding"));
  }
}

}  // namespace

AxisPtr goldenAxis(const std::string& name) {
  const std::string folder = "alignments/" + name;
  AxisPtr axis = newAxis();
  for (const CsvRow& row : rowsOf(folder + "/horizontal.csv")) {
    addHoral(*axis, row);
  }
  for (const CsvRow& row : rowsOf(folder + "/vertical.csv")) {
    addVeral(*axis, row);
  }
  if (!isGoldenFile(folder + "/transverse_slope.csv")) return axis;
  for (const CsvRow& row : rowsOf(folder + "/transverse_slope.csv")) {
    axis->addTransSlopeSegmentLinear(row.number("station_from"), row.number("station_to"),
                                     row.number("slope_from_percent"),
                                     row.number("slope_to_percent"));
  }
  return axis;
}

ChainBuilder::ChainBuilder(AxisPtr axis, double stationing, double east, double north,
                           double azimuth)
    : m_axis(std::move(axis)),
      m_stationing(stationing),
      m_east(east),
      m_north(north),
      m_azimuth(azimuth) {}

void ChainBuilder::proceed(double length, double turning) {
  const auto* end = dynamic_cast<const Ruv::CHoralElement*>(
      m_axis->getHoralSegmentAt(m_axis->getNumHoralSegments() - 1));
  m_stationing += length;
  m_east = printed(end->getEast());
  m_north = printed(end->getNorth());
  m_azimuth += turning;
}

double ChainBuilder::printed(double coordinate) {
  if (m_random == nullptr) return coordinate;
  return coordinate + m_random->uniform(-m_printingError, m_printingError);
}

ChainBuilder& ChainBuilder::printedTo(double error, Random& random) {
  m_printingError = error;
  m_random = &random;
  return *this;
}

ChainBuilder& ChainBuilder::straight(double length) {
  m_axis->addHoralSegmentStraight(m_stationing, m_east, m_north, m_azimuth, length);
  proceed(length, 0.0);
  return *this;
}

ChainBuilder& ChainBuilder::arc(double radius, double length) {
  m_axis->addHoralSegmentArc(m_stationing, m_east, m_north, m_azimuth, radius, length);
  proceed(length, length / radius);
  return *this;
}

ChainBuilder& ChainBuilder::clothoid(double radiusStart, double radiusEnd, double length) {
  m_axis->addHoralSegmentClothoid(m_stationing, m_east, m_north, m_azimuth, radiusStart, radiusEnd,
                                  length);
  const auto curvature = [](double radius) { return radius == 0.0 ? 0.0 : 1.0 / radius; };
  proceed(length, (curvature(radiusStart) + curvature(radiusEnd)) * length / 2.0);
  return *this;
}

ChainBuilder& ChainBuilder::turn(double angle) {
  m_azimuth += angle;
  return *this;
}

AxisPtr randomSmoothAxis(Random& random, double printingError) {
  AxisPtr axis = newAxis();
  ChainBuilder chain(axis, random.uniform(-500.0, 5000.0), 600000.0, 200000.0,
                     random.uniform(-7.0, 7.0));
  if (printingError > 0.0) chain.printedTo(printingError, random);
  const double start = chain.stationing();
  for (int i = 0; i < 4; ++i) {
    const double radius = random.uniform(300.0, 900.0) * random.sign();
    const double other = random.uniform(300.0, 900.0) * random.sign();
    chain.straight(random.uniform(1.0, 80.0)).clothoid(0.0, radius, random.uniform(30.0, 80.0));
    chain.arc(radius, random.uniform(5.0, 100.0));
    chain.clothoid(radius, other, random.uniform(30.0, 80.0));
    chain.clothoid(other, 0.0, random.uniform(30.0, 80.0));
  }
  const double length = chain.stationing() - start;
  axis->addVeralPointKink(start, 500.0);
  axis->addVeralPointArc(start + 0.25 * length, 500.0 + random.uniform(-8.0, 8.0), 1500.0);
  axis->addVeralPointParabola(start + 0.5 * length, 500.0 + random.uniform(-8.0, 8.0), 900.0);
  axis->addVeralPointArc(start + 0.75 * length, 500.0 + random.uniform(-8.0, 8.0), 1200.0);
  axis->addVeralPointKink(start + length, 500.0);
  axis->addTransSlopeSegmentConstant(start, start + 0.3 * length, 2.5);
  axis->addTransSlopeSegmentLinear(start + 0.3 * length, start + 0.6 * length, 2.5, -6.0);
  axis->setStationingMappingValues(start + 0.4 * length, 1000.0);
  return axis;
}

namespace {

/// Of lengths from the start of the curve. Pairwise sums keep the rounding small.
Point2D advance(double curvature, double change, double from, double to) {
  constexpr double kPanel = 0.5;
  const double middle = (from + to) / 2.0;
  const double half = (to - from) / 2.0;
  if (half > kPanel) {
    return advance(curvature, change, from, middle) + advance(curvature, change, middle, to);
  }
  // Gauss-Legendre, 3 points.
  const auto tangentAt = [&](double l) {
    const double heading = (curvature + change * l / 2.0) * l;
    return Point2D(std::sin(heading), std::cos(heading));
  };
  const double place = half * std::sqrt(0.6);
  const Point2D outer = tangentAt(middle - place) + tangentAt(middle + place);
  return (outer * 5.0 + tangentAt(middle) * 8.0) * (half / 9.0);
}

}  // namespace

Point2D referencePoint(double curvatureStart, double curvatureEnd, double length, double l) {
  return advance(curvatureStart, (curvatureEnd - curvatureStart) / length, 0.0, l);
}

}  // namespace TestSupport
