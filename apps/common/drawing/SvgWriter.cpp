// SPDX-License-Identifier: BSL-1.0
#include "common/drawing/SvgWriter.h"

#include "common/drawing/NumberText.h"
#include "common/drawing/PngImage.h"
#include "common/drawing/PrintableText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace Drawing {

namespace {

/// Coordinates are whole hundredths of a millimetre: shorter than any decimals, and finer than any
/// printer.
constexpr double kUnitsPerMillimetre = 100.0;

/// Points nearer than this (units) to the line between their neighbours are left out.
constexpr double kStraight = 1.5;

/// 0 for what is no number, and far beyond any page.
long long inUnits(double millimetres) {
  constexpr double kFarthest = 1e10;
  const bool isOnPaper = std::abs(millimetres) < kFarthest;
  return isOnPaper ? std::llround(millimetres * kUnitsPerMillimetre) : 0;
}

std::string number(double millimetres) { return std::to_string(inUnits(millimetres)); }

std::string attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + value + '"';
}

/// "#1f2a33", or "#fff" where that is the same.
std::string hex(const Colour& colour) {
  constexpr const char* kDigits = "0123456789abcdef";
  std::string digits;
  for (const double component : {colour.red, colour.green, colour.blue}) {
    const auto level =
        static_cast<unsigned>(std::lround(std::clamp(255.0 * component, 0.0, 255.0)));
    digits += {kDigits[level >> 4U], kDigits[level & 15U]};
  }
  const bool isShort = digits[0] == digits[1] && digits[2] == digits[3] && digits[4] == digits[5];
  if (isShort) digits = {digits[0], digits[2], digits[4]};
  return "#" + digits;
}

/// A point in whole units.
struct GridPoint {
  long long x = 0;
  long long y = 0;
};

GridPoint onGrid(const Point& point) { return {inUnits(point.x), inUnits(point.y)}; }

double distanceFromLine(const GridPoint& point, const GridPoint& from, const GridPoint& to) {
  const auto alongX = static_cast<double>(to.x - from.x);
  const auto alongY = static_cast<double>(to.y - from.y);
  const auto x = static_cast<double>(point.x - from.x);
  const auto y = static_cast<double>(point.y - from.y);
  const double length = std::hypot(alongX, alongY);
  // Where the line has come back to its start there is only a distance from that.
  return length > 0.0 ? std::abs(alongX * y - alongY * x) / length : std::hypot(x, y);
}

/// Marks the points to keep of a line from `first` to `last`, after Douglas and Peucker (1973).
void markCorners(const std::vector<GridPoint>& line, std::size_t first, std::size_t last,
                 std::vector<bool>& isKept) {
  std::vector<std::pair<std::size_t, std::size_t>> parts = {{first, last}};
  while (!parts.empty()) {
    const auto [from, to] = parts.back();
    parts.pop_back();
    std::size_t farthest = from;
    double distance = kStraight;
    for (std::size_t i = from + 1; i < to; ++i) {
      const double d = distanceFromLine(line[i], line[from], line[to]);
      if (!(d > distance)) continue;
      distance = d;
      farthest = i;
    }
    if (farthest == from) continue;
    isKept[farthest] = true;
    parts.emplace_back(from, farthest);
    parts.emplace_back(farthest, to);
  }
}

std::vector<GridPoint> simplified(const std::vector<GridPoint>& line) {
  std::vector<bool> isKept(line.size(), false);
  isKept.front() = true;
  isKept.back() = true;
  markCorners(line, 0, line.size() - 1, isKept);
  std::vector<GridPoint> kept;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (isKept[i]) kept.push_back(line[i]);
  }
  return kept;
}

/// The value of a path's attribute d.
class PathText {
 public:
  explicit PathText(const Path& path) {
    for (const PathStep& step : path) {
      const GridPoint to = onGrid(step.to);
      if (step.kind == PathStep::Kind::Line) {
        m_line.push_back(to);
        continue;
      }
      endLine();
      if (step.kind == PathStep::Kind::Move) {
        moveTo(to);
      } else {
        arcTo(to, inUnits(step.radius), step.isClockwise);
      }
      m_line = {m_at};
    }
    endLine();
    const bool isClosedByArc = m_command == 'a' && m_at.x == m_start.x && m_at.y == m_start.y;
    if (isClosedByArc) m_text += 'z';
  }

  const std::string& text() const { return m_text; }

 private:
  void moveTo(const GridPoint& to) {
    m_text += "M" + std::to_string(to.x) + separated(to.y);
    m_start = to;
    m_at = to;
    m_command = 'M';
  }

