/// @file
/// Reads profiles through their common interface.

#ifndef CALCULATIONS_PROFILES_PROFILE_OUTLINE_H
#define CALCULATIONS_PROFILES_PROFILE_OUTLINE_H

#include <Calculations/Paths.h>
#include <Calculations/ThProfileDefinition.h>

#include <memory>
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

/// A profile as read, to tell whether it has changed since. Comparing takes a small part of what is
/// prepared from it.
class ProfileCopy {
 public:
  /// The first point, or the end of a segment.
  struct Node {
    Point2D point;
    double radius = 0.0;  ///< of the segment that ends here
  };

  explicit ProfileCopy(const IProfileSegmentProvider& profile);

  bool isCopyOf(const IProfileSegmentProvider& profile) const;

  /// Without points that are not finite, whose neighbours are joined by a straight. One more than
  /// segments; none without segments.
  std::vector<Node> soundNodes() const;

 private:
  std::vector<Node> m_nodes;
};

/// The closed outline of a profile through its finite points; empty for a profile without
/// segments.
Path outlineOf(const IProfileSegmentProvider& profile, bool clean);

/// What is worked out from a profile, kept until the profile's segments change. It takes the place
/// of what was before when it is complete, so that nothing older answers after an exception.
/// @tparam T constructed from a ProfileCopy
template <class T>
class KeptOfProfile {
 public:
  const T& of(const IProfileSegmentProvider& profile) {
    if (!m_kept || !m_kept->copy.isCopyOf(profile)) {
      m_kept = std::make_unique<const Kept>(profile);
    }
    return m_kept->value;
  }

 private:
  struct Kept {
    explicit Kept(const IProfileSegmentProvider& profile) : copy(profile), value(copy) {}

    ProfileCopy copy;
    T value;
  };

  std::unique_ptr<const Kept> m_kept;
};

/// The cleaned outline of a profile. Worth keeping: cleaning a fine one takes longer than clipping
/// it.
class CleanOutline {
 public:
  explicit CleanOutline(const ProfileCopy& profile);

  const Path& path() const { return m_path; }

 private:
  Path m_path;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
