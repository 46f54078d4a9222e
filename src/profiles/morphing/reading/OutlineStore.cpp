// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/reading/OutlineStore.h"

#include "foundation/MathConstants.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Ruv {
namespace Calculations {

namespace {

/// A half circle may lack this much (rad): a chord tells its turning to half the digits only, and
/// far from the origin coordinates have few.
constexpr double kHalfTurnTolerance = 1e-6;

/// An outline encloses more than this (m2), or it is a line.
constexpr double kSmallestArea = 1e-6;

/// A radius this near to half the chord, in relation to it, makes a half circle: rounding decides
/// whether it is a little longer or shorter, and a square root would make 1e-8 rad of it.
constexpr double kHalfCircleTolerance = 1e-12;

double withHalfCircleMadeExact(const Point2D& start, const Point2D& end, double radius) {
  const double half = (end - start).length() / 2.0;
  const bool isHalf = std::abs(std::abs(radius) - half) <= kHalfCircleTolerance * half;
  return isHalf ? std::copysign(half, radius) : radius;
}

/// A start counts for the first segment only, as in ThProfileDefinition.
std::vector<CChainSegment> closedChainOf(const std::vector<ProfileSegment>& outline) {
  std::vector<CChainSegment> chain;
  if (outline.empty()) return chain;
  Point2D start = outline.front().start;
  for (const ProfileSegment& segment : outline) {
    const double radius = withHalfCircleMadeExact(start, segment.end, segment.radius);
    chain.push_back(CChainSegment::between(start, segment.end, radius));
    start = segment.end;
  }
  const Point2D first = outline.front().start;
  if (!((start - first).length() < kSamePoint)) {
    chain.push_back(CChainSegment::between(start, first, 0.0));
  }
  return chain;
}

/// The length of an arc that is too small for its chord is not finite.
bool isSound(const CChainSegment& segment) {
  return isFinite(segment.start) && isFinite(segment.end) && std::isfinite(segment.radius) &&
         std::isfinite(segment.length);
}

/// Twice the area, positive anticlockwise. Reduced to the first node: products of national
/// coordinates would lose the digits of the area.
double doubledArea(const std::vector<CChainSegment>& chain) {
  double area = 0.0;
  for (const CChainSegment& segment : chain) {
    area += segment.doubledAreaFrom(chain.front().start);
  }
  return area;
}

/// The turning is the length by the radius, with the sign of the radius.
TurningChord elementOf(const CChainSegment& segment) {
  const bool isArc = segment.radius != 0.0 && segment.hasExtent();
  return {segment.start, segment.end, isArc ? segment.length / segment.radius : 0.0};
}

/// Segments of no length have no direction and cannot be matched by one.
TurningChords elementsOf(const std::vector<CChainSegment>& chain) {
  TurningChords elements;
  for (const CChainSegment& segment : chain) {
    const TurningChord element = elementOf(segment);
    if (element.chord().length() < kSamePoint) continue;
    // The chain stays one when a short segment falls out.
    elements.push_back(element);
    if (elements.size() > 1) elements.back().start = elements[elements.size() - 2].end;
  }
  if (!elements.empty()) elements.back().end = elements.front().start;
  return elements;
}

TurningChords reversed(const TurningChords& elements) {
  TurningChords backwards;
  backwards.reserve(elements.size());
  for (auto element = elements.rbegin(); element != elements.rend(); ++element) {
    backwards.push_back(element->reversed());
  }
  return backwards;
}

}  // namespace

void OutlineStore::load(const std::vector<ProfileSegment>& outline) {
  *this = OutlineStore();
  const std::vector<CChainSegment> chain = closedChainOf(outline);
  if (!std::all_of(chain.begin(), chain.end(), isSound)) return;
  const double area = doubledArea(chain) / 2.0;
  if (!(std::abs(area) > kSmallestArea) || !std::isfinite(area)) return;
  for (std::size_t i = 0; i < chain.size(); ++i) {
    m_nodes.push_back({chain[i].start, i < outline.size() ? outline[i].radius : 0.0});
  }
  m_elements = elementsOf(chain);
  m_wasAnticlockwise = area > 0.0;
  if (m_wasAnticlockwise) m_elements = reversed(m_elements);
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

std::vector<ProfileSegment> segmentsOf(const OutlineNodes& nodes) {
  std::vector<ProfileSegment> segments;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    segments.push_back({nodes[i].point, nodes[(i + 1) % nodes.size()].point, nodes[i].radius});
  }
  return segments;
}

bool OutlineStore::hasHalfCircle() const {
  return std::any_of(m_elements.begin(), m_elements.end(), [](const TurningChord& element) {
    return std::abs(element.turning) >= kPi - kHalfTurnTolerance;
  });
}

void OutlineStore::numberElements(std::int64_t& counter) {
  m_firstNumber = counter;
  counter += static_cast<std::int64_t>(m_elements.size());
}

}  // namespace Calculations
}  // namespace Ruv
