#include "profiles/morphing/OutlineMean.h"

#include "profiles/morphing/OutlineStore.h"

#include <cstddef>

namespace Ruv {
namespace Calculations {

namespace {

template <class Value>
Value mean(const Value& start, const Value& end, double t) {
  return start * (1.0 - t) + end * t;
}

}  // namespace

TurningChords meanOf(const MatchedPieces& ring, const MorphPlacement& placement, double t) {
  const Point2D base = mean(placement.startBase, placement.endBase, t);
  const CDirection back = directionOfBearing(-mean(placement.startTurned, placement.endTurned, t));
  const auto placed = [&](const Point2D& start, const Point2D& end) {
    return base + turnedTo(back, mean(start, end, t));
  };
  TurningChords outline;
  outline.reserve(ring.size());
  for (const MatchedPiece& piece : ring) {
    const TurningChord chord{placed(piece.start.start, piece.end.start),
                             placed(piece.start.end, piece.end.end),
                             mean(piece.start.turning, piece.end.turning, t)};
    if (chord.chord().length() < kSamePoint) continue;
    if (!outline.empty()) outline.back().end = chord.start;
    outline.push_back(chord);
  }
  if (!outline.empty()) outline.back().end = outline.front().start;
  return outline;
}

}  // namespace Calculations
}  // namespace Ruv
