// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/SurveyJson.h"

#include "tunnel_survey/StationTable.h"

#include <cstddef>

namespace TunnelSurvey {

namespace {

using Exchange::Json;
using Exchange::Stationing;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::FittingResult;
using Ruv::Calculations::Point2D;
using Ruv::Calculations::Utilities;

Json jsonOf(const Point2D& point) { return Json(std::vector<double>{point.x, point.y}); }

/// The stationing of the axis, and where stations jump what is read there.
Json& setPlace(Json& json, double place, const Stationing& stationing) {
  json.set("stationing", place);
  if (stationing.hasEquations()) json.set("station", stationing.text(place, 4));
  return json;
}

Json jsonOf(const AxisPlace& place, const SurveyPicture& picture) {
  Json json = Json::object();
  setPlace(json, place.station, picture.stationing)
      .set("tunnel_meter", place.tunnelMeter)
      .set("east", place.grid.east)
      .set("north", place.grid.north)
      .set("height", picture.hasHeights ? Json(place.grid.height) : Json())
      .set("azimuth", Utilities::rad2gon(place.azimuth))
      .set("radius", place.radius)
      .set("grade", picture.hasHeights ? Json(place.grade) : Json());
  return json;
}

Json axisJson(const SurveyPicture& picture) {
  const Exchange::StationRange range = Exchange::rangeOf(*picture.axis);
  const AxisCalculator calculator(picture.axis);
  Json stations = Json::list();
  for (const double station : picture.stations) {
    if (const auto place = placeAt(calculator, station)) stations.add(jsonOf(*place, picture));
  }
  Json json = Json::object();
  json.set("name", picture.name)
      .set("source", picture.source)
      .set("from", range.from)
      .set("to", range.to)
      .set("stations", stations);
  return json;
}

Json pointsJson(const std::vector<Exchange::ConvertedPoint>& points, const SurveyPicture& picture) {
  Json list = Json::list();
  for (const Exchange::ConvertedPoint& point : points) {
    Json json = Json::object();
    json.set("id", point.id);
    setPlace(json, point.onAxis.stationing, picture.stationing)
        .set("offset", point.onAxis.offset)
        .set("height_above_axis", picture.hasHeights ? Json(point.onAxis.height) : Json())
        .set("east", point.grid.east)
        .set("north", point.grid.north)
        .set("height", point.grid.height);
    list.add(json);
  }
  return list;
}

Json differenceJson(const DifferenceSummary& summary, double unit) {
  Json json = Json::object();
  json.set("points", summary.count)
      .set("largest", summary.largest * unit)
      .set("at_stationing", summary.stationOfLargest)
      .set("rms", summary.rms() * unit);
  return json;
}

Json checkJson(const CheckReport& check) {
  Json json = Json::object();
  json.set("source", check.source)
      .set("plan", differenceJson(check.plan, 1.0))
      .set("height", differenceJson(check.height, 1.0))
      .set("azimuth", differenceJson(check.azimuth, Utilities::rad2gon(1.0)));
  return json;
}

Json transitionJson(const Transition& transition) {
  Json sections = Json::list();
  for (const TransitionSection& section : transition.sections) {
    const auto& definition = *section.profile.definition();
    Json elements = Json::list();
    for (unsigned i = 0; i < definition.getNumSegments(); ++i) {
      Json element = Json::object();
      element.set("start", jsonOf(definition.getSegmentStartAt(i)))
          .set("end", jsonOf(definition.getSegmentEndAt(i)))
          .set("radius", definition.getSegmentRadiusAt(i));
      elements.add(element);
    }
    Json json = Json::object();
    setPlace(json, section.station, transition.stationing)
        .set("from_start", section.fromStart)
        .set("lower_left", jsonOf(section.profile.lowerLeft()))
        .set("upper_right", jsonOf(section.profile.upperRight()))
        .set("area", section.profile.area())
        .set("elements", elements);
    sections.add(json);
  }
  Json json = Json::object();
  json.set("start_profile", transition.startSource)
      .set("end_profile", transition.endSource)
      .set("sections", sections);
  return json;
}

Json extremeJson(const std::optional<Extreme>& extreme) {
  if (!extreme) return {};
  Json json = Json::object();
  json.set("distance", extreme->deviation.distance)
      .set("derolment", extreme->deviation.derolment)
      .set("at", jsonOf(extreme->point));
  return json;
}

Json circleJson(const FittingResult& fit) {
  Json json = Json::object();
  json.set("centre", jsonOf(fit.center)).set("radius", fit.radius);
  return json;
}

Json ellipseJson(const FittingResult& fit) {
  Json json = Json::object();
  json.set("centre", jsonOf(fit.center))
      .set("semi_axes", std::vector<double>{fit.semiAxisA, fit.semiAxisB})
      .set("rotation", Utilities::rad2gon(fit.rotation));
  return json;
}

Json jsonOf(const SectionResult& result, const SectionSurvey& survey) {
  Json json = Json::object();
  json.set("name", result.section.name);
  if (result.section.station) setPlace(json, *result.section.station, survey.stationing);
  json.set("points", result.section.points.size())
      .set("points_compared", result.deviations.size())
      .set("design_area", result.designArea)
      .set("measured_area", result.measuredArea)
      .set("over_area", result.overArea)
      .set("under_area", result.underArea);
  if (survey.rule.geology) json.set("geological_area", result.geologicalArea);
  json.set("largest_over", extremeJson(result.largestOver))
      .set("largest_under", extremeJson(result.largestUnder))
      .set("circle", circleJson(result.circle))
      .set("ellipse", ellipseJson(result.ellipse));
  return json;
}

Json jsonOf(const VolumePart& part, bool hasGeology) {
  Json json = Json::object();
  json.set("length", part.length)
      .set("design", part.design)
      .set("over", part.over)
      .set("under", part.under);
  if (hasGeology) json.set("geological", part.geological);
  return json;
}

Json sectionsJson(const SectionSurvey& survey) {
  const bool hasGeology = survey.rule.geology.has_value();
  Json results = Json::list();
  for (const SectionResult& result : survey.results) {
    results.add(jsonOf(result, survey));
  }
  Json json = Json::object();
  json.set("source", survey.source)
      .set("design", survey.designSource)
      .set("design_area", survey.design.area())
      .set("results", results);
  if (!survey.volumes) return json;
  Json parts = Json::list();
  for (const VolumePart& part : survey.volumes->parts) {
    parts.add(jsonOf(part, hasGeology));
  }
  json.set("volumes_between", parts).set("volumes", jsonOf(survey.volumes->total, hasGeology));
  return json;
}

}  // namespace

Json jsonOf(const SurveyResults& results) {
  Json json = Json::object();
  Json units = Json::object();
  units.set("lengths", "m").set("angles", "gon").set("grades", "%");
  json.set("units", units);
  if (results.axis) {
    const SurveyPicture& axis = *results.axis;
    json.set("axis", axisJson(axis));
    if (!axis.points.empty()) json.set("points", pointsJson(axis.points, axis));
    if (!axis.setOut.empty()) json.set("setting_out", pointsJson(axis.setOut, axis));
    if (axis.check) json.set("check", checkJson(*axis.check));
  }
  if (results.transition) json.set("transition", transitionJson(*results.transition));
  if (results.sections) json.set("sections", sectionsJson(*results.sections));
  return json;
}

}  // namespace TunnelSurvey
