#include <Calculations/PathHelper.h>
#include <Calculations/Paths.h>

#include "profiles/paths/Bands.h"
#include "profiles/paths/Clipping.h"
#include "profiles/paths/GridUnits.h"
#include "profiles/paths/LineClipping.h"
#include "profiles/paths/PathImpl.h"

#include <utility>

namespace Ruv {
namespace Calculations {

Pathes::Pathes() = default;
Pathes::Pathes(const Path& path) : m_paths(1, path) {}
Pathes::Pathes(const Pathes& other) = default;
Pathes& Pathes::operator=(const Pathes& other) = default;
Pathes::~Pathes() = default;

const std::vector<Path>& Pathes::paths() const { return m_paths; }

void Pathes::addPath(const Path& path) { m_paths.push_back(path); }

void Pathes::addPaths(const Pathes& paths) {
  const std::vector<Path> added = paths.m_paths;  // paths may be this
  m_paths.insert(m_paths.end(), added.begin(), added.end());
}

unsigned int Pathes::numPathes() const { return static_cast<unsigned int>(m_paths.size()); }

Path Pathes::pathAt(unsigned int index) const {
  return index < m_paths.size() ? m_paths[index] : Path();
}

double Pathes::area() const {
  double sum = 0.0;
  for (const Path& path : m_paths) {
    sum += path.area();
  }
  return sum;
}

double Pathes::linesLength() const {
  double sum = 0.0;
  for (const Path& path : m_paths) {
    sum += path.lineLength();
  }
  return sum;
}

bool Pathes::pointWithin(const Point2D& p) const {
  bool isWithin = false;
  for (const Path& path : m_paths) {
    if (path.pointWithin(p)) isWithin = !isWithin;
  }
  return isWithin;
}

bool Pathes::firstIntersectionWithLine(const Point2D& a, const Point2D& b, Point2D& hit) const {
  for (const Path& path : m_paths) {
    if (path.firstIntersectionWithLine(a, b, hit)) return true;
  }
  return false;
}

Pathes Pathes::within(const Pathes& a, const Pathes& b) {
  return PathImpl::pathesOf(intersectionOf(viewsOf(a), viewsOf(b)));
}

Pathes Pathes::without(const Pathes& a, const Pathes& b) {
  return PathImpl::pathesOf(differenceOf(viewsOf(a), viewsOf(b)));
}

Pathes Pathes::expand(const Pathes& a, double d) {
  return PathImpl::pathesOf(offsetOutlines(viewsOf(a), gridUnits(d)));
}

Pathes Pathes::expandLines(const Pathes& a, double d) {
  return PathImpl::pathesOf(bandsAround(viewsOf(a), gridUnits(d)));
}

Pathes bandsWithHoles(const Pathes& lines, double halfWidth) {
  return PathImpl::pathesOf(bandsWithHoles(viewsOf(lines), gridUnits(halfWidth)));
}

Pathes simplePieces(const Pathes& bands) {
  return PathImpl::pathesOf(simplePieces(PathHelper::clipperLibPathsFromPathes(bands)));
}

Pathes Pathes::linesWithin(const Pathes& lines, const Pathes& area, bool clean) {
  ClipperLib::Paths inside = linesInside(viewsOf(lines), viewsOf(area));
  if (clean) inside = PathHelper::simplyfyLines(inside, kCleaningDistanceUnits);
  return PathImpl::pathesOf(std::move(inside));
}

PathViews viewsOf(const Pathes& paths) {
  PathViews views;
  views.reserve(paths.paths().size());
  for (const Path& path : paths.paths()) {
    views.push_back(&path.getImpl().points);
  }
  return views;
}

Pathes PathImpl::pathesOf(ClipperLib::Paths paths) {
  Pathes converted;
  for (ClipperLib::Path& path : paths) {
    converted.addPath(pathOf(std::move(path)));
  }
  return converted;
}

}  // namespace Calculations
}  // namespace Ruv
