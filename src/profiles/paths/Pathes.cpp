// SPDX-License-Identifier: BSL-1.0
// A list of paths stands for lines, or for the area inside an odd number of its outlines; what it
// stands for is known to the operation only.
//
// A clipping that has failed is not an empty area. Its result is marked, and so is all that is made
// of it, because viewsOf refuses a marked list: a chain of operations ends in not-a-number and
// never in a plausible 0.

#include <Calculations/Paths.h>

#include "foundation/MakeRoom.h"
#include "foundation/MathConstants.h"
#include "profiles/paths/Bands.h"
#include "profiles/paths/Clipping.h"
#include "profiles/paths/LineClipping.h"
#include "profiles/paths/LineSimplification.h"
#include "profiles/paths/Offsetting.h"
#include "profiles/paths/PathImpl.h"
#include "profiles/paths/RingCleaning.h"

#include <cstddef>
#include <utility>

namespace Ruv {
namespace Calculations {

namespace {

/// A sum starts with not-a-number where the paths stand for a clipping that has failed.
double startOfSum(const Pathes& paths) { return PathImpl::isFailure(paths) ? kNotANumber : 0.0; }

}  // namespace

Pathes::Pathes() = default;
Pathes::Pathes(const Path& path) { addPath(path); }
Pathes::Pathes(const Pathes& other)
    : m_paths(copyOf(other.m_paths)), m_isFailed(other.m_isFailed) {}
Pathes::~Pathes() = default;

/// Copies before it changes anything, so that the list stays as it is when memory runs out.
Pathes& Pathes::operator=(const Pathes& other) {
  std::vector<Path> copies = copyOf(other.m_paths);
  m_paths.swap(copies);
  m_isFailed = other.m_isFailed;
  return *this;
}

const std::vector<Path>& Pathes::paths() const { return m_paths; }

void Pathes::addPath(const Path& path) { m_paths.push_back(path); }

void Pathes::addPaths(const Pathes& paths) {
  std::vector<Path> all;  // a copy, so that the list stays as it is when memory runs out
  all.reserve(m_paths.size() + paths.m_paths.size());
  all.insert(all.end(), m_paths.begin(), m_paths.end());
  all.insert(all.end(), paths.m_paths.begin(), paths.m_paths.end());
  m_paths.swap(all);
  m_isFailed = m_isFailed || paths.m_isFailed;
}

unsigned int Pathes::numPathes() const { return static_cast<unsigned int>(m_paths.size()); }

Path Pathes::pathAt(unsigned int index) const {
  return index < m_paths.size() ? m_paths[index] : Path();
}

double Pathes::area() const {
  double sum = startOfSum(*this);
  for (const Path& path : m_paths) {
    sum += path.area();
  }
  return sum;
}

double Pathes::linesLength() const {
  double sum = startOfSum(*this);
  for (const Path& path : m_paths) {
    sum += path.lineLength();
  }
  return sum;
}

/// Counts by the even-odd rule.
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
  return clippedBy([&] { return intersectionOf(viewsOf(a), viewsOf(b)); });
}

Pathes Pathes::without(const Pathes& a, const Pathes& b) {
  return clippedBy([&] { return differenceOf(viewsOf(a), viewsOf(b)); });
}

Pathes Pathes::expand(const Pathes& a, double d) {
  return clippedBy([&] { return offsetOutlines(viewsOf(a), offsetUnits(d)); });
}

Pathes Pathes::expandLines(const Pathes& a, double d) {
  return clippedBy([&] { return bandsAround(viewsOf(a), offsetUnits(d)); });
}

Pathes rawWithout(const Path& a, const Path& b) {
  return clippedBy([&] { return rawDifferenceOf(viewOf(a), viewOf(b)); });
}

Pathes rawWithin(const Pathes& a, const Pathes& b) {
  return clippedBy([&] { return rawIntersectionOf(viewsOf(a), viewsOf(b)); });
}

Pathes bandsWithHoles(const Pathes& lines, double halfWidth) {
  return clippedBy([&] { return bandsWithHoles(viewsOf(lines), offsetUnits(halfWidth)); });
}

Pathes simplePieces(const Pathes& bands) {
  return clippedBy([&] { return simplePieces(copied(viewsOf(bands))); });
}

Pathes Pathes::linesWithin(const Pathes& lines, const Pathes& area, bool clean) {
  return clippedBy([&] {
    ClipperLib::Paths inside = linesInside(viewsOf(lines), viewsOf(area));
    if (clean) inside = simplified(inside, kCleaningDistanceUnits);
    return inside;
  });
}

PathViews viewsOf(const Pathes& paths) {
  if (PathImpl::isFailure(paths)) throw ClippingFailure();
  PathViews views;
  views.reserve(paths.paths().size());
  for (const Path& path : paths.paths()) {
    views.push_back(&PathImpl::pointsOf(path));
  }
  return views;
}

Pathes PathImpl::pathesOf(ClipperLib::Paths paths) {
  Pathes converted;
  converted.m_paths.resize(paths.size());
  for (std::size_t i = 0; i < paths.size(); ++i) {
    converted.m_paths[i].m_impl->set(std::move(paths[i]));
  }
  return converted;
}

/// The only place where the mark is set; lists take it over from those that are added to them.
Pathes PathImpl::noPathes() {
  Pathes none;
  none.m_isFailed = true;
  return none;
}

}  // namespace Calculations
}  // namespace Ruv
