// SPDX-License-Identifier: BSL-1.0
#include "support/ClippingPeers.h"

#include <Calculations/PathHelper.h>

#include <cmath>
#include <limits>

namespace Benchmarks {

namespace {

using ClipperLib::cInt;
using ClipperLib::Path;
using ClipperLib::Paths;
using Ruv::Calculations::PathHelper;

constexpr double kUnitsPerMetre = 10000.0;

/// The clipper's own default of cleaning.
constexpr double kCleaningUnits = 1.415;

/// Round to what the library rounds to, so that both clip the same outlines.
cInt units(double metres) {
  const double raised = metres * kUnitsPerMetre + 0.5;
  return static_cast<cInt>(raised);
}

Path onGrid(const std::vector<Point2D>& outline) {
  Path path;
  path.reserve(outline.size());
  for (const Point2D& p : outline) {
    path.emplace_back(units(p.x), units(p.y));
  }
  if (!ClipperLib::Orientation(path)) ClipperLib::ReversePath(path);
  ClipperLib::CleanPolygon(path, kCleaningUnits);
  return path;
}

double squareMetres(const Paths& paths) {
  double area = 0.0;
  for (const Path& path : paths) {
    area += ClipperLib::Area(path);
  }
  return area / (kUnitsPerMetre * kUnitsPerMetre);
}

Paths difference(const Path& subject, const Path& clip) {
  ClipperLib::Clipper clipper;
  clipper.AddPath(subject, ClipperLib::ptSubject, true);
  clipper.AddPath(clip, ClipperLib::ptClip, true);
  Paths result;
  clipper.Execute(ClipperLib::ctDifference, result, ClipperLib::pftEvenOdd, ClipperLib::pftEvenOdd);
  ClipperLib::CleanPolygons(result, kCleaningUnits);
  return result;
}

Path offset(const Path& outline, double distance) {
  ClipperLib::ClipperOffset offset;
  offset.AddPath(outline, ClipperLib::jtRound, ClipperLib::etClosedPolygon);
  Paths result;
  offset.Execute(result, static_cast<double>(units(distance)));
  return result.empty() ? Path() : result.front();
}

Path closedOffset(const Path& outline, double distance) {
  Path result = offset(outline, distance);
  ClipperLib::CleanPolygon(result, kCleaningUnits);
  if (!result.empty()) result.push_back(result.front());
  return result;
}

Paths linesInside(const Path& line, const Paths& area) {
  ClipperLib::Clipper clipper;
  clipper.AddPath(line, ClipperLib::ptSubject, false);
  clipper.AddPaths(area, ClipperLib::ptClip, true);
  ClipperLib::PolyTree tree;
  clipper.Execute(ClipperLib::ctIntersection, tree, ClipperLib::pftEvenOdd, ClipperLib::pftEvenOdd);
  Paths lines;
  ClipperLib::OpenPathsFromPolyTree(tree, lines);
  return PathHelper::simplyfyLines(lines, kCleaningUnits);
}

Paths bandsAround(const Paths& lines, double halfWidth) {
  ClipperLib::ClipperOffset offset;
  offset.AddPaths(PathHelper::simplyfyLines(lines, kCleaningUnits), ClipperLib::jtRound,
                  ClipperLib::etOpenButt);
  Paths bands;
  offset.Execute(bands, static_cast<double>(units(halfWidth)));
  return PathHelper::simplyfyLines(bands, kCleaningUnits);
}

double areaOf(const GeosContext& geos, const GeosGeometry& geometry) {
  double area = std::numeric_limits<double>::quiet_NaN();
  if (geometry != nullptr) GEOSArea_r(geos.get(), geometry.get(), &area);
  return area;
}

double areaOfDifference(const GeosContext& geos, const GeosGeometry& a, const GeosGeometry& b) {
  return areaOf(geos, geos.owned(GEOSDifference_r(geos.get(), a.get(), b.get())));
}

}  // namespace

OverAndUnder clipOverAndUnder(const std::vector<Point2D>& reference,
                              const std::vector<Point2D>& excavation) {
  const Path design = onGrid(reference);
  const Path actual = onGrid(excavation);
  return {squareMetres(difference(actual, design)), squareMetres(difference(design, actual))};
}

std::size_t offsetOutline(const std::vector<Point2D>& outline, double distance) {
  return offset(onGrid(outline), distance).size();
}

double clipGeologicalArea(const std::vector<Point2D>& reference,
                          const std::vector<Point2D>& excavation, double distance) {
  const Path design = onGrid(reference);
  const Path actual = onGrid(excavation);
  const Path limit = closedOffset(design, distance);
  const Path centreLine = closedOffset(design, distance / 2.0);
  const Paths near = bandsAround(linesInside(limit, {actual}), distance);
  const Paths band = bandsAround(linesInside(centreLine, near), distance / 2.0);
  return squareMetres(band) + squareMetres(difference(actual, limit));
}

OverAndUnder geosOverAndUnder(const GeosContext& geos, const std::vector<Point2D>& reference,
                              const std::vector<Point2D>& excavation) {
  const GeosGeometry design = geos.polygon(reference);
  const GeosGeometry actual = geos.polygon(excavation);
  return {areaOfDifference(geos, actual, design), areaOfDifference(geos, design, actual)};
}

double geosAreaBeyond(const GeosContext& geos, const std::vector<Point2D>& reference,
                      const std::vector<Point2D>& excavation, double distance) {
  constexpr int kSegmentsOfAQuarter = 100;
  const GeosGeometry design = geos.polygon(reference);
  const GeosGeometry actual = geos.polygon(excavation);
  const GeosGeometry limit =
      geos.owned(GEOSBuffer_r(geos.get(), design.get(), distance, kSegmentsOfAQuarter));
  return areaOfDifference(geos, actual, limit);
}

}  // namespace Benchmarks
