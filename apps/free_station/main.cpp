// SPDX-License-Identifier: BSL-1.0
// Sets up a free station from measurements whose ids tell nothing: finds out which fix points were
// measured, computes the station by a resection in space and the coordinates of all other points,
// and guides a boom point along the tunnel axis.

#include "free_station/Options.h"
#include "free_station/Report.h"
#include "free_station/ResultFiles.h"
#include "free_station/StationDrawing.h"
#include "free_station/Survey.h"
#include "free_station/SurveySteps.h"

#include "common/console/CommandLine.h"
#include "common/console/Files.h"
#include "common/console/ResultFolder.h"

#include "common/drawing/PdfFile.h"

#include <iostream>

namespace {

using namespace FreeStation;

void writeResults(const std::string& output, const Survey& survey) {
  Console::ResultFolder folder(output);
  const Drawing::Picture picture = pictureOf(stationSheet(survey));
  folder.writePicture("free_station", picture);
  Drawing::PdfFile pdf("Free station");
  pdf.addPage(picture);
  folder.write("free_station.pdf", pdf.finish());
  folder.write("station.csv", stationAsCsv(survey));
  folder.write("residuals.csv", residualsAsCsv(survey));
  if (!survey.newPoints.empty()) folder.write("points.csv", newPointsAsCsv(survey));
  folder.publish();
  std::cout << "\nDrawing: " << folder.placeOf("free_station") << ".svg, .png and .pdf\n";
}

Console::ExitCode run(const Options& options) {
  std::clog.rdbuf(nullptr);  // the resection reports its steps there
  const Survey survey = surveyWith(options);
  printReport(survey);
  Console::printDoubts(options.measurements, survey.doubts);
  if (!options.json.empty()) Console::writeResult(options.json, asJson(survey));
  if (!survey.hasStation) {
    std::cerr << "No station is computed from a doubtful identification, but with --accept.\n";
    return Console::ExitCode::Doubtful;
  }
  if (!options.output.empty()) writeResults(options.output, survey);
  const bool isFine = survey.doubts.empty() || options.accept;
  return isFine ? Console::ExitCode::Fine : Console::ExitCode::Doubtful;
}

}  // namespace

int main(int argc, char** argv) {
  return Console::runCommand(
      {"free_station",
       "Identifies measured fix points, computes a free station from them and the coordinates of "
       "all other measured points, and guides a boom point along a tunnel axis.",
       "  free_station fixpoints.csv measurements.csv --output results\n"
       "  free_station fixpoints.csv measurements.csv --angles deg --instrument-height 1.62\n"
       "  free_station targets.csv measurements.csv --axis metro.xml --origin 9+214,1.2,2.9\n"},
      run, argc, argv);
}
