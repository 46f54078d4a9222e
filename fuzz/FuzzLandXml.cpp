// SPDX-License-Identifier: BSL-1.0
// Alignments read from files, and the axes built from them.

#include "FuzzInput.h"

#include "common/exchange/AxisBuilder.h"
#include "common/exchange/LandXmlReader.h"

#include <cmath>
#include <string>

namespace {

using namespace Ruv::Calculations;
using Fuzz::require;
using Fuzz::requireNear;

/// Contradictions up to this are spread over the elements (m).
constexpr double kLargestMisfit = 0.01;

void checkElements(const Exchange::Alignment& alignment) {
  require(!alignment.plan.empty(), "an alignment has elements");
  for (const Exchange::PlanElement& element : alignment.plan) {
    require(std::isfinite(element.length) && std::isfinite(element.radiusStart) &&
                std::isfinite(element.radiusEnd) && std::isfinite(element.start.east) &&
                std::isfinite(element.end.north),
            "numbers of an element are finite");
  }
  for (const Exchange::ProfilePoint& point : alignment.profile) {
    require(
        std::isfinite(point.station) && std::isfinite(point.height) && std::isfinite(point.size),
        "numbers of the profile are finite");
  }
}

/// The axis begins where its first element does.
void checkStart(const Exchange::Alignment& alignment, const AxisDefinition& axis) {
  ENHPoint start;
  if (!AxisCalculator(boost::shared_ptr<const AxisDefinition>(&axis, [](const AxisDefinition*) {
       })).axisPointToEnhPointVertical(AxisPoint(alignment.startStation, 0.0, 0.0), start)) {
    return;
  }
  const Exchange::PlanPoint& printed = alignment.plan.front().start;
  requireNear(std::hypot(start.east - printed.east, start.north - printed.north), 0.0,
              kLargestMisfit + 1e-6, "the axis begins with its first element");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const auto alignment = Exchange::readLandXml(text);
  if (!alignment.value) {
    require(!alignment.error.message.empty(), "a refusal has a reason");
    return 0;
  }
  checkElements(*alignment.value);
  const auto built = Exchange::buildAxis(*alignment.value);
  if (!built.value) {
    require(!built.error.message.empty(), "a refusal has a reason");
    return 0;
  }
  require(built.value->largestMisfit <= kLargestMisfit + 1e-9, "contradictions are refused");
  checkStart(*alignment.value, *built.value->axis);
  return 0;
}
