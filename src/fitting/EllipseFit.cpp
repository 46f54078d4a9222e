// SPDX-License-Identifier: BSL-1.0
// The rounds of the ellipse fit. A round fits the equation of a conic to the points in use and
// takes its value at a point, the algebraic distance, as the residual of the point. Points beyond
// three times the mean residual are left out of the next round. Algebraic distances are cheap, but
// they are no lengths: at the ends of a flat ellipse, where the equation is less steep, the same
// deviation counts less than beside its long sides.

#include "fitting/ConicToEllipse.h"
#include "fitting/DirectConicFit.h"
#include "fitting/PointFrame.h"
#include "fitting/PointSubset.h"

#include <Calculations/FittingHelper.h>

#include <Eigen/Core>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

namespace Ruv {
namespace Calculations {

namespace {

/// A point is rejected when its distance exceeds the mean by this factor.
constexpr double kOutlierFactor = 3.0;
/// Rejecting stops below this number of points.
constexpr std::size_t kFewestPointsToGoOn = 4;
/// Distances below this part of their terms are rounding noise of the fit. On points of an exact
/// ellipse every distance is noise, and some exceed three times their mean. Signed distances sum up
/// to zero, so one of six points against the five others has exactly three times the mean.
constexpr double kNoiseOfFit = 1e-12;

/// An ellipse's equation in the frame of the points it was fitted to.
struct FittedConic {
  PointFrame frame;
  Conic conic;
  double noiseOfCoordinates = 0.0;

  double algebraicDistance(const Point2D& p) const {
    const Point2D q = frame.reduced(p);
    return std::abs(valueAt(conic, q.x, q.y));
  }

  bool isNoise(double distance, const Point2D& p) const {
    const Point2D q = frame.reduced(p);
    // Where the ellipse is thin a shift of the point changes the distance much more than in
    // relation to its terms.
    return distance < kNoiseOfFit * magnitudeAt(conic, q.x, q.y) +
                          noiseOfCoordinates * slopeAt(conic, q.x, q.y);
  }
};

/// False for what rounding leaves of a pair of lines: too few places pass for an ellipse. The
/// squares of the semi-axes are worked out from the centre and are no numbers where that is none.
bool isFinite(const Ellipse& ellipse) {
  return std::isfinite(ellipse.semiAxisA) && std::isfinite(ellipse.semiAxisB);
}

std::optional<FittedConic> fitTo(const PointSubset& points) {
  const PointFrame frame = frameOf(points);
  const auto conic = fitConic(points, frame);
  if (!conic || !isFinite(ellipseOf(*conic))) return std::nullopt;
  return FittedConic{frame, *conic, coordinateNoise(frame)};
}

FittingResult resultOf(FittingMethod::Method method, const FittedConic& fitted) {
  const Ellipse ellipse = ellipseOf(fitted.conic);
  const PointFrame& frame = fitted.frame;
  return FittingResult(method, frame.restored(ellipse.center), frame.unit * ellipse.semiAxisA,
                       frame.unit * ellipse.semiAxisB, ellipse.rotation);
}

/// Residuals are computed for runs of this many points and not kept: at a million points it takes
/// longer to get the memory for them than to compute them twice.
constexpr std::size_t kRunLength = 256;

/// Calls visit(index of the first point, residuals) for runs of consecutive points, the residuals
/// being an array expression.
template <class Visit>
void forEachRunOfResiduals(const FittedConic& fitted, const std::vector<Point2D>& points,
                           Visit visit) {
  std::array<double, kRunLength> residuals = {};
  for (std::size_t first = 0; first < points.size(); first += kRunLength) {
    const std::size_t count = std::min(kRunLength, points.size() - first);
    for (std::size_t i = 0; i < count; ++i) {
      residuals[i] = fitted.algebraicDistance(points[first + i]);
    }
    visit(first,
          Eigen::Map<const Eigen::ArrayXd>(residuals.data(), static_cast<Eigen::Index>(count)));
  }
}

double meanResidual(const FittedConic& fitted, const std::vector<Point2D>& points) {
  double sum = 0.0;
  forEachRunOfResiduals(fitted, points,
                        [&](std::size_t, const auto& residuals) { sum += residuals.sum(); });
  return sum / static_cast<double>(points.size());
}

/// Clears the flags of outlying points.
/// @return how many it cleared
std::size_t rejectOutliers(const FittedConic& fitted, const std::vector<Point2D>& points,
                           std::vector<bool>& used) {
  // The mean is taken over all points, rejected ones included, so that the limit stays comparable
  // from round to round.
  const double limit = kOutlierFactor * meanResidual(fitted, points);
  std::size_t rejected = 0;
  forEachRunOfResiduals(fitted, points, [&](std::size_t first, const auto& residuals) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(residuals.size()); ++i) {
      const double residual = residuals[static_cast<Eigen::Index>(i)];
      const bool isOutlier = residual > limit && used[first + i];
      if (!isOutlier || fitted.isNoise(residual - limit, points[first + i])) continue;
      used[first + i] = false;
      ++rejected;
    }
  });
  return rejected;
}

}  // namespace

FittingResult FittingHelper::ellipseFitFitzgibbon(const std::vector<Point2D>& points,
                                                  std::vector<bool>& used, int rounds) {
  used.assign(points.size(), true);
  FittingResult result(rounds < 2 ? FittingMethod::EllipseFitzgibbon
                                  : FittingMethod::EllipseFitzgibbonIterative);
  std::size_t count = points.size();
  for (int round = 0; round < rounds; ++round) {
    const bool usesAll = count == points.size();
    const auto fitted = fitTo(usesAll ? PointSubset(points) : PointSubset(points, used));
    if (!fitted) break;
    result = resultOf(result.method, *fitted);
    const std::size_t rejected = rejectOutliers(*fitted, points, used);
    count -= rejected;
    if (count < kFewestPointsToGoOn || rejected == 0) break;
  }
  return result;
}

bool FittingHelper::ellipseFitFitzgibbonInternal(
    const std::vector<Point2D>& points,
    // NOLINTNEXTLINE(performance-unnecessary-value-param): the interface's signature
    std::vector<bool> used, FittingResult& result, std::vector<double>& residuals) {
  const auto fitted = fitTo(PointSubset(points, used));
  if (!fitted) return false;
  result = resultOf(result.method, *fitted);
  residuals.clear();
  residuals.reserve(points.size());
  for (const Point2D& p : points) {
    residuals.push_back(fitted->algebraicDistance(p));
  }
  return true;
}

}  // namespace Calculations
}  // namespace Ruv
