/// @file
/// Reads profiles through their common interface.

#ifndef CALCULATIONS_PROFILES_PROFILE_OUTLINE_H
#define CALCULATIONS_PROFILES_PROFILE_OUTLINE_H

#include <Calculations/Paths.h>
#include <Calculations/ThProfileDefinition.h>

#include <vector>

namespace Ruv {
namespace Calculations {

/// The closed outline of a profile; empty for a profile without segments.
Path outlineOf(const IProfileSegmentProvider& profile, bool clean);

/// One segment of a profile as read.
struct ProfileSegment {
  Point2D start;
  Point2D end;
  double radius = 0.0;

  /// The same bits, so that not-a-number equals itself.
  bool isSameAs(const ProfileSegment& other) const;
};

std::vector<ProfileSegment> segmentsOf(const IProfileSegmentProvider& profile);

}  // namespace Calculations
}  // namespace Ruv

#endif
