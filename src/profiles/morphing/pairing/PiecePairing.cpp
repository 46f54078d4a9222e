// SPDX-License-Identifier: BSL-1.0
// Two walks are gone along together, and a place is kept that has been reached on either. A pair
// begins at both places and moves them on; where one outline has nothing to give, its place stays
// and its piece has no length. So the pieces of either outline make up its chain without a gap,
// whatever grows or vanishes in between.
//
// Flat steps of one level are matched by fraction of the flat length of their section: both are cut
// where a step of the other one ends.

#include "profiles/morphing/pairing/PiecePairing.h"

#include "profiles/morphing/pairing/ExcursionMatch.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

namespace Ruv {
namespace Calculations {

namespace {

/// Fractions of a length that differ by less are the same place.
constexpr double kSameFraction = 1e-12;

/// The items of one section of a level, consumed from the front by fraction of its flat length.
class SectionReader {
 public:
  explicit SectionReader(PlacedItems items) : m_items(std::move(items)) {}

  bool isDone() const { return m_index == m_items.size(); }
  const PlacedItem& front() const { return m_items[m_index]; }
  /// Where the front item ends or, when it is an excursion, is.
  double nextPlace() const { return isDone() ? 1.0 : front().to; }

  /// The excursion at a place, if it is the next item.
  const LevelItem* excursionAt(double place) const {
    const bool isHere = !isDone() && front().isExcursion() && front().from <= place + kSameFraction;
    return isHere ? front().item : nullptr;
  }

  /// The part of the front item, a flat step, up to a place; nothing when there is none.
  std::optional<LevelStep> take(double from, double to) {
    if (isDone() || front().isExcursion()) return std::nullopt;
    const PlacedItem placed = front();
    LevelStep step = placed.item->steps.front();
    const double length = placed.to - placed.from;
    const double first = std::max(0.0, (from - placed.from) / length);
    const bool isRest = to >= placed.to - kSameFraction;
    step.chord = step.chord.part(first, isRest ? 1.0 : (to - placed.from) / length);
    if (isRest) skip();
    return step;
  }

  /// Goes on to the next item.
  void skip() { ++m_index; }

 private:
  PlacedItems m_items;
  std::size_t m_index = 0;
};

/// Goes along both outlines and notes what becomes of what.
class Pairing {
 public:
  explicit Pairing(int baseLevel, const Point2D& startFoot = {}, const Point2D& endFoot = {})
      : m_start(startFoot), m_end(endFoot), m_baseLevel(baseLevel) {}

  void pairRuns(const HeadingRun& start, const HeadingRun& end);
  void pair(const LevelStep* start, const LevelStep* end);

  MatchedSide side;

 private:
  void matchLevel(const LevelItems& start, const LevelItems& end);
  void matchSection(SectionReader start, SectionReader end);
  bool insertExcursion(SectionReader& start, SectionReader& end, double place);
  void insert(const LevelItem& excursion, bool isStart);
  void pairExcursions(const LevelItem& start, const LevelItem& end);

