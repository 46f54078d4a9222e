#include "common/drawing/LabelPlacer.h"

#include <algorithm>
#include <cstddef>

namespace Drawing {

namespace {

constexpr double kGap = 0.4;  // between a label and what is beside it (mm)

}  // namespace

void LabelPlacer::reserve(const std::vector<Point>& polyline, double width) {
  for (std::size_t i = 1; i < polyline.size(); ++i) {
    if (m_bounds.contains(polyline[i - 1]) || m_bounds.contains(polyline[i])) {
      reserve(outlineOfLine(polyline[i - 1], polyline[i], width));
    }
  }
}

bool LabelPlacer::isFree(const Outline& outline) const {
  const auto isInside = [this](const Point& corner) { return m_bounds.contains(corner); };
  const auto isHit = [&outline](const Outline& taken) { return overlap(outline, taken); };
  return std::all_of(outline.begin(), outline.end(), isInside) &&
         std::none_of(m_taken.begin(), m_taken.end(), isHit);
}

const LabelPlace* LabelPlacer::place(Canvas& canvas, const std::string& words,
                                     const std::vector<LabelPlace>& places) {
  for (const LabelPlace& place : places) {
    const Outline outline = grown(canvas.textOutline(place.at, words, place.style), kGap);
    if (!isFree(outline)) continue;
    canvas.text(place.at, words, place.style);
    reserve(outline);
    return &place;
  }
  return nullptr;
}

const LabelPlace* LabelPlacer::placeWithLeader(Canvas& canvas, const std::string& words,
                                               const Point& target, double clearance,
                                               const Pen& pen,
                                               const std::vector<LabelPlace>& places) {
  constexpr double kLeaderWidth = 0.5;
  for (const LabelPlace& candidate : places) {
    const Point start = target + unit(candidate.at - target) * clearance;
    const Outline leader = outlineOfLine(start, candidate.at, kLeaderWidth);
    if (!isFree(leader)) continue;
    if (place(canvas, words, {candidate}) == nullptr) continue;
    canvas.line(target, candidate.at, pen);
    reserve(leader);
    return &candidate;
  }
  return nullptr;
}

}  // namespace Drawing
