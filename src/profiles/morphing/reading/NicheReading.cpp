// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/reading/NicheReading.h"

#include "profiles/morphing/reading/ChainParts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <vector>

namespace Ruv {
namespace Calculations {

namespace {

/// Two parts of a wall with a niche between them differ by no more than this (rad) in heading.
constexpr double kSameWall = 0.6;

/// And the second one lies no farther (rad) beside the continuation of the first.
constexpr double kAsideWall = 0.6;

/// A detour has a corner or an arc that turns anticlockwise by more than this (rad).
constexpr double kDent = 0.3;

/// The mouth of a niche is no higher than this part of the outline.
constexpr double kHighestMouth = 0.8;

/// A detour leaves and comes back at corners or by fillets, and it has a dent.
bool isDetour(const TurningChords& chain, std::size_t first, std::size_t last) {
  const auto isFillet = [&](std::size_t i) { return chain[i].turning < -kDent; };
  if (std::abs(cornerBefore(chain, first)) < kDent && !isFillet(first)) return false;
  if (std::abs(cornerBefore(chain, last)) < kDent && !isFillet(last - 1)) return false;
  for (std::size_t i = first; i <= last; ++i) {
    if (cornerBefore(chain, i) < -kDent || (i < last && isFillet(i))) return true;
  }
  return false;
}

/// True when a piece lies on the continuation of another one.
bool continuesWall(const TurningChord& last, const TurningChord& next) {
  const Point2D gap = next.start - last.end;
  if (!(std::abs(gap.y) >= std::abs(gap.x))) return false;
  const double bend = turningBetween(last.headingAtEnd(), next.headingAtStart());
  const double radius = last.radius();
  // The chord of the gap turns by half of what an arc between its ends would.
  const double expected = radius == 0.0 ? 0.0 : gap.length() / radius;
  if (!(std::abs(bend - expected) <= kSameWall)) return false;
  const double aside = turningBetween(last.headingAtEnd(), bearingOf(gap)) - expected / 2.0;
  return std::abs(aside) <= kAsideWall;
}

/// Crowns of arcs included.
double heightOf(const TurningChords& chain) {
  const std::vector<Point2D> points = sampled(chain, kCrownSampling);
  const auto [low, high] = std::minmax_element(
      points.begin(), points.end(), [](const Point2D& a, const Point2D& b) { return a.y < b.y; });
  return high->y - low->y;
}

/// A niche in a chain of pieces: where it begins, and the piece behind it.
struct Niche {
  std::size_t first = 0;
  std::size_t next = 0;
};

/// The lowest piece below a niche, when the wall goes on there that ends above it. Of several the
/// nearest: two niches are not one, and a bench below a niche is no part of it.
std::optional<std::size_t> wallBelow(const TurningChords& upper, std::size_t next, double highest) {
  for (std::size_t last = next - 1; last-- > 0;) {
    const double mouth = upper[next].start.y - upper[last].end.y;
    if (!(mouth > 0.0 && mouth <= highest)) continue;
    if (continuesWall(upper[last], upper[next]) && isDetour(upper, last + 1, next)) return last;
  }
  return std::nullopt;
}

/// The niches of the left wall, from the foot up. The wall is followed from the crown down, where
/// there is most of it: what lies beside its continuation at the foot is a bench.
std::vector<Niche> leftNichesOf(const TurningChords& upper) {
  std::vector<Niche> niches;
  const double highest = kHighestMouth * heightOf(upper);
  for (std::size_t next = upper.size() - 1; next > 1; --next) {
    const auto last = wallBelow(upper, next, highest);
    if (!last) continue;
    niches.push_back({*last + 1, next});
    next = *last + 1;
  }
  std::reverse(niches.begin(), niches.end());
  return niches;
}

}  // namespace

/// Left and right niches are looked for from their own feet up, so that mirroring an outline
/// mirrors its niches. Indices of the right ones count from the right end of the chain.
bool cutNiches(TurningChords& upper, std::vector<Detour>& detours) {
  const TurningChords fromRight = mirrored(upper);
  const std::vector<Niche> left = leftNichesOf(upper);
  const std::vector<Niche> right = leftNichesOf(fromRight);
  const std::size_t lastLeft = left.empty() ? 0 : left.back().next;
  const std::size_t lastRight = right.empty() ? 0 : right.back().next;
  if (lastLeft + lastRight > upper.size()) return false;
  TurningChords bridged;
  std::size_t reached = 0;
  const auto goOnTo = [&](std::size_t end) {
    bridged.insert(bridged.end(), upper.begin() + static_cast<std::ptrdiff_t>(reached),
                   upper.begin() + static_cast<std::ptrdiff_t>(end));
  };
  for (const Niche& niche : left) {
    goOnTo(niche.first);
    bridged.push_back(continuedTo(upper[niche.next].start, upper[niche.first - 1]));
    detours.push_back({DetourSite::LeftWall, part(upper, niche.first, niche.next)});
    reached = niche.next;
  }
  for (auto niche = right.rbegin(); niche != right.rend(); ++niche) {
    goOnTo(upper.size() - niche->next);
    bridged.push_back(continuedTo(fromRight[niche->next].start, fromRight[niche->first - 1])
                          .reversed()
                          .mirrored());
    detours.push_back({DetourSite::RightWall,
                       part(upper, upper.size() - niche->next, upper.size() - niche->first)});
    reached = upper.size() - niche->first;
  }
  goOnTo(upper.size());
  upper = bridged;
  return true;
}

}  // namespace Calculations
}  // namespace Ruv
