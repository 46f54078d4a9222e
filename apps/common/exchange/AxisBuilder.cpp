#include "common/exchange/AxisBuilder.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>

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

double azimuthOf(const PlanPoint& from, const PlanPoint& to) {
  return std::atan2(to.east - from.east, to.north - from.north);
}

double distanceOf(const PlanPoint& from, const PlanPoint& to) {
  return std::hypot(to.east - from.east, to.north - from.north);
}

double curvatureOf(double radius) { return radius == 0.0 ? 0.0 : 1.0 / radius; }

double turnOf(const PlanElement& element) {
  return element.length * (curvatureOf(element.radiusStart) + curvatureOf(element.radiusEnd)) / 2.0;
}

double difference(double azimuth, double other) {
  return std::abs(Utilities::getangleAsMinusPiToPi(azimuth - other));
}

std::string gonText(double angle) { return fixed(Utilities::rad2gon(angle), 4) + " gon"; }

void addElement(AxisDefinition& axis, const PlanElement& element, double station,
                const PlanPoint& start, double azimuth) {
  switch (element.kind) {
    case ElementKind::Straight:
      axis.addHoralSegmentStraight(station, start.east, start.north, azimuth, element.length);
      break;
    case ElementKind::Arc:
      axis.addHoralSegmentArc(station, start.east, start.north, azimuth, element.radiusStart,
                              element.length);
      break;
    case ElementKind::Clothoid:
      axis.addHoralSegmentClothoid(station, start.east, start.north, azimuth, element.radiusStart,
                                   element.radiusEnd, element.length);
      break;
  }
}

/// Where the element ends when it is laid out from a point in a direction.
PlanPoint endOf(const PlanElement& element, const PlanPoint& start, double azimuth) {
  const std::unique_ptr<AxisDefinition> axis(AxisDefinitionFactory::createHoralVeralAxis());
  addElement(*axis, element, 0.0, start, azimuth);
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

class AxisBuilder {
 public:
  explicit AxisBuilder(const Alignment& alignment)
      : m_alignment(alignment),
        m_station(alignment.startStation),
        m_axis(AxisDefinitionFactory::createHoralVeralAxis()) {}

  Outcome<BuiltAxis> build() {
    for (const PlanElement& element : m_alignment.plan) {
      if (!appendElement(element)) return Outcome<BuiltAxis>::failure(m_error);
    }
    appendProfile();
    if (!roundingsFit() || !canBeEvaluated()) return Outcome<BuiltAxis>::failure(m_error);
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

  bool continuesChain(const PlanElement& element) {
    const double station = element.startStation.value_or(m_station);
    if (!(std::abs(station - m_station) <= kLargestContradiction)) {
      return refuse(element,
                    "begins at station " + fixed(station, 3) + ", expected " + fixed(m_station, 3));
    }
    const double gap = isFirst() ? 0.0 : distanceOf(m_end, element.start);
    if (!(gap <= kLargestContradiction)) {
      return refuse(element, "begins " + fixed(gap, 3) + " m from the end of the element before");
    }
    m_station = station;
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
    addElement(*m_axis, element, m_station, element.start, azimuth);
    m_station += element.length;
    m_azimuth = azimuth + turnOf(element);
    m_end = element.end;
    return true;
  }

  void noteAngles(const PlanElement& element, double azimuth) {
    if (element.printedDirection && difference(*element.printedDirection, azimuth) > kNotedAngle) {
      note(element, "its coordinates run in " + gonText(Utilities::getAngleAsZeroToTwoPi(azimuth)) +
                        ", not in the printed " + gonText(*element.printedDirection));
    }
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

  double gradeAfter(std::size_t index) const {
    const ProfilePoint& from = m_alignment.profile[index];
    const ProfilePoint& to = m_alignment.profile[index + 1];
    return (to.height - from.height) / (to.station - from.station);
  }

  void appendProfile() {
    for (std::size_t i = 0; i < m_alignment.profile.size(); ++i) {
      const ProfilePoint& point = m_alignment.profile[i];
      const double change =
          point.rounding == RoundingKind::None ? 0.0 : std::abs(gradeAfter(i) - gradeAfter(i - 1));
      if (change < kSmallestGradeChange) {
        m_axis->addVeralPointKink(point.station, point.height);
      } else if (point.rounding == RoundingKind::Circle) {
        m_axis->addVeralPointArc(point.station, point.height, point.size);
      } else {
        m_axis->addVeralPointParabola(point.station, point.height, point.size / change);
      }
    }
  }

  bool roundingsFit() {
    constexpr double kCoarsest = 100.0;
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
      const double start = element.startStation.value_or(station);
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
  double m_station;
  double m_azimuth = 0.0;
  PlanPoint m_end;
  std::unique_ptr<AxisDefinition> m_axis;
  BuiltAxis m_built;
  Remark m_error;
};

}  // namespace

Outcome<BuiltAxis> buildAxis(const Alignment& alignment) { return AxisBuilder(alignment).build(); }

}  // namespace Exchange
