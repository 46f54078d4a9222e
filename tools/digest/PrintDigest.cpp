// SPDX-License-Identifier: BSL-1.0
#include "Digest.h"

#include <cstdio>
#include <iostream>

namespace Digest {

/// With 17 digits, which tell a double from its neighbours and are printed alike everywhere.
void record(const std::string& group, double scale, const std::vector<double>& values) {
  std::printf("%s %.17g", group.c_str(), scale);
  for (const double value : values) {
    std::printf(" %.17g", value);
  }
  std::printf("\n");
}

}  // namespace Digest

int main() {
  std::clog.rdbuf(nullptr);
  for (const Digest::Scene& scene : Digest::scenes()) {
    scene.record();
  }
}
