// SPDX-License-Identifier: BSL-1.0
#include "free_station/ResultFiles.h"

#include "common/exchange/Json.h"
#include "common/exchange/TableCells.h"

#include "common/drawing/NumberText.h"

#include <array>
#include <optional>
#include <vector>

namespace FreeStation {

namespace {

using Drawing::fixed;
using Exchange::Json;
using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::StationPlacement;
using Ruv::Calculations::Utilities;

/// One result of the station.
struct Quantity {
  const char* name;
  double value;
  int decimals;
  const char* unit;
  std::optional<double> deviation;
  int deviationDecimals;
  const char* deviationUnit;
};

double gon(double radians) { return Utilities::rad2gon(radians); }

std::vector<Quantity> quantitiesOf(const Survey& survey) {
  const StationPlacement& s = survey.placement;
  const ErrorEllipse& ellipse = survey.reliability.ellipse;
  const ENHPoint mm = s.stationStdDev() * 1000.0;
  std::vector<Quantity> quantities = {
      {"east", s.station().east, 4, "m", mm.east, 1, "mm"},
      {"north", s.station().north, 4, "m", mm.north, 1, "mm"},
      {"height", s.station().height, 4, "m", mm.height, 1, "mm"},
      {"orientation", gon(s.orientation()), 4, "gon", gon(s.orientationStdDev()) * 1000.0, 1,
       "mgon"},
      {"scale - 1", (s.scale() - 1.0) * 1e6, 0, "ppm", s.scaleStdDev() * 1e6, 0, "ppm"},
      {"tilt forward", gon(-s.tiltAboutEast()), 4, "gon", {}, 0, ""},
      {"tilt right", gon(s.tiltAboutNorth()), 4, "gon", {}, 0, ""},
      {"standard deviation of a coordinate",
       sigma0Of(survey.residuals) * 1000.0,
       1,
       "mm",
       {},
       0,
       ""},
      {"redundancy", static_cast<double>(survey.reliability.redundancy), 0, "", {}, 0, ""},
      {"error ellipse, semi-major axis", ellipse.semiMajor * 1000.0, 1, "mm", {}, 0, ""},
      {"error ellipse, semi-minor axis", ellipse.semiMinor * 1000.0, 1, "mm", {}, 0, ""},
      {"error ellipse, azimuth", gon(ellipse.azimuth), 1, "gon", {}, 0, ""}};
  if (const auto ground = survey.groundHeight()) {
    quantities.push_back({"height of the ground point", *ground, 4, "m", mm.height, 1, "mm"});
  }
  return quantities;
}

Json jsonOf(const ENHPoint& point) {
  return Json::object()
      .set("east", point.east)
      .set("north", point.north)
      .set("height", point.height);
}

Json jsonOf(const Ruv::Calculations::AxisPoint& point, const Exchange::Stationing& stationing) {
  return Json::object()
      .set("station", stationing.stationAt(point.stationing))
      .set("offset", point.offset)
      .set("height_above_axis", point.height);
}

Json sightingsOf(const Survey& survey) {
  Json sightings = Json::list();
  for (std::size_t i = 0; i < survey.residuals.size(); ++i) {
    const Sighting& s = survey.identification.sightings[i];
    const Control& control = survey.reliability.sightings[i];
    Json sighting = Json::object();
    sighting.set("fix_point", s.fixPoint.id)
        .set("measurement", s.measurement.id)
        .set("sightings", s.measurement.readings)
        .set("residual", jsonOf(survey.residuals[i]))
        .set("redundancy_number", jsonOf(control.redundancy))
        .set("w", jsonOf(control.w))
        .set("is_outlier", survey.reliability.outlier == i);
    sightings.add(sighting);
  }
  return sightings;
}

Json newPointsOf(const Survey& survey) {
  Json points = Json::list();
  for (const NewPoint& point : survey.newPoints) {
    Json json = jsonOf(point.grid);
    json.set("id", point.id);
    if (point.onAxis) json.set("on_axis", jsonOf(*point.onAxis, survey.stationing));
    points.add(json);
  }
  return points;
}

Json guidanceOf(const Survey& survey) {
  Json vectors = Json::list();
  for (const GuidanceResult& result : survey.guided) {
    Json json = Json::object();
    json.set("vector", result.vector)
        .set("forward", result.offsets.forward)
        .set("right", result.offsets.horizontal)
        .set("up", result.offsets.vertical)
        .set("ahead", jsonOf(result.ahead));
    vectors.add(json);
  }
  return vectors;
}

}  // namespace

std::string stationAsCsv(const Survey& survey) {
  std::string text = "quantity,value,unit,standard_deviation,unit_of_standard_deviation\n";
  for (const Quantity& q : quantitiesOf(survey)) {
    const std::string deviation = q.deviation ? fixed(*q.deviation, q.deviationDecimals) : "";
    text += Exchange::csvCell(q.name) + ',' + fixed(q.value, q.decimals) + ',' + q.unit + ',' +
            deviation + ',' + q.deviationUnit + '\n';
  }
  return text;
}

std::string residualsAsCsv(const Survey& survey) {
  std::string text =
      "fix_point,measurement,sightings,east [mm],north [mm],height [mm],redundancy_east,"
      "redundancy_north,redundancy_height,w_east,w_north,w_height,outlier\n";
  for (std::size_t i = 0; i < survey.residuals.size(); ++i) {
    const Sighting& s = survey.identification.sightings[i];
    const Control& control = survey.reliability.sightings[i];
    text += Exchange::csvCell(s.fixPoint.id) + ',' + Exchange::csvCell(s.measurement.id) + ',' +
            std::to_string(s.measurement.readings);
    for (const auto& [point, decimals] :
         {std::pair(survey.residuals[i] * 1000.0, 2), std::pair(control.redundancy, 3),
          std::pair(control.w, 2)}) {
      for (const double value : {point.east, point.north, point.height}) {
        text += ',' + fixed(value, decimals);
      }
    }
    text += survey.reliability.outlier == i ? ",yes\n" : ",no\n";
  }
  return text;
}

std::string newPointsAsCsv(const Survey& survey) {
  std::string text = "id,east [m],north [m],height [m]";
  text += survey.hasAxis() ? ",station [m],offset [m],height_above_axis [m]\n" : "\n";
  for (const NewPoint& point : survey.newPoints) {
    text += Exchange::csvCell(point.id);
    for (const double value : {point.grid.east, point.grid.north, point.grid.height}) {
      text += ',' + fixed(value, 4);
    }
    if (point.onAxis) {
      text += ',' + survey.stationing.metresText(point.onAxis->stationing, 4) + ',' +
              fixed(point.onAxis->offset, 4) + ',' + fixed(point.onAxis->height, 4);
    } else if (survey.hasAxis()) {
      text += ",,,";
    }
    text += '\n';
  }
  return text;
}

std::string asJson(const Survey& survey) {
  Json station = Json::object();
  for (const Quantity& q : survey.hasStation ? quantitiesOf(survey) : std::vector<Quantity>()) {
    Json quantity = Json::object();
    quantity.set("value", q.value).set("unit", q.unit);
    if (q.deviation) {
      quantity.set("standard_deviation", *q.deviation)
          .set("unit_of_standard_deviation", q.deviationUnit);
    }
    station.set(q.name, quantity);
  }
  Json doubts = Json::list();
  for (const std::string& doubt : survey.doubts) {
    doubts.add(doubt);
  }
  Json json = Json::object();
  json.set("assignments_expected_by_chance", survey.identification.expectedByChance)
      .set("doubts", doubts)
      .set("station", survey.hasStation ? station : Json());
  if (!survey.hasStation) return json.text();
  json.set("sightings", sightingsOf(survey))
      .set("critical_w", survey.reliability.criticalW)
      .set("points", newPointsOf(survey));
  if (survey.hasAxis()) json.set("on_axis", jsonOf(survey.stationOnAxis, survey.stationing));
  if (survey.isGuided()) json.set("guidance", guidanceOf(survey));
  return json.text();
}

}  // namespace FreeStation
