// SPDX-License-Identifier: BSL-1.0
/// @file
/// Axes for the fuzzers.

#ifndef CALCULATIONS_FUZZ_FUZZ_AXES_H
#define CALCULATIONS_FUZZ_FUZZ_AXES_H

#include "FuzzInput.h"

#include <Calculations/AxisDefinition.h>

#include <boost/shared_ptr.hpp>

namespace Fuzz {

/// Tame axes have tangent joints in plan, radii from 150 m and, but for kinks, roundings in the
/// profile that do not overlap.
struct FuzzedAxis {
  boost::shared_ptr<Ruv::Calculations::AxisDefinition> axis;
  bool hasKinks = false;
};

FuzzedAxis fuzzedAxis(Input& input);

}  // namespace Fuzz

#endif
