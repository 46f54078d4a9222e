// SPDX-License-Identifier: BSL-1.0
// Reads a tunnel axis from LandXML, tabulates it, converts surveyed points, compares with
// coordinates that others computed, and draws plan and longitudinal section. Compares measured
// cross-sections, given as such or cut from a scan along the axis, with the design profile, and
// writes drawings and a report. Draws how the design profile changes into another.

#include "common/console/CommandLine.h"
#include "common/console/Files.h"
#include "common/console/ResultFolder.h"
#include "tunnel_survey/AxisSurvey.h"
#include "tunnel_survey/Options.h"
#include "tunnel_survey/SectionSurvey.h"
#include "tunnel_survey/SurveyJson.h"
#include "tunnel_survey/SurveyOutput.h"
#include "tunnel_survey/Transition.h"

namespace {

using namespace TunnelSurvey;

bool hasMeasurements(const Options& options) {
  return !options.sections.empty() || !options.scan.empty();
}

void refuseIncomplete(const Options& options) {
  if (options.landXml.empty() && options.design.empty()) {
    throw Console::WrongUsage(
        "give a LandXML file, or --design with --sections or --transition-to; see --help");
  }
  const bool isDesignUsed = hasMeasurements(options) || !options.transitionTo.empty();
  if (!options.design.empty() && !isDesignUsed) {
    throw Console::WrongUsage("--design needs --sections, --scan or --transition-to");
  }
}

/// Told when it does not lie on the axis, if there is one.
bool isTransitionDoubtful(const Options& options, const SurveyResults& results) {
  if (!results.axis || !results.transition) return false;
  const auto& axis = *results.axis->axis;
  const auto& sections = results.transition->sections;
  const bool isOnAxis = sections.front().station >= axis.minimumStng2d() &&
                        sections.back().station <= axis.maximumStng2d();
  if (!isOnAxis) {
    Console::printDoubts(options.transitionTo, {"the transition reaches beyond the axis"});
  }
  return !isOnAxis;
}

Console::ExitCode run(const Options& options) {
  refuseIncomplete(options);
  checkTableOptions(options);
  SurveyResults results;
  if (!options.landXml.empty()) results.axis = surveyAxis(options);
  const auto axis = results.axis ? results.axis->axis : nullptr;
  const auto stationing = results.axis ? results.axis->stationing : Exchange::Stationing();
  if (!options.transitionTo.empty()) {
    results.transition = surveyTransition(options, axis, stationing);
  }
  if (hasMeasurements(options)) results.sections = surveySections(options, axis, stationing);
  if (!options.output.empty()) writeResults(options, results);
  if (!options.json.empty()) Console::writeResult(options.json, jsonOf(results).text());
  const bool isDoubtful = isTransitionDoubtful(options, results) ||
                          (results.axis && !results.axis->doubts.empty()) ||
                          (results.sections && !results.sections->doubts.empty());
  return isDoubtful && !options.accept ? Console::ExitCode::Doubtful : Console::ExitCode::Fine;
}

}  // namespace

int main(int argc, char** argv) {
  return Console::runCommand(
      {"tunnel_survey",
       "Tabulates and draws a tunnel axis, converts surveyed points to it, compares measured "
       "cross-sections with the design profile, and draws how that changes into another.",
       "  tunnel_survey metro.xml --points points.csv --output results\n"
       "  tunnel_survey --design profile.csv --sections rings.csv --output results\n"
       "  tunnel_survey road.xml --design profile.csv --scan scan.xyz --spacing 2 --output "
       "results\n"},
      run, argc, argv);
}
