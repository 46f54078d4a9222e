// SPDX-License-Identifier: BSL-1.0
// How the over profile is divided:
//
//   1. The reference, offset outwards by the outer limit, is the line that only geology passes.
//   2. Where that line runs inside the excavation, a band as wide as the outer limit to both sides
//      marks what lies near it.
//   3. The parts of the band's centre line inside it, widened by half the band's width, make the
//      band.
//   4. Geological are the band and what lies beyond the outer limit; what remains lies within the
//      outer limit and outside the reference and the band.
//
// Bands keep their holes as paths of negative area as long as possible: cutting them open costs
// more than all the rest where rough lines leave thousands of slivers.

#include "profiles/GeologicalDivision.h"

#include "profiles/paths/Bands.h"

namespace Ruv {
namespace Calculations {

namespace {

/// Distance of the band's centre line from the reference, and half its width.
struct BandShape {
  double centre = 0.0;
  double halfWidth = 0.0;
};

BandShape bandShapeOf(const GeologicalLimits& limits) {
  switch (limits.method) {
    case GeologicalOverProfileMethod::GeologicalBandFromReference:
      return {limits.outer / 2.0, limits.outer / 2.0};
    case GeologicalOverProfileMethod::GeologicalBandBetweenLimits:
      return {(limits.outer + limits.inner) / 2.0, (limits.outer - limits.inner) / 2.0};
    default:
      return {};
  }
}

/// The first outline of the offset reference, closed; none when there is none.
Pathes offsetReference(const Path& reference, double distance) {
  const Pathes offset = Path::expand(reference, distance);
  if (offset.numPathes() == 0) return offset;
  Path outline = offset.pathAt(0);
  outline.close(true);
  return Pathes(outline);
}

Pathes bandNear(const Pathes& outerLimit, const Path& reference, const Pathes& excavation,
                const GeologicalLimits& limits) {
  const BandShape shape = bandShapeOf(limits);
  const Pathes centreLine = offsetReference(reference, shape.centre);
  const Pathes passed = Pathes::linesWithin(outerLimit, excavation, true);
  const Pathes near = bandsWithHoles(passed, limits.outer);
  const Pathes affected = Pathes::linesWithin(centreLine, near, true);
  return bandsWithHoles(affected, shape.halfWidth);
}

Pathes joined(Pathes paths, const Pathes& others) {
  paths.addPaths(others);
  return paths;
}

}  // namespace

GeologicalDivision::GeologicalDivision(const Path& reference, const Path& excavation,
                                       const GeologicalLimits& limits)
    : m_reference(reference),
      m_excavation(excavation),
      m_outerLimit(offsetReference(reference, limits.outer)),
      m_band(bandNear(m_outerLimit, reference, excavation, limits)) {}

Pathes GeologicalDivision::geologicalPart() const {
  return joined(simplePieces(m_band), beyondLimit());
}

Pathes GeologicalDivision::geologicalPartWithHoles() const { return joined(m_band, beyondLimit()); }

Pathes GeologicalDivision::remainingPart() const {
  const Pathes withinLimit = Pathes::within(m_outerLimit, m_excavation);
  return Pathes::without(Pathes::without(withinLimit, Pathes(m_reference)), m_band);
}

Pathes GeologicalDivision::beyondLimit() const {
  return Pathes::without(m_excavation, m_outerLimit);
}

}  // namespace Calculations
}  // namespace Ruv
