/// @file
/// A theoretical calculator on any profile.

#ifndef CALCULATIONS_PROFILES_REFERENCE_CALCULATOR_H
#define CALCULATIONS_PROFILES_REFERENCE_CALCULATOR_H

#include "profiles/ProfileOutline.h"

#include <Calculations/ThProfileCalculator.h>

#include <memory>
#include <vector>

namespace Ruv {
namespace Calculations {

/// Copies a reference profile into a theoretical one and keeps the calculator on the copy until
/// the reference's segments change.
class ReferenceCalculator {
 public:
  const ThProfileCalculator& calculatorOn(const IProfileSegmentProvider& reference);

 private:
  ProfileCopy m_copy;
  std::unique_ptr<ThProfileCalculator> m_calculator;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
