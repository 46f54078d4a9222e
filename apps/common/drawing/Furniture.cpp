// SPDX-License-Identifier: BSL-1.0
#include "common/drawing/Furniture.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

namespace Drawing {

namespace {

constexpr Colour kInk{0.15, 0.15, 0.15};
constexpr Colour kGridGrey{0.62, 0.65, 0.68};
constexpr double kQuarterTurn = 1.5707963267948966;

Box worldBoxOf(const WorldMapping& mapping, const Box& frame) {
  Box box{1e300, 1e300, -1e300, -1e300};
  for (const Point& corner : outlineOfBox(frame)) {
    const Point world = mapping.toWorld(corner);
    box.left = std::min(box.left, world.x);
    box.right = std::max(box.right, world.x);
    box.top = std::min(box.top, world.y);
    box.bottom = std::max(box.bottom, world.y);
  }
  return box;
}

std::optional<Point> crossing(const Point& a, const Point& b, const Point& c, const Point& d) {
  const Point ab = b - a;
  const Point cd = d - c;
  const double area = ab.x * cd.y - ab.y * cd.x;
  if (!(std::abs(area) > 1e-9 * length(ab) * length(cd))) return std::nullopt;
  const Point ac = c - a;
  const double part = (ac.x * ab.y - ac.y * ab.x) / area;
  if (!(part >= 0.0 && part <= 1.0)) return std::nullopt;
  return c + cd * part;
}

/// Writes a coordinate where a grid line crosses the sides of the frame at a steep angle.
class GridLabels {
 public:
  GridLabels(Canvas& canvas, const Box& frame, const TextStyle& style)
      : m_canvas(canvas), m_frame(frame), m_style(style), m_placer(frame.inset(-2.0 * style.size)) {
    m_placer.reserve(outlineOfBox(frame));
  }

  void label(const Point& from, const Point& to, const std::string& words) {
    const Outline corners = outlineOfBox(m_frame);
    for (std::size_t side = 0; side < corners.size(); ++side) {
      const Point& start = corners.at(side);
      const Point& end = corners.at((side + 1) % corners.size());
      const auto meeting = crossing(from, to, start, end);
      if (meeting && isSteep(to - from, end - start)) labelAt(*meeting, side, words, to - from);
    }
  }

 private:
  static bool isSteep(const Point& line, const Point& side) {
    const Point a = unit(line);
    const Point b = unit(side);
    constexpr double kSineOf40Degrees = 0.643;
    return std::abs(a.x * b.y - a.y * b.x) > kSineOf40Degrees;
  }

  void labelAt(const Point& at, std::size_t side, const std::string& words, const Point& line) {
    static const std::array<Point, 4> outward = {Point{0, -1}, Point{1, 0}, Point{0, 1},
                                                 Point{-1, 0}};
    TextStyle style = m_style;
    style.horizontal = Align::Middle;
    style.vertical = Align::Middle;
    if (side % 2 == 1) style.angle = -kQuarterTurn;
    const Point out = outward.at(side);
    const LabelPlace place{at + out * (0.95 * m_style.size), style};
    if (m_placer.place(m_canvas, words, {place}) == nullptr) return;
    const Point inward = unit(line);
    const double sign = inward.x * out.x + inward.y * out.y > 0.0 ? -1.0 : 1.0;
    m_canvas.line(at, at + inward * (2.0 * sign), {kGridGrey, 0.25, {}});
  }

