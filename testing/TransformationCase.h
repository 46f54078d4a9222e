// SPDX-License-Identifier: BSL-1.0
/// @file
/// Golden transformations: points in a local and a global system, with expected results.

#ifndef CALCULATIONS_TESTING_TRANSFORMATION_CASE_H
#define CALCULATIONS_TESTING_TRANSFORMATION_CASE_H

#include "testing/Csv.h"

#include <Calculations/Points.h>

#include <map>
#include <string>
#include <vector>

namespace TestSupport {

using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::PolarPoint;

struct TransformationPoint {
  std::wstring id;
  PolarPoint measured;
  bool isFixPoint = false;
  ENHPoint global;
};

struct TransformationCase {
  explicit TransformationCase(const std::string& name) {
    for (const CsvRow& row : rowsOf("transformations/" + name + ".csv")) {
      TransformationPoint p;
      p.id.assign(row.text("id").begin(), row.text("id").end());
      p.measured = {row.number("horizontal_angle"), row.number("zenith_angle"),
                    row.number("slope_distance")};
      p.isFixPoint = row.has("global_east");
      if (p.isFixPoint) {
        p.global = {row.number("global_east"), row.number("global_north"),
                    row.number("global_height")};
      }
      points.push_back(p);
    }
    for (const CsvRow& row : rowsOf("transformations/" + name + "_expected.csv")) {
      expected[row.text("group") + "." + row.text("quantity")] = row.number("value");
    }
  }

  std::vector<TransformationPoint> points;
  std::map<std::string, double> expected;  ///< by "group.quantity"
};

}  // namespace TestSupport

#endif
