// SPDX-License-Identifier: BSL-1.0
/// @file
/// What ditches, benches and niches become.

#ifndef CALCULATIONS_PROFILES_MORPHING_PAIRING_DETOUR_MATCH_H
#define CALCULATIONS_PROFILES_MORPHING_PAIRING_DETOUR_MATCH_H

#include "profiles/morphing/reading/OutlineReading.h"

#include <vector>

namespace Ruv {
namespace Calculations {

/// A place on the base, as it moves: plan distance on a floor, height on a wall.
struct MovingPlace {
  double atStart = 0.0;
  double atEnd = 0.0;

  double at(double t) const { return (1.0 - t) * atStart + t * atEnd; }
};

/// A node of a detour: a place on the base and the way from there.
struct DetourNode {
  MovingPlace place;
  Point2D offset;
};

/// A piece of a detour and what lies on its own base between the places of both of its nodes. What
/// it is bent more than its base is its own; so one that has not grown yet is bent as the base is.
struct DetourPiece {
  TurningChords own;  ///< one piece, or what lies on the base
  TurningChords base;

  double turning() const;
  /// How much farther the piece bulges from its chord at a fraction of the length.
  Point2D bulgeAt(double fraction) const;
};

/// Nodes and pieces of a detour and its size: the longest offset or bulge.
struct DetourShape {
  std::vector<DetourNode> nodes;
  std::vector<DetourPiece> pieces;
  double size = 0.0;
};

/// A detour of either outline, or of both: then both have equally many nodes. On the right, and
/// there alone, it is mirrored, to be one on the left.
struct MatchedDetour {
  DetourSite site = DetourSite::Floor;
  DetourShape start;
  DetourShape end;

  /// The place of a node: of both that of the larger detour counts for more.
  double placeOf(std::size_t node, double t) const;
  Point2D offsetOf(std::size_t node, double t) const;
  double turningOf(std::size_t piece, double t) const;
  Point2D bulgeOf(std::size_t piece, double fraction, double t) const;
  std::size_t numNodes() const { return start.nodes.size(); }
};

/// What detours are placed on between two outlines: on their floors, which are matched for
/// themselves, or on the bottoms of two rings of which one has no floor.
enum class DetourBase { Floors, Rings };

/// @param shift from the base of the start to that of the end
std::vector<MatchedDetour> matchDetours(const OutlineReading& start, const OutlineReading& end,
                                        const Point2D& shift, DetourBase base);

}  // namespace Calculations
}  // namespace Ruv

#endif
