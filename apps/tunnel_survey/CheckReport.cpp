// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/CheckReport.h"

#include "tunnel_survey/StationTable.h"

#include "common/drawing/NumberText.h"

#include <cmath>
#include <string>

namespace TunnelSurvey {

using Drawing::fixed;
using Drawing::scientific;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::Utilities;

namespace {

std::vector<std::string> rowOf(const std::string& quantity, const DifferenceSummary& summary,
                               const std::string& unit, const Exchange::Stationing& stationing) {
  return {quantity,
          std::to_string(summary.count),
          scientific(summary.largest, 1),
          stationing.metresText(summary.stationOfLargest, 3),
          scientific(summary.rms(), 1),
          unit};
}

}  // namespace

void DifferenceSummary::add(double difference, double station) {
  const double size = std::abs(difference);
  if (count == 0 || !(size <= largest)) {
    largest = size;
    stationOfLargest = station;
  }
  sumOfSquares += size * size;
  ++count;
}

double DifferenceSummary::rms() const {
  return count == 0 ? 0.0 : std::sqrt(sumOfSquares / static_cast<double>(count));
}

CheckReport compareWith(const std::vector<Exchange::CheckPoint>& points,
                        const AxisCalculator& calculator, const Exchange::Stationing& stationing) {
  CheckReport report;
  for (const Exchange::CheckPoint& point : points) {
    const auto read = stationing.placeOf(point.onAxis.stationing);
    if (!read.value) {
      report.rejected.push_back({point.line, read.error.message});
      continue;
    }
    const double station = *read.value;
    const auto place = placeAt(calculator, station);
    const AxisPoint onAxis(station, point.onAxis.offset, point.onAxis.height);
    ENHPoint grid;
    if (!place || !calculator.axisPointToEnhPointVertical(onAxis, grid)) {
      report.rejected.push_back(
          {point.line, "station " + stationing.text(station, 3) + " lies outside the axis"});
      continue;
    }
    const ENHPoint difference = grid - point.grid;
    report.plan.add(difference.lengthOfEastNorthProjection(), station);
    report.height.add(difference.height, station);
    report.azimuth.add(Utilities::getangleAsMinusPiToPi(place->azimuth - point.azimuth), station);
  }
  return report;
}

ResultTable checkTable(const CheckReport& report, const Exchange::Stationing& stationing) {
  return {
      {"difference\n", "points\n", "largest\n", "at stationing\nm", "rms\n", "unit\n"},
      {rowOf("plan", report.plan, "m", stationing), rowOf("height", report.height, "m", stationing),
       rowOf("azimuth", report.azimuth, "rad", stationing)}};
}

}  // namespace TunnelSurvey
