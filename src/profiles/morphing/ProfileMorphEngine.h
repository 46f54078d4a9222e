/// @file
/// The engine that morphs one outline into another.

#ifndef CALCULATIONS_PROFILES_MORPHING_PROFILE_MORPH_ENGINE_H
#define CALCULATIONS_PROFILES_MORPHING_PROFILE_MORPH_ENGINE_H

#include "profiles/morphing/MorphLists.h"
#include "profiles/morphing/MorphStatus.h"
#include "profiles/morphing/OutlineMean.h"
#include "profiles/morphing/OutlineStore.h"
#include "profiles/morphing/ShiftSearch.h"

#include <array>
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
/// Both outlines are read as walks from the base up either side to the crown, and matched by the
/// headings of their tangents: where headings are equal chords are parallel, so a linear mean of
/// the nodes keeps every heading. Arcs stay arcs, tangent joints tangent, and convex outlines
/// convex. Benches and niches, which leave a heading and come back to it, are matched with their
/// like or grow out of what is there.
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

  Outcome requireLines(MorphStatus statusOfFailure);
  Outcome completeIfAlike();
  PlumbLines plumbLinesOf(const OutlineStore& store) const;
  bool has(int flag) const { return (m_flags & flag) != 0; }
  Outcome fail(MorphStatus status, bool isEnd = false);
  void report(MorphStatus status, bool isEnd = false) { message(static_cast<int>(status), isEnd); }

  /// One degree each: a profile that is rolled by less is not rolled.
  static constexpr int kDefaultDivisions = 360;

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
  OutlineStore m_start;
  OutlineStore m_end;
  StartAndEnd<PlumbLines> m_plumbLines;
  MorphPlacement m_placement;
  MorphLists m_lists;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