  Canvas& m_canvas;
  Box m_frame;
  TextStyle m_style;
  LabelPlacer m_placer;
};

/// With the decimals it has, at most two.
std::string shortest(double value) {
  int decimals = 0;
  for (double rest = value; decimals < 2 && rest != std::floor(rest); rest *= 10.0) {
    ++decimals;
  }
  return fixed(value, decimals);
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines(1);
  for (const char letter : text) {
    if (letter == '\n') {
      lines.emplace_back();
    } else {
      lines.back() += letter;
    }
  }
  return lines;
}

/// Where an entry stands: lines below each other from a row of a column on.
struct PlacedEntry {
  const LegendEntry* entry;
  std::vector<std::string> lines;
  double left;  ///< of its column, from the left of the legend
  std::size_t row;
};

struct LegendLayout {
  std::vector<PlacedEntry> entries;
  double width = 0.0;
};

double rowHeightOf(const TextStyle& style) { return 1.7 * style.size; }
double sampleWidthOf(const TextStyle& style) { return 4.0 * style.size; }
double wordsAfter(const TextStyle& style) { return sampleWidthOf(style) + 0.6 * style.size; }
double gapAfterColumn(const TextStyle& style) { return 2.4 * style.size; }

LegendLayout layoutOf(Canvas& canvas, double height, const std::vector<LegendEntry>& entries,
                      const TextStyle& style) {
  const auto rows =
      static_cast<std::size_t>(std::max(1.0, std::floor(height / rowHeightOf(style))));
  LegendLayout layout;
  double left = 0.0;
  std::size_t row = 0;
  for (const LegendEntry& entry : entries) {
    const std::vector<std::string> lines = linesOf(entry.meaning);
    if (row > 0 && row + lines.size() > rows) {
      left = layout.width + gapAfterColumn(style);
      row = 0;
    }
    layout.entries.push_back({&entry, lines, left, row});
    row += lines.size();
    for (const std::string& words : lines) {
      const double right = left + wordsAfter(style) + canvas.textWidth(words, style);
      layout.width = std::max(layout.width, right);
    }
  }
  return layout;
}

}  // namespace

void drawLegend(Canvas& canvas, Box box, const std::vector<LegendEntry>& entries,
                const TextStyle& style) {
  const LegendLayout layout = layoutOf(canvas, box.height(), entries, style);
  box.left = std::min(box.left, box.right - layout.width);
  for (const PlacedEntry& placed : layout.entries) {
    const double left = box.left + placed.left;
    const auto topOf = [&](std::size_t line) {
      return box.top + static_cast<double>(placed.row + line) * rowHeightOf(style);
    };
    placed.entry->sample(canvas, {left, topOf(0), left + sampleWidthOf(style), topOf(1)});
    for (std::size_t line = 0; line < placed.lines.size(); ++line) {
      const Point at{left + wordsAfter(style), topOf(line) + rowHeightOf(style) / 2.0};
      canvas.text(at, placed.lines[line], style);
    }
  }
}

void drawScaleBar(Canvas& canvas, const Point& middle, double longest, double millimetresPerUnit,
                  const std::string& unitName, const TextStyle& style) {
  // niceStep rounds up, so it is asked for 40 % of the length: at most 100 % comes out.
  const double total = niceStep(0.4 * longest / millimetresPerUnit);
  constexpr int kParts = 4;
  constexpr double kHeight = 1.6;
  const double part = total / kParts * millimetresPerUnit;
  const double left = middle.x - part * kParts / 2.0;
  for (int i = 0; i < kParts; ++i) {
    const Box box{left + i * part, middle.y, left + (i + 1) * part, middle.y + kHeight};
    canvas.fill(box, i % 2 == 0 ? kInk : kWhite);
    canvas.rectangle(box, {kInk, 0.2, {}});
  }
  TextStyle label = style;
  label.horizontal = Align::Middle;
  label.vertical = Align::End;
  const std::string unit = " " + unitName;
  for (const int i : {0, kParts / 2, kParts}) {
    const double value = total * i / kParts;
    const std::string number = shortest(value);
    canvas.text({left + i * part, middle.y - 1.0}, i == kParts ? number + unit : number, label);
  }
}

void drawNorthArrow(Canvas& canvas, const Point& centre, const Point& northOnPage, double size,
                    const TextStyle& style) {
  const Point north = unit(northOnPage);
  const Point right = rightOf(north);
  const Point tip = centre + north * (size / 2.0);
  const Point tail = centre - north * (size / 2.0);
  const Point notch = centre - north * (size / 4.0);
  canvas.polygon({tip, tail - right * (size / 5.0), notch}, kInk);
  canvas.polyline({tip, tail + right * (size / 5.0), notch, tip}, {kInk, 0.25, {}});
  TextStyle letter = style;
  letter.bold = true;
  letter.horizontal = Align::Middle;
  letter.vertical = Align::Middle;
  canvas.text(tip + north * (0.75 * style.size), "N", letter);
}

void drawDimension(Canvas& canvas, const Point& from, const Point& to, double aside,
                   const std::string& words, const TextStyle& style) {
  constexpr double kPastLine = 1.2;
  constexpr double kArrowLength = 2.2;
  constexpr double kArrowWidth = 0.7;
  const Pen pen{style.colour, 0.18, {}};
  const Point along = unit(to - from);
  const Point out = rightOf(along) * (aside < 0.0 ? -1.0 : 1.0);
  const double distance = std::abs(aside);
  for (const Point& end : {from, to}) {
    canvas.line(end + out * kPastLine, end + out * (distance + kPastLine), pen);
  }
  const Point start = from + out * distance;
  const Point end = to + out * distance;
  canvas.line(start, end, pen);
  for (const auto& [tip, inward] : {std::pair{start, along}, std::pair{end, along * -1.0}}) {
    const Point back = tip + inward * kArrowLength;
    const Point side = rightOf(inward) * (kArrowWidth / 2.0);
    canvas.polygon({tip, back - side, back + side}, style.colour);
  }
  TextStyle above = style;
  above.horizontal = Align::Middle;
  above.vertical = Align::End;
  const bool isUpright = std::abs(along.x) < std::abs(along.y);
  above.angle = isUpright ? -kQuarterTurn : std::atan2(along.y, along.x);
  if (std::cos(above.angle) < 0.0) above.angle += 2.0 * kQuarterTurn;
  const Point up{std::sin(above.angle), -std::cos(above.angle)};
  canvas.text((start + end) * 0.5 + up * 0.8, words, above);
}

const Colour& ColourScale::colourOf(double value) const {
  const auto above = std::upper_bound(limits.begin() + 1, limits.end() - 1, value);
  return colours[static_cast<std::size_t>(above - limits.begin()) - 1];
}

void drawColourBar(Canvas& canvas, const Box& box, const ColourScale& scale, int decimals,
                   const TextStyle& style) {
  const double width = box.width() / static_cast<double>(scale.colours.size());
  for (std::size_t i = 0; i < scale.colours.size(); ++i) {
    const double left = box.left + width * static_cast<double>(i);
    canvas.fill({left, box.top, left + width, box.bottom}, scale.colours[i]);
  }
  canvas.rectangle(box, {kInk, 0.2, {}});
  TextStyle label = style;
  label.horizontal = Align::Middle;
  label.vertical = Align::Start;
  double free = -1e300;  // to the right of the last label
  for (std::size_t i = 0; i < scale.limits.size(); ++i) {
    const double x = box.left + width * static_cast<double>(i);
    canvas.line({x, box.bottom}, {x, box.bottom + 0.8}, {kInk, 0.2, {}});
    const std::string words = signedFixed(scale.limits[i], decimals);
    const double half = canvas.textWidth(words, label) / 2.0;
    if (x - half < free) continue;
    canvas.text({x, box.bottom + 1.5}, words, label);
    free = x + half + 1.0;
  }
}

void drawCoordinateGrid(Canvas& canvas, const WorldMapping& mapping, const Box& frame, double step,
                        const TextStyle& style) {
  const Box world = worldBoxOf(mapping, frame);
  const std::vector<double> easts = multiplesWithin(world.left, world.right, step);
  const std::vector<double> norths = multiplesWithin(world.top, world.bottom, step);
  const Pen pen{kGridGrey, 0.25, {}};
  const Point toEast = unit(mapping.toPage({step, 0.0}) - mapping.toPage({0.0, 0.0}));
  const Point arm = toEast * 2.0;
  for (const double east : easts) {
    for (const double north : norths) {
      const Point at = mapping.toPage({east, north});
      if (!frame.inset(2.0).contains(at)) continue;
      canvas.line(at - arm, at + arm, pen);
      canvas.line(at - rightOf(arm), at + rightOf(arm), pen);
    }
  }
  GridLabels labels(canvas, frame, style);
  for (const double east : easts) {
    labels.label(mapping.toPage({east, world.top}), mapping.toPage({east, world.bottom}),
                 "E " + grouped(east));
  }
  for (const double north : norths) {
    labels.label(mapping.toPage({world.left, north}), mapping.toPage({world.right, north}),
                 "N " + grouped(north));
  }
}

}  // namespace Drawing
