// SPDX-License-Identifier: BSL-1.0
// Compares two digests and tells for each group how far they agree.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

/// Of the coordinates' magnitude: some thousand rounding units.
constexpr double kAllowedDifference = 1e-12;

struct Agreement {
  std::size_t values = 0;
  std::size_t different = 0;
  double worst = 0.0;
};

double number(const std::string& word) { return std::strtod(word.c_str(), nullptr); }

/// Equal text is equal bits. What is missing, infinite or no number in one digest only differs
/// infinitely.
void compare(const std::string& a, const std::string& b, double scale, Agreement& agreement) {
  agreement.values++;
  if (a == b) return;
  agreement.different++;
  const double difference = std::abs(number(a) - number(b)) / scale;
  const bool isMeasured = !a.empty() && !b.empty() && std::isfinite(difference);
  agreement.worst = std::max(agreement.worst, isMeasured ? difference : HUGE_VAL);
}

using Lines = std::vector<std::string>;

/// The scales and values of each group, line by line.
std::map<std::string, Lines> groupsOf(const char* path) {
  std::ifstream file(path);
  std::map<std::string, Lines> groups;
  for (std::string group, line; file >> group && std::getline(file, line);) {
    groups[group].push_back(line);
  }
  return groups;
}

void compareLines(const std::string& a, const std::string& b, Agreement& agreement) {
  std::istringstream wordsA(a);
  std::istringstream wordsB(b);
  std::string scale;
  std::string word;
  wordsA >> scale;
  wordsB >> word;
  if (scale.empty()) scale = word;
  while (wordsA || wordsB) {
    const std::string wordA = wordsA >> word ? word : std::string();
    const std::string wordB = wordsB >> word ? word : std::string();
    if (wordsA || wordsB) compare(wordA, wordB, number(scale), agreement);
  }
}

/// A line that one digest lacks moves no line of another group.
Agreement agreementOf(const Lines& a, const Lines& b) {
  Agreement agreement;
  for (std::size_t i = 0; i < std::max(a.size(), b.size()); ++i) {
    compareLines(i < a.size() ? a[i] : "", i < b.size() ? b[i] : "", agreement);
  }
  return agreement;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: compareDigests DIGEST DIGEST\n";
    return 2;
  }
  std::map<std::string, Lines> linesA = groupsOf(argv[1]);
  std::map<std::string, Lines> linesB = groupsOf(argv[2]);
  for (const auto& group : linesB) {
    linesA[group.first];
  }
  bool good = !linesA.empty();
  for (const auto& [name, lines] : linesA) {
    const Agreement agreement = agreementOf(lines, linesB[name]);
    std::printf("%-22s %6zu values, ", name.c_str(), agreement.values);
    if (agreement.different == 0) {
      std::printf("bit-identical\n");
    } else {
      std::printf("%zu different, by %.1e at most\n", agreement.different, agreement.worst);
    }
    good = good && agreement.worst <= kAllowedDifference;
  }
  return good ? 0 : 1;
}
