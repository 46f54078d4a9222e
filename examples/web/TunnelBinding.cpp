// SPDX-License-Identifier: BSL-1.0
// What the page asks of the library. Files are read by the programs' own readers and refused for
// the same reasons; what cannot be answered is an object with the text `error`. Metres and radians.

#include "common/drawing/NumberText.h"
#include "common/exchange/AxisBuilder.h"
#include "common/exchange/DesignProfile.h"
#include "common/exchange/LandXmlReader.h"
#include "common/exchange/PointFile.h"
#include "common/exchange/StationRange.h"
#include "common/exchange/TableCells.h"

#include <Calculations/Calculations.h>

#include <emscripten/bind.h>
#include <emscripten/val.h>

#include <algorithm>
#include <cmath>
#include <exception>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using emscripten::val;
using Exchange::DesignProfile;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::Point2D;
using Ruv::Calculations::ProfilePointResult;
using Ruv::Calculations::ThProfileCalculator;
using Ruv::Calculations::ThProfileMorpher;

constexpr double kLargestOffset = 100.0;  // of points from the axis (m), as in tunnel_survey

/// No exception leaves for JavaScript, which would see but a number.
template <class Compute>
val answerOf(const Compute& compute) {
  val answer = val::object();
  try {
    compute(answer);
  } catch (const std::exception& problem) {
    answer = val::object();
    answer.set("error", std::string(problem.what()));
  }
  return answer;
}

template <class T, class Convert>
val listOf(const std::vector<T>& values, const Convert& convert) {
  val list = val::array();
  for (const T& value : values) {
    list.call<void>("push", convert(value));
  }
  return list;
}

val jsPoint(const Point2D& point) { return val::array(std::vector<double>{point.x, point.y}); }

/// An axis, and the design of the tunnel along it: one profile, or a transition between two. After
/// a file that cannot be used there is none, rather than that of the file before.
class Tunnel {
 public:
  /// Name, range, counts and notes of the first alignment of a file.
  val readAxis(const std::string& xml) {
    m_axis.reset();
    m_calculator.reset();
    return answerOf([&](val& answer) {
      const Exchange::Alignment alignment = Exchange::valueOrThrow(Exchange::readLandXml(xml));
      Exchange::BuiltAxis built = Exchange::valueOrThrow(Exchange::buildAxis(alignment));
      const Exchange::StationRange range = Exchange::rangeOf(*built.axis);
      answer.set("name", alignment.name);
      answer.set("from", range.from);
      answer.set("to", range.to);
      answer.set("elements", built.plan.size());
      answer.set("heights", built.hasHeights ? built.profile.size() : 0);
      answer.set("notes", listOf(built.notes, Exchange::textOf));
      m_calculator = std::make_unique<AxisCalculator>(built.axis);
      m_axis = std::move(built);
    });
  }

  /// East and north along each element of the plan.
  val planLines() const {
    constexpr double kStep = 2.0;
    val lines = val::array();
    if (!m_axis) return lines;
    const Exchange::StationRange all = Exchange::rangeOf(*m_axis->axis);
    for (const Exchange::PlacedElement& element : m_axis->plan) {
      const Exchange::StationRange range{std::max(all.from, element.station),
                                         std::min(all.to, element.station + element.length)};
      if (!(range.length() > 0.0)) continue;
      std::vector<Point2D> points;
      for (const double station : Exchange::evenStations(range, kStep)) {
        ENHPoint grid;
        if (!m_calculator->axisPointToEnhPointVertical({station, 0.0, 0.0}, grid)) continue;
        points.push_back({grid.east, grid.north});
      }
      val line = val::object();
      line.set("kind", static_cast<int>(element.kind));
      line.set("points", listOf(points, jsPoint));
      lines.call<void>("push", line);
    }
    return lines;
  }

