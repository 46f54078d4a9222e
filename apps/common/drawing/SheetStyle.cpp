// SPDX-License-Identifier: BSL-1.0
#include "common/drawing/SheetStyle.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cstddef>

namespace Drawing {

namespace {

constexpr double kPageMargin = 8.0;
constexpr double kTitleBlockHeight = 24.0;

Box titleBox(const Sheet& sheet) {
  return {kPageMargin, sheet.height - kPageMargin - kTitleBlockHeight, sheet.width - kPageMargin,
          sheet.height - kPageMargin};
}

void dropLastLetter(std::string& words) {
  const auto continues = [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
  };
  while (!words.empty() && continues(words.back())) {
    words.pop_back();
  }
  if (!words.empty()) words.pop_back();
}

/// In smaller letters when the words are longer than the room for them; what is still too long is
/// cut off.
void writeWithin(Canvas& canvas, const Point& at, double room, const std::string& words,
                 TextStyle style) {
  constexpr double kSmallest = 0.65;
  const double width = canvas.textWidth(words, style);
  if (width > room) style.size *= std::max(room / width, kSmallest);
  std::string shown = words;
  for (std::string kept = words;
       width * kSmallest > room && canvas.textWidth(shown, style) > room;) {
    dropLastLetter(kept);
    shown = kept + "\u2026";
    if (kept.empty()) break;
  }
  canvas.text(at, shown, style);
}

std::string leftOutText(std::size_t labels) {
  return std::to_string(labels) + (labels == 1 ? " label" : " labels") + " left out: no room";
}

}  // namespace

const std::vector<double>& usualScales() {
  static const std::vector<double> scales = [] {
    std::vector<double> all;
    // The last ones show a circumference of the Earth.
    for (double power = 100.0; power < 2e9; power *= 10.0) {
      for (const double factor : {1.0, 2.0, 2.5, 5.0}) {
        all.push_back(factor * power);
      }
    }
    return all;
  }();
  return scales;
}

double largestUsualScale(double millimetresPerMetre) {
  for (const double large : {10.0, 20.0, 25.0, 50.0, 75.0}) {
    if (1000.0 / large <= millimetresPerMetre) return large;
  }
  const auto found = std::find_if(
      usualScales().begin(), usualScales().end(),
      [millimetresPerMetre](double scale) { return 1000.0 / scale <= millimetresPerMetre; });
  return found == usualScales().end() ? usualScales().back() : *found;
}

std::string scaleText(double denominator) { return "1:" + grouped(denominator); }

namespace Style {

TextStyle text(double size, const Colour& colour, Align horizontal, Align vertical) {
  TextStyle style;
  style.size = size;
  style.colour = colour;
  style.horizontal = horizontal;
  style.vertical = vertical;
  return style;
}

TextStyle onLines(TextStyle style) {
  style.halo = true;
  return style;
}

void surveyedPoint(Canvas& canvas, const Point& at) {
  canvas.circle(at, 0.65, {kSurveyed, 0.3, {}}, kWhite);
}

void setOutPoint(Canvas& canvas, const Point& at) {
  constexpr double kArm = 0.9;
  canvas.line(at - Point{kArm, 0.0}, at + Point{kArm, 0.0}, {kSetOut, 0.3, {}});
  canvas.line(at - Point{0.0, kArm}, at + Point{0.0, kArm}, {kSetOut, 0.3, {}});
}

}  // namespace Style

Box drawingArea(const Sheet& sheet) {
  return {kPageMargin, kPageMargin, sheet.width - kPageMargin, titleBox(sheet).top - 2.0};
}

void drawTitleBlock(Canvas& canvas, const Sheet& sheet, const TitleBlock& block) {
  const Box box = titleBox(sheet);
  canvas.rectangle(box, {Style::kInk, 0.35, {}});
  const Box inner = box.inset(4.0);

  const double barMiddle = box.left + 0.47 * box.width();
  const double barLength = 0.15 * box.width();
  const double room = barMiddle - barLength / 2.0 - 2.0 - inner.left;
  TextStyle style = Style::text(5.0, Style::kInk, Align::Start, Align::Start);
  style.bold = true;
  writeWithin(canvas, {inner.left, inner.top}, room, block.title, style);
  style = Style::text(Style::kTextSize, Style::kInk, Align::Start, Align::End);
  for (std::size_t i = 0; i < block.lines.size(); ++i) {
    writeWithin(canvas, {inner.left, inner.top + 10.0 + 5.0 * static_cast<double>(i)}, room,
                block.lines[i], style);
  }

  if (block.millimetresPerMetre > 0.0) {
    drawScaleBar(canvas, {barMiddle, box.centre().y + 2.0}, barLength, block.millimetresPerMetre,
                 "m", Style::text(Style::kTextSize, Style::kInk, Align::Middle, Align::End));
  }
  if (block.labelsLeftOut > 0) {
    style = Style::text(Style::kTextSize, Style::kArc, Align::Middle, Align::End);
    style.bold = true;
    canvas.text({barMiddle, inner.bottom + 1.0}, leftOutText(block.labelsLeftOut), style);
  }
  const Box legend{box.left + 0.60 * box.width(), inner.top - 1.5, inner.right, inner.bottom + 2.5};
  drawLegend(canvas, legend, block.legend,
             Style::text(Style::kTextSize, Style::kInk, Align::Start, Align::Middle));
}

}  // namespace Drawing
