// SPDX-License-Identifier: BSL-1.0
/// @file
/// What the parts of the extension give each other.

#ifndef HADREL_BINDINGS_H
#define HADREL_BINDINGS_H

#include "Arrays.h"

#include <Calculations/AxisCalculator.h>
#include <Calculations/ThProfileCalculator.h>

#include <pybind11/pybind11.h>
#include <boost/shared_ptr.hpp>

namespace Hadrel {

/// An axis that nothing changes any more.
struct Axis {
  explicit Axis(boost::shared_ptr<const Ruv::Calculations::AxisDefinition> axis)
      : definition(std::move(axis)), calculator(definition) {}

  boost::shared_ptr<const Ruv::Calculations::AxisDefinition> definition;
  Ruv::Calculations::AxisCalculator calculator;
};

/// A design profile that nothing changes any more.
struct Profile {
  explicit Profile(boost::shared_ptr<const Ruv::Calculations::ThProfileDefinition> profile)
      : definition(std::move(profile)), calculator(definition) {}

  boost::shared_ptr<const Ruv::Calculations::ThProfileDefinition> definition;
  Ruv::Calculations::ThProfileCalculator calculator;
};

/// Rows of x, y and the radius of the segment that ends there.
Array nodesOf(const Ruv::Calculations::ThProfileDefinition& profile);

void bindAxis(pybind11::module_& module);
void bindCoordinates(pybind11::module_& module);
void bindFiles(pybind11::module_& module);
void bindPaths(pybind11::module_& module);
void bindProfile(pybind11::module_& module);
void bindStation(pybind11::module_& module);

}  // namespace Hadrel

#endif
