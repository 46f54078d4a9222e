// SPDX-License-Identifier: BSL-1.0
// Where edges meet that the clipper cannot tell apart, its results depend on where outlines begin,
// which way they run and which comes first. So it is always asked in one way.
//
// What it answers is written in one way too. Where an area narrows to a point the clipper may lead
// one outline through the point twice or make two of it; here it is two. Edges that begin at such a
// point and edges that end there take turns round it, as the area lies to the left of either:
//
//       b2 \   / e1        e   edge that ends in the point
//     area  \ /  area      b   edge that begins in it
//       e2  / \  b1
//          /   \           .
//
// Anticlockwise from an edge that begins the area follows, up to an edge that ends: the one is
// continued by the other, e1 by b1 and e2 by b2. An outline that touches itself from outside comes
// back as it was by the same rule; a split there would leave a hole.

#include "profiles/paths/CanonicalOutlines.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <numeric>
#include <utility>
#include <vector>

namespace Ruv {
namespace Calculations {

namespace {

using ClipperLib::cInt;
using ClipperLib::IntPoint;

/// The order in which the clipper sweeps: from above, and on one level from the left.
bool isSweptBefore(const IntPoint& a, const IntPoint& b) {
  return a.Y != b.Y ? a.Y > b.Y : a.X < b.X;
}

/// Compares as words are compared.
bool comesBefore(const ClipperLib::Path& a, const ClipperLib::Path& b) {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), isSweptBefore);
}

/// Where the first of all rotations, in the order of words, begins. Two candidates are compared,
/// and the loser takes along the places after it up to which both were equal, so that it takes 2 n
/// steps even for an outline that runs round and round (Shiloach 1981, Fast canonization of
/// circular strings, J. Algorithms 2).
std::size_t firstRotation(const ClipperLib::Path& outline) {
  const std::size_t count = outline.size();
  const auto at = [&](std::size_t i) { return outline[i < count ? i : i - count]; };
  std::size_t a = 0;
  std::size_t b = 1;
  std::size_t equal = 0;
  while (a < count && b < count && equal < count) {
    if (at(a + equal) == at(b + equal)) {
      ++equal;
      continue;
    }
    std::size_t& loser = isSweptBefore(at(a + equal), at(b + equal)) ? b : a;
    loser += equal + 1;
    if (a == b) ++b;
    equal = 0;
  }
  return std::min(a, b);
}

void startFirst(ClipperLib::Path& outline) {
  const auto start = static_cast<std::ptrdiff_t>(firstRotation(outline));
  std::rotate(outline.begin(), outline.begin() + start, outline.end());
}

/// Twice the area to the left of the corner at the first point. The sign of the corner turned round
/// is the other one exactly, however the terms are rounded.
double cornerArea(const ClipperLib::Path& outline) {
  const auto difference = [](cInt from, cInt to) {
    return static_cast<double>(to) - static_cast<double>(from);
  };
  const IntPoint& before = outline.back();
  const IntPoint& corner = outline[0];
  const IntPoint& after = outline[1];
  return difference(before.X, corner.X) * difference(corner.Y, after.Y) -
         difference(before.Y, corner.Y) * difference(corner.X, after.X);
}

/// Turns an outline so that it runs anticlockwise at its start, or as it comes first where that
/// tells nothing.
void turnFirst(ClipperLib::Path& outline, bool isStartUnique) {
  if (outline.size() < 3) return;
  const double area = isStartUnique ? cornerArea(outline) : 0.0;
  if (area > 0.0) return;
  ClipperLib::Path turned(outline.rbegin(), outline.rend());
  if (area < 0.0) {
    std::rotate(turned.begin(), turned.end() - 1, turned.end());
  } else {
    startFirst(turned);
    if (!comesBefore(turned, outline)) return;
  }
  outline.swap(turned);
}

/// @param outline not empty
ClipperLib::Path canonicalOutline(const ClipperLib::Path& outline, Sense sense) {
  // Without repetitions, of which it depends on the start of the outline whether they are seen.
  ClipperLib::Path canonical;
  canonical.reserve(outline.size());
  std::unique_copy(outline.begin(), outline.end(), std::back_inserter(canonical));
  while (canonical.size() > 1 && canonical.back() == canonical.front())
    canonical.pop_back();
  auto start = canonical.begin();
  bool isUnique = true;
  for (auto p = start + 1; p != canonical.end(); ++p) {
    if (isSweptBefore(*p, *start)) {
      start = p;
      isUnique = true;
    } else if (*p == *start) {
      isUnique = false;
    }
  }
  std::rotate(canonical.begin(), start, canonical.end());
  if (!isUnique) startFirst(canonical);
  if (sense == Sense::Free) turnFirst(canonical, isUnique);
  return canonical;
}

/// An edge at a point that an outline passes several times, as seen from there.
struct Ray {
  IntPoint direction;
  std::size_t visit;  ///< which of the outline's points it is
  bool begins;
};

/// Edges up to this (200 km in clipping units) have products that 64 bits hold.
constexpr cInt kLongestEdge = 2000000000;

bool isExact(const IntPoint& direction) {
  return std::abs(direction.X) <= kLongestEdge && std::abs(direction.Y) <= kLongestEdge;
}

/// From the right anticlockwise.
bool turnsBefore(const IntPoint& a, const IntPoint& b) {
  const auto isLower = [](const IntPoint& p) { return p.Y < 0 || (p.Y == 0 && p.X < 0); };
  if (isLower(a) != isLower(b)) return isLower(b);
  return a.X * b.Y > a.Y * b.X;
}

/// The outlines that an outline consists of.
class TouchingOutline {
 public:
  explicit TouchingOutline(const ClipperLib::Path& outline)
      : m_outline(outline), m_continuation(outline.size()) {
    std::iota(m_continuation.begin(), m_continuation.end(), std::size_t{0});
    std::vector<std::size_t> visits = m_continuation;
    std::sort(visits.begin(), visits.end(),
              [&](std::size_t a, std::size_t b) { return isSweptBefore(outline[a], outline[b]); });
    for (auto visit = visits.begin(); visit != visits.end();) {
      const auto next = std::find_if(visit, visits.end(), [&](std::size_t other) {
        return outline[other] != outline[*visit];
      });
      if (next - visit > 1) continueRound({visit, next});
      visit = next;
    }
  }

