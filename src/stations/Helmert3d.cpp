// SPDX-License-Identifier: BSL-1.0
// Gauss-Newton iteration of the spatial similarity transformation. SpatialNormals holds the
// equations of one step and the legend of their symbols; here is decided where to begin, when to
// stop, and what is told of the result. The standard deviations are s0 times the roots of the
// cofactors' diagonal, with s0^2 = (sum of the squared misclosures) / (3 n - 7) for n pairs: three
// coordinates of each pair less seven unknowns.

#include "stations/Helmert3d.h"

#include "stations/MatrixPointsFit.h"
#include "stations/SpatialNormals.h"

#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// The iteration ends when the root mean square corrections of the translation (m) and of the
/// angles (rad) are both below this.
constexpr double kNegligibleCorrection = 1e-6;

/// The iteration ends after the step that makes the count exceed this.
constexpr int kIterationLimit = 100;

/// A correction that would not leave the scale above this is not applied.
constexpr double kSmallestScale = 1e-15;

/// Points stray from a line when their second largest squared extent exceeds this part of the
/// largest: 3e-7 of their length. Exactly collinear points give rounding noise, some 1e-17.
constexpr double kCollinearity = 1e-13;

/// Fix points or targets on a line leave the rotation about it open, whatever the others are. The
/// normal equations do not tell when the line is the axis of omega: what rounding leaves of that
/// column is scaled up to the size of the others.
bool arePlacedOnOneLine(const Eigen::Matrix3d& spread) {
  // With eigenvalues p >= q >= r this is pq + pr + qr, compared with (p + q + r)^2.
  const double minors = spread(0, 0) * spread(1, 1) - spread(0, 1) * spread(1, 0) +
                        spread(0, 0) * spread(2, 2) - spread(0, 2) * spread(2, 0) +
                        spread(1, 1) * spread(2, 2) - spread(1, 2) * spread(2, 1);
  const double trace = spread.trace();
  return !(minors > kCollinearity * trace * trace);
}

SpatialParameters parametersOf(const StationSetup& start, const ENHPoint& origin) {
  const ENHPoint station = start.station - origin;
  return {
      {station.east, station.north, station.height}, {0.0, 0.0, start.orientation}, start.scale};
}

Eigen::Matrix3Xd columnsOf(const std::vector<Eigen::Vector3d>& vectors) {
  Eigen::Matrix3Xd columns(3, static_cast<Eigen::Index>(vectors.size()));
  Eigen::Index column = 0;
  for (const Eigen::Vector3d& v : vectors) {
    columns.col(column++) = v;
  }
  return columns;
}

/// The best rotation in closed form, with the scale as the ratio of the extents.
SpatialParameters closedForm(const ReducedPairs& pairs) {
  const Eigen::Matrix3d rotation =
      MatrixPointsFit(columnsOf(pairs.local), columnsOf(pairs.global)).rotation();
  const double scale = std::sqrt(pairs.globalSpread.trace() / pairs.localSpread.trace());
  return {pairs.globalCentroid - scale * (rotation * pairs.localCentroid), anglesOf(rotation),
          scale};
}

SpatialParameters corrected(const SpatialParameters& p, const SpatialNormals::Vector7& by) {
  SpatialParameters result = p;
  result.translation += by.head<3>();
  result.angles.omega += by(3);
  result.angles.phi += by(4);
  result.angles.kappa += by(5);
  if (p.scale + by(6) > kSmallestScale) result.scale += by(6);
  return result;
}

double rootMeanSquare(const Eigen::Vector3d& v) { return std::sqrt(v.squaredNorm() / 3.0); }

bool areNegligible(const SpatialNormals::Vector7& corrections) {
  return rootMeanSquare(corrections.head<3>()) < kNegligibleCorrection &&
         rootMeanSquare(corrections.segment<3>(3)) < kNegligibleCorrection;
}

struct Adjustment {
  SpatialParameters parameters;
  bool hasSettled = false;
};

/// @return nothing when corrections are not finite
std::optional<Adjustment> iterate(const ReducedPairs& pairs, SpatialParameters parameters,
                                  ResectionDiagnostics& diagnostics) {
  for (int step = 1;; ++step) {
    const SpatialNormals normals(pairs, parameters);
    const auto corrections = normals.solve();
    if (diagnostics.isRead()) {
      diagnostics.add("normal matrix", normals.normalMatrix());
      diagnostics.add("right side", normals.rightSide());
      if (corrections) diagnostics.add("corrections", *corrections);
    }
    if (!corrections) return std::nullopt;
    parameters = corrected(parameters, *corrections);
    if (areNegligible(*corrections)) return Adjustment{parameters, true};
    if (step > kIterationLimit) return Adjustment{parameters, false};
  }
}

/// From the level start one in a thousand instruments that are tilted by 60 gon or more sends the
/// iteration to and fro between the two triples of angles until it is stopped anywhere. From the
/// closed form it settles in some steps, if at all.
std::optional<SpatialParameters> adjust(const ReducedPairs& pairs, const SpatialParameters& start,
                                        ResectionDiagnostics& diagnostics) {
  const auto level = iterate(pairs, start, diagnostics);
  if (level && level->hasSettled) return level->parameters;
  const auto tilted = iterate(pairs, closedForm(pairs), diagnostics);
  if (tilted && tilted->hasSettled) return tilted->parameters;
  if (!level) return std::nullopt;
  return level->parameters;
}

}  // namespace

std::optional<StationSetup> fitHelmert3d(const PointPairs& pairs, const StationSetup& start,
                                         ResectionDiagnostics& diagnostics) {
  const ReducedPairs reduced(pairs);
  if (arePlacedOnOneLine(reduced.globalSpread) || arePlacedOnOneLine(reduced.localSpread)) {
    return std::nullopt;
  }
  auto parameters = adjust(reduced, parametersOf(start, pairs.origin), diagnostics);
  if (!parameters) return std::nullopt;

  const SpatialNormals normals(reduced, *parameters);
  const auto cofactors = normals.cofactors();
  const auto remainder = normals.solve();
  if (!cofactors || !remainder) return std::nullopt;
  // With equations at hand for the covariance, what the last step left over comes for free.
  if (areNegligible(*remainder)) parameters = corrected(*parameters, *remainder);
  const double redundancy = 3.0 * static_cast<double>(pairs.size()) - 7.0;
  const double sigma0 = std::sqrt(normals.squaredMisclosures() / redundancy);
  const SpatialNormals::Vector7 stdDevs = sigma0 * cofactors->diagonal().cwiseSqrt();
  diagnostics.add("sigma0", sigma0);
  diagnostics.add("cofactors", *cofactors);

  const Eigen::Vector3d& t = parameters->translation;
  const SpatialAngles angles = withPositiveCosPhi(parameters->angles);
  StationSetup setup;
  setup.station = pairs.origin + ENHPoint(t.x(), t.y(), t.z());
  setup.tiltAboutEast = angles.omega;
  setup.tiltAboutNorth = angles.phi;
  setup.orientation = angles.kappa;
  setup.scale = parameters->scale;
  setup.stationStdDev = ENHPoint(stdDevs(0), stdDevs(1), stdDevs(2));
  setup.orientationStdDev = stdDevs(5);
  setup.scaleStdDev = stdDevs(6);
  return setup;
}

}  // namespace Calculations
}  // namespace Ruv
