// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/AxisBuilder.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace Exchange {

namespace {

using Drawing::fixed;
using Ruv::CHoralElement;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisDefinition;
using Ruv::Calculations::AxisDefinitionFactory;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::Point2D;
using Ruv::Calculations::Utilities;

constexpr double kHalfPi = 1.5707963267948966;

/// What a file may contradict itself by (m): files print millimetres or better, so that more is a
/// slip in one of the numbers.
constexpr double kLargestContradiction = 0.01;
/// Chords below this (m) have no reliable direction: printed micrometres turn them by 1e-5 rad.
constexpr double kShortestDirectedChord = 0.1;
/// Printed angles, kinks of the axis: told from here on (rad). 0.06 gon.
constexpr double kNotedAngle = 1e-3;
/// Roundings between grades that differ less (1) are kinks: on 100 m they lift by 10 nm.
constexpr double kSmallestGradeChange = 1e-9;

const char* nameOf(ElementKind kind) {
  switch (kind) {
    case ElementKind::Arc:
      return "Curve";
    case ElementKind::Clothoid:
      return "Spiral";
    default:
      return "Line";
  }
}

double curvatureOf(double radius) { return radius == 0.0 ? 0.0 : 1.0 / radius; }

double turnOf(const PlanElement& element) {
  return element.length * (curvatureOf(element.radiusStart) + curvatureOf(element.radiusEnd)) / 2.0;
}

double difference(double azimuth, double other) {
  return std::abs(Utilities::getangleAsMinusPiToPi(azimuth - other));
}

std::string gonText(double angle) { return fixed(Utilities::rad2gon(angle), 4) + " gon"; }

PlacedElement placed(const PlanElement& element, double station, const PlanPoint& start,
                     double azimuth) {
  return {element.kind,        station,          start, azimuth, element.length,
          element.radiusStart, element.radiusEnd};
}

void addElement(AxisDefinition& axis, const PlacedElement& e) {
  switch (e.kind) {
    case ElementKind::Straight:
      axis.addHoralSegmentStraight(e.station, e.start.east, e.start.north, e.azimuth, e.length);
      break;
    case ElementKind::Arc:
      axis.addHoralSegmentArc(e.station, e.start.east, e.start.north, e.azimuth, e.radiusStart,
                              e.length);
      break;
    case ElementKind::Clothoid:
      axis.addHoralSegmentClothoid(e.station, e.start.east, e.start.north, e.azimuth, e.radiusStart,
                                   e.radiusEnd, e.length);
      break;
  }
}

void addPoint(AxisDefinition& axis, const PlacedPoint& point) {
  switch (point.rounding) {
    case RoundingKind::None:
      axis.addVeralPointKink(point.station, point.height);
      break;
    case RoundingKind::Circle:
      axis.addVeralPointArc(point.station, point.height, point.radius);
      break;
    case RoundingKind::Parabola:
      axis.addVeralPointParabola(point.station, point.height, point.radius);
      break;
  }
}

/// Where the element ends when it is laid out from a point in a direction.
PlanPoint endOf(const PlanElement& element, const PlanPoint& start, double azimuth) {
  const std::unique_ptr<AxisDefinition> axis(AxisDefinitionFactory::createHoralVeralAxis());
  addElement(*axis, placed(element, 0.0, start, azimuth));
  const auto* end = dynamic_cast<const CHoralElement*>(axis->getHoralSegmentAt(0));
  return end == nullptr ? start : PlanPoint{end->getEast(), end->getNorth()};
}

/// The tangents at both ends of an element meet on the outer side of its curve.
bool bendsAwayFrom(const PlanElement& element) {
  if (!element.intersection) return false;
  const double toIntersection = azimuthOf(element.start, *element.intersection);
  const double toEnd = azimuthOf(element.start, element.end);
  return Utilities::getangleAsMinusPiToPi(toEnd - toIntersection) * turnOf(element) < 0.0;
}

/// Where printed directions count from and which way round.
struct DirectionRule {
  double from;  ///< azimuth of direction 0
  double side;  ///< 1 clockwise
  const char* words;

