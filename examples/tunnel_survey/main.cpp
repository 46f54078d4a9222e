// Reads a tunnel axis from LandXML, tabulates it, converts surveyed points, compares with
// coordinates that others computed, and draws plan and longitudinal section. Compares measured
// cross-sections, given as such or cut from a scan along the axis, with the design profile, and
// writes drawings and a report.

#include "tunnel_survey/AxisSurvey.h"
#include "tunnel_survey/Files.h"
#include "tunnel_survey/Options.h"
#include "tunnel_survey/SectionSurvey.h"
#include "tunnel_survey/SurveyOutput.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <optional>

namespace {

using namespace TunnelSurvey;

void run(const Options& options) {
  if (options.landXml.empty() && options.design.empty()) {
    throw Failure("give a LandXML file, or --design and --sections; see --help");
  }
  std::optional<SurveyPicture> axis;
  if (!options.landXml.empty()) axis = surveyAxis(options);
  std::optional<SectionSurvey> sections;
  if (!options.design.empty()) sections = surveySections(options, axis ? axis->axis : nullptr);
  if (!options.output.empty()) writeResults(options, axis, sections);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    CLI::App app{
        "Tabulates and draws a tunnel axis, converts surveyed points to it, and compares measured "
        "cross-sections with the design profile."};
    Options options;
    addOptions(app, options);
    try {
      app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
      return app.exit(error) == 0 ? 0 : 1;
    }
    run(options);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "tunnel_survey: " << error.what() << '\n';
    return 1;
  }
}
