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

void compareLines(const std::string& a, const std::string& b,
                  std::map<std::string, Agreement>& groups) {
  std::istringstream wordsA(a);
  std::istringstream wordsB(b);
  std::string group;
  std::string scale;
  std::string word;
  wordsA >> group >> scale;
  wordsB >> word >> word;
  Agreement& agreement = groups[group];
  while (wordsA || wordsB) {
    const std::string wordA = wordsA >> word ? word : std::string();
    const std::string wordB = wordsB >> word ? word : std::string();
    if (wordsA || wordsB) compare(wordA, wordB, number(scale), agreement);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: compareDigests DIGEST DIGEST\n";
    return 2;
  }
  std::ifstream fileA(argv[1]);
  std::ifstream fileB(argv[2]);
  std::map<std::string, Agreement> groups;
  while (fileA || fileB) {
    std::string a;
    std::string b;
    std::getline(fileA, a);
    std::getline(fileB, b);
    if (!a.empty() || !b.empty()) compareLines(a, b, groups);
  }
  bool good = !groups.empty();
  for (const auto& [name, agreement] : groups) {
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
