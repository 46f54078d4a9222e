// SPDX-License-Identifier: BSL-1.0
/// @file
/// Every public class in use: what must hold in every scene when memory runs out, or when the host
/// traps floating-point exceptions.

#ifndef CALCULATIONS_TESTS_FAULTS_SCENES_H
#define CALCULATIONS_TESTS_FAULTS_SCENES_H

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace TestSupport {

using Numbers = std::vector<double>;

/// Objects that are ready for a call, and the call.
struct Play {
  /// Changes the objects or asks them something.
  std::function<Numbers()> call;
  /// Tells what the objects answer, each time as if for the first time if that can be.
  std::function<Numbers()> state;
};

struct Scene {
  std::string name;
  /// Sets the objects up anew.
  std::function<Play()> begin;
};

std::ostream& operator<<(std::ostream& out, const Scene& scene);

/// Small, one for every call that allocates or changes something.
std::vector<Scene> allScenes();

/// Whole axes and sections, and as few sightings as there may be.
std::vector<Scene> realScenes();

}  // namespace TestSupport

#endif
