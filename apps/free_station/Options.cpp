#include "free_station/Options.h"

#include "common/console/RangeCheck.h"

#include <CLI/CLI.hpp>

namespace FreeStation {

namespace {

constexpr double kFarthest = 1e6;  // of a position beside an axis

}  // namespace

void addOptions(CLI::App& app, Options& options) {
  const CLI::Validator tolerance = Console::between(1e-4, 1.0);
  app.add_option("fixpoints", options.fixPoints, "CSV of the fix points: id, east, north, height")
      ->required();
  app.add_option("measurements", options.measurements,
                 "CSV of the measurements: id, horizontal_angle, zenith_angle (gon), "
                 "slope_distance (m)")
      ->required();
  app.add_option("--axis", options.landXml, "LandXML file with the tunnel axis")->required();
  app.add_option("--boom", options.boom, "Id of the measurement of the boom point")
      ->capture_default_str();
  app.add_option("--distance-tolerance", options.tolerances.distance,
                 "Between measured and known distances of points, and in plan (m)")
      ->check(tolerance)
      ->capture_default_str();
  app.add_option("--height-tolerance", options.tolerances.height, "In height (m)")
      ->check(tolerance)
      ->capture_default_str();
  app.add_option("--origin", options.origin,
                 "Of the guidance vector: stationing, offset to the right and height above the "
                 "axis (m)")
      ->required()
      ->delimiter(',')
      ->expected(3)
      ->check(Console::between(-kFarthest, kFarthest));
  app.add_option("--ahead", options.ahead, "Distance of the point ahead from the boom (m)")
      ->check(Console::between(0.1, 100.0))
      ->capture_default_str();
  app.add_option("--output", options.output, "Directory for the drawing (SVG and PNG)");
}

}  // namespace FreeStation
