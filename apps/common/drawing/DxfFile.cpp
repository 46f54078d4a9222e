// SPDX-License-Identifier: BSL-1.0
#include "common/drawing/DxfFile.h"

#include "common/drawing/Geometry.h"
#include "common/drawing/PrintableText.h"

#include <boost/locale/utf.hpp>

#include <dxflib/dl_dxf.h>

#include <cmath>
#include <fstream>
#include <iterator>

namespace Drawing {

namespace {

namespace utf = boost::locale::utf;

constexpr int kMetres = 6;  // of $INSUNITS
constexpr int kByLayer = 256;
constexpr int kWidthByLayer = -1;

/// From 0 to 360.
double degrees(double radians) {
  const double angle = std::fmod(radians * kDegreesPerRadian, 360.0);
  return angle < 0.0 ? angle + 360.0 : angle;
}

DL_Attributes attributesOf(const std::string& layer) {
  return DL_Attributes(layer, kByLayer, kWidthByLayer, "BYLAYER", 1.0);
}

/// Letters beyond ASCII are written as numbers, as no code page has them all; the signs that begin
/// such codes are written so that they stay themselves.
std::string dxfText(const std::string& words) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  constexpr utf::code_point kLastShort = 0xFFFF;
  const std::string shown = printable(words);
  std::string text;
  for (auto place = shown.begin(); place != shown.end();) {
    const utf::code_point letter = utf::utf_traits<char>::decode(place, shown.end());
    if (letter == '%') {
      text += "%%%";
    } else if (letter == '^') {
      text += "^ ";
    } else if (letter < 0x80) {
      text += static_cast<char>(letter);
    } else if (letter > kLastShort) {
      text += '?';
    } else {
      text += "\\U+";
      for (const unsigned shift : {12U, 8U, 4U, 0U}) {
        text += kDigits[letter >> shift & 0xFU];
      }
    }
  }
  return text;
}

void writeLinetypes(DL_Dxf& dxf, DL_WriterA& out) {
  constexpr int kCount = 3;
  out.tableLinetypes(kCount);
  for (const char* name : {"BYBLOCK", "BYLAYER", "CONTINUOUS"}) {
    dxf.writeLinetype(out, DL_LinetypeData(name, name, 0, 0, 0.0));
  }
  out.tableEnd();
}

void writeLayers(DL_Dxf& dxf, DL_WriterA& out, const std::vector<DxfLayer>& layers) {
  constexpr int kDefaultWidth = -3;
  out.tableLayers(static_cast<int>(layers.size()) + 1);
  const auto write = [&](const std::string& name, int colour) {
    dxf.writeLayer(out, DL_LayerData(name, 0),
                   DL_Attributes(name, colour, kDefaultWidth, "CONTINUOUS", 1.0));
  };
  write("0", DxfLayer::kInk);
  for (const DxfLayer& layer : layers) {
    write(layer.name, layer.colour);
  }
  out.tableEnd();
}

void writeTables(DL_Dxf& dxf, DL_WriterA& out, const std::vector<DxfLayer>& layers) {
  out.sectionTables();
  dxf.writeVPort(out);
  writeLinetypes(dxf, out);
  writeLayers(dxf, out, layers);
  out.tableStyle(1);
  constexpr double kTextHeight = 2.5;
  // By this very name dxflib finds the style that dimensions refer to; of another one it writes a
  // handle that it has never set.
  dxf.writeStyle(out, DL_StyleData("Standard", 0, 0.0, 1.0, 0.0, 0, kTextHeight, "txt", ""));
  out.tableEnd();
  dxf.writeView(out);
  dxf.writeUcs(out);
  out.tableAppid(1);
  dxf.writeAppid(out, "ACAD");
  out.tableEnd();
  dxf.writeDimStyle(out, 1.0, 1.0, 1.0, 1.0, 1.0);
  dxf.writeBlockRecord(out);
  out.tableEnd();
  out.sectionEnd();
}

void writeBlocks(DL_Dxf& dxf, DL_WriterA& out) {
  out.sectionBlocks();
  for (const char* name : {"*Model_Space", "*Paper_Space", "*Paper_Space0"}) {
    dxf.writeBlock(out, DL_BlockData(name, 0, 0.0, 0.0, 0.0));
    dxf.writeEndBlock(out, name);
  }
  out.sectionEnd();
}

}  // namespace

struct DxfFile::Impl {
  explicit Impl(const std::string& file) : path(file), out(file.c_str(), DL_Codes::AC1015) {}

  /// The beginning of an entity that the library does not know by itself.
  void entity(const char* name, const std::string& layer, const char* kind) {
    out.entity(name);
    out.dxfString(100, "AcDbEntity");
    out.entityAttributes(attributesOf(layer));
    if (kind != nullptr) out.dxfString(100, kind);
  }