  Point2D m_start;  // the places reached, from the bases
  Point2D m_end;
  int m_baseLevel;
  int m_niche = 0;      // that is being paired
  int m_numNiches = 0;  // so far
};

bool hasLength(const LevelStep* step) {
  return step != nullptr && step->kind != WalkStepKind::Corner;
}

/// What has no length stays at the place that was reached.
TurningChord chordFrom(const Point2D& place, const LevelStep* step) {
  if (!hasLength(step)) return {place, place, 0.0};
  return {place, step->chord.end, step->chord.turning};
}

/// Two steps without length make no piece. A corner that becomes an arc takes the turning of the
/// arc, so that a fillet grows from radius 0.
void Pairing::pair(const LevelStep* start, const LevelStep* end) {
  const LevelStep* present = hasLength(start) ? start : end;
  if (!hasLength(present)) return;
  MatchedPiece piece{chordFrom(m_start, start), chordFrom(m_end, end), false, m_niche};
  if (!hasLength(start)) piece.start.turning = piece.end.turning;
  if (!hasLength(end)) piece.end.turning = piece.start.turning;
  piece.isInvert = m_niche == 0 && present->isFlat() && present->from == m_baseLevel;
  side.pieces.push_back(piece);
  m_start = piece.start.end;
  m_end = piece.end.end;
}

/// Where the runs have different levels, one of them stays where it is.
void Pairing::pairRuns(const HeadingRun& start, const HeadingRun& end) {
  static const LevelItems kNothing;
  const int direction = start.direction();
  const bool isRising = direction > 0;
  const int first =
      isRising ? std::min(start.first(), end.first()) : std::max(start.first(), end.first());
  const int last =
      isRising ? std::max(start.last(), end.last()) : std::min(start.last(), end.last());
  for (int level = first;; level += direction) {
    const LevelItems* startItems = start.itemsAt(level);
    const LevelItems* endItems = end.itemsAt(level);
    matchLevel(startItems ? *startItems : kNothing, endItems ? *endItems : kNothing);
    if (level == last) return;
    pair(start.turnFrom(level), end.turnFrom(level));
  }
}

/// Matched excursions divide a level into sections, which are matched each for itself.
void Pairing::matchLevel(const LevelItems& start, const LevelItems& end) {
  std::size_t nextStart = 0;
  std::size_t nextEnd = 0;
  const auto matchUpTo = [&](std::size_t startIndex, std::size_t endIndex) {
    matchSection(SectionReader(placed(start, nextStart, startIndex)),
                 SectionReader(placed(end, nextEnd, endIndex)));
  };
  for (const auto& [startIndex, endIndex] : matchExcursions(start, end)) {
    matchUpTo(startIndex, endIndex);
    pairExcursions(start[startIndex], end[endIndex]);
    nextStart = startIndex + 1;
    nextEnd = endIndex + 1;
  }
  matchUpTo(start.size(), end.size());
}

void Pairing::matchSection(SectionReader start, SectionReader end) {
  double place = 0.0;
  while (!start.isDone() || !end.isDone()) {
    if (insertExcursion(start, end, place)) continue;
    const double next = std::min(start.nextPlace(), end.nextPlace());
    const auto startPart = start.take(place, next);
    const auto endPart = end.take(place, next);
    pair(startPart ? &*startPart : nullptr, endPart ? &*endPart : nullptr);
    place = next;
  }
}

/// Of two excursions at one place the longer comes first, whichever outline has it.
bool Pairing::insertExcursion(SectionReader& start, SectionReader& end, double place) {
  const LevelItem* fromStart = start.excursionAt(place);
  const LevelItem* fromEnd = end.excursionAt(place);
  if (!fromStart && !fromEnd) return false;
  const bool isStart = fromStart && !(fromEnd && fromEnd->length() > fromStart->length());
  insert(isStart ? *fromStart : *fromEnd, isStart);
  (isStart ? start : end).skip();
  return true;
}

/// The other outline has nothing of the kind and stays at its place.
void Pairing::insert(const LevelItem& excursion, bool isStart) {
  m_niche = ++m_numNiches;
  for (const LevelStep& step : rejoined(excursion.steps)) {
    pair(isStart ? &step : nullptr, isStart ? nullptr : &step);
  }
  (isStart ? side.vanishing : side.growing) += excursion.length();
  m_niche = 0;
}

void Pairing::pairExcursions(const LevelItem& start, const LevelItem& end) {
  m_niche = ++m_numNiches;
  const LevelSteps startSteps = rejoined(start.steps);
  const LevelSteps endSteps = rejoined(end.steps);
  if (areSameStraights(startSteps, endSteps)) {
    for (std::size_t i = 0; i < startSteps.size(); ++i) {
      pair(&startSteps[i], &endSteps[i]);
    }
  } else {
    const std::vector<HeadingRun> startRuns = runsOf(start.steps);
    const std::vector<HeadingRun> endRuns = runsOf(end.steps);
    // Excursions are matched only when they turn equally often, beginning in the same sense.
    for (std::size_t i = 0; i < startRuns.size(); ++i) {
      pairRuns(startRuns[i], endRuns[i]);
    }
  }
  m_niche = 0;
}

}  // namespace

/// For walks that areAlike() has found to do the same: no levels are needed.
MatchedSide pairSteps(const LevelSteps& start, const LevelSteps& end, int baseLevel,
                      const Point2D& startFoot, const Point2D& endFoot) {
  Pairing pairing(baseLevel, startFoot, endFoot);
  for (std::size_t i = 0; i < start.size(); ++i) {
    pairing.pair(&start[i], &end[i]);
  }
  return pairing.side;
}

MatchedSide pairRuns(const HeadingRun& start, const HeadingRun& end, int baseLevel,
                     const Point2D& startFoot, const Point2D& endFoot) {
  Pairing pairing(baseLevel, startFoot, endFoot);
  pairing.pairRuns(start, end);
  return pairing.side;
}

}  // namespace Calculations
}  // namespace Ruv
