// SPDX-License-Identifier: BSL-1.0
/// @file
/// A theoretical calculator on any profile.

#ifndef CALCULATIONS_PROFILES_REFERENCE_CALCULATOR_H
#define CALCULATIONS_PROFILES_REFERENCE_CALCULATOR_H

#include "profiles/ProfileCopy.h"

#include <Calculations/ThProfileCalculator.h>

namespace Ruv {
namespace Calculations {

/// A theoretical calculator on a copy of any profile.
class ReferenceCalculator {
 public:
  explicit ReferenceCalculator(const ProfileCopy& reference);

  const ThProfileCalculator& calculator() const { return m_calculator; }

 private:
  ThProfileCalculator m_calculator;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
