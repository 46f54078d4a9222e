// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/MorphStatus.h"

#include <array>
#include <cstddef>

namespace Ruv {
namespace Calculations {

namespace {

struct Texts {
  const char16_t* start;
  const char16_t* end;

  constexpr Texts(const char16_t* both) : start(both), end(both) {}
  constexpr Texts(const char16_t* ofStart, const char16_t* ofEnd) : start(ofStart), end(ofEnd) {}
};

/// By code. Users look these texts up in manuals, so the misspelt ones stay as they are.
constexpr std::array<Texts, 19> kTexts = {
    {{u"Missing profiles data."},
     {u"Reset morpher please."},
     {u"Start profile generation failed.", u"End profile generation failed."},
     {u"Half circles not allowed."},
     {u"Shift nor found."},
     {u"Base segment not found."},
     {u"Lines match generation failed."},
     {u"Segments match generation failed."},
     {u"Start morphed side profile could not be generated.",
      u"End morphed side profile could not be generated."},
     {u"Bottom segments generation failed."},
     {u"Bottom polyline steps calculation failed."},
     {u"Bottom polyline generation failed."},
     {u"Start silhoutte generation failed.", u"End silhoutte generation failed."},
     {u"Polyline generation failed."},
     {u"Niche side polyline generation failed."},
     {u"Niche interior polyline generation failed."},
     {u"Segments generation failed."},
     {u"Niche interior segments generation failed."},
     {u"Test result generation failed."}}};

}  // namespace

const char16_t* textOf(int code, bool isEnd) {
  if (code == static_cast<int>(MorphStatus::Morphed)) return u"Profiles morphed.";
  if (code < 0 || code >= static_cast<int>(kTexts.size())) return u"Undefined error.";
  const Texts& texts = kTexts[static_cast<std::size_t>(code)];
  return isEnd ? texts.end : texts.start;
}

}  // namespace Calculations
}  // namespace Ruv
