// SPDX-License-Identifier: BSL-1.0
#include "stations/MatrixPointsFit.h"

#include "testing/Random.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <Eigen/Core>
#include <Eigen/LU>

#include <cmath>
#include <limits>

namespace {

using Eigen::MatrixXd;
using Ruv::Calculations::MatrixPointsFit;
using namespace TestSupport;

// Written once: every kind of product takes the compiler as long as a source of the library.
MatrixXd product(const MatrixXd& a, const MatrixXd& b) { return a * b; }
MatrixXd centroid(const MatrixXd& points) { return points.rowwise().mean(); }
MatrixXd reduced(const MatrixXd& points) {
  return points - centroid(points).replicate(1, points.cols());
}

MatrixXd randomPoints(Random& random, Eigen::Index dimension, Eigen::Index count) {
  return MatrixXd::NullaryExpr(dimension, count, [&] { return random.uniform(-20.0, 20.0); });
}

/// Turns in the planes of every two axes, one after the other.
MatrixXd randomRotation(Random& random, Eigen::Index dimension) {
  MatrixXd q = MatrixXd::Identity(dimension, dimension);
  for (Eigen::Index i = 0; i < dimension; ++i) {
    for (Eigen::Index j = 0; j < i; ++j) {
      const double angle = random.uniform(-3.2, 3.2);
      for (Eigen::Index column = 0; column < dimension; ++column) {
        const double x = q(i, column);
        const double y = q(j, column);
        q(i, column) = std::cos(angle) * x - std::sin(angle) * y;
        q(j, column) = std::sin(angle) * x + std::cos(angle) * y;
      }
    }
  }
  return q;
}

/// Of at most four rows: matrices of fixed size compile in no time.
double determinantOf(const MatrixXd& m) {
  Eigen::Matrix4d full = Eigen::Matrix4d::Identity();
  full.topLeftCorner(m.rows(), m.cols()) = m;
  return full.determinant();
}

TEST(MatrixPointsFit, IsTheBestRotationEvenOfMirrorImages) {
  Random random(23);
  for (int i = 0; i < 60; ++i) {
    const Eigen::Index dimension = 2 + i % 3;
    const MatrixXd points = randomPoints(random, dimension, 6);
    const MatrixXd rotation = randomRotation(random, dimension);
    const MatrixXd shift = randomPoints(random, dimension, 1);
    MatrixXd candidates = product(rotation, points) + shift.replicate(1, points.cols());
    const MatrixPointsFit exact(points, candidates);
    EXPECT_TRUE(exact.rotation().isApprox(rotation, 1e-13));
    EXPECT_TRUE(exact.translation().isApprox(shift, 1e-12));

    candidates += 0.1 * randomPoints(random, dimension, 6);
    if (i % 2 == 0) candidates.row(0) *= -1.0;
    const MatrixPointsFit fit(points, candidates);
    const MatrixXd& r = fit.rotation();
    EXPECT_TRUE(product(r, r.transpose()).isIdentity(1e-13));
    EXPECT_NEAR(determinantOf(r), 1.0, 1e-13);
    const MatrixXd moved = product(r, centroid(points)) + fit.translation();
    EXPECT_TRUE(moved.isApprox(centroid(candidates), 1e-12));
    // The trace of this matrix is stationary when it is symmetric.
    const MatrixXd spread = product(product(r, reduced(points)), reduced(candidates).transpose());
    EXPECT_TRUE(spread.isApprox(spread.transpose(), 1e-12));
    // It is largest when no further turn adds to it.
    for (int k = 0; k < 50; ++k) {
      const MatrixXd further = randomRotation(random, dimension);
      EXPECT_LE(further.cwiseProduct(spread).sum(), spread.trace() + 1e-9);
    }
  }
}

TEST(MatrixPointsFit, OfEqualDegenerateSetsIsTheIdentity) {
  const MatrixXd line = product(Eigen::Vector3d(1, 2, 3), Eigen::RowVector4d(0, 1, 2, 5));
  const MatrixXd steep = product(Eigen::Vector3d(2e-5, 1e-5, 1), Eigen::RowVector4d(0, 1, 2, 5));
  const MatrixXd place = Eigen::Vector3d(1.0, 2.0, 3.0).replicate(1, 4);
  for (const MatrixXd& points : {line, steep, place, MatrixXd(3, 0)}) {
    const MatrixPointsFit fit(points, points);
    EXPECT_TRUE(fit.rotation().isIdentity(1e-13)) << points;
    EXPECT_TRUE(fit.translation().isZero(1e-12)) << points;
  }
}

TEST(MatrixPointsFit, OfPointsOnALineIsTheMostUpright) {
  Random random(29);
  for (int i = 0; i < 200; ++i) {
    const MatrixXd from = randomPoints(random, 3, 1).normalized();
    const MatrixXd to = randomPoints(random, 3, 1).normalized();
    const MatrixXd distances = Eigen::RowVector4d(0, 3, 7, 12);
    MatrixXd points = product(from, distances);
    // At grid coordinates rounding bends the line.
    const MatrixXd candidates =
        product(to, distances) + Eigen::Vector3d(6e5, 5e6, 500.0).replicate(1, 4);
    // Measured points that stray from it leave the best rotation as open.
    if (i % 2 == 0) points += 0.001 * randomPoints(random, 3, 4);
    const MatrixPointsFit fit(points, candidates);
    const MatrixXd& r = fit.rotation();
    EXPECT_TRUE(product(r, r.transpose()).isIdentity(1e-13));
    const MatrixXd turned = product(r, reduced(points));
    const MatrixXd onLine = product(to, product(to.transpose(), turned));
    EXPECT_NEAR((turned - onLine).norm() / turned.norm(), 0.0, i % 2 == 0 ? 0.01 : 1e-9);
    // A line cannot rise by another angle without tilting by the difference.
    const double rise = std::asin(from(2)) - std::asin(to(2));
    EXPECT_NEAR(r(2, 2), std::cos(rise), i % 2 == 0 ? 0.01 : 1e-8);
  }
}

TEST(MatrixPointsFit, RefusesDifferentShapesAndMarksWhatIsNotFinite) {
  const MatrixXd points = MatrixXd::Random(3, 4);
  for (const MatrixXd& other : {MatrixXd(points.leftCols(3)), MatrixXd(points.topRows(2))}) {
    EXPECT_THAT([&] { MatrixPointsFit(points, other); },
                testing::ThrowsMessage<std::exception>(
                    "matrixPointsToMatch and matrixPointsCandidates have different size"));
  }
  for (const double bad : {std::numeric_limits<double>::quiet_NaN(), 1e300}) {
    const MatrixXd far = points * bad;
    EXPECT_TRUE(MatrixPointsFit(far, far).rotation().array().isNaN().all());
  }
}

}  // namespace
