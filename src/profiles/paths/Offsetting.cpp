// SPDX-License-Identifier: BSL-1.0
// The offset outlines are the clipper's own; the union that cleans them up is led here, as the
// clipper does not look whether it succeeds.

#include "profiles/paths/Offsetting.h"

#include "foundation/Opened.h"

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

/// What the clipper's offsetting is made of.
struct OffsetSteps {
  using ClipperOffset = ClipperLib::ClipperOffset;

  struct FixOrientations {
    using Member = void (ClipperOffset::*)();
    friend Member memberOf(FixOrientations name);
  };
  struct DoOffset {
    using Member = void (ClipperOffset::*)(double);
    friend Member memberOf(DoOffset name);
  };
  struct Inputs {
    using Member = ClipperLib::PolyNode ClipperOffset::*;
    friend Member memberOf(Inputs name);
  };
  struct Outlines {
    using Member = ClipperLib::Paths ClipperOffset::*;
    friend Member memberOf(Outlines name);
  };
};

template struct Opened<OffsetSteps::FixOrientations, &ClipperLib::ClipperOffset::FixOrientations>;
template struct Opened<OffsetSteps::DoOffset, &ClipperLib::ClipperOffset::DoOffset>;
template struct Opened<OffsetSteps::Inputs, &ClipperLib::ClipperOffset::m_polyNodes>;
template struct Opened<OffsetSteps::Outlines, &ClipperLib::ClipperOffset::m_destPolys>;

namespace {

/// The clipping library's defaults, stated because outlines depend on them: the arc tolerance is
/// a quarter of a grid step.
constexpr double kMiterLimit = 2.0;
constexpr double kArcToleranceUnits = 0.25;

/// Up to this offset (100 m) corners are rounded with that tolerance. Beyond, the tolerance grows
/// with the square of the offset, so that a corner gets ever fewer points, from 4500 down to 220:
/// the corners of an outline become nearly the same circle, each of whose points the clipper then
/// compares with those of all the others.
constexpr double kLargestFineOffsetUnits = 1e6;
constexpr double kCoarsestArc = 1e-4;  // in relation to the offset

double arcToleranceOf(ClipperLib::cInt distance) {
  const double offset = std::abs(static_cast<double>(distance));
  const double coarseness = offset / kLargestFineOffsetUnits;
  return std::max(kArcToleranceUnits,
                  std::min(kArcToleranceUnits * coarseness * coarseness, kCoarsestArc * offset));
}

/// Where arms of an outline have grown into each other the winding number is 2 or more. All of that
/// is inside, and a gap that has closed round stays a hole.
ClipperLib::Paths grown(const PathViews& offset) {
  FailsafeClipper clipper;
  clipper.add(offset, ClipperLib::ptSubject, true);
  return clipper.outlines(ClipperLib::ctUnion, ClipperLib::pftPositive);
}

/// Outlines that are shrunk away have turned. They are told from the others as what lies in a
/// rectangle round all of them.
ClipperLib::Paths shrunk(const PathViews& offset) {
  constexpr ClipperLib::cInt kMargin = 10;
  FailsafeClipper clipper;
  clipper.add(offset, ClipperLib::ptSubject, true);
  const ClipperLib::IntRect r = clipper.GetBounds();
  const ClipperLib::Path around = {{r.left - kMargin, r.bottom + kMargin},
                                   {r.right + kMargin, r.bottom + kMargin},
                                   {r.right + kMargin, r.top - kMargin},
                                   {r.left - kMargin, r.top - kMargin}};
  clipper.add({&around}, ClipperLib::ptSubject, true);
  clipper.ReverseSolution(true);
  ClipperLib::Paths outlines = clipper.outlines(ClipperLib::ctUnion, ClipperLib::pftNegative);
  if (!outlines.empty()) outlines.erase(outlines.begin());  // the rectangle
  return outlines;
}

}  // namespace

ClipperLib::Paths offsetBy(ClipperLib::cInt distance, const PathViews& paths,
                           ClipperLib::EndType ends) {
  ClipperLib::ClipperOffset clipper(kMiterLimit, arcToleranceOf(distance));
  // The clipper loses what this list does not take.
  (clipper.*memberOf(OffsetSteps::Inputs())).Childs.reserve(paths.size());
  refuseOutOfRange(paths);
  for (const ClipperLib::Path* path : paths) {
    clipper.AddPath(*path, ClipperLib::jtRound, ends);
  }
  // Turns all closed outlines round when the one with the highest vertex runs clockwise: it is
  // taken for an outline, and those of the other sense for holes, whichever way all of them were
  // handed in.
  (clipper.*memberOf(OffsetSteps::FixOrientations()))();
  (clipper.*memberOf(OffsetSteps::DoOffset()))(static_cast<double>(distance));
  const PathViews offset = viewsOf(clipper.*memberOf(OffsetSteps::Outlines()));
  return distance > 0 ? grown(offset) : shrunk(offset);
}

}  // namespace Calculations
}  // namespace Ruv
