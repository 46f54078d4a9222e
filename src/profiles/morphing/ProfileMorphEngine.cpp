#include "profiles/morphing/ProfileMorphEngine.h"

#include "foundation/MathConstants.h"
#include "profiles/morphing/BaseSegment.h"
#include "profiles/morphing/HalfCircles.h"
#include "profiles/morphing/RingAssembly.h"
#include "profiles/morphing/SegmentMerging.h"
#include "profiles/morphing/SelfCrossing.h"

#include <algorithm>

namespace Ruv {
namespace Calculations {

namespace {

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

OutlineNodes nodesFrom(const TurningChords& outline, bool isAnticlockwise) {
  OutlineNodes nodes;
  nodes.reserve(outline.size());
  if (isAnticlockwise) {
    for (auto piece = outline.rbegin(); piece != outline.rend(); ++piece) {
      nodes.push_back({piece->end, piece->reversed().radius()});
    }
  } else {
    for (const TurningChord& piece : outline) {
      nodes.push_back({piece.start, piece.radius()});
    }
  }
  return nodes;
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
  m_start = OutlineStore();
  m_end = OutlineStore();
}

void ProfileMorphEngine::clearResults() {
  m_isPrepared = false;
  m_plumbLines = {};
  m_placement = MorphPlacement();
  m_lists = MorphLists();
}

int ProfileMorphEngine::prepare(double fromStationing, double toStationing,
                                const std::vector<ProfileSegment>& start,
                                const std::vector<ProfileSegment>& end, int divisions) {
  clearResults();
  Outcome outcome = takeSettings(fromStationing, toStationing, divisions);
  if (outcome == Outcome::GoOn) outcome = loadOutlines(start, end);
  if (outcome == Outcome::GoOn) outcome = takeSteps();
  m_hasFailed = outcome == Outcome::Failed;
  m_isPrepared = !m_hasFailed;
  if (m_hasFailed) return 1;
  report(MorphStatus::Morphed);
  return 0;
}

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
  if (!m_start.isEmpty() || !m_end.isEmpty()) return fail(MorphStatus::ResetNeeded);
  m_divisions = divisions >= 1 ? divisions : kDefaultDivisions;
  m_angularStep = kTwoPi / m_divisions;
  m_fromStationing = fromStationing;
  m_toStationing = toStationing;
  return Outcome::GoOn;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::loadOutlines(
    const std::vector<ProfileSegment>& start, const std::vector<ProfileSegment>& end) {
  m_start.load(start);
  if (m_start.isEmpty()) return fail(MorphStatus::ProfileGeneration, false);
  m_end.load(end);
  if (m_end.isEmpty()) return fail(MorphStatus::ProfileGeneration, true);
  return Outcome::GoOn;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::refuseHalfCircles() {
  if (has(MorphFlags::kHalfCirclesAllowed)) return Outcome::GoOn;
  const bool isAny = hasHalfCircle(m_start.elements()) || hasHalfCircle(m_end.elements());
  return isAny ? fail(MorphStatus::HalfCircle) : Outcome::GoOn;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::prepareStores() {
  std::int64_t startCounter = m_firstNumber;
  std::int64_t endCounter = m_firstNumber;
  m_start.numberElements(startCounter);
  m_end.numberElements(endCounter);
  m_plumbLines = {plumbLinesOf(m_start), plumbLinesOf(m_end)};
  return Outcome::GoOn;
}

/// The base analysis or, in its place, the analysis of the whole bottom.
PlumbLines ProfileMorphEngine::plumbLinesOf(const OutlineStore& store) const {
  return has(MorphFlags::kBottom) ? plumbLinesThroughMiddle(store.elements())
                                  : plumbLinesThroughFirst(store.elements());
}

/// Not finding a shift is the rule, and no failure.
ProfileMorphEngine::Outcome ProfileMorphEngine::searchShift() {
  if (turnUpright(m_start, m_end, {m_divisions, m_angularStep, m_mostDivisionsTurned})) {
    m_plumbLines = {plumbLinesOf(m_start), plumbLinesOf(m_end)};
  } else {
    report(MorphStatus::ShiftNotFound);
  }
  return Outcome::GoOn;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::findBaseSegments() {
  const auto start = findBaseAndCrown(m_start, m_plumbLines.start);
  const auto end = findBaseAndCrown(m_end, m_plumbLines.end);
  if (!start || !end) return fail(MorphStatus::BaseSegment);
  m_placement = {m_start.asRead(pointAt(m_start, start->base)),
                 m_end.asRead(pointAt(m_end, end->base)), m_start.turnedBy(), m_end.turnedBy()};
  m_lists.sideProfiles = {sidesOf(m_start, *start), sidesOf(m_end, *end)};
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
  assembleSegments();
  mergeSegments();
  beginAtFirstNode();
  return Outcome::Completed;
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
  return Outcome::GoOn;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::mergeSegments() {
  if (!has(MorphFlags::kSegmentMerging)) return Outcome::GoOn;
  m_lists.segments = withJointsRemoved(withoutVanished(m_lists.segments));
  return Outcome::GoOn;
}

ProfileMorphEngine::Outcome ProfileMorphEngine::beginAtFirstNode() {
  const CDirection turned = directionOfBearing(m_placement.startTurned);
  const Point2D fromBase = m_start.nodes().front().point - m_placement.startBase;
  m_lists.segments = begunAt(m_lists.segments, turnedTo(turned, fromBase));
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

ProfileMorphEngine::Outcome ProfileMorphEngine::generateTestResult() {
  const auto count = std::count_if(kTestPlaces.begin(), kTestPlaces.end(), [this](double t) {
    return isSimple(meanOf(m_lists.segments, m_placement, t));
  });
  return count > 0 ? Outcome::GoOn : fail(MorphStatus::TestResult);
}

std::optional<OutlineNodes> ProfileMorphEngine::evaluate(double atStationing) {
  // Halves, because the difference of two large stationings may not be finite.
  const double t = (atStationing / 2.0 - m_fromStationing / 2.0) /
                   (m_toStationing / 2.0 - m_fromStationing / 2.0);
  if (m_isPrepared && atStationing == m_fromStationing) return m_start.nodes();
  if (m_isPrepared && atStationing == m_toStationing) return m_end.nodes();
  if (!m_isPrepared || !(t >= 0.0 && t <= 1.0)) {
    m_message = u"Missing data.";
    return std::nullopt;
  }
  return nodesFrom(meanOf(m_lists.segments, m_placement, t), m_start.wasAnticlockwise());
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