  void endLine() {
    if (m_line.size() < 2) return;
    const std::vector<GridPoint> line = simplified(m_line);
    for (std::size_t i = 1; i < line.size(); ++i) {
      const GridPoint& to = line[i];
      // Not the only line of its path: a line back has no end that could be joined.
      const bool isEnd = i + 1 == line.size() && i > 1;
      if (isEnd && to.x == m_start.x && to.y == m_start.y) {
        m_text += 'z';
        m_command = 'z';
        m_at = m_start;
      } else {
        lineTo(to);
      }
    }
    m_line.clear();
  }

  void lineTo(const GridPoint& to) {
    const long long x = to.x - m_at.x;
    const long long y = to.y - m_at.y;
    if (y == 0) {
      append('h', {x});
    } else if (x == 0) {
      append('v', {y});
    } else {
      append('l', {x, y});
    }
    m_at = to;
  }

  void arcTo(const GridPoint& to, long long radius, bool isClockwise) {
    // Never more than a half circle, and clockwise on a page is what SVG counts as positive.
    append('a', {radius, radius, 0, 0, isClockwise ? 1 : 0, to.x - m_at.x, to.y - m_at.y});
    m_at = to;
  }

  /// A command that follows itself need not be repeated.
  void append(char command, const std::vector<long long>& numbers) {
    bool isFirst = command != m_command;
    if (isFirst) m_text += command;
    for (const long long n : numbers) {
      m_text += isFirst ? std::to_string(n) : separated(n);
      isFirst = false;
    }
    m_command = command;
  }

  static std::string separated(long long n) {
    return n < 0 ? std::to_string(n) : ' ' + std::to_string(n);
  }

  std::string m_text;
  std::vector<GridPoint> m_line;
  GridPoint m_start;
  GridPoint m_at;
  char m_command = ' ';
};

std::string base64(const std::string& bytes) {
  constexpr const char* kLetters =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    std::uint32_t bits = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      const bool isThere = i + k < bytes.size();
      bits = bits << 8U | (isThere ? static_cast<unsigned char>(bytes[i + k]) : 0U);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      const std::uint32_t sextet = bits >> (18U - 6U * k) & 63U;
      text += i + k <= bytes.size() ? kLetters[sextet] : '=';
    }
  }
  return text;
}

/// Blanks that SVG would leave out become such as stay.
std::string withFirmBlanks(const std::string& words) {
  std::string result;
  for (const char letter : words) {
    const bool isLost = letter == ' ' && (result.empty() || result.back() == ' ');
    result += isLost ? std::string("\u00a0") : std::string(1, letter);
  }
  return result;
}

std::string penAttributes(const Pen& pen) {
  std::string text =
      attribute("stroke", hex(pen.colour)) + attribute("stroke-width", number(pen.width));
  std::string dashes;
  for (const double dash : pen.dashes) {
    dashes += (dashes.empty() ? "" : " ") + number(dash);
  }
  return dashes.empty() ? text : text + attribute("stroke-dasharray", dashes);
}

/// Without a pen there is no line; what has no colour inside is not filled.
std::string paintAttributes(const std::optional<Pen>& pen, const std::optional<Colour>& inside) {
  return (inside ? attribute("fill", hex(*inside)) : "") + (pen ? penAttributes(*pen) : "");
}

class SvgText {
 public:
  SvgText(const Picture& picture, std::string idPrefix) : m_idPrefix(std::move(idPrefix)) {
    const std::string width = number(picture.width);
    const std::string height = number(picture.height);
    m_text = "<svg xmlns=\"http://www.w3.org/2000/svg\"" +
             attribute("width", shortest(picture.width) + "mm") +
             attribute("height", shortest(picture.height) + "mm") +
             attribute("viewBox", "0 0 " + width + " " + height) +
             " font-family=\"DejaVu Sans,Verdana,sans-serif\" stroke-linejoin=\"round\""
             " fill=\"none\">\n"
             "<path fill=\"#fff\" d=\"M0 0h" +
             width + "v" + height + "h-" + width + "z\"/>\n";
  }

  void operator()(const PathShape& shape) {
    const std::string path = PathText(shape.path).text();
    const std::string attributes = paintAttributes(shape.pen, shape.inside);
    // Lines of one pen are one path; areas may overlap, and would leave a hole.
    const bool isLine = shape.pen && !shape.inside;
    if (isLine && m_isInPath && attributes == m_attributes) {
      m_text.insert(m_text.size() - kPathEnd.size(), path);
    } else {
      write(attributes, "<path d=\"" + path + std::string(kPathEnd));
      m_isInPath = isLine;
    }
  }

