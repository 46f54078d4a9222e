// SPDX-License-Identifier: BSL-1.0
#include "free_station/Reliability.h"

#include <Eigen/Core>
#include <Eigen/LU>
#include <boost/math/distributions/students_t.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace FreeStation {

namespace {

using Eigen::Matrix3d;
using Eigen::Vector3d;
using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::StationPlacement;

constexpr int kUnknownsInSpace = 7;

Vector3d vectorOf(const ENHPoint& point) { return {point.east, point.north, point.height}; }
ENHPoint pointOf(const Vector3d& vector) { return {vector.x(), vector.y(), vector.z()}; }

/// Of the cross product from the left.
Matrix3d crossMatrix(const Vector3d& v) {
  Matrix3d matrix;
  matrix << 0.0, -v.z(), v.y(), v.z(), 0.0, -v.x(), -v.y(), v.x(), 0.0;
  return matrix;
}

/// Cofactors of adjusted places. With q from the centroid of the n sighted points, a place moves by
/// t + r x q + s q for a small translation t, rotation r and change of scale s; because the q sum
/// up to 0, the normal equations fall apart into n I, J = sum (q^2 I - q q^T) and sum q^2.
class Cofactors {
 public:
  explicit Cofactors(const std::vector<Vector3d>& points)
      : m_count(static_cast<double>(points.size())) {
    for (const Vector3d& point : points) {
      m_centroid += point / m_count;
    }
    Matrix3d inertia = Matrix3d::Zero();
    for (const Vector3d& point : points) {
      const Vector3d q = point - m_centroid;
      inertia += q.squaredNorm() * Matrix3d::Identity() - q * q.transpose();
      m_squares += q.squaredNorm();
    }
    m_inverseInertia = inertia.inverse();
  }

  Matrix3d at(const Vector3d& place) const {
    const Vector3d q = place - m_centroid;
    const Matrix3d cross = crossMatrix(q);
    return Matrix3d::Identity() / m_count + cross * m_inverseInertia * cross.transpose() +
           q * q.transpose() / m_squares;
  }

 private:
  double m_count;
  Vector3d m_centroid = Vector3d::Zero();
  Matrix3d m_inverseInertia;
  double m_squares = 0.0;
};

/// Helmert's formulas: with w^2 = (n - e)^2 + 4 m^2 of the variances e and n to the east and the
/// north and the covariance m, the squares of the half axes are (e + n +- w) / 2, and the tangent
/// of twice the azimuth of the longer one is 2 m / (n - e).
ErrorEllipse ellipseOf(const Matrix3d& covariance) {
  constexpr double kStraightAngle = 3.141592653589793;
  const double sum = covariance(0, 0) + covariance(1, 1);
  const double difference = covariance(1, 1) - covariance(0, 0);
  const double w = std::hypot(difference, 2.0 * covariance(0, 1));
  const double azimuth = std::atan2(2.0 * covariance(0, 1), difference) / 2.0;
  return {std::sqrt((sum + w) / 2.0), std::sqrt(std::max(sum - w, 0.0) / 2.0),
          azimuth < 0.0 ? azimuth + kStraightAngle : azimuth};
}

/// Of |w| at one in a thousand: tau from Student's t of one degree less.
double criticalW(int redundancy) {
  constexpr double kProbability = 1e-3;
  using InDouble = boost::math::policies::policy<boost::math::policies::promote_double<false>>;
  const double f = redundancy;
  const boost::math::students_t_distribution<double, InDouble> distribution(f - 1.0);
  const double t = boost::math::quantile(boost::math::complement(distribution, kProbability / 2.0));
  return t * std::sqrt(f / (f - 1.0 + t * t));
}

/// 0 where a residual cannot tell anything.
double standardised(double residual, double sigma0, double redundancy) {
  constexpr double kNoRedundancy = 1e-9;
  return sigma0 > 0.0 && redundancy > kNoRedundancy ? residual / (sigma0 * std::sqrt(redundancy))
                                                    : 0.0;
}

}  // namespace

double Control::largestW() const {
  return std::max({std::abs(w.east), std::abs(w.north), std::abs(w.height)});
}

Reliability reliabilityOf(const StationPlacement& station, const std::vector<Sighting>& sightings) {
  std::vector<Vector3d> points;
  points.reserve(sightings.size());
  for (const Sighting& s : sightings) {
    points.push_back(vectorOf(station.toGlobal(s.measurement.polar) - station.station()));
  }
  const Cofactors cofactors(points);
  const std::vector<ENHPoint> residuals = residualsOf(station, sightings);
  const double sigma0 = sigma0Of(residuals);
  Reliability reliability;
  reliability.redundancy = 3 * static_cast<int>(sightings.size()) - kUnknownsInSpace;
  reliability.criticalW = criticalW(reliability.redundancy);
  std::size_t largest = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    Control control;
    control.redundancy = pointOf(Vector3d::Ones() - cofactors.at(points[i]).diagonal());
    const ENHPoint& v = residuals[i];
    control.w = {standardised(v.east, sigma0, control.redundancy.east),
                 standardised(v.north, sigma0, control.redundancy.north),
                 standardised(v.height, sigma0, control.redundancy.height)};
    reliability.sightings.push_back(control);
    if (control.largestW() > reliability.sightings[largest].largestW()) largest = i;
  }
  if (reliability.sightings[largest].largestW() > reliability.criticalW) {
    reliability.outlier = largest;
  }
  reliability.ellipse = ellipseOf(sigma0 * sigma0 * cofactors.at(Vector3d::Zero()));
  return reliability;
}

}  // namespace FreeStation
