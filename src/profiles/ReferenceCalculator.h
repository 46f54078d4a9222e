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
/// the reference's segments differ from those copied. Comparing them takes a small part of what
/// the calculator's preparation takes.
class ReferenceCalculator {
 public:
  const ThProfileCalculator& calculatorOn(const IProfileSegmentProvider& reference);

 private:
  bool isCopyOf(const IProfileSegmentProvider& reference) const;

  std::vector<ProfileSegment> m_segments;
  std::unique_ptr<ThProfileCalculator> m_calculator;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
