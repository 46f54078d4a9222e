// SPDX-License-Identifier: BSL-1.0
// Answers stay what they were: those of the digest, a sum of each group, are compared with the
// ones recorded in tests/golden/digest.csv. That is no reference, as the other golden files are:
// whoever means to change answers runs this test and puts the lines that it prints into the file.
#include "Digest.h"
#include "testing/Csv.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <iomanip>
#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace {

/// Part of the coordinates' magnitude that mathematical functions of other machines leave in a
/// result, in the mean: far more than seen.
constexpr double kAllowedDifference = 1e-14;

/// What is no smaller stands for nothing found or for upright: it would drown all the others.
constexpr double kNoNumber = 1e12;

/// Adds with random weights, so that neither places nor signs can be exchanged.
struct Sum {
  TestSupport::Random random{1};
  std::size_t values = 0;
  double weighted = 0.0;
  double scales = 0.0;

  void add(double value, double scale) {
    ++values;
    const bool isNumber = std::abs(value) < kNoNumber;
    weighted += random.uniform(-1.0, 1.0) * (isNumber ? value : 1.0);
    scales += isNumber ? scale : 1.0;
  }
};

std::map<std::string, Sum> sums;  // by group

}  // namespace

namespace Digest {

void record(const std::string& group, double scale, const std::vector<double>& values) {
  for (const double value : values) {
    sums[group].add(value, scale);
  }
}

std::ostream& operator<<(std::ostream& out, const Scene& scene) { return out << scene.name; }

}  // namespace Digest

namespace {

class RecordedDigest : public testing::TestWithParam<Digest::Scene> {};

TEST_P(RecordedDigest, IsWhatItWas) {
  sums.clear();
  std::streambuf* log = std::clog.rdbuf(nullptr);
  GetParam().record();
  std::clog.rdbuf(log);
  const std::string scene = GetParam().name;
  std::map<std::string, TestSupport::CsvRow> recorded;
  for (const TestSupport::CsvRow& row : TestSupport::rowsOf("digest.csv")) {
    if (row.text("scene") == scene) recorded.emplace(row.text("group"), row);
  }
  EXPECT_EQ(recorded.size(), sums.size());
  for (const auto& [group, sum] : sums) {
    const auto row = recorded.find(group);
    const bool isRecorded = row != recorded.end();
    EXPECT_TRUE(isRecorded && row->second.number("values") == double(sum.values) &&
                std::abs(row->second.number("sum") - sum.weighted) <=
                    kAllowedDifference * sum.scales)
        << "now:\n"
        << std::setprecision(17) << scene << ',' << group << ',' << sum.values << ','
        << sum.weighted;
  }
}

INSTANTIATE_TEST_SUITE_P(Of, RecordedDigest, testing::ValuesIn(Digest::scenes()),
                         [](const auto& scene) { return std::string(scene.param.name); });

}  // namespace