  double azimuthOf(double direction) const { return from + side * direction; }
};

constexpr std::array<DirectionRule, 4> kDirectionRules = {
    {{0.0, 1.0, "clockwise from north"},
     {kHalfPi, -1.0, "anticlockwise from east"},
     {0.0, -1.0, "anticlockwise from north"},
     {kHalfPi, 1.0, "clockwise from east"}}};

/// An element with a printed direction, and the azimuth that its coordinates say.
struct PrintedDirection {
  const PlanElement* element;
  double azimuth;
};

class AxisBuilder {
 public:
  AxisBuilder(const Alignment& alignment, std::optional<double> cantBase)
      : m_alignment(alignment),
        m_cantBase(cantBase),
        m_station(alignment.startStation),
        m_axis(AxisDefinitionFactory::createHoralVeralAxis()) {}

  Outcome<BuiltAxis> build() {
    m_built.notes = m_alignment.notes;
    m_built.stationing = m_alignment.stationing;
    for (const PlanElement& element : m_alignment.plan) {
      if (!appendElement(element)) return Outcome<BuiltAxis>::failure(m_error);
    }
    noteDirections();
    appendProfile();
    if (!roundingsFit() || !canBeEvaluated()) return Outcome<BuiltAxis>::failure(m_error);
    noteCut();
    appendCant();
    m_axis->setStationingMappingValues(m_axis->minimumStng2d(), 0.0);
    m_built.axis.reset(m_axis.release());
    return Outcome<BuiltAxis>::success(m_built);
  }

 private:
  bool refuse(int line, const std::string& message) {
    m_error = {line, message};
    return false;
  }

  bool refuse(const PlanElement& element, const std::string& message) {
    return refuse(element.line, std::string(nameOf(element.kind)) + ": " + message);
  }

  void note(const PlanElement& element, const std::string& message) {
    m_built.notes.push_back({element.line, std::string(nameOf(element.kind)) + ": " + message});
  }

  bool isFirst() const { return m_axis->getNumHoralSegments() == 0; }

  double azimuthFromCoordinates(const PlanElement& element) const {
    if (element.center) {
      const double side = element.radiusStart > 0.0 ? 1.0 : -1.0;
      return azimuthOf(element.start, *element.center) - side * kHalfPi;
    }
    const double chord = azimuthOf(element.start, element.end);
    return chord - azimuthOf({}, endOf(element, {}, 0.0));
  }

  bool hasDirection(const PlanElement& element) const {
    return element.center || distanceOf(element.start, element.end) >= kShortestDirectedChord;
  }

  /// Elements print the continuous station, or the one that people read.
  bool isExpectedStation(double station) const {
    const auto isNear = [station](double other) {
      return std::abs(station - other) <= kLargestContradiction;
    };
    if (isNear(m_station) || isNear(m_alignment.stationing.stationAt(m_station))) return true;
    const auto& equations = m_alignment.stationing.equations();
    return std::any_of(equations.begin(), equations.end(), [&](const StationEquation& equation) {
      return std::abs(equation.place - m_station) <= kLargestContradiction &&
             isNear(equation.ahead);
    });
  }

  bool continuesChain(const PlanElement& element) {
    if (element.startStation && !isExpectedStation(*element.startStation)) {
      return refuse(element, "begins at station " + fixed(*element.startStation, 3) +
                                 ", expected " + fixed(m_station, 3));
    }
    const double gap = isFirst() ? 0.0 : distanceOf(m_end, element.start);
    if (!(gap <= kLargestContradiction)) {
      return refuse(element, "begins " + fixed(gap, 3) + " m from the end of the element before");
    }
    if (element.startStation && !m_alignment.stationing.hasEquations()) {
      m_station = *element.startStation;
    }
    return true;
  }

  bool appendElement(const PlanElement& element) {
    if (!continuesChain(element)) return false;
    const bool isDirected = hasDirection(element) || isFirst();
    const double azimuth = isDirected ? azimuthFromCoordinates(element) : m_azimuth;
    const double misfit = distanceOf(endOf(element, element.start, azimuth), element.end);
    if (!(misfit <= kLargestContradiction)) {
      return refuse(element, "start, radius and length lead to a point " + fixed(misfit, 3) +
                                 " m from the printed end");
    }
    if (bendsAwayFrom(element)) return refuse(element, "rot contradicts the position of PI");
    m_built.largestMisfit = std::max(m_built.largestMisfit, misfit);
    if (isDirected) noteAngles(element, azimuth);
    m_built.plan.push_back(placed(element, m_station, element.start, azimuth));
    addElement(*m_axis, m_built.plan.back());
    m_station += element.length;
    m_azimuth = azimuth + turnOf(element);
    m_end = element.end;
    return true;
  }

