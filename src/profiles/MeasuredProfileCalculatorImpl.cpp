// SPDX-License-Identifier: BSL-1.0
// As sets of points of the plane, with the reference R, the comparison M and the allowed area F:
//
//   over profile    (M without R) within F
//   under profile   (R without M) within F
//
// The filters come last: applied to M and R before, they would give both an edge along the limit,
// and edges that two outlines share are what the clipper is least good at.
//
// Cuts and fits take the start points of the segments, so arcs of a reference count as chords
// there. Outlines and areas follow its arcs in short pieces.

#include "profiles/MeasuredProfileCalculatorImpl.h"

#include "profiles/LineCuts.h"
#include "profiles/ProfileReach.h"
#include "profiles/ThProfileDefinitionImpl.h"
#include "profiles/paths/Bands.h"
#include "profiles/paths/PathPoints.h"
#include "shapes/PlaneGeometry.h"

#include <typeinfo>

namespace Ruv {
namespace Calculations {

std::vector<Point2D> MeasuredProfileCalculatorImpl::keptPoints(
    const IProfileSegmentProvider& profile) const {
  const unsigned int count = profile.getNumSegments();
  std::vector<Point2D> points;
  points.reserve(count);
  for (unsigned int i = 0; i < count; ++i) {
    const Point2D point = profile.getSegmentStartAt(i);
    if (isFinite(point) && !filters.excludes(point)) points.push_back(point);
  }
  return points;
}

// The cutting lines end at kReach, so what lies farther out is not cut.
std::vector<Point2D> MeasuredProfileCalculatorImpl::cutAtUpOffset(
    const IProfileSegmentProvider& profile, double up) const {
  return polygonCrossings(keptPoints(profile), Point2D(-kReach, up), Point2D(kReach, up));
}

std::vector<Point2D> MeasuredProfileCalculatorImpl::cutAtRightOffset(
    const IProfileSegmentProvider& profile, double right) const {
  return polygonCrossings(keptPoints(profile), Point2D(right, -kReach), Point2D(right, kReach));
}

double MeasuredProfileCalculatorImpl::circumferenceOf(
    const IProfileSegmentProvider& profile) const {
  // Without filters the length is exact; with filters it is that of the outline on the grid.
  if (!filters.areSet()) return profile.getCircumference();
  return Pathes::linesWithin(Pathes(outlineOf(profile, true)), filters.allowedArea(), true)
      .linesLength();
}

std::vector<Polyline> MeasuredProfileCalculatorImpl::linesOf(const IProfileSegmentProvider& profile,
                                                             bool clean) const {
  const Path outline = outlineOf(profile, clean);
  if (filters.areSet()) {
    return polylinesOf(Pathes::linesWithin(Pathes(outline), filters.allowedArea(), clean));
  }
  // A profile without segments has no outline, which is not the same as an empty one.
  std::vector<Polyline> lines;
  if (profile.getNumSegments() > 0) lines.push_back(polylineOf(outline));
  return lines;
}

const Path& MeasuredProfileCalculatorImpl::referenceOutline() {
  const IProfileSegmentProvider& profile = *reference;
  // What callers derive from a definition may tell other segments than it holds.
  if (typeid(profile) == typeid(ThProfileDefinition)) {
    const auto& design = static_cast<const ThProfileDefinition&>(profile);
    return ThProfileDefinitionImpl::of(design).cleanOutline.get(
        [&profile] { return outlineOf(profile, true); });
  }
  return m_referenceOutline.of(profile).path();
}

double MeasuredProfileCalculatorImpl::areaOf(const Path& outline) const {
  if (!filters.areSet()) return outline.area();
  return rawWithin(Pathes(outline), filters.allowedArea()).area();
}

/// Its size does not need its pieces in order.
double MeasuredProfileCalculatorImpl::differenceArea(const Path& whole, const Path& taken) const {
  if (!filters.areSet()) return rawWithout(whole, taken).area();
  return rawWithin(Path::without(whole, taken), filters.allowedArea()).area();
}

void MeasuredProfileCalculatorImpl::filter(Pathes& area) const {
  if (filters.areSet()) area = Pathes::within(area, filters.allowedArea());
}

Pathes MeasuredProfileCalculatorImpl::overProfile() {
  Pathes over = Path::without(comparisonOutline(), referenceOutline());
  filter(over);
  return over;
}

Pathes MeasuredProfileCalculatorImpl::underProfile() {
  Pathes under = Path::without(referenceOutline(), comparisonOutline());
  filter(under);
  return under;
}

GeologicalDivision MeasuredProfileCalculatorImpl::division(const GeologicalLimits& limits) {
  return GeologicalDivision(referenceOutline(), comparisonOutline(), limits);
}

Pathes MeasuredProfileCalculatorImpl::geologicalPart(const GeologicalDivision& division) const {
  Pathes part = division.geologicalPart();
  filter(part);
  return part;
}

/// Holes of negative area change no sum, and to cut bands open at thousands of them would cost more
/// than all the rest.
double MeasuredProfileCalculatorImpl::geologicalArea(const GeologicalDivision& division) const {
  const Pathes part = division.geologicalPartWithHoles();
  return filters.areSet() ? rawWithin(part, filters.allowedArea()).area() : part.area();
}

Pathes MeasuredProfileCalculatorImpl::remainingPart(const GeologicalDivision& division) const {
  Pathes part = division.remainingPart();
  filter(part);
  return part;
}

}  // namespace Calculations
}  // namespace Ruv
