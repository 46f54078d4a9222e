/// @file
/// Reads profiles through their common interface.

#ifndef CALCULATIONS_PROFILES_PROFILE_OUTLINE_H
#define CALCULATIONS_PROFILES_PROFILE_OUTLINE_H

#include <Calculations/Paths.h>
#include <Calculations/ThProfileDefinition.h>

#include <vector>

namespace Ruv {
namespace Calculations {

/// One segment of a profile as read.
struct ProfileSegment {
  Point2D start;
  Point2D end;
  double radius = 0.0;
};

std::vector<ProfileSegment> segmentsOf(const IProfileSegmentProvider& profile);

/// A profile as last read, to tell whether it has changed since. Comparing takes a small part of
/// what is prepared from it.
class ProfileCopy {
 public:
  /// The first point, or the end of a segment.
  struct Node {
    Point2D point;
    double radius = 0.0;  ///< of the segment that ends here
  };

  /// Reads a profile that differs from the copy.
  /// @return whether it differed
  bool update(const IProfileSegmentProvider& profile);

  /// One more than segments; none without segments.
  const std::vector<Node>& nodes() const { return m_nodes; }

 private:
  bool isCopyOf(const IProfileSegmentProvider& profile) const;

  std::vector<Node> m_nodes;
};

/// The closed outline of a profile; empty for a profile without segments.
Path outlineOf(const IProfileSegmentProvider& profile, bool clean);

/// The cleaned outline of a profile, kept until the profile's segments change: cleaning a fine one
/// takes longer than clipping it.
class KeptOutline {
 public:
  const Path& of(const IProfileSegmentProvider& profile);

 private:
  ProfileCopy m_copy;
  Path m_outline;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
