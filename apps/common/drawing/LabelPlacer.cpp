// SPDX-License-Identifier: BSL-1.0
#include "common/drawing/LabelPlacer.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Drawing {

namespace {

constexpr double kGap = 0.4;       // between a label and what is beside it (mm)
constexpr double kCellSize = 4.0;  // mm; about that of a label

/// A cell that so much reaches into is full: symbols lie on symbols there, and no label would be
/// read. A hundred thousand points would otherwise be compared with each other.
constexpr std::size_t kFullCell = 250;

Box boxAround(const Outline& outline) {
  Box box{outline[0].x, outline[0].y, outline[0].x, outline[0].y};
  for (const Point& corner : outline) {
    box = {std::min(box.left, corner.x), std::min(box.top, corner.y), std::max(box.right, corner.x),
           std::max(box.bottom, corner.y)};
  }
  return box;
}

bool overlap(const Box& a, const Box& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

std::size_t cellsAlong(double size) {
  return static_cast<std::size_t>(std::clamp(std::ceil(size / kCellSize), 1.0, 1000.0));
}

std::size_t cellAt(double distance, std::size_t cells) {
  const auto last = static_cast<double>(cells - 1);
  const double cell = std::floor(distance / kCellSize);
  return cell > 0.0 ? static_cast<std::size_t>(std::min(cell, last)) : 0;
}

}  // namespace

LabelPlacer::LabelPlacer(const Box& bounds)
    : m_bounds(bounds),
      m_columns(cellsAlong(bounds.width())),
      m_rows(cellsAlong(bounds.height())),
      m_cells(m_columns * m_rows) {}

LabelPlacer::CellRange LabelPlacer::cellsOf(const Box& box) const {
  return {cellAt(box.left - m_bounds.left, m_columns), cellAt(box.right - m_bounds.left, m_columns),
          cellAt(box.top - m_bounds.top, m_rows), cellAt(box.bottom - m_bounds.top, m_rows)};
}

void LabelPlacer::reserve(const Outline& outline) {
  const Box box = boxAround(outline);
  const CellRange cells = cellsOf(box);
  for (std::size_t row = cells.top; row <= cells.bottom; ++row) {
    for (std::size_t column = cells.left; column <= cells.right; ++column) {
      std::vector<Taken>& cell = m_cells[row * m_columns + column];
      if (cell.size() < kFullCell) cell.push_back({outline, box});
    }
  }
}

void LabelPlacer::reserve(const std::vector<Point>& polyline, double width) {
  for (std::size_t i = 1; i < polyline.size(); ++i) {
    if (m_bounds.contains(polyline[i - 1]) || m_bounds.contains(polyline[i])) {
      reserve(outlineOfLine(polyline[i - 1], polyline[i], width));
    }
  }
}

bool LabelPlacer::isFree(const Outline& outline) const {
  const Box box = boxAround(outline);
  if (!m_bounds.contains({box.left, box.top}) || !m_bounds.contains({box.right, box.bottom})) {
    return false;
  }
  const auto isHit = [&](const Taken& taken) {
    return overlap(box, taken.box) && overlap(outline, taken.outline);
  };
  const CellRange cells = cellsOf(box);
  for (std::size_t row = cells.top; row <= cells.bottom; ++row) {
    for (std::size_t column = cells.left; column <= cells.right; ++column) {
      const std::vector<Taken>& cell = m_cells[row * m_columns + column];
      if (cell.size() == kFullCell) return false;
      if (std::any_of(cell.begin(), cell.end(), isHit)) return false;
    }
  }
  return true;
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
