// SPDX-License-Identifier: BSL-1.0
#include "Bindings.h"

PYBIND11_MODULE(_native, module) {
  module.doc() = "The library behind hadrel. Arrays come prepared; use the package.";
  Hadrel::bindAxis(module);
  Hadrel::bindCoordinates(module);
  Hadrel::bindFiles(module);
  Hadrel::bindPaths(module);
  Hadrel::bindProfile(module);
  Hadrel::bindStation(module);
}
