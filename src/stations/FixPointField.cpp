// SPDX-License-Identifier: BSL-1.0
// The line along which the fix points are sorted runs through their centroid in the direction of
// the eigenvector of the largest eigenvalue of sum (p - centroid) (p - centroid)^T, the first
// principal component (Pearson 1901). Two points whose distance is d, and which are no more than w
// apart square to the line, lie between sqrt(d^2 - w^2) and d apart along it. So the partners of a
// point at the distance d are found in two stretches of the line, short ones where the
// fix points lie near a line: in a tunnel w is some metres and d some tens.

#include "stations/FixPointField.h"

#include "stations/EigenPoints.h"

#include <Eigen/Core>
#include <Eigen/Eigenvalues>

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace Ruv {
namespace Calculations {

namespace {

/// Widens stretches by more than the rounding of the positions on the line.
constexpr double kAbsoluteMargin = 1e-6;
constexpr double kRelativeMargin = 1e-12;

/// Places kept of points that coincide; the class comment says why two.
constexpr std::size_t kMostCoincident = 2;

bool isFinite(const ENHPoint& p) {
  return std::isfinite(p.east) && std::isfinite(p.north) && std::isfinite(p.height);
}

/// The line of largest extent through the centroid of points.
struct Line {
  Eigen::Vector3d origin = Eigen::Vector3d::Zero();
  Eigen::Vector3d direction = Eigen::Vector3d::UnitY();
  double farthest = std::numeric_limits<double>::infinity();  ///< point from the line

  double along(const ENHPoint& p) const { return direction.dot(asVector(p) - origin); }
};

Line lineThrough(const Eigen::Matrix3Xd& points) {
  const Eigen::Vector3d first = points.col(0);
  const Eigen::Vector3d origin = first + (points.colwise() - first).rowwise().mean();
  const Eigen::Matrix3Xd reduced = points.colwise() - origin;
  const Eigen::Matrix3d spread = reduced * reduced.transpose();
  // The squares of absurdly large coordinates overflow. Any line will do then.
  if (!spread.allFinite()) return {};
  Line line;
  line.origin = origin;
  line.direction = Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d>(spread).eigenvectors().col(2);
  const Eigen::RowVectorXd along = line.direction.transpose() * reduced;
  line.farthest = (reduced - line.direction * along).colwise().norm().maxCoeff();
  return line;
}

/// The finite ones of a list of points, with their indices there.
struct FinitePoints {
  std::vector<std::size_t> indices;
  Eigen::Matrix3Xd columns;
};

FinitePoints finiteAmong(const std::vector<ENHPoint>& points) {
  FinitePoints finite;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (isFinite(points[i])) finite.indices.push_back(i);
  }
  finite.columns.resize(3, static_cast<Eigen::Index>(finite.indices.size()));
  Eigen::Index column = 0;
  for (const std::size_t i : finite.indices) {
    finite.columns.col(column++) = asVector(points[i]);
  }
  return finite;
}

/// A point with its position along the line.
struct Place {
  double along = 0.0;
  ENHPoint point;
  std::size_t index = 0;
};

/// The places in the order along the line, coincident points side by side in the order of their
/// indices.
std::vector<Place> placesAlong(const Line& line, const std::vector<ENHPoint>& points,
                               const std::vector<std::size_t>& indices) {
  std::vector<Place> places;
  places.reserve(indices.size());
  for (const std::size_t i : indices) {
    places.push_back({line.along(points[i]), points[i], i});
  }
  const auto tieBreak = [](const Place& p) {
    return std::make_tuple(p.point.east, p.point.north, p.point.height, p.index);
  };
  std::sort(places.begin(), places.end(), [&tieBreak](const Place& a, const Place& b) {
    return a.along != b.along ? a.along < b.along : tieBreak(a) < tieBreak(b);
  });
  return places;
}

/// The places in the order of their indices, which are below a count.
std::vector<FieldPlace> inOrderOf(const std::vector<std::size_t>& indices, std::size_t count) {
  const FieldPlace none{indices.size()};
  std::vector<FieldPlace> places(count, none);
  for (std::size_t place = 0; place < indices.size(); ++place) {
    places[indices[place]] = FieldPlace{place};
  }
  places.erase(std::remove(places.begin(), places.end(), none), places.end());
  return places;
}

}  // namespace

FixPointField::FixPointField(const std::vector<ENHPoint>& points) {
  const FinitePoints finite = finiteAmong(points);
  if (finite.indices.empty()) return;
  const Line line = lineThrough(finite.columns);
  m_width = 2.0 * line.farthest;
  m_margin = kAbsoluteMargin + kRelativeMargin * finite.columns.cwiseAbs().maxCoeff();

  const std::vector<Place> places = placesAlong(line, points, finite.indices);
  m_along.reserve(places.size());
  m_points.reserve(places.size());
  std::size_t coincident = 0;
  for (const Place& place : places) {
    const bool isRepeated = !m_points.empty() && m_points.back() == place.point;
    coincident = isRepeated ? coincident + 1 : 1;
    // The place stands for the point all the same, as points around a place are counted.
    if (coincident > kMostCoincident) {
      ++m_coincident.back();
      continue;
    }
    m_along.push_back(place.along);
    m_points.push_back(place.point);
    m_indices.push_back(place.index);
    m_coincident.push_back(1);
  }
  m_inIdOrder = inOrderOf(m_indices, points.size());
}

/// The margins widen what is searched by more than rounding can move a point along the line or
/// change a squared distance; the exact comparison with the tolerance comes last.
void FixPointField::appendPartners(FieldPlace place, double distance, double tolerance,
                                   std::vector<FieldPlace>& partners) const {
  const double least = std::max(distance - tolerance - m_margin, 0.0);
  const double largest = distance + tolerance + m_margin;
  const Query query{place, distance, tolerance, least * least, largest * largest};
  const double near = leastAlong(least) - m_margin;
  const double at = m_along[indexOf(place)];
  const double reach = largest + m_margin;
  if (near > 0.0) {
    appendPartnersBetween(at - reach, at - near, query, partners);
    appendPartnersBetween(at + near, at + reach, query, partners);
  } else {
    appendPartnersBetween(at - reach, at + reach, query, partners);
  }
}

/// What is left of a distance along the line when the points are as far apart square to it as they
/// can be.
double FixPointField::leastAlong(double distance) const {
  const double square = distance * distance - m_width * m_width;
  return square > 0.0 ? std::sqrt(square) : 0.0;
}

double FixPointField::stretchToSearch(double distance) const {
  return 2.0 * (distance - leastAlong(distance));
}

void FixPointField::appendPartnersBetween(double low, double high, const Query& query,
                                          std::vector<FieldPlace>& partners) const {
  const auto first = std::lower_bound(m_along.begin(), m_along.end(), low);
  auto other = static_cast<std::size_t>(first - m_along.begin());
  const ENHPoint from = point(query.place);
  for (; other < size() && m_along[other] <= high; ++other) {
    const ENHPoint apart = m_points[other] - from;
    const double square =
        apart.east * apart.east + apart.north * apart.north + apart.height * apart.height;
    // Most points fail here, without a root. One branch is well predicted where two are not.
    const bool isNearby = (square >= query.leastSquare) & (square <= query.largestSquare);
    if (!isNearby) continue;
    const bool isWithin = std::abs(std::sqrt(square) - query.distance) < query.tolerance;
    if (isWithin && other != indexOf(query.place)) partners.push_back(FieldPlace{other});
  }
}

bool FixPointField::hasNeighbours(FieldPlace place, double radius, std::size_t count) const {
  const ENHPoint& from = point(place);
  std::size_t found = 0;
  for (std::size_t other = 0; other < size() && found < count; ++other) {
    const bool isNear = other == indexOf(place) || (m_points[other] - from).length() < radius;
    if (isNear) found += m_coincident[other];
  }
  return found >= count;
}

}  // namespace Calculations
}  // namespace Ruv
