#include "stations/MatrixPointsFit.h"

#include "stations/TransformationCase.h"
#include "support/Random.h"

#include <gtest/gtest.h>
#include <Eigen/Dense>

#include <limits>

namespace {

using Eigen::MatrixXd;
using Ruv::Calculations::MatrixPointsFit;
using TestSupport::Random;

MatrixXd randomPoints(Random& random, Eigen::Index dimension, Eigen::Index count) {
  return MatrixXd::NullaryExpr(dimension, count, [&] { return random.uniform(-20.0, 20.0); });
}

MatrixXd randomRotation(Random& random, Eigen::Index dimension) {
  MatrixXd q = randomPoints(random, dimension, dimension).householderQr().householderQ();
  if (q.determinant() < 0.0) q.col(0) *= -1.0;
  return q;
}

TEST(MatrixPointsFit, FindsTheMotionAndNeverReflects) {
  Random random(23);
  for (int i = 0; i < 60; ++i) {
    const Eigen::Index dimension = 2 + i % 3;
    const MatrixXd points = randomPoints(random, dimension, 6);
    const MatrixXd rotation = randomRotation(random, dimension);
    const Eigen::VectorXd shift = randomPoints(random, dimension, 1);
    const MatrixPointsFit fit(points, (rotation * points).colwise() + shift);
    EXPECT_TRUE(fit.rotation().isApprox(rotation, 1e-13));
    EXPECT_TRUE(fit.translation().isApprox(shift, 1e-12));

    MatrixXd mirrored = points;
    mirrored.row(0) *= -1.0;
    const MatrixXd turned = MatrixPointsFit(points, mirrored).rotation();
    EXPECT_TRUE((turned * turned.transpose()).isIdentity(1e-13));
    EXPECT_NEAR(turned.determinant(), 1.0, 1e-13);
    const MatrixXd from = points.colwise() - points.rowwise().mean();
    const MatrixXd to = mirrored.colwise() - mirrored.rowwise().mean();
    EXPECT_LE((turned * from - to).norm(), (randomRotation(random, dimension) * from - to).norm());
  }
}

TEST(MatrixPointsFit, AgreesWithFiftyDigitFits) {
  for (const char* name : {"space_ghilani4", "space_dewitt4", "space_tbm17"}) {
    SCOPED_TRACE(name);
    const TestSupport::TransformationCase golden(name);
    MatrixXd local(3, golden.points.size());
    MatrixXd global = local;
    Eigen::Index count = 0;
    for (const auto& p : golden.points) {
      if (!p.isFixPoint) continue;
      local.col(count) << p.local.east, p.local.north, p.local.height;
      global.col(count++) << p.global.east, p.global.north, p.global.height;
    }
    const MatrixPointsFit fit(local.leftCols(count), global.leftCols(count));
    const std::string axes[] = {"east", "north", "height"};
    for (Eigen::Index i = 0; i < 3; ++i) {
      for (Eigen::Index j = 0; j < 3; ++j) {
        const std::string cell = std::to_string(i + 1) + std::to_string(j + 1);
        EXPECT_NEAR(fit.rotation()(i, j), golden.expected.at("rigid.rotation_" + cell), 1e-12);
      }
      EXPECT_NEAR(fit.translation()(i), golden.expected.at("rigid.translation_" + axes[i]), 1e-8);
    }
  }
}

TEST(MatrixPointsFit, OfEqualSetsIsTheIdentity) {
  Random random(4);
  MatrixXd plane = randomPoints(random, 3, 5);
  plane.row(2).setConstant(7.0);
  const MatrixXd line = Eigen::Vector3d(1.0, 2.0, 3.0) * Eigen::RowVector4d(0, 1, 2, 5);
  const MatrixXd place = Eigen::Vector3d(1.0, 2.0, 3.0).replicate(1, 4);
  for (const MatrixXd& points : {randomPoints(random, 3, 6), randomPoints(random, 2, 3), plane,
                                 line, place, MatrixXd(3, 0)}) {
    const MatrixPointsFit fit(points, points);
    EXPECT_TRUE(fit.rotation().isIdentity(1e-13)) << points;
    EXPECT_TRUE(fit.translation().isZero(1e-12)) << points;
  }
}

TEST(MatrixPointsFit, RefusesDifferentShapesAndMarksWhatIsNotFinite) {
  const MatrixXd points = MatrixXd::Random(3, 4);
  for (const MatrixXd& other : {MatrixXd(points.leftCols(3)), MatrixXd(points.topRows(2))}) {
    try {
      const MatrixPointsFit fit(points, other);
      ADD_FAILURE() << "nothing thrown";
    } catch (const std::exception& e) {
      EXPECT_STREQ(e.what(), "matrixPointsToMatch and matrixPointsCandidates have different size");
    }
  }
  for (const double bad : {std::numeric_limits<double>::quiet_NaN(), 1e300}) {
    const MatrixXd far = points * bad;
    EXPECT_TRUE(MatrixPointsFit(far, far).rotation().array().isNaN().all());
  }
}

}  // namespace
