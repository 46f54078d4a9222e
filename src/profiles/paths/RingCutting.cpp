// SPDX-License-Identifier: BSL-1.0
// A polygon with holes becomes simple pieces by cutting its box along vertical lines: what lies
// left of the line and what lies right of it are clipped out of it, and each half is cut again
// while it has holes. The line runs through the middle of a hole, so the hole opens to the outside
// on either side. Taking the hole in the middle of all halves the work with every cut.
//
// The obvious way is a bridge of width zero from every hole to its outline, without any clipping.
// But such outlines run along themselves, as some of those do that the clipper leads wrongly when
// it is given them again.
//
// Before that every hole is given to the innermost outline that holds it, because the clipper hands
// outlines and holes out in one list.

#include "profiles/paths/RingCutting.h"

#include "profiles/paths/FailsafeClipper.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <utility>
#include <vector>

namespace Ruv {
namespace Calculations {

namespace {

using ClipperLib::cInt;

/// A box with sides along the axes, in clipping units.
struct Bounds {
  cInt left;
  cInt right;
  cInt bottom;
  cInt top;
};

Bounds boundsOf(const ClipperLib::Path& path) {
  Bounds bounds{path.front().X, path.front().X, path.front().Y, path.front().Y};
  for (const ClipperLib::IntPoint& p : path) {
    bounds.left = std::min(bounds.left, p.X);
    bounds.right = std::max(bounds.right, p.X);
    bounds.bottom = std::min(bounds.bottom, p.Y);
    bounds.top = std::max(bounds.top, p.Y);
  }
  return bounds;
}

ClipperLib::Path rectangle(const Bounds& b) {
  return {{b.left, b.bottom}, {b.right, b.bottom}, {b.right, b.top}, {b.left, b.top}};
}

/// An outline with the holes directly inside it.
struct Ring {
  ClipperLib::Path outline;
  ClipperLib::Paths holes;
};

/// Outlines inside holes are rings of their own.
void collectRings(const ClipperLib::PolyNode& parent, std::vector<Ring>& rings) {
  for (const ClipperLib::PolyNode* outline : parent.Childs) {
    Ring ring{outline->Contour, {}};
    for (const ClipperLib::PolyNode* hole : outline->Childs) {
      ring.holes.push_back(hole->Contour);
      collectRings(*hole, rings);
    }
    rings.push_back(std::move(ring));
  }
}

std::vector<Ring> ringsWithin(const PathViews& paths, const ClipperLib::Path& area) {
  FailsafeClipper clipper;
  clipper.add(paths, ClipperLib::ptSubject, true);
  clipper.add({&area}, ClipperLib::ptClip, true);
  ClipperLib::PolyTree tree;
  clipper.writeTo(tree, ClipperLib::ctIntersection);
  std::vector<Ring> rings;
  collectRings(tree, rings);
  return rings;
}

/// Where wide enough holes want to be cut. Narrower ones cannot be cut on the grid.
std::vector<cInt> middlesOf(const ClipperLib::Paths& holes) {
  std::vector<cInt> middles;
  for (const ClipperLib::Path& hole : holes) {
    const Bounds bounds = boundsOf(hole);
    const cInt width = bounds.right - bounds.left;
    if (width >= 2) middles.push_back(bounds.left + width / 2);
  }
  return middles;
}

/// Cuts through the hole in the middle first, so that each cut halves what is left to do.
void cutRing(const Ring& ring, ClipperLib::Paths& pieces) {
  std::vector<cInt> middles = middlesOf(ring.holes);
  if (middles.empty()) {
    pieces.push_back(ring.outline);
    return;
  }
  const auto median = middles.begin() + static_cast<std::ptrdiff_t>(middles.size() / 2);
  std::nth_element(middles.begin(), median, middles.end());
  PathViews paths = viewsOf(ring.holes);
  paths.push_back(&ring.outline);
  Bounds left = boundsOf(ring.outline);
  Bounds right = left;
  left.right = *median;
  right.left = *median;
  for (const Bounds& half : {left, right}) {
    for (const Ring& part : ringsWithin(paths, rectangle(half))) {
      cutRing(part, pieces);
    }
  }
}

/// So many more corners inside than outside, or the reverse, are no rounding.
constexpr int kClearMajority = 8;

/// Corners of a hole inside an outline less those outside; further ones do not count after a clear
/// majority.
int majorityInside(const ClipperLib::Path& outline, const ClipperLib::Path& hole) {
  int majority = 0;
  for (const ClipperLib::IntPoint& p : hole) {
    const int place = ClipperLib::PointInPolygon(p, outline);
    if (place >= 0) majority += place == 1 ? 1 : -1;
    if (std::abs(majority) >= kClearMajority) break;
  }
  return majority;
}

bool areApart(const Bounds& a, const Bounds& b) {
  return a.left > b.right || b.left > a.right || a.bottom > b.top || b.bottom > a.top;
}

/// Area of what two outlines share, by clipping one with the other.
double commonArea(const ClipperLib::Path& a, const ClipperLib::Path& b) {
  double area = 0.0;
  for (const Ring& ring : ringsWithin({&a}, b)) {
    area += ClipperLib::Area(ring.outline);
    for (const ClipperLib::Path& hole : ring.holes) {
      area += ClipperLib::Area(hole);
    }
  }
  return area;
}

/// Whether a hole lies inside. Edges that it shares with the outline may leave its corners on
/// either side by rounding to the grid; areas decide where corners do not.
bool holds(const ClipperLib::Path& outline, const ClipperLib::Path& hole) {
  const double area = std::abs(ClipperLib::Area(hole));
  if (!(std::abs(ClipperLib::Area(outline)) > area)) return false;
  if (areApart(boundsOf(outline), boundsOf(hole))) return false;
  const int majority = majorityInside(outline, hole);
  const bool isWhollyInside = majority == static_cast<int>(hole.size());
  if (isWhollyInside || majority >= kClearMajority) return true;
  if (majority <= -kClearMajority) return false;
  return commonArea(outline, hole) > area / 2.0;
}

/// The innermost ring around a hole, null if there is none.
Ring* ringAround(const ClipperLib::Path& hole, std::vector<Ring>& rings) {
  Ring* innermost = nullptr;
  for (Ring& ring : rings) {
    if (!holds(ring.outline, hole)) continue;
    if (innermost == nullptr || holds(innermost->outline, ring.outline)) innermost = &ring;
  }
  return innermost;
}

}  // namespace

ClipperLib::Paths cutAtHoles(const ClipperLib::Paths& paths) {
  std::vector<Ring> rings;
  ClipperLib::Paths holes;
  for (const ClipperLib::Path& path : paths) {
    if (ClipperLib::Orientation(path)) {
      rings.push_back({path, {}});
    } else {
      holes.push_back(path);
    }
  }
  ClipperLib::Paths pieces;
  for (const ClipperLib::Path& hole : holes) {
    Ring* ring = ringAround(hole, rings);
    (ring != nullptr ? ring->holes : pieces).push_back(hole);
  }
  for (const Ring& ring : rings) {
    cutRing(ring, pieces);
  }
  return pieces;
}

}  // namespace Calculations
}  // namespace Ruv
