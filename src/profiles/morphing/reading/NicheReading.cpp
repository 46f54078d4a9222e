// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/reading/NicheReading.h"

#include "profiles/morphing/reading/ChainParts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

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
constexpr double kHighestMouth = 0.4;

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

double heightOf(const TurningChords& chain) {
  double low = chain.front().start.y;
  double high = low;
  for (const TurningChord& piece : chain) {
    low = std::min(low, piece.end.y);
    high = std::max(high, piece.end.y);
  }
  return high - low;
}

/// A niche in a chain of pieces: where it begins, and the piece behind it.
struct Niche {
  std::size_t first = 0;
  std::size_t next = 0;
};

/// The niches of the left wall, from the foot up.
std::vector<Niche> leftNichesOf(const TurningChords& upper) {
  std::vector<Niche> niches;
  const double highest = kHighestMouth * heightOf(upper);
  for (std::size_t i = 0; i < upper.size(); ++i) {
    for (std::size_t next = i + 2; next < upper.size(); ++next) {
      const double mouth = upper[next].start.y - upper[i].end.y;
      if (!(mouth > 0.0 && mouth <= highest)) continue;
      if (!continuesWall(upper[i], upper[next]) || !isDetour(upper, i + 1, next)) continue;
      niches.push_back({i + 1, next});
      i = next - 1;
      break;
    }
  }
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