  /// The place on the axis of a station as people write it; without an axis they do not jump.
  val stationOf(const std::string& text) const {
    return answerOf([&](val& answer) {
      const Exchange::Stationing plain;
      const double place =
          Exchange::valueOrThrow((m_axis ? m_axis->stationing : plain).placeOf(text));
      answer.set("place", place);
      if (!m_axis) return;
      const Exchange::StationRange range = Exchange::rangeOf(*m_axis->axis);
      if (!(place >= range.from && place <= range.to)) {
        throw std::invalid_argument("station " + text + " lies outside the axis, " +
                                    stationText(range.from, 3) + " to " + stationText(range.to, 3));
      }
    });
  }

  /// "7+320.000"; plain kilometres and metres where there is no axis.
  std::string stationText(double place, int decimals) const {
    return m_axis ? m_axis->stationing.text(place, decimals)
                  : Drawing::stationText(place, decimals);
  }
  std::string metresText(double place, int decimals) const {
    return m_axis ? m_axis->stationing.metresText(place, decimals)
                  : Drawing::fixed(place, decimals);
  }

  /// The design, or the one into which it goes over: then there is no design without a transition.
  val readDesign(const std::string& text, bool isEnd) {
    std::optional<DesignProfile>& place = isEnd ? m_end : m_start;
    place.reset();
    m_morpher.reset();
    m_hasTransition = m_hasTransition || isEnd;
    return answerOf([&](val& answer) {
      std::istringstream in(text);
      place = Exchange::valueOrThrow(Exchange::readDesignProfile(in));
      describe(*place, answer);
    });
  }

  void removeEnd() {
    m_end.reset();
    m_morpher.reset();
    m_hasTransition = false;
  }

  /// Where the first design ends and the second one begins. The library itself says what is wrong.
  val setTransition(double from, double to) {
    m_morpher.reset();
    return answerOf([&](val&) {
      if (!m_start || !m_end) throw std::invalid_argument("it takes two profiles");
      auto morpher =
          std::make_unique<ThProfileMorpher>(m_start->definition(), m_end->definition(), from, to);
      if (!morpher->getMorphedProfile(from + (to - from) / 2.0)) throw cannotBeMorphed();
      m_from = from;
      m_to = to;
      m_morpher = std::move(morpher);
    });
  }

  /// Outline and size of the design at a stationing.
  val designAt(double station) const {
    return answerOf([&](val& answer) {
      const DesignProfile design(definitionAt(station));
      describe(design, answer);
      answer.set("outline", listOf(design.outline(), jsPoint));
      answer.set("joints", listOf(design.calculator().vertexPoints(), jsPoint));
      answer.set("crown", jsPoint(design.crown()));
    });
  }

  /// The points of a table. Rows that cannot be read are told.
  /// @param isBare where it has no headings its columns are name, east, north, height
  val pointsIn(const std::string& text, bool isBare) const {
    return answerOf([&](val& answer) {
      std::istringstream in(text);
      Exchange::TableFormat format;
      format.hasNoHeader = isBare;
      const auto file = Exchange::valueOrThrow(Exchange::readSurveyedPoints(in, format));
      answer.set("points", listOf(file.points, [](const Exchange::SurveyedPoint& read) {
                   val point = val::object();
                   point.set("id", read.id);
                   point.set("line", read.line);
                   point.set("east", read.grid.east);
                   point.set("north", read.grid.north);
                   point.set("height", read.grid.height);
                   return point;
                 }));
      answer.set("description", file.description);
      answer.set("remarks", listOf(file.rejected, Exchange::textOf));
    });
  }

  /// Stationing, offset, height above the axis; where there is a design also the distance from it,
  /// the derolment, and the nearest point of the design.
  val locate(const std::string& id, double east, double north, double height) const {
    return answerOf([&](val& answer) {
      axis();
      const ENHPoint grid(east, north, height);
      const Exchange::PointPlacer placer(*m_calculator, kLargestOffset);
      AxisPoint onAxis;
      if (!placer.place(grid, onAxis)) throw std::invalid_argument(placer.reason(id, grid));
      answer.set("stationing", onAxis.stationing);
      answer.set("offset", onAxis.offset);
      if (!m_axis->hasHeights) return;
      answer.set("above", onAxis.height);
      if (!m_start || (m_hasTransition && !m_morpher)) return;
      const ProfilePointResult result =
          profilePointAt(onAxis.stationing, {onAxis.offset, onAxis.height});
      answer.set("distance", result.distance);
      answer.set("derolment", result.derolment);
      answer.set("foot", jsPoint(result.profilePoint));
    });
  }

