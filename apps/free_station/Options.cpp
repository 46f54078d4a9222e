// SPDX-License-Identifier: BSL-1.0
#include "free_station/Options.h"

namespace FreeStation {

namespace {

void addGuidanceOptions(Console::OptionGroup group, Options& options) {
  auto axis = group.add("--axis", options.landXml, "LandXML file with the tunnel axis");
  Console::addAxisOptions(group, options.axis, axis);
  group.add("--boom", options.boom,
            "Id of the measurement of the boom point (default: boom, if there is one)");
  auto origin = group.add("--origin", options.origin,
                          "Of the guidance vector: stationing, offset to the right and height "
                          "above the axis (m), as 9214,1.2,2.9 or 9+214,1.2,2.9");
  origin.list(3).needs(axis);
  group.add("--ahead", options.ahead, "Distance of the point ahead from the boom (m)")
      .between(0.1, 100.0)
      .tellDefault()
      .needs(origin);
}

}  // namespace

void addOptions(Console::OptionGroup all, Options& options) {
  all.add("fixpoints", options.fixPoints, "Table of the fix points: id, east, north, height (m)")
      .required();
  all.add(
         "measurements", options.measurements,
         "Table of the measurements: id, horizontal_angle, zenith_angle (gon), slope_distance (m), "
         "and if need be target_height, instrument_height (m). Rows of one id are sightings of one "
         "point, in either face: their mean is taken")
      .required();
  all.add("--instrument-height", options.instrumentHeight,
          "Of the instrument above its ground point (m), where the table has none")
      .between(0.0, 10.0);
  all.add("--distance-tolerance", options.tolerances.distance,
          "Between measured and known distances of points, and in plan (m)")
      .between(1e-4, 1.0)
      .tellDefault();
  all.add("--height-tolerance", options.tolerances.height, "In height (m)")
      .between(1e-4, 1.0)
      .tellDefault();
  addGuidanceOptions(all.group("Axis and guidance"), options);
  Console::addTableOptions(all, options.tables, "fixpoints, measurements");
  all.addFlag("--accept", options.accept,
              "Use fix points whose identification is doubtful, and end with exit code 0 although "
              "something is doubtful; it is told all the same");
  all.add("--json", options.json, "File for all results as JSON (m, gon)");
  all.add("--output", options.output,
          "Directory for the drawing (SVG, PNG, PDF) and the tables (CSV) of the station, the "
          "residuals and the other points");
}

}  // namespace FreeStation
