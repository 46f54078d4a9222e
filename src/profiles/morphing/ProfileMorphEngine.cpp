// SPDX-License-Identifier: BSL-1.0
// Coordinates change their frame twice during a preparation. First either outline is turned about
// the origin of the profiles by half of the roll, then it is moved so that its base is the origin.
// What the steps match is relative to the base; MorphPlacement keeps both motions, and meanOf
// undoes them.

#include "profiles/morphing/ProfileMorphEngine.h"

#include "foundation/MathConstants.h"
#include "profiles/morphing/assembly/RingAssembly.h"
#include "profiles/morphing/evaluation/SelfCrossing.h"
#include "profiles/morphing/pairing/BearingMatch.h"
#include "profiles/morphing/pairing/FloorMatch.h"
#include "profiles/morphing/pairing/RollSearch.h"
#include "profiles/morphing/reading/BaseSegment.h"
#include "profiles/morphing/reading/FloorFirmness.h"
#include "profiles/morphing/reading/FloorReading.h"
#include "profiles/morphing/reading/SegmentMerging.h"

#include <algorithm>
#include <utility>

namespace Ruv {
namespace Calculations {

namespace {

/// An outline is ragged from the first value on, and in full from the second (rad of all dents). Up
/// to there headings match it evenly, because its dents are taken for level.
constexpr Fading kNotRagged{0.1, 0.4};

/// Parts of the way between which ragged outlines are looked at for crossings. Of seven pairs in
/// 200 that crossed themselves, five did so between the quarters only.
constexpr int kPartsOfRaggedWay = 24;

/// Where the way is tried.
constexpr std::array<double, 5> kTestPlaces = {0.0, 0.25, 0.5, 0.75, 1.0};

struct BothWalks {
  SideWalk left;
  SideWalk right;
};

std::optional<BothWalks> walksAlong(const OutlineSides& sides) {
  const auto left = walkAlong(sides.left);
  const auto right = walkAlong(sides.right);
  if (!left || !right) return std::nullopt;
  return BothWalks{*left, *right};
}

bool hasArc(const TurningChords& outline) {
  return std::any_of(outline.begin(), outline.end(),
                     [](const TurningChord& piece) { return piece.isArc(); });
}

/// Two outlines at the same place of the way differ by how they were matched only. What lies
/// between them is found by rays; nothing when no point sees both.
std::optional<TurningChords> between(const TurningChords& a, const TurningChords& b,
                                     double weight) {
  const auto match = matchByBearings(a, b, 0.0);
  if (!match) return std::nullopt;
  return meanOf(match->outlines, weight);
}

bool areFinite(const std::vector<NodePairs>& polylines) {
  return std::all_of(polylines.begin(), polylines.end(),
                     [](const NodePairs& nodes) { return areFinite(nodes); });
}

}  // namespace

void ProfileMorphEngine::configure(int flags, int mostDivisionsTurned, int firstNumber) {
  m_flags = flags;
  m_mostDivisionsTurned = mostDivisionsTurned;
  m_firstNumber = firstNumber;
}

void ProfileMorphEngine::reset() {
  clearResults();
  m_start = {};
  m_end = {};
}

void ProfileMorphEngine::clearResults() {
  m_isPrepared = false;
  m_start.read = {};
  m_end.read = {};
  m_placement = MorphPlacement();
  m_outlines = MatchedOutlines();
  m_hasFloors = false;
  m_firmness = 1.0;
  m_simpler.reset();
  m_rays.reset();
  m_raggedness = 0.0;
  m_lists = MorphLists();
}

int ProfileMorphEngine::prepare(double fromStationing, double toStationing,
                                const std::vector<ProfileSegment>& start,
                                const std::vector<ProfileSegment>& end, int divisions) {
  clearResults();
  Outcome outcome = takeSettings(fromStationing, toStationing, divisions);
  if (outcome == Outcome::GoOn) outcome = loadOutlines(start, end);
  if (outcome == Outcome::GoOn) outcome = takeSteps();
  outcome = prepareSimpler(start, end, outcome);
  m_hasFailed = outcome == Outcome::Failed;
  m_isPrepared = !m_hasFailed;
  if (m_hasFailed) return 1;
  report(MorphStatus::Morphed);
  return 0;
}

/// A way that fails or crosses itself counts for nothing, whatever has been read.
ProfileMorphEngine::Outcome ProfileMorphEngine::prepareSimpler(
    const std::vector<ProfileSegment>& start, const std::vector<ProfileSegment>& end,
    Outcome asRead) {
  // Without floors and detours both have been read as rings already.
  if (!m_hasFloors && !hasDetours()) return asRead;
  if (asRead == Outcome::Failed || !isWaySimple(m_outlines)) m_firmness = 0.0;
  if (m_firmness == 1.0) return asRead;
  auto simpler = engineFor(m_hasFloors && hasDetours() ? Reading::Detours : Reading::Rings);
  if (simpler->prepare(m_fromStationing, m_toStationing, start, end, m_divisions) == 0) {
    m_simpler = std::move(simpler);
    return Outcome::Completed;
  }
  if (asRead == Outcome::Failed) m_message = simpler->m_message;
  return asRead;
}

bool ProfileMorphEngine::hasDetours() const {
  return !m_start.read.detours.empty() || !m_end.read.detours.empty();
}

/// The steps that follow on loading, in the order of the contract. A step that has nothing to do
/// under the given flags goes on.
ProfileMorphEngine::Outcome ProfileMorphEngine::takeSteps() {
  using Engine = ProfileMorphEngine;
  constexpr std::array<Step, 15> kSteps = {
      &Engine::refuseHalfCircles,    &Engine::prepareStores,      &Engine::searchShift,
      &Engine::findBaseSegments,     &Engine::mergeInputSegments, &Engine::matchLinesOfSides,
      &Engine::matchSegmentsOfSides, &Engine::generateBottom,     &Engine::assembleSegments,
      &Engine::mergeSegments,        &Engine::beginAtFirstNode,   &Engine::assembleSilhouettes,
      &Engine::generatePolylines,    &Engine::generateSegments,   &Engine::generateTestResult};
  for (const Step step : kSteps) {
    const Outcome outcome = (this->*step)();
    if (outcome != Outcome::GoOn) return outcome;
  }
  return Outcome::Completed;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::takeSettings(double fromStationing,
                                                             double toStationing, int divisions) {
  if (!m_start.store.isEmpty() || !m_end.store.isEmpty()) return fail(MorphStatus::ResetNeeded);
  m_divisions = divisions >= 1 ? divisions : kDefaultDivisions;
  m_angularStep = kTwoPi / m_divisions;
  m_fromStationing = fromStationing;
  m_toStationing = toStationing;
  return Outcome::GoOn;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::loadOutlines(
    const std::vector<ProfileSegment>& start, const std::vector<ProfileSegment>& end) {
  m_start.store.load(start);
  if (m_start.store.isEmpty()) return fail(MorphStatus::ProfileGeneration, false);
  m_end.store.load(end);
  if (m_end.store.isEmpty()) return fail(MorphStatus::ProfileGeneration, true);
  return Outcome::GoOn;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::refuseHalfCircles() {
  if (has(MorphFlags::kHalfCirclesAllowed)) return Outcome::GoOn;
  const bool isAny = m_start.store.hasHalfCircle() || m_end.store.hasHalfCircle();
  return isAny ? fail(MorphStatus::HalfCircle) : Outcome::GoOn;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::prepareStores() {
  std::int64_t startCounter = m_firstNumber;
  std::int64_t endCounter = m_firstNumber;
  m_start.store.numberElements(startCounter);
  m_end.store.numberElements(endCounter);
  m_start.read = {m_start.store.elements()};
  m_end.read = {m_end.store.elements()};
  if (has(MorphFlags::kBottom)) readBottoms();
  return Outcome::GoOn;
}

/// Both outlines need a floor for floors to be matched. With one that has none, the other is read
/// as a ring, too, and keeps at most its detours apart.
void ProfileMorphEngine::readBottoms() {
  for (Outline* outline : {&m_start, &m_end}) {
    const TurningChords& elements = outline->store.elements();
    if (m_reading != Reading::Rings) outline->read = readOutline(elements);
    outline->raggedness = 1.0 - kNotRagged(dentsOf(elements));
  }
  if (m_reading == Reading::Rings) return;
  m_firmness = m_start.read.firmness * m_end.read.firmness;
  m_hasFloors = m_firmness > 0.0 && m_reading == Reading::Parts;
  if (!m_hasFloors) weighDetours();
}

/// Detours count as far as both outlines have a base for them.
void ProfileMorphEngine::weighDetours() {
  m_firmness = hasDetours() ? surenessOnRing(m_start.read) * surenessOnRing(m_end.read) : 0.0;
  if (m_firmness > 0.0) return;
  for (Outline* outline : {&m_start, &m_end})
    outline->read = {outline->store.elements()};
}

/// The base analysis or, in its place, the analysis of the whole bottom.
PlumbLines ProfileMorphEngine::plumbLinesOf(const TurningChords& ring) const {
  return has(MorphFlags::kBottom) ? plumbLinesThroughMiddle(ring) : plumbLinesThroughFirst(ring);
}

/// Not finding a shift is the rule, and no failure. Either outline is turned by half of the roll,
/// so that none of them is preferred.
ProfileMorphEngine::Outcome ProfileMorphEngine::searchShift() {
  const double largest = m_mostDivisionsTurned * m_angularStep;
  const double roll = rollBetween({m_start.read.upper, m_start.read.hasFloor()},
                                  {m_end.read.upper, m_end.read.hasFloor()}, largest);
  if (roll == 0.0) report(MorphStatus::ShiftNotFound);
  m_placement.startTurned = roll / 2.0;
  m_placement.endTurned = -roll / 2.0;
  m_start.read.turnBy(m_placement.startTurned);
  m_end.read.turnBy(m_placement.endTurned);
  return Outcome::GoOn;
}

/// Moves an outline so that its base is the origin: the middle between the feet of its floor, or
/// the lowest point of a ring. From there the sides lead up to the crown.
std::optional<Point2D> ProfileMorphEngine::standOnBase(OutlineReading& read, OutlineSides& sides) {
  const TurningChords ring = read.ring();
  const PlumbLines lines = plumbLinesOf(ring);
  Point2D base;
  TurningChords upper = read.upper;
  if (m_hasFloors) {
    base = (read.floor.front().start + read.floor.back().end) * 0.5;
  } else {
    const auto place = outermostPlace(ring, lines.baseX, -1.0);
    if (!place) return std::nullopt;
    base = pointAt(ring, *place);
    upper = begunAt(ring, *place);
  }
  const auto crown = outermostPlace(upper, lines.crownX, 1.0);
  if (!crown) return std::nullopt;
  moveBy(upper, base * -1.0);
  sides = sidesOf(upper, *crown);
  read.moveBy(base * -1.0);
  return base;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::findBaseSegments() {
  const auto start = standOnBase(m_start.read, m_lists.sideProfiles.start);
  const auto end = standOnBase(m_end.read, m_lists.sideProfiles.end);
  if (!start || !end) return fail(MorphStatus::BaseSegment);
  // Bases are kept in the frame of the inputs, for which they are turned back.
  const auto asRead = [](const Point2D& p, double turned) {
    return turnedFrom(directionOfBearing(turned), p);
  };
  m_placement.startBase = asRead(*start, m_placement.startTurned);
  m_placement.endBase = asRead(*end, m_placement.endTurned);
  m_lists.detours =
      matchDetours(m_start.read, m_end.read, m_placement.endBase - m_placement.startBase,
                   m_hasFloors ? DetourBase::Floors : DetourBase::Rings);
  return Outcome::GoOn;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::mergeInputSegments() {
  if (!has(MorphFlags::kSegmentMerging)) return Outcome::GoOn;
  for (OutlineSides* sides : {&m_lists.sideProfiles.start, &m_lists.sideProfiles.end}) {
    sides->left = merged(sides->left);
    sides->right = merged(sides->right);
  }
  return Outcome::GoOn;
}

/// Alone among the steps both matches may complete a preparation, when there is nothing left to
/// match.
ProfileMorphEngine::Outcome ProfileMorphEngine::matchLinesOfSides() {
  if (!has(MorphFlags::kLinesMatch)) return Outcome::GoOn;
  const Outcome outcome = requireLines(MorphStatus::LinesMatch);
  return outcome == Outcome::GoOn ? completeIfAlike() : outcome;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::matchSegmentsOfSides() {
  if (!has(MorphFlags::kSegmentsMatch)) return Outcome::GoOn;
  if (!has(MorphFlags::kLinesMatch)) {
    Outcome outcome = requireLines(MorphStatus::SegmentsMatch);
    if (outcome == Outcome::GoOn) outcome = completeIfAlike();
    if (outcome != Outcome::GoOn) return outcome;
  }
  const auto sides = matchSegments(*m_lists.leftLines, *m_lists.rightLines);
  if (!sides) return fail(MorphStatus::SegmentsMatch);
  m_lists.sides = *sides;
  matchFloor();
  return Outcome::GoOn;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::requireLines(MorphStatus statusOfFailure) {
  const auto start = walksAlong(m_lists.sideProfiles.start);
  if (!start) return fail(MorphStatus::SideProfile, false);
  const auto end = walksAlong(m_lists.sideProfiles.end);
  if (!end) return fail(MorphStatus::SideProfile, true);
  m_lists.leftLines = matchLines(start->left, end->left);
  m_lists.rightLines = matchLines(start->right, end->right);
  if (!m_lists.leftLines || !m_lists.rightLines) return fail(statusOfFailure);
  return Outcome::GoOn;
}

/// Outlines that differ in lengths only need no further matching.
ProfileMorphEngine::Outcome ProfileMorphEngine::completeIfAlike() {
  if (!areAlike(*m_lists.leftLines) || !areAlike(*m_lists.rightLines)) return Outcome::GoOn;
  m_lists.sides = matchAlike(*m_lists.leftLines, *m_lists.rightLines);
  matchFloor();
  assembleSegments();
  mergeSegments();
  beginAtFirstNode();
  return Outcome::Completed;
}

/// Floors are no part of the sides and are matched for themselves.
void ProfileMorphEngine::matchFloor() {
  if (!m_hasFloors) return;
  m_lists.sides.floor = matchFloors(m_start.read.floor, m_end.read.floor,
                                    m_placement.endBase - m_placement.startBase);
}

ProfileMorphEngine::Outcome ProfileMorphEngine::generateBottom() {
  if (!has(MorphFlags::kBottom)) return Outcome::GoOn;
  m_lists.bottomSegments = bottomSegmentsOf(m_lists.sides);
  if (!areFinite(m_lists.bottomSegments)) return fail(MorphStatus::BottomSegments);
  m_lists.bottomSteps = planStepsOf(m_lists.bottomSegments);
  if (!areFinite(m_lists.bottomSteps)) return fail(MorphStatus::BottomSteps);
  return Outcome::GoOn;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::assembleSegments() {
  m_lists.segments = ringOf(m_lists.sides);
  if (has(MorphFlags::kSegmentsMatch) && !m_hasFloors && !hasDetours()) pairByRays();
  return Outcome::GoOn;
}

/// Headings say little of caves: which dent becomes which is a guess, the next one may be better
/// where a node has moved a little, and outlines may be led across themselves. What is then known
/// of them are the rays from a point inside. Where it is doubtful whether an outline is a cave, the
/// result lies between both matches. Outlines without dents worth the name never cross themselves,
/// and need not be tried.
void ProfileMorphEngine::pairByRays() {
  const TurningChords& start = m_start.store.elements();
  const TurningChords& end = m_end.store.elements();
  const bool mayCross = !isNearlyConvex(start) || !isNearlyConvex(end);
  const double raggedness = std::max(m_start.raggedness, m_end.raggedness);
  if (!mayCross && raggedness == 0.0) return;
  auto match = matchByBearings(start, end, 2.0 * m_placement.startTurned);
  if (!match) return;
  double weight = match->visibility * raggedness;
  const MatchedOutlines byHeadings{m_lists.segments, {}, {}, {}};
  if (mayCross && weight < 1.0 && !isWaySimple(byHeadings, kPartsOfRaggedWay)) weight = 1.0;
  if (weight == 0.0) return;
  // Straights between rays cannot cross, arcs may bulge over each other.
  const bool mayBulge = hasArc(start) || hasArc(end);
  if (mayBulge && !isWaySimple(match->outlines, kPartsOfRaggedWay)) return;
  if (weight < 1.0) {
    m_rays = std::move(match->outlines);
    m_raggedness = weight;
  } else {
    m_lists.segments = std::move(match->outlines.ring);
    m_placement = match->outlines.placement;
  }
}

ProfileMorphEngine::Outcome ProfileMorphEngine::mergeSegments() {
  if (!has(MorphFlags::kSegmentMerging)) return Outcome::GoOn;
  m_lists.segments = withJointsRemoved(withoutVanished(m_lists.segments));
  return Outcome::GoOn;
}

/// The first node of the start outline is looked up by its place, as matching may have moved it to
/// the middle of the ring, into a detour or into a longer piece.
ProfileMorphEngine::Outcome ProfileMorphEngine::beginAtFirstNode() {
  const CDirection turned = directionOfBearing(m_placement.startTurned);
  const Point2D fromBase = m_start.store.nodes().front().point - m_placement.startBase;
  m_outlines = {m_lists.segments, m_lists.detours, m_placement, {}};
  m_outlines.first = firstNodeAt(m_outlines, turnedTo(turned, fromBase));
  return Outcome::GoOn;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::assembleSilhouettes() {
  m_lists.silhouettes = silhouettesOf(m_lists.segments);
  if (!areFinite(m_lists.silhouettes.start)) return fail(MorphStatus::Silhouette, false);
  if (!areFinite(m_lists.silhouettes.end)) return fail(MorphStatus::Silhouette, true);
  return Outcome::GoOn;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::generatePolylines() {
  m_lists.bottomPolyline = nodesOf(m_lists.bottomSegments);
  if (!areFinite(m_lists.bottomPolyline)) return fail(MorphStatus::BottomPolyline);
  m_lists.polyline = nodesOf(m_lists.segments);
  if (!areFinite(m_lists.polyline)) return fail(MorphStatus::OutlinePolyline);
  for (const MatchedPieces& niche : nichesOf(m_lists.segments)) {
    const NodePairs nodes = nodesOf(niche);
    m_lists.nicheSidePolylines.push_back({nodes.front(), nodes.back()});
    m_lists.nicheInteriorPolylines.push_back(nodes);
  }
  if (!areFinite(m_lists.nicheSidePolylines)) return fail(MorphStatus::NicheSidePolyline);
  if (!areFinite(m_lists.nicheInteriorPolylines)) return fail(MorphStatus::NicheInteriorPolyline);
  return Outcome::GoOn;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::generateSegments() {
  if (m_lists.segments.empty() || !areFinite(m_lists.segments)) return fail(MorphStatus::Segments);
  m_lists.nicheInteriorSegments = nichesOf(m_lists.segments);
  const auto finite = [](const MatchedPieces& niche) { return areFinite(niche); };
  const std::vector<MatchedPieces>& niches = m_lists.nicheInteriorSegments;
  const bool areSound = std::all_of(niches.begin(), niches.end(), finite);
  return areSound ? Outcome::GoOn : fail(MorphStatus::NicheInteriorSegments);
}

/// One simple outline is enough. The start is looked at first, so the step fails at most where
/// inputs cross themselves.
ProfileMorphEngine::Outcome ProfileMorphEngine::generateTestResult() {
  const bool isAny = std::any_of(kTestPlaces.begin(), kTestPlaces.end(),
                                 [this](double t) { return isSimple(meanOf(m_outlines, t)); });
  return isAny ? Outcome::GoOn : fail(MorphStatus::TestResult);
}

std::optional<OutlineNodes> ProfileMorphEngine::evaluate(double atStationing) {
  // Halves, because the difference of two large stationings may not be finite.
  const double t = (atStationing / 2.0 - m_fromStationing / 2.0) /
                   (m_toStationing / 2.0 - m_fromStationing / 2.0);
  if (m_isPrepared && atStationing == m_fromStationing) return m_start.store.nodes();
  if (m_isPrepared && atStationing == m_toStationing) return m_end.store.nodes();
  if (!m_isPrepared || !(t >= 0.0 && t <= 1.0)) {
    m_message = u"Missing data.";
    return std::nullopt;
  }
  return evaluateAt(t);
}

OutlineNodes ProfileMorphEngine::evaluateAt(double t) const {
  if (!m_simpler) return evaluateOwn(t);
  OutlineNodes simpler = m_simpler->evaluateAt(t);
  if (m_firmness == 0.0) return simpler;
  return evaluateBetween(simpler, evaluateOwn(t));
}

/// The outline between two ones at the same place of the way, which differ by how they were matched
/// only, is found by morphing from one to the other, as rings and without a roll.
OutlineNodes ProfileMorphEngine::evaluateBetween(const OutlineNodes& simpler,
                                                 const OutlineNodes& asRead) const {
  const auto engine = engineFor(Reading::Rings);
  engine->m_mostDivisionsTurned = 0;
  const int status =
      engine->prepare(0.0, 1.0, segmentsOf(simpler), segmentsOf(asRead), m_divisions);
  return status == 0 ? engine->evaluateOwn(m_firmness) : asRead;
}

OutlineNodes ProfileMorphEngine::evaluateOwn(double t) const {
  TurningChords outline = meanOf(m_outlines, t);
  if (m_rays) outline = between(outline, meanOf(*m_rays, t), m_raggedness).value_or(outline);
  return nodesFrom(outline, m_start.store.wasAnticlockwise());
}

/// An engine with the same settings.
std::unique_ptr<ProfileMorphEngine> ProfileMorphEngine::engineFor(Reading reading) const {
  auto engine = std::make_unique<ProfileMorphEngine>();
  engine->configure(m_flags, m_mostDivisionsTurned, m_firstNumber);
  engine->m_reading = reading;
  return engine;
}

void ProfileMorphEngine::message(int code, bool isEnd) {
  // What a display shows when storing the text fails.
  m_message = u"Missing profiles data";
  m_message = textOf(code, isEnd);
}

ProfileMorphEngine::Outcome ProfileMorphEngine::fail(MorphStatus status, bool isEnd) {
  report(status, isEnd);
  return Outcome::Failed;
}

}  // namespace Calculations
}  // namespace Ruv
