// SPDX-License-Identifier: BSL-1.0
/// @file
/// The engine that morphs one outline into another.

#ifndef CALCULATIONS_PROFILES_MORPHING_PROFILE_MORPH_ENGINE_H
#define CALCULATIONS_PROFILES_MORPHING_PROFILE_MORPH_ENGINE_H

#include "profiles/morphing/MorphLists.h"
#include "profiles/morphing/MorphStatus.h"
#include "profiles/morphing/evaluation/OutlineMean.h"
#include "profiles/morphing/reading/OutlineReading.h"
#include "profiles/morphing/reading/OutlineStore.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Ruv {
namespace Calculations {

/// Which steps a preparation takes: bits of the first setting.
namespace MorphFlags {
constexpr int kLinesMatch = 1;
constexpr int kBottom = 2;
constexpr int kSegmentMerging = 4;
constexpr int kSegmentsMatch = 8;
constexpr int kHalfCirclesAllowed = 16;
}  // namespace MorphFlags

/// Prepares the way from one outline to another once, and then tells the outline anywhere on it.
///
/// It works in four stages, each in a folder of its own. reading/ takes either outline apart into a
/// floor, walls with a crown, and the ditches, benches and niches that depart from them; an outline
/// without a floor is read as a ring. pairing/ finds what belongs together: the roll between both
/// outlines, the corners of the floors, the headings of walls and crown, and detours whose mouths
/// overlap. assembly/ puts the pairs together to one ring. evaluation/ tells the mean of the pairs
/// at a place on the way. How all of them match outlines is shown in docs/morphing.md.
///
/// The steps in their order, the flags that gate them, the numbers and texts of the status and the
/// lists, which are emptied at the start of every preparation, are the contract of the engine's
/// status interface: displays show the texts, and service tools name the steps. So a step stays in
/// its place where it has become small, and a text where it has become rare.
///
/// How much a floor is one is a matter of degree. Where it is in doubt, the way by parts and the
/// way as rings are both prepared, and the outline between them is told; likewise between rings
/// with and without detours, and between the match of rings by headings and that by rays from a
/// point inside, which is the way for caves. Where the way by parts would cross itself, the one as
/// rings is taken, and where that would, the one by rays.
///
/// Failure: prepare() reports it and messageText() says why; nothing throws.
/// Lifecycle: configure, prepare, evaluate any number of times, reset before preparing again.
/// Threads: one engine for each.
class ProfileMorphEngine {
 public:
  /// @param flags of MorphFlags
  /// @param mostDivisionsTurned largest roll between the outlines that is looked for
  /// @param firstNumber of the elements of either outline
  void configure(int flags, int mostDivisionsTurned, int firstNumber);

  /// @param divisions of the full turn, in which rolls are looked for; below 1 for the default
  /// @return 0, or 1 on failure
  int prepare(double fromStationing, double toStationing, const std::vector<ProfileSegment>& start,
              const std::vector<ProfileSegment>& end, int divisions);

  /// The inputs themselves at both ends of the range. Between them in the sense of the start
  /// outline, and begun at the image of its first node unless that lies within a segment. Nothing
  /// without a successful preparation and outside the range.
  std::optional<OutlineNodes> evaluate(double atStationing);

  /// Puts the text of a status into the buffer.
  void message(int code, bool isEnd);
  const std::u16string& messageText() const { return m_message; }
  bool hasFailed() const { return m_hasFailed; }
  const MorphLists& lists() const { return m_lists; }

  /// Forgets both outlines and all results; the settings stay.
  void reset();

 private:
  enum class Outcome { GoOn, Completed, Failed };
  /// From the one that knows most of outlines to the one that can always be had.
  enum class Reading {
    Parts,    ///< floors, walls with crown, detours
    Detours,  ///< rings without a floor of their own, and detours from them
    Rings
  };
  using Step = Outcome (ProfileMorphEngine::*)();

  void clearResults();
  Outcome takeSteps();
  Outcome takeSettings(double fromStationing, double toStationing, int divisions);
  Outcome loadOutlines(const std::vector<ProfileSegment>& start,
                       const std::vector<ProfileSegment>& end);
  Outcome refuseHalfCircles();
  Outcome prepareStores();
  Outcome searchShift();
  Outcome findBaseSegments();
  Outcome mergeInputSegments();
  Outcome matchLinesOfSides();
  Outcome matchSegmentsOfSides();
  Outcome generateBottom();
  Outcome assembleSegments();
  Outcome mergeSegments();
  Outcome beginAtFirstNode();
  Outcome assembleSilhouettes();
  Outcome generatePolylines();
  Outcome generateSegments();
  Outcome generateTestResult();

  /// As read or, when that is in doubt or fails, also by a simpler reading.
  Outcome prepareSimpler(const std::vector<ProfileSegment>& start,
                         const std::vector<ProfileSegment>& end, Outcome asRead);
  Outcome requireLines(MorphStatus statusOfFailure);
  Outcome completeIfAlike();
  PlumbLines plumbLinesOf(const TurningChords& ring) const;
  std::optional<Point2D> standOnBase(OutlineReading& read, OutlineSides& sides);
  void readBottoms();
  void weighDetours();
  bool hasDetours() const;
  std::unique_ptr<ProfileMorphEngine> engineFor(Reading reading) const;
  void pairByRays();
  OutlineNodes evaluateAt(double t) const;
  OutlineNodes evaluateOwn(double t) const;
  OutlineNodes evaluateBetween(const OutlineNodes& simpler, const OutlineNodes& asRead) const;
  void matchFloor();
  bool has(int flag) const { return (m_flags & flag) != 0; }
  Outcome fail(MorphStatus status, bool isEnd = false);
  void report(MorphStatus status, bool isEnd = false) { message(static_cast<int>(status), isEnd); }

  /// One and a half degrees each: the seven that the morpher asks for are 10.5 degrees.
  static constexpr int kDefaultDivisions = 240;

  int m_flags = 0;
  int m_mostDivisionsTurned = 0;
  int m_firstNumber = 0;
  int m_divisions = kDefaultDivisions;
  double m_angularStep = 0.0;
  double m_fromStationing = 0.0;
  double m_toStationing = 0.0;
  bool m_hasFailed = false;
  bool m_isPrepared = false;
  std::u16string m_message;
  struct Outline {
    OutlineStore store;
    OutlineReading read;
    double raggedness = 0.0;  // how much it is that of a cave
  };
  Outline m_start;
  Outline m_end;
  MorphPlacement m_placement;
  MatchedOutlines m_outlines;
  bool m_hasFloors = false;
  Reading m_reading = Reading::Parts;
  double m_firmness = 1.0;                        // of what is read
  std::unique_ptr<ProfileMorphEngine> m_simpler;  // where that is less than firm
  std::optional<MatchedOutlines> m_rays;          // where outlines are between convex and ragged
  double m_raggedness = 0.0;                      // the weight of the rays
  MorphLists m_lists;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
