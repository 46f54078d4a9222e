// SPDX-License-Identifier: BSL-1.0
/// @file
/// What a preparation works out on its way, list by list.

#ifndef CALCULATIONS_PROFILES_MORPHING_MORPH_LISTS_H
#define CALCULATIONS_PROFILES_MORPHING_MORPH_LISTS_H

#include "profiles/morphing/pairing/DetourMatch.h"
#include "profiles/morphing/pairing/PiecePairing.h"
#include "profiles/morphing/pairing/SideMatch.h"
#include "profiles/morphing/reading/BaseSegment.h"

#include <vector>

namespace Ruv {
namespace Calculations {

/// A value in the start outline and what it becomes in the end outline.
template <class Value>
struct StartAndEnd {
  Value start;
  Value end;
};

using Points = std::vector<Point2D>;
using NodePairs = std::vector<StartAndEnd<Point2D>>;

/// All coordinates are relative to the bases of the outlines.
struct MorphLists {
  StartAndEnd<OutlineSides> sideProfiles;
  std::optional<MatchedLines> leftLines;
  std::optional<MatchedLines> rightLines;
  MatchedSides sides;
  MatchedPieces bottomSegments;                  ///< the invert from right to left
  std::vector<StartAndEnd<double>> bottomSteps;  ///< plan lengths from its right end
  NodePairs bottomPolyline;
  std::vector<MatchedDetour> detours;
  MatchedPieces segments;  ///< the ring, clockwise
  StartAndEnd<Points> silhouettes;
  NodePairs polyline;
  std::vector<NodePairs> nicheSidePolylines;      ///< both nodes of each mouth
  std::vector<NodePairs> nicheInteriorPolylines;  ///< by niches, from mouth node to mouth node
  std::vector<MatchedPieces> nicheInteriorSegments;
};

/// The invert: what is level at the base, from right to left.
MatchedPieces bottomSegmentsOf(const MatchedSides& sides);

/// Plan lengths from the beginning of a chain to each of its nodes.
std::vector<StartAndEnd<double>> planStepsOf(const MatchedPieces& chain);

/// The nodes of a chain, last end included; nothing for no pieces.
NodePairs nodesOf(const MatchedPieces& chain);

/// The nodes of both outlines without their niches.
StartAndEnd<Points> silhouettesOf(const MatchedPieces& ring);

/// The pieces of each niche, in order.
std::vector<MatchedPieces> nichesOf(const MatchedPieces& ring);

bool areFinite(const MatchedPieces& pieces);
bool areFinite(const NodePairs& nodes);
bool areFinite(const Points& points);
bool areFinite(const std::vector<StartAndEnd<double>>& steps);

}  // namespace Calculations
}  // namespace Ruv

#endif
