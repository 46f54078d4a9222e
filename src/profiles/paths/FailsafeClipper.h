// SPDX-License-Identifier: BSL-1.0
/// @file
/// The clipping library with failures that show.

#ifndef CALCULATIONS_PROFILES_PATHS_FAILSAFE_CLIPPER_H
#define CALCULATIONS_PROFILES_PATHS_FAILSAFE_CLIPPER_H

#include <Calculations/ClipperLib.h>

#include <exception>
#include <vector>

namespace Ruv {
namespace Calculations {

/// Paths that are looked at and not copied. They must live until the call returns.
using PathViews = std::vector<const ClipperLib::Path*>;

PathViews viewsOf(const ClipperLib::Paths& paths);
ClipperLib::Paths copied(const PathViews& paths);

/// Throws what the clipper throws for points beyond its range, before anything is computed with
/// them.
void refuseOutOfRange(const PathViews& paths);

/// The clipper has given up for another reason than want of memory: there is no result, which is
/// not the same as an empty one.
class ClippingFailure : public std::exception {
 public:
  const char* what() const noexcept override { return "clipping failed"; }
};

/// One clipping, with the results of the clipping library and with failures told from each other.
///
/// The library's own operation returns false and nothing when memory runs out, when its sweep loses
/// its way, and when there is nothing to clip; and when memory runs out while it treats
/// intersections, it deletes some of them twice.
/// Failure: std::bad_alloc for want of memory; ClippingFailure when the sweep loses its way;
///   ClipperLib::clipperException for coordinates beyond ClipperLib::hiRange. The clipping is then
///   of no further use. Of what the library had allocated at most a block is lost that a full list
///   did not take, or the points of one outline.
class FailsafeClipper : private ClipperLib::Clipper {
 public:
  FailsafeClipper() = default;
  FailsafeClipper(const FailsafeClipper&) = delete;
  FailsafeClipper& operator=(const FailsafeClipper&) = delete;
  ~FailsafeClipper() override;

  void add(const PathViews& paths, ClipperLib::PolyType role, bool areClosed);
  using Clipper::GetBounds;
  /// Outlines of results run the other way round.
  using Clipper::ReverseSolution;

  /// The result with the same fill rule for subject and clip.
  ClipperLib::Paths outlines(ClipperLib::ClipType operation, ClipperLib::PolyFillType fill);
  /// The result by the even-odd rule as a tree, in which open paths appear too.
  void writeTo(ClipperLib::PolyTree& tree, ClipperLib::ClipType operation);

 protected:
  void Reset() override;
  bool ExecuteInternal() override;

 private:
  bool hasEdges() const { return !m_edges.empty(); }
  void sweep();
  void processIntersections(ClipperLib::cInt top);
  void order(ClipperLib::IntersectList& nodes);
  void processEachOf(ClipperLib::IntersectList& nodes);
  template <class Step, class... Arguments>
  decltype(auto) take(Arguments... arguments);

  bool m_isSwept = false;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
