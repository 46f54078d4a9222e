// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/MorphLists.h"

#include "profiles/morphing/assembly/RingAssembly.h"

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

bool isFinitePiece(const TurningChord& piece) {
  return isFinite(piece.start) && isFinite(piece.end) && std::isfinite(piece.turning);
}

double planLength(const TurningChord& piece) { return std::abs(piece.chord().x); }

}  // namespace

/// The floor where there is one; otherwise what leads level from the base on either side, the right
/// side mirrored back, so that the chain leads from right to left.
MatchedPieces bottomSegmentsOf(const MatchedSides& sides) {
  MatchedPieces bottom = ringOf({{}, sides.right, sides.floor});
  bottom.insert(bottom.end(), sides.left.begin(), sides.left.end());
  const auto isNoInvert = [](const MatchedPiece& piece) { return !piece.isInvert; };
  bottom.erase(std::remove_if(bottom.begin(), bottom.end(), isNoInvert), bottom.end());
  return bottom;
}

std::vector<StartAndEnd<double>> planStepsOf(const MatchedPieces& chain) {
  std::vector<StartAndEnd<double>> steps{{0.0, 0.0}};
  for (const MatchedPiece& piece : chain) {
    steps.push_back(
        {steps.back().start + planLength(piece.start), steps.back().end + planLength(piece.end)});
  }
  return steps;
}

NodePairs nodesOf(const MatchedPieces& chain) {
  NodePairs nodes;
  for (const MatchedPiece& piece : chain) {
    nodes.push_back({piece.start.start, piece.end.start});
  }
  if (!chain.empty()) nodes.push_back({chain.back().start.end, chain.back().end.end});
  return nodes;
}

StartAndEnd<Points> silhouettesOf(const MatchedPieces& ring) {
  StartAndEnd<Points> silhouettes;
  for (const MatchedPiece& piece : ring) {
    if (piece.niche != 0) continue;
    silhouettes.start.push_back(piece.start.start);
    silhouettes.end.push_back(piece.end.start);
  }
  return silhouettes;
}

/// Pieces of one niche follow each other in the ring and carry its number.
std::vector<MatchedPieces> nichesOf(const MatchedPieces& ring) {
  std::vector<MatchedPieces> niches;
  int last = 0;
  for (const MatchedPiece& piece : ring) {
    if (piece.niche != 0 && piece.niche != last) niches.emplace_back();
    if (piece.niche != 0) niches.back().push_back(piece);
    last = piece.niche;
  }
  return niches;
}

bool areFinite(const MatchedPieces& pieces) {
  return std::all_of(pieces.begin(), pieces.end(), [](const MatchedPiece& piece) {
    return isFinitePiece(piece.start) && isFinitePiece(piece.end);
  });
}

bool areFinite(const NodePairs& nodes) {
  return std::all_of(nodes.begin(), nodes.end(), [](const StartAndEnd<Point2D>& node) {
    return isFinite(node.start) && isFinite(node.end);
  });
}

bool areFinite(const Points& points) {
  return std::all_of(points.begin(), points.end(), [](const Point2D& p) { return isFinite(p); });
}

bool areFinite(const std::vector<StartAndEnd<double>>& steps) {
  return std::all_of(steps.begin(), steps.end(), [](const StartAndEnd<double>& step) {
    return std::isfinite(step.start) && std::isfinite(step.end);
  });
}

}  // namespace Calculations
}  // namespace Ruv
