// SPDX-License-Identifier: BSL-1.0
/// @file
/// A copy of a profile, by which a change of it is noticed.

#ifndef CALCULATIONS_PROFILES_PROFILE_COPY_H
#define CALCULATIONS_PROFILES_PROFILE_COPY_H

#include "profiles/paths/Ring.h"

#include <Calculations/ThProfileDefinition.h>

#include <vector>

namespace Ruv {
namespace Calculations {

/// A profile as read, to tell whether it has changed since. Comparing takes a small part of what is
/// prepared from it.
class ProfileCopy {
 public:
  /// The first point, or the end of a segment.
  using Node = RingNode;

  explicit ProfileCopy(const IProfileSegmentProvider& profile);

  bool isCopyOf(const IProfileSegmentProvider& profile) const;

  /// The nodes without points that are not finite, whose neighbours are joined by a straight. One
  /// more than segments; none without segments.
  const std::vector<Node>& soundNodes() const { return m_isSound ? m_nodes : m_sound; }

 private:
  void leaveOutUnsound();

  std::vector<Node> m_nodes;
  bool m_isSound = true;
  std::vector<Node> m_sound;  // instead of all nodes, where some are left out
};

}  // namespace Calculations
}  // namespace Ruv

#endif
