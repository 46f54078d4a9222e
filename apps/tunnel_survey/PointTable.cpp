// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/PointTable.h"

#include "common/drawing/NumberText.h"

namespace TunnelSurvey {

using Drawing::fixed;
using Drawing::signedFixed;

ResultTable pointTable(const std::vector<Exchange::ConvertedPoint>& points,
                       const SurveyPicture& picture, int decimals) {
  ResultTable table{{"point\n", "stationing\nm", "offset\nm", "height above axis\nm", "east\nm",
                     "north\nm", "height\nm"},
                    {}};
  for (const Exchange::ConvertedPoint& point : points) {
    table.rows.push_back({point.id,
                          picture.stationing.metresText(point.onAxis.stationing, decimals),
                          signedFixed(point.onAxis.offset, decimals),
                          picture.hasHeights ? signedFixed(point.onAxis.height, decimals) : "-",
                          fixed(point.grid.east, decimals), fixed(point.grid.north, decimals),
                          fixed(point.grid.height, decimals)});
  }
  return table;
}

}  // namespace TunnelSurvey