  std::string path;
  DL_Dxf dxf;
  DL_WriterA out;
};

DxfFile::DxfFile(const std::string& path, const std::vector<DxfLayer>& layers)
    : m_impl(std::make_unique<Impl>(path)) {
  DL_WriterA& out = m_impl->out;
  m_impl->dxf.writeHeader(out);
  out.dxfString(9, "$INSUNITS");
  out.dxfInt(70, kMetres);
  out.sectionEnd();
  writeTables(m_impl->dxf, out, layers);
  writeBlocks(m_impl->dxf, out);
  out.sectionEntities();
}

DxfFile::~DxfFile() = default;

void DxfFile::point(const std::string& layer, const Point3& at) {
  m_impl->dxf.writePoint(m_impl->out, DL_PointData(at.x, at.y, at.z), attributesOf(layer));
}

void DxfFile::line(const std::string& layer, const Point3& from, const Point3& to) {
  m_impl->dxf.writeLine(m_impl->out, DL_LineData(from.x, from.y, from.z, to.x, to.y, to.z),
                        attributesOf(layer));
}

void DxfFile::arc(const std::string& layer, const Point3& centre, double radius, double startAngle,
                  double endAngle) {
  m_impl->dxf.writeArc(
      m_impl->out,
      DL_ArcData(centre.x, centre.y, centre.z, radius, degrees(startAngle), degrees(endAngle)),
      attributesOf(layer));
}

void DxfFile::circle(const std::string& layer, const Point3& centre, double radius) {
  m_impl->dxf.writeCircle(m_impl->out, DL_CircleData(centre.x, centre.y, centre.z, radius),
                          attributesOf(layer));
}

void DxfFile::ellipse(const std::string& layer, const Point3& centre, double semiAxisA,
                      double semiAxisB, double rotation) {
  m_impl->dxf.writeEllipse(
      m_impl->out,
      DL_EllipseData(centre.x, centre.y, centre.z, semiAxisA * std::cos(rotation),
                     semiAxisA * std::sin(rotation), 0.0, semiAxisB / semiAxisA, 0.0, kFullTurn),
      attributesOf(layer));
}

void DxfFile::polyline(const std::string& layer, const std::vector<Point3>& points, bool isClosed) {
  if (points.empty()) return;
  m_impl->dxf.writePolyline(
      m_impl->out,
      DL_PolylineData(static_cast<int>(points.size()), 0, 0, isClosed ? 1 : 0, points.front().z),
      attributesOf(layer));
  for (const Point3& point : points) {
    m_impl->dxf.writeVertex(m_impl->out, DL_VertexData(point.x, point.y, 0.0, 0.0));
  }
  m_impl->dxf.writePolylineEnd(m_impl->out);
}

/// The library writes polylines of this release in a plane only.
void DxfFile::spacePolyline(const std::string& layer, const std::vector<Point3>& points,
                            bool isClosed) {
  constexpr int kInSpace = 8;
  constexpr int kVertexInSpace = 32;
  DL_WriterA& out = m_impl->out;
  m_impl->entity("POLYLINE", layer, "AcDb3dPolyline");
  out.dxfInt(66, 1);
  out.coord(10, 0.0, 0.0, 0.0);
  out.dxfInt(70, kInSpace + (isClosed ? 1 : 0));
  for (const Point3& point : points) {
    m_impl->entity("VERTEX", layer, "AcDbVertex");
    out.dxfString(100, "AcDb3dPolylineVertex");
    out.coord(10, point.x, point.y, point.z);
    out.dxfInt(70, kVertexInSpace);
  }
  m_impl->entity("SEQEND", layer, nullptr);
}

void DxfFile::text(const std::string& layer, const Point3& at, double height,
                   const std::string& words, double angle) {
  constexpr int kLeft = 0;
  constexpr int kBaseLine = 0;
  m_impl->dxf.writeText(m_impl->out,
                        DL_TextData(at.x, at.y, at.z, at.x, at.y, at.z, height, 1.0, 0, kLeft,
                                    kBaseLine, dxfText(words), "Standard", angle),
                        attributesOf(layer));
}

bool DxfFile::finish() {
  DL_WriterA& out = m_impl->out;
  out.sectionEnd();
  m_impl->dxf.writeObjects(out);
  m_impl->dxf.writeObjectsEnd(out);
  out.dxfEOF();
  out.close();
  // The library does not tell whether it could write: the end of the file does.
  const std::string end = "EOF";
  std::ifstream file(m_impl->path, std::ios::binary | std::ios::ate);
  const auto size = static_cast<std::streamoff>(file.tellg());
  constexpr std::streamoff kTail = 8;
  if (size < kTail) return false;
  file.seekg(size - kTail);
  const std::string tail((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  return tail.find(end) != std::string::npos;
}

}  // namespace Drawing
