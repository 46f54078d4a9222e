// SPDX-License-Identifier: BSL-1.0
// Profiles between profiles: closed, finite, those given at either end, the same from both ends.

#include "FuzzOutlines.h"

#include <Calculations/Calculations.h>

#include <algorithm>
#include <cmath>
#include <exception>

namespace {

using namespace Ruv::Calculations;
using Fuzz::Input;
using Fuzz::require;
using Fuzz::requireNear;
using ProfilePtr = boost::shared_ptr<const ThProfileDefinition>;

constexpr double kTolerance = 1e-6;

void checkOutline(const ThProfileDefinition& outline) {
  const unsigned count = outline.getNumSegments();
  require(count >= 2, "a morphed profile has segments");
  for (unsigned i = 0; i < count; ++i) {
    const Point2D start = outline.getSegmentStartAt(i);
    const Point2D end = outline.getSegmentEndAt(i);
    const Point2D next = outline.getSegmentStartAt((i + 1) % count);
    require(std::isfinite(start.x + start.y + end.x + end.y + outline.getSegmentRadiusAt(i)),
            "a morphed profile is finite");
    requireNear(std::hypot(next.x - end.x, next.y - end.y), 0.0, kTolerance,
                "a morphed profile is closed");
  }
  require(std::isfinite(outline.getCircumference()), "a morphed profile has a length");
}

void requireSame(const ThProfileDefinition& a, const ThProfileDefinition& b, const char* what) {
  require(a.getNumSegments() == b.getNumSegments(), what);
  for (unsigned i = 0; i < a.getNumSegments(); ++i) {
    const Point2D gap = a.getSegmentEndAt(i) - b.getSegmentEndAt(i);
    requireNear(std::hypot(gap.x, gap.y), 0.0, kTolerance, what);
    requireNear(a.getSegmentRadiusAt(i), b.getSegmentRadiusAt(i), kTolerance, what);
  }
}

/// Polygons that are seen whole from a point inside always have profiles between them.
void checkMorphing(const ProfilePtr& start, const ProfilePtr& end, double part) {
  const ThProfileMorpher morpher(start, end, 0.0, 1.0);
  requireSame(*morpher.getMorphedProfile(0.0), *start, "at the start it is the start profile");
  requireSame(*morpher.getMorphedProfile(1.0), *end, "at the end it is the end profile");
  const ProfilePtr between = morpher.getMorphedProfile(part);
  require(between != nullptr, "there is a profile between polygons");
  const ProfilePtr back = ThProfileMorpher(end, start, 0.0, 1.0).getMorphedProfile(1.0 - part);
  require(back != nullptr, "there is a profile on the way back");
  requireNear(back->getCircumference(), between->getCircumference(), kTolerance,
              "travelled backwards it is the same");
}

ProfilePtr profile(Input& input, bool isPolygon) {
  return Fuzz::profileThrough(input, Fuzz::starCorners(input, isPolygon ? 16 : 24),
                              isPolygon ? Fuzz::Arcs::None : Fuzz::Arcs::Some);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  const bool arePolygons = input.yes();
  const double from = input.number(0.0, 100.0);
  const double to = input.number(101.0, 200.0);
  const double part = input.number(0.0, 1.0);
  const ProfilePtr start = profile(input, arePolygons);
  const ProfilePtr end = profile(input, arePolygons);
  try {
    const double at = input.isTame() ? std::min(from + (to - from) * part, to) : part * to;
    const auto between = ThProfileMorpher(start, end, from, to).getMorphedProfile(at);
    if (between) checkOutline(*between);
  } catch (const std::exception&) {
    require(!input.isTame(), "tame stationings are in range");
  }
  if (input.isTame() && arePolygons) checkMorphing(start, end, part);
  return 0;
}
