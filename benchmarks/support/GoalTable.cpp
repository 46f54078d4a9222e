// SPDX-License-Identifier: BSL-1.0
#include "support/GoalTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iomanip>
#include <limits>
#include <ostream>
#include <sstream>

namespace Benchmarks {

namespace {

std::string rounded(double value) {
  std::ostringstream text;
  text << std::setprecision(3) << value;
  return text.str();
}

std::string timeText(double nanoseconds) {
  struct Unit {
    double nanoseconds;
    const char* name;
  };
  constexpr std::array<Unit, 4> kUnits = {{{1e9, " s"}, {1e6, " ms"}, {1e3, " us"}, {1.0, " ns"}}};
  const auto* unit = std::find_if(kUnits.begin(), kUnits.end() - 1,
                                  [&](const Unit& u) { return nanoseconds >= u.nanoseconds; });
  // Three digits, and never an exponent.
  const double value = nanoseconds / unit->nanoseconds;
  std::ostringstream text;
  text << std::fixed
       << std::setprecision(value < 10.0    ? 2
                            : value < 100.0 ? 1
                                            : 0)
       << value << unit->name;
  return text.str();
}

bool keeps(const Goal& goal, const std::optional<double>& limit, double ratio) {
  if (!limit) return true;
  return goal.sense == Goal::Sense::AtMost ? ratio <= *limit : ratio >= *limit;
}

std::string limitText(const Goal& goal, const std::optional<double>& limit) {
  if (!limit) return "";
  return (goal.sense == Goal::Sense::AtMost ? "<= " : ">= ") + rounded(*limit);
}

std::string verdict(const Goal& goal, double ratio) {
  if (!keeps(goal, goal.must, ratio)) return "**missed**";
  if (goal.stretch && keeps(goal, goal.stretch, ratio)) return "stretch met";
  if (goal.must) return "met";
  return goal.stretch ? "stretch missed" : "";
}

std::string ratioText(double ratio) {
  constexpr double kManyDigits = 1000.0;
  return ratio < kManyDigits ? rounded(ratio) : std::to_string(std::llround(ratio));
}

void printTable(const char* head, const std::vector<std::string>& rows, std::ostream& out) {
  if (rows.empty()) return;
  out << head;
  for (const std::string& row : rows) {
    out << row << '\n';
  }
  out << '\n';
}

}  // namespace

Goal atMost(std::optional<double> must, std::optional<double> stretch) {
  return {Goal::Sense::AtMost, must, stretch};
}

Goal atLeast(std::optional<double> must, std::optional<double> stretch) {
  return {Goal::Sense::AtLeast, must, stretch};
}

void GoalTable::add(const Comparison& comparison) {
  const Goal& goal = comparison.goal;
  const double ratio = goal.sense == Goal::Sense::AtMost ? comparison.ours / comparison.peerTime
                                                         : comparison.peerTime / comparison.ours;
  m_isMet = m_isMet && keeps(goal, goal.must, ratio);
  std::ostringstream row;
  row << "| " << comparison.work << " | " << comparison.size << " | " << timeText(comparison.ours)
      << " | " << comparison.peer << " | " << timeText(comparison.peerTime) << " | "
      << ratioText(ratio) << " | " << limitText(goal, goal.must) << " | "
      << limitText(goal, goal.stretch) << " | " << verdict(goal, ratio) << " |";
  m_comparisons.push_back(row.str());
}

void GoalTable::add(const Quantity& quantity) {
  const Goal& goal = quantity.goal;
  m_isMet = m_isMet && keeps(goal, goal.must, quantity.value);
  std::ostringstream row;
  row << "| " << quantity.work << " | " << quantity.size << " | " << rounded(quantity.value) << ' '
      << quantity.unit << " | " << limitText(goal, goal.must) << " | "
      << limitText(goal, goal.stretch) << " | " << verdict(goal, quantity.value) << " |";
  m_quantities.push_back(row.str());
}

void GoalTable::add(const Correctness& correctness) {
  const bool isKept = !correctness.must || correctness.largestError <= *correctness.must;
  m_isCorrect = m_isCorrect && isKept;
  std::ostringstream row;
  row << "| " << correctness.work << " | " << correctness.size << " | " << correctness.numResults
      << " | " << rounded(correctness.largestError) << ' ' << correctness.unit << " | ";
  if (correctness.must) {
    row << "<= " << rounded(*correctness.must) << " | " << (isKept ? "met" : "**wrong**");
  } else {
    row << " | ";
  }
  row << " |";
  m_errors.push_back(row.str());
}

void GoalTable::print(std::ostream& out) const {
  printTable(
      "| work | n | ours | peer | its time | ratio | must | stretch | verdict |\n"
      "|---|---|---|---|---|---|---|---|---|\n",
      m_comparisons, out);
  printTable(
      "| memory and counts | n | ours | must | stretch | verdict |\n"
      "|---|---|---|---|---|---|\n",
      m_quantities, out);
  printTable(
      "| results | n | checked | largest error | must | verdict |\n"
      "|---|---|---|---|---|---|\n",
      m_errors, out);
}

double worse(double error, double other) {
  if (std::isnan(error) || std::isnan(other)) return std::numeric_limits<double>::infinity();
  return std::max(error, other);
}

}  // namespace Benchmarks