  /// East, north and height of a place on the axis, and the azimuth of the axis there.
  val gridOf(double station, double offset, double above) const {
    return answerOf([&](val& answer) {
      axis();
      ENHPoint grid;
      ENHPoint forward;
      if (!m_calculator->axisPointToEnhPointVertical({station, offset, above}, grid) ||
          !m_calculator->tangentAtStationingVertical(station, forward)) {
        throw std::invalid_argument("the stationing lies outside the axis");
      }
      answer.set("east", grid.east);
      answer.set("north", grid.north);
      answer.set("height", grid.height);
      answer.set("azimuth", std::atan2(forward.east, forward.north));
    });
  }

 private:
  static std::runtime_error cannotBeMorphed() {
    return std::runtime_error("the first profile cannot be morphed into the second one");
  }

  static void describe(const DesignProfile& design, val& answer) {
    answer.set("elements", design.definition()->getNumSegments());
    answer.set("circumference", design.circumference());
    answer.set("area", design.area());
    answer.set("lowerLeft", jsPoint(design.lowerLeft()));
    answer.set("upperRight", jsPoint(design.upperRight()));
  }

  const Exchange::BuiltAxis& axis() const {
    if (!m_axis) throw std::invalid_argument("there is no axis");
    return *m_axis;
  }

  bool isInTransition(double station) const {
    return m_morpher && station > m_from && station < m_to;
  }

  DesignProfile::Definition definitionAt(double station) const {
    if (!m_start) throw std::invalid_argument("there is no design profile");
    if (m_hasTransition && !m_morpher) throw std::invalid_argument("there is no transition");
    if (!isInTransition(station)) return farDesign(station).definition();
    auto morphed = m_morpher->getMorphedProfile(station);
    if (!morphed) throw cannotBeMorphed();
    return morphed;
  }

  /// Before and behind the transition.
  const DesignProfile& farDesign(double station) const {
    return m_morpher && station >= m_to ? *m_end : *m_start;
  }

  ProfilePointResult profilePointAt(double station, const Point2D& point) const {
    return isInTransition(station)
               ? ThProfileCalculator(definitionAt(station)).calculateProfilePoint(point)
               : farDesign(station).calculator().calculateProfilePoint(point);
  }

  std::optional<Exchange::BuiltAxis> m_axis;
  std::unique_ptr<AxisCalculator> m_calculator;
  std::optional<DesignProfile> m_start;
  std::optional<DesignProfile> m_end;
  bool m_hasTransition = false;  // it is wanted; where there is no morpher there are no distances
  std::unique_ptr<ThProfileMorpher> m_morpher;
  double m_from = 0.0;  // of the transition, while there is a morpher
  double m_to = 0.0;
};

}  // namespace

EMSCRIPTEN_BINDINGS(tunnel) {
  emscripten::constant("largestOffset", kLargestOffset);
  emscripten::function("fixed", &Drawing::fixed);
  emscripten::function("signedFixed", &Drawing::signedFixed);
  emscripten::function("csvCell", &Exchange::csvCell);
  emscripten::class_<Tunnel>("Tunnel")
      .constructor()
      .function("readAxis", &Tunnel::readAxis)
      .function("planLines", &Tunnel::planLines)
      .function("stationOf", &Tunnel::stationOf)
      .function("stationText", &Tunnel::stationText)
      .function("metresText", &Tunnel::metresText)
      .function("readDesign", &Tunnel::readDesign)
      .function("removeEnd", &Tunnel::removeEnd)
      .function("setTransition", &Tunnel::setTransition)
      .function("designAt", &Tunnel::designAt)
      .function("pointsIn", &Tunnel::pointsIn)
      .function("locate", &Tunnel::locate)
      .function("gridOf", &Tunnel::gridOf);
}
