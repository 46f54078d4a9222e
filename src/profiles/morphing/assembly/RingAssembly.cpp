// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/assembly/RingAssembly.h"

#include "profiles/morphing/reading/OutlineStore.h"
#include "profiles/morphing/reading/SegmentMerging.h"
#include "shapes/ShapeTolerances.h"

#include <algorithm>

namespace Ruv {
namespace Calculations {

namespace {

bool hasLength(const TurningChord& piece) { return piece.chord().length() >= kSamePoint; }

/// How many niches are numbered; numbers begin with 1.
int numNichesOf(const MatchedPieces& pieces) {
  int count = 0;
  for (const MatchedPiece& piece : pieces) {
    count = std::max(count, piece.niche);
  }
  return count;
}

/// Pieces that both have no length are at one place, where any turnings add.
bool continuesIn(const TurningChord& a, const TurningChord& b) {
  if (hasLength(a) != hasLength(b)) return false;
  return hasLength(a) ? isContinued(a, b) : areJoinable(a, b);
}

/// What is known of a piece beside its shape must be the same, too: the invert stays one piece that
/// the bottom lists can find, and a niche does not flow into the wall.
bool isOnePiece(const MatchedPiece& a, const MatchedPiece& b) {
  return a.niche == b.niche && a.isInvert == b.isInvert && a.isFloor == b.isFloor &&
         continuesIn(a.start, b.start) && continuesIn(a.end, b.end);
}

void join(MatchedPiece& a, const MatchedPiece& b) {
  a.start = joined(a.start, b.start);
  a.end = joined(a.end, b.end);
}

}  // namespace

/// The right side was walked mirrored, so it is mirrored back and, because the ring leads on from
/// the crown downwards, reversed. Its niches are numbered on from those of the left side.
MatchedPieces ringOf(const MatchedSides& sides) {
  MatchedPieces ring = sides.left;
  const int numNiches = numNichesOf(sides.left);
  for (auto piece = sides.right.rbegin(); piece != sides.right.rend(); ++piece) {
    MatchedPiece mirrored = *piece;
    mirrored.start = piece->start.reversed().mirrored();
    mirrored.end = piece->end.reversed().mirrored();
    if (mirrored.niche > 0) mirrored.niche += numNiches;
    ring.push_back(mirrored);
  }
  ring.insert(ring.end(), sides.floor.begin(), sides.floor.end());
  return ring;
}

/// A turning without a length is a corner, and corners are made by the neighbours.
MatchedPieces withoutVanished(const MatchedPieces& ring) {
  MatchedPieces kept;
  for (const MatchedPiece& piece : ring) {
    if (hasLength(piece.start) || hasLength(piece.end)) kept.push_back(piece);
  }
  return kept;
}

/// One straight of 10 m that faces two of 5 m was cut in the middle to be matched. Where both parts
/// are one again in both outlines, the joint between them is nobody's node. The first and the last
/// piece of the ring are neighbours as well.
MatchedPieces withJointsRemoved(const MatchedPieces& ring) {
  MatchedPieces pieces;
  for (const MatchedPiece& piece : ring) {
    if (!pieces.empty() && isOnePiece(pieces.back(), piece)) {
      join(pieces.back(), piece);
    } else {
      pieces.push_back(piece);
    }
  }
  if (pieces.size() > 1 && isOnePiece(pieces.back(), pieces.front())) {
    join(pieces.back(), pieces.front());
    pieces.front() = pieces.back();
    pieces.pop_back();
  }
  return pieces;
}

}  // namespace Calculations
}  // namespace Ruv
