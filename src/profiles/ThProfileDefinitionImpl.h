// SPDX-License-Identifier: BSL-1.0
/// @file
/// What a ThProfileDefinition holds.

#ifndef CALCULATIONS_PROFILES_TH_PROFILE_DEFINITION_IMPL_H
#define CALCULATIONS_PROFILES_TH_PROFILE_DEFINITION_IMPL_H

#include "foundation/DerivedOnDemand.h"
#include "profiles/TurningSense.h"
#include "shapes/CurveChain.h"

#include <Calculations/Paths.h>
#include <Calculations/ThProfileDefinition.h>

#include <vector>

namespace Ruv {
namespace Calculations {

class ThProfileDefinitionImpl {
 public:
  /// What a profile holds.
  static const ThProfileDefinitionImpl& of(const ThProfileDefinition& profile) {
    return *profile.m_impl;
  }

  std::vector<CChainNode> nodes;
  TurningSense sense;

  void add(const Point2D& start, const Point2D& end, double radius);
  void reset();

  /// Cut and cleaned when it is first asked for. Kept with the profile, as one design is the
  /// reference of thousands of sections, and this takes as long as clipping a small one.
  DerivedOnDemand<Path> cleanOutline;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