  void operator()(const EllipseShape& shape) {
    const std::string x = number(shape.centre.x);
    const std::string y = number(shape.centre.y);
    const std::string centre = attribute("cx", x) + attribute("cy", y);
    std::string element;
    if (shape.semiAxisA == shape.semiAxisB) {
      element = "<circle" + centre + attribute("r", number(shape.semiAxisA));
    } else {
      element = "<ellipse" + centre + attribute("rx", number(shape.semiAxisA)) +
                attribute("ry", number(shape.semiAxisB)) + turned(shape.rotation, x, y);
    }
    write(paintAttributes(shape.pen, shape.inside), element + "/>\n");
  }

  void operator()(const TextShape& shape) {
    const TextStyle& style = shape.style;
    std::string attributes =
        attribute("font-size", number(style.size)) + attribute("fill", hex(style.colour));
    if (style.bold) attributes += " font-weight=\"700\"";
    if (style.halo) {
      attributes += R"( paint-order="stroke" stroke="#fff")" +
                    attribute("stroke-width", number(kHaloWidth * style.size));
    }
    // Placed by the part that was placed on the page, so that other fonts keep columns in line.
    double part = style.horizontal == Align::Start ? 0.0 : 1.0;  // of the width
    if (style.horizontal == Align::Middle) part = 0.5;
    const Point along{std::cos(style.angle), std::sin(style.angle)};
    const Point anchor = shape.start + along * (part * shape.width);
    const std::string x = number(anchor.x);
    const std::string y = number(anchor.y);
    std::string element = "<text" + attribute("x", x) + attribute("y", y);
    if (part > 0.0) element += attribute("text-anchor", part < 1.0 ? "middle" : "end");
    element += turned(style.angle, x, y) + ">" + withFirmBlanks(escapedForXml(shape.words));
    write(attributes, element + "</text>\n");
  }

  void operator()(const RasterShape& shape) {
    write("", "<image" + placed(shape.box) +
                  " preserveAspectRatio=\"none\" style=\"image-rendering:pixelated\""
                  " href=\"data:image/png;base64," +
                  base64(pngOf(shape.raster)) + "\"/>\n");
  }

  void operator()(const ClipStart& clip) {
    endGroup();
    const std::string id = m_idPrefix + "clip" + std::to_string(++m_clips);
    m_text += "<clipPath" + attribute("id", id) + "><rect" + placed(clip.box) +
              "/></clipPath>\n<g" + attribute("clip-path", "url(#" + id + ")") + ">\n";
  }

  void operator()(const ClipEnd& /*clip*/) {
    endGroup();
    m_text += "</g>\n";
  }

  std::string finish() {
    endGroup();
    return std::move(m_text) + "</svg>\n";
  }

 private:
  static constexpr std::string_view kPathEnd = "\"/>\n";

  static std::string shortest(double millimetres) {
    return millimetres == std::round(millimetres) ? fixed(millimetres, 0) : fixed(millimetres, 2);
  }

  static std::string placed(const Box& box) {
    return attribute("x", number(box.left)) + attribute("y", number(box.top)) +
           attribute("width", number(box.width())) + attribute("height", number(box.height()));
  }

  static std::string turned(double angle, const std::string& x, const std::string& y) {
    if (angle == 0.0) return {};
    const std::string degrees = fixed(angle * kDegreesPerRadian, 3);
    return attribute("transform", "rotate(" + degrees + " " + x + " " + y + ")");
  }

  /// Neighbours that look alike share a group.
  void write(const std::string& attributes, const std::string& element) {
    m_isInPath = false;
    if (!m_isInGroup || attributes != m_attributes) {
      endGroup();
      m_text += "<g" + attributes + ">\n";
      m_attributes = attributes;
      m_isInGroup = true;
    }
    m_text += element;
  }

  void endGroup() {
    if (m_isInGroup) m_text += "</g>\n";
    m_isInGroup = false;
    m_isInPath = false;
  }

  std::string m_text;
  std::string m_idPrefix;
  std::string m_attributes;  // of the open group
  bool m_isInGroup = false;
  bool m_isInPath = false;  // which more lines can be added to
  int m_clips = 0;
};

}  // namespace

std::string svgOf(const Picture& picture, const std::string& idPrefix) {
  SvgText text(picture, idPrefix);
  for (const Shape& shape : picture.shapes) {
    std::visit(text, shape);
  }
  return text.finish();
}

}  // namespace Drawing