  void appendTo(ClipperLib::Paths& pieces) const {
    const ClipperLib::Paths split = m_isContinued ? followed() : ClipperLib::Paths();
    const bool areOutlines =
        std::all_of(split.begin(), split.end(),
                    [](const ClipperLib::Path& piece) { return ClipperLib::Area(piece) > 0.0; });
    if (split.empty() || !areOutlines) {
      pieces.push_back(m_outline);
    } else {
      pieces.insert(pieces.end(), split.begin(), split.end());
    }
  }

 private:
  ClipperLib::Paths followed() const {
    ClipperLib::Paths pieces;
    std::vector<bool> isDone(m_outline.size(), false);
    for (std::size_t start = 0; start < m_outline.size(); ++start) {
      if (isDone[start]) continue;
      pieces.emplace_back();
      for (std::size_t i = start; !isDone[i]; i = m_continuation[after(i)]) {
        isDone[i] = true;
        pieces.back().push_back(m_outline[i]);
      }
    }
    return pieces;
  }

  std::size_t after(std::size_t i) const { return i + 1 < m_outline.size() ? i + 1 : 0; }
  std::size_t before(std::size_t i) const { return i > 0 ? i - 1 : m_outline.size() - 1; }

  IntPoint direction(std::size_t from, std::size_t to) const {
    return {m_outline[to].X - m_outline[from].X, m_outline[to].Y - m_outline[from].Y};
  }

  /// Leaves what it cannot tell: edges that run along each other, or too long ones.
  /// @param visits of one point
  void continueRound(const std::vector<std::size_t>& visits) {
    std::vector<Ray> rays;
    for (const std::size_t visit : visits) {
      rays.push_back({direction(visit, after(visit)), visit, true});
      rays.push_back({direction(visit, before(visit)), visit, false});
    }
    if (!std::all_of(rays.begin(), rays.end(), [](const Ray& r) { return isExact(r.direction); })) {
      return;
    }
    std::sort(rays.begin(), rays.end(),
              [](const Ray& a, const Ray& b) { return turnsBefore(a.direction, b.direction); });
    if (!rays.front().begins) std::rotate(rays.begin(), rays.begin() + 1, rays.end());
    for (std::size_t i = 0; i < rays.size(); ++i) {
      const Ray& next = rays[i + 1 < rays.size() ? i + 1 : 0];
      const bool isApart = turnsBefore(rays[i].direction, next.direction) ||
                           turnsBefore(next.direction, rays[i].direction);
      if (!isApart || rays[i].begins != (i % 2 == 0)) return;
    }
    for (std::size_t i = 0; i < rays.size(); i += 2) {
      m_continuation[rays[i + 1].visit] = rays[i].visit;
    }
    m_isContinued = true;
  }

  const ClipperLib::Path& m_outline;
  /// The visit whose edge continues the one that ends with a visit; itself where nothing touches.
  std::vector<std::size_t> m_continuation;
  bool m_isContinued = false;
};

}  // namespace

ClipperLib::Paths canonicalOutlines(const PathViews& outlines, Sense sense) {
  ClipperLib::Paths canonical;
  canonical.reserve(outlines.size());
  for (const ClipperLib::Path* outline : outlines) {
    if (!outline->empty()) canonical.push_back(canonicalOutline(*outline, sense));
  }
  std::sort(canonical.begin(), canonical.end(), comesBefore);
  return canonical;
}

ClipperLib::Paths canonicalPieces(const ClipperLib::Paths& outlines) {
  ClipperLib::Paths pieces;
  pieces.reserve(outlines.size());
  std::size_t numEmpty = 0;
  for (const ClipperLib::Path& outline : outlines) {
    if (outline.empty()) {
      ++numEmpty;
    } else {
      TouchingOutline(outline).appendTo(pieces);
    }
  }
  for (ClipperLib::Path& piece : pieces) {
    startFirst(piece);
  }
  std::sort(pieces.begin(), pieces.end(), comesBefore);
  pieces.resize(pieces.size() + numEmpty);
  return pieces;
}

}  // namespace Calculations
}  // namespace Ruv
