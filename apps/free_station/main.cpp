// Sets up a free station from measurements whose ids tell nothing: finds out which fix points were
// measured, computes the station by a resection in space, and guides a boom point along the tunnel
// axis.

#include "free_station/Options.h"
#include "free_station/Report.h"
#include "free_station/StationDrawing.h"
#include "free_station/Survey.h"

#include "common/console/AxisFile.h"
#include "common/console/CommandLine.h"
#include "common/console/Files.h"
#include "common/console/ResultFolder.h"

#include <iostream>

namespace {

using namespace FreeStation;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisPoint;

void readAxis(const Options& options, Survey& survey) {
  const auto& [alignment, built] = Console::readAxisFile(options.landXml, options.axis);
  Console::printRemarks(options.landXml, built.notes);
  survey.axisName = alignment.name;
  survey.guidance.axis = built.axis;
}

void findStationOnAxis(Survey& survey) {
  const AxisCalculator calculator(survey.guidance.axis);
  if (!calculator.enhPointToAxisPointVertical(survey.placement.station(), survey.stationOnAxis)) {
    throw Console::Failure("the station lies beside no part of the axis");
  }
  double radius = 0.0;
  double slope = 0.0;
  double slopePercent = 0.0;
  double transSlope = 0.0;
  double transSlopePercent = 0.0;
  calculator.axisPropertiesAtStationing(survey.stationOnAxis.stationing, survey.axisAzimuth, radius,
                                        slope, slopePercent, transSlope, transSlopePercent);
}

Survey surveyWith(const Options& options) {
  Survey survey;
  readAxis(options, survey);
  survey.book =
      readFieldBook(options.fixPoints, options.measurements, options.boom, options.tables);
  survey.identification = identify(survey.book, options.tolerances);
  survey.placement = setUpStation(survey.identification.sightings);
  survey.residuals = residualsOf(survey.placement, survey.identification.sightings);
  findStationOnAxis(survey);
  survey.guidance.origin = AxisPoint(options.origin[0], options.origin[1], options.origin[2]);
  survey.guidance.boom = survey.placement.toGlobal(survey.book.boom.polar);
  survey.guidance.ahead = options.ahead;
  survey.guided = guide(survey.guidance);
  return survey;
}

Console::ExitCode run(const Options& options) {
  std::clog.rdbuf(nullptr);  // the resection reports its steps there
  const Survey survey = surveyWith(options);
  printReport(survey);
  if (options.output.empty()) return Console::ExitCode::Fine;
  Console::ResultFolder folder(options.output);
  folder.writeSheet(stationSheet(survey), "free_station");
  folder.publish();
  std::cout << "\nDrawing: " << folder.placeOf("free_station") << ".svg and .png\n";
  return Console::ExitCode::Fine;
}

}  // namespace

int main(int argc, char** argv) {
  return Console::runCommand(
      {"free_station",
       "Identifies measured fix points, computes a free station from them, and guides a boom "
       "point along a tunnel axis.",
       "  free_station targets.csv measurements.csv --axis metro.xml --origin 9214,1.2,2.9\n"},
      run, argc, argv);
}