  void noteAngles(const PlanElement& element, double azimuth) {
    if (element.printedDirection) m_directions.push_back({&element, azimuth});
    const double turn = std::abs(turnOf(element));
    if (element.printedTurn && difference(*element.printedTurn, turn) > kNotedAngle) {
      note(element, "radius and length turn by " + gonText(turn) + ", not by the printed " +
                        gonText(*element.printedTurn));
    }
    if (isFirst()) return;
    const double kink = difference(azimuth, m_azimuth);
    m_built.largestKink = std::max(m_built.largestKink, kink);
    if (kink > kNotedAngle) note(element, "turns off the element before by " + gonText(kink));
  }

  bool follows(const DirectionRule& rule, const PrintedDirection& direction) const {
    return difference(rule.azimuthOf(*direction.element->printedDirection), direction.azimuth) <=
           kNotedAngle;
  }

  /// A rule that all printed directions follow is the one of the program that wrote the file; where
  /// there is none, those that differ are told.
  void noteDirections() {
    for (const DirectionRule& rule : kDirectionRules) {
      const bool holds = std::all_of(m_directions.begin(), m_directions.end(),
                                     [&](const PrintedDirection& d) { return follows(rule, d); });
      if (!holds) continue;
      if (&rule != &kDirectionRules.front()) {
        m_built.notes.push_back({m_directions.front().element->line,
                                 std::string("printed directions count ") + rule.words});
      }
      return;
    }
    const DirectionRule& usual = kDirectionRules.front();
    for (const PrintedDirection& direction : m_directions) {
      if (follows(usual, direction)) continue;
      note(*direction.element, "its coordinates run in " +
                                   gonText(Utilities::getAngleAsZeroToTwoPi(direction.azimuth)) +
                                   ", not in the printed " +
                                   gonText(*direction.element->printedDirection));
    }
  }

  double gradeAfter(std::size_t index) const {
    const ProfilePoint& from = m_alignment.profile[index];
    const ProfilePoint& to = m_alignment.profile[index + 1];
    return (to.height - from.height) / (to.station - from.station);
  }

  void appendProfile() {
    m_built.hasHeights = !m_alignment.profile.empty();
    if (!m_built.hasHeights) {
      m_built.profile = {{RoundingKind::None, m_alignment.startStation, 0.0, 0.0},
                         {RoundingKind::None, m_station, 0.0, 0.0}};
    }
    for (std::size_t i = 0; i < m_alignment.profile.size(); ++i) {
      m_built.profile.push_back(placedPoint(i));
    }
    for (const PlacedPoint& point : m_built.profile) {
      addPoint(*m_axis, point);
    }
  }

  PlacedPoint placedPoint(std::size_t index) const {
    const ProfilePoint& point = m_alignment.profile[index];
    const double change = point.rounding == RoundingKind::None
                              ? 0.0
                              : std::abs(gradeAfter(index) - gradeAfter(index - 1));
    if (change < kSmallestGradeChange) {
      return {RoundingKind::None, point.station, point.height, 0.0};
    }
    const bool isCircle = point.rounding == RoundingKind::Circle;
    return {point.rounding, point.station, point.height,
            isCircle ? point.size : point.size / change};
  }

  bool roundingsFit() {
    constexpr double kCoarsest = 100.0;
    if (!m_built.hasHeights) return true;
    double reached = m_alignment.profile.front().station;
    for (std::size_t i = 0; i < m_alignment.profile.size(); ++i) {
      const std::vector<Point2D> rounding =
          m_axis->getVeralPointPolylineAt(static_cast<unsigned>(i), kCoarsest).points();
      const double overlap = rounding.empty() ? 0.0 : reached - rounding.front().x;
      const bool isInside =
          !rounding.empty() &&
          rounding.back().x <= m_alignment.profile.back().station + kLargestContradiction;
      if (!isInside || !(overlap <= kLargestContradiction)) {
        return refuse(m_alignment.profile[i].line,
                      "ProfAlign: the rounding reaches into the rounding or the point beside it");
      }
      reached = rounding.back().x;
    }
    return true;
  }

