#include "free_station/Options.h"

namespace FreeStation {

namespace {

constexpr double kFarthest = 1e6;  // of a position beside an axis

}  // namespace

void addOptions(Console::OptionGroup all, Options& options) {
  all.add("fixpoints", options.fixPoints, "CSV of the fix points: id, east, north, height")
      .required();
  all.add("measurements", options.measurements,
          "CSV of the measurements: id, horizontal_angle, zenith_angle (gon), slope_distance (m)")
      .required();
  auto axis = all.add("--axis", options.landXml, "LandXML file with the tunnel axis").required();
  Console::addAxisOptions(all, options.axis, axis);
  all.add("--boom", options.boom, "Id of the measurement of the boom point").tellDefault();
  all.add("--distance-tolerance", options.tolerances.distance,
          "Between measured and known distances of points, and in plan (m)")
      .between(1e-4, 1.0)
      .tellDefault();
  all.add("--height-tolerance", options.tolerances.height, "In height (m)")
      .between(1e-4, 1.0)
      .tellDefault();
  all.add("--origin", options.origin,
          "Of the guidance vector: stationing, offset to the right and height above the axis (m)")
      .required()
      .list(3)
      .between(-kFarthest, kFarthest);
  all.add("--ahead", options.ahead, "Distance of the point ahead from the boom (m)")
      .between(0.1, 100.0)
      .tellDefault();
  Console::addTableOptions(all, options.tables, "fixpoints, measurements");
  all.add("--output", options.output, "Directory for the drawing (SVG and PNG)");
}

}  // namespace FreeStation