  /// Only where it has heights there is an axis.
  void noteCut() {
    constexpr double kNotedCut = 0.001;
    const double start = m_axis->minimumStng2d() - m_alignment.startStation;
    const double end = m_station - m_axis->maximumStng2d();
    if (!(std::max(start, end) >= kNotedCut)) return;
    const Stationing& stations = m_alignment.stationing;
    m_built.notes.push_back({m_alignment.profile.front().line,
                             "ProfAlign: the profile runs from " +
                                 stations.text(m_axis->minimumStng2d(), 3) + " to " +
                                 stations.text(m_axis->maximumStng2d(), 3) + "; of the plan, " +
                                 fixed(std::max(0.0, start), 3) + " m before and " +
                                 fixed(std::max(0.0, end), 3) + " m behind it are left out"});
  }

  double slopeOf(const CantPoint& point) const { return 100.0 * point.cant / *m_cantBase; }

  void appendCant() {
    const std::vector<CantPoint>& points = m_alignment.cant;
    const bool hasCant = std::any_of(points.begin(), points.end(),
                                     [](const CantPoint& point) { return point.cant != 0.0; });
    if (!hasCant) return;
    if (!m_cantBase) {
      m_built.notes.push_back({points.front().line,
                               "Cant: is not used; give the distance of the rails by --cant-base"});
      return;
    }
    m_built.hasCant = true;
    for (std::size_t i = 1; i < points.size(); ++i) {
      const double from = points[i - 1].station;
      const double to = points[i].station;
      if (to < from) {
        m_built.notes.push_back({points[i].line,
                                 "CantStation: lies before the one above it; the "
                                 "cant from here on is left out"});
        return;
      }
      if (to > from) {
        const PlacedSlope slope = {from, to, slopeOf(points[i - 1]), slopeOf(points[i])};
        m_axis->addTransSlopeSegmentLinear(from, to, slope.slopeFrom, slope.slopeTo);
        m_built.slopes.push_back(slope);
      }
    }
    if (points.back().station > m_station + kLargestContradiction) {
      m_built.notes.push_back({points.back().line, "CantStation: lies at " +
                                                       fixed(points.back().station, 3) +
                                                       ", beyond the end of the alignment"});
    }
    if (!m_alignment.cantTurnsAbout.empty()) {
      m_built.notes.push_back({points.front().line, "Cant: turns about " +
                                                        m_alignment.cantTurnsAbout +
                                                        " in the file, about the axis here"});
    }
  }

  bool canBeEvaluated() {
    const double lowest = m_axis->minimumStng2d();
    const double highest = m_axis->maximumStng2d();
    if (!(lowest < highest)) {
      return refuse(0, "plan and profile have no station in common");
    }
    // The calculator must not outlive the axis, which it does not own here.
    const boost::shared_ptr<const AxisDefinition> borrowed(m_axis.get(),
                                                           [](const AxisDefinition*) {});
    const AxisCalculator calculator(borrowed);
    double station = m_alignment.startStation;
    for (const PlanElement& element : m_alignment.plan) {
      const bool isContinuous = !m_alignment.stationing.hasEquations();
      const double start = isContinuous ? element.startStation.value_or(station) : station;
      station = start + element.length;
      const double middle = (start + station) / 2.0;
      ENHPoint place;
      if (middle <= lowest || middle >= highest) continue;
      if (!calculator.axisPointToEnhPointVertical(AxisPoint(middle, 0.0, 0.0), place)) {
        return refuse(element, "radius and length give no curve");
      }
    }
    return true;
  }

  const Alignment& m_alignment;
  std::optional<double> m_cantBase;
  std::vector<PrintedDirection> m_directions;
  double m_station;
  double m_azimuth = 0.0;
  PlanPoint m_end;
  std::unique_ptr<AxisDefinition> m_axis;
  BuiltAxis m_built;
  Remark m_error;
};

}  // namespace

Outcome<BuiltAxis> buildAxis(const Alignment& alignment, std::optional<double> cantBase) {
  return AxisBuilder(alignment, cantBase).build();
}

}  // namespace Exchange
