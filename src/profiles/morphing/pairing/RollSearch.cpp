// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/pairing/RollSearch.h"

#include "foundation/MathConstants.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace Ruv {
namespace Calculations {

namespace {

/// Points on either chain, equally far apart along it, that are compared with the other chain.
constexpr int kNumSamples = 24;

/// The method of Gauss and Newton: every step takes the nearest points of the other chain anew. It
/// arrives in four steps where the chains are alike; where they are not the weight is small.
constexpr int kMostIterations = 8;

/// Steps (rad, m, logarithm of the scale) that are rounding.
constexpr double kConverged = 1e-12;

/// The part of the root mean square distance that turning leaves. A true roll leaves rounding, a
/// vault on walls of another height about half, so a roll is followed in full up to the first and
/// not at all from the second value on.
constexpr double kFollowedResidue = 0.3;
constexpr double kIgnoredResidue = 0.6;

/// Distances (m) of this size are the rounding of profiles, not their shape.
constexpr double kShapeNoise = 1e-4;

/// Rolls larger than this many times the largest one that is followed are not followed at all. The
/// way to there is long enough for the result to change no faster than the roll five times over.
constexpr double kFadedOut = 4.0 / 3.0;

/// Foot of a perpendicular with the unit vector across.
struct Foot {
  Point2D point;
  Point2D normal;
  double distance = HUGE_VAL;  ///< along the normal, signed
};

/// A piece prepared for many perpendiculars.
///
/// Feet on an end of an open chain may lie beyond it, on the continuation of its last piece. Pieces
/// are skipped when even their nearest point could not be nearer than what is known: a point at a
/// distance m from the middle of the chord is at least m less half the length away from the piece.
class FootFinder {
 public:
  FootFinder(const RolledChain& chain, const Point2D& origin) {
    for (std::size_t i = 0; i < chain.pieces.size(); ++i) {
      const TurningChord& piece = chain.pieces[i];
      Piece p;
      p.start = piece.start - origin;
      p.end = piece.end - origin;
      p.length = piece.chord().length();
      p.along = piece.chord() / p.length;
      p.radius = piece.radius();
      p.isArc = p.radius != 0.0;
      p.goesOnBefore = chain.isOpen && i == 0;
      p.goesOnBehind = chain.isOpen && i + 1 == chain.pieces.size();
      p.middleOfChord = (p.start + p.end) * 0.5;
      p.reach = p.goesOnBefore || p.goesOnBehind ? HUGE_VAL : piece.length() / 2.0;
      if (p.isArc) {
        const double toCentre = p.radius * std::cos(piece.turning / 2.0);
        p.centre = (p.start + p.end) * 0.5 + Point2D(p.along.y, -p.along.x) * toCentre;
        p.middle = piece.pointAt(0.5) - origin - p.centre;
        p.cosHalf = std::cos(piece.turning / 2.0) * p.radius * p.radius;
      }
      m_pieces.push_back(p);
    }
  }

  /// @param nearest a guess of the piece, and on return the one found
  Foot footOf(const Point2D& q, std::size_t& nearest) const {
    Foot best = footOn(m_pieces[nearest], q);
    double least = std::abs(best.distance);
    for (std::size_t i = 0; i < m_pieces.size(); ++i) {
      const Piece& piece = m_pieces[i];
      const Point2D toMiddle = q - piece.middleOfChord;
      const double reach = least + piece.reach;
      if (dot(toMiddle, toMiddle) > reach * reach) continue;
      const Foot foot = footOn(piece, q);
      if (!(std::abs(foot.distance) < least)) continue;
      best = foot;
      least = std::abs(foot.distance);
      nearest = i;
    }
    return best;
  }

 private:
  struct Piece {
    Point2D start;
    Point2D end;
    Point2D along;
    double length = 0.0;
    double radius = 0.0;
    bool isArc = false;
    bool goesOnBefore = false;
    bool goesOnBehind = false;
    Point2D middleOfChord;
    double reach = 0.0;  ///< no point of the piece is farther from the middle of its chord
    Point2D centre;
    Point2D middle;
    double cosHalf = 0.0;
  };

  static double dot(const Point2D& a, const Point2D& b) { return a.x * b.x + a.y * b.y; }

  /// The distance from a node has no sign: a node between two pieces is passed on either side.
  static Foot toNode(const Point2D& node, const Point2D& q, const Point2D& across) {
    const Point2D gap = q - node;
    const double distance = gap.length();
    if (!(distance > 1e-9)) return {node, across, dot(gap, across)};
    return {node, gap / distance, distance};
  }

  static Foot footOn(const Piece& p, const Point2D& q) {
    const Point2D across(p.along.y, -p.along.x);
    if (!p.isArc) {
      const double l = dot(q - p.start, p.along);
      if (l < 0.0 && !p.goesOnBefore) return toNode(p.start, q, across);
      if (l > p.length && !p.goesOnBehind) return toNode(p.end, q, across);
      return {p.start + p.along * l, across, dot(q - p.start, across)};
    }
    const Point2D ray = q - p.centre;
    const double distance = ray.length();
    const bool isBefore = dot(q - (p.start + p.end) * 0.5, p.along) < 0.0;
    const bool isWithin = dot(ray, p.middle) >= p.cosHalf / std::abs(p.radius) * distance;
    const bool goesOn = isBefore ? p.goesOnBefore : p.goesOnBehind;
    if (!(distance > 0.0) || (!isWithin && !goesOn)) {
      return toNode(isBefore ? p.start : p.end, q, across);
    }
    const Point2D outwards = ray / distance;
    const double size = std::abs(p.radius);
    return {p.centre + outwards * size, outwards, distance - size};
  }

  std::vector<Piece> m_pieces;
};

/// Equally far apart, beginning with half a distance, so that reversing a chain reverses its
/// samples.
std::vector<Point2D> samplesOf(const RolledChain& chain) {
  double length = 0.0;
  for (const TurningChord& piece : chain.pieces)
    length += piece.length();
  std::vector<Point2D> samples;
  double passed = 0.0;
  for (const TurningChord& piece : chain.pieces) {
    const double own = piece.length();
    for (auto i = static_cast<double>(samples.size()); i < kNumSamples; ++i) {
      const double place = (i + 0.5) / kNumSamples * length - passed;
      if (place > own) break;
      samples.push_back(piece.pointAt(place / own));
    }
    passed += own;
  }
  return samples;
}

/// Reduced to the first point before the sum, which far from the origin would cost digits.
Point2D meanOf(const std::vector<Point2D>& points) {
  Point2D sum;
  for (const Point2D& p : points)
    sum = sum + (p - points.front());
  return points.front() + sum / static_cast<double>(points.size());
}

/// The mean of both chains is the frame in which they are compared: the start is turned to it by
/// half the angle, the end by half of it back, and likewise for scale and shift. So exchanging them
/// exchanges the signs and nothing else.
struct Fit {
  double roll = 0.0;
  double scale = 0.0;  ///< logarithm
  Point2D shift;
};

struct HalfFit {
  CDirection direction;
  double scale = 1.0;
  Point2D shift;

  HalfFit(const Fit& fit, double half)
      : direction(directionOfBearing(half * fit.roll)),
        scale(std::exp(half * fit.scale)),
        shift(fit.shift * half) {}

  Point2D toMean(const Point2D& p) const { return turnedTo(direction, p) * scale + shift; }
  Point2D fromMean(const Point2D& p) const { return turnedFrom(direction, (p - shift) / scale); }
};

/// The distance e of a point from the other chain along its normal n changes with the unknowns by
///   de = n . ds + (n . p) dk + (n x p) dr,
/// where s is the shift, k the logarithm of the scale, r the roll and p the place in the mean
/// frame. The sum of all (e + de)^2 becomes least: point-to-line registration (Chen and Medioni
/// 1992).
class NormalEquations {
 public:
  /// @param error distance of the start from the end along a normal at a place
  void add(const Point2D& normal, const Point2D& place, double error) {
    const std::array<double, 4> g = {normal.x, normal.y, normal.x * place.x + normal.y * place.y,
                                     normal.x * place.y - normal.y * place.x};
    for (std::size_t i = 0; i < 4; ++i) {
      for (std::size_t j = 0; j < 4; ++j)
        m_matrix[i][j] += g[i] * g[j];
      m_right[i] -= g[i] * error;
    }
    m_squares += error * error;
    ++m_count;
  }

  double meanSquare() const { return m_squares / m_count; }

  /// By elimination. A billionth of the trace on the diagonal keeps a circle, whose roll cannot be
  /// told, from being solved for one.
  /// @param count of the unknowns: shift, scale and, of four, roll
  std::array<double, 4> solved(std::size_t count) {
    std::array<double, 4> x{};
    double trace = 0.0;
    for (std::size_t i = 0; i < count; ++i)
      trace += m_matrix[i][i];
    for (std::size_t i = 0; i < count; ++i)
      m_matrix[i][i] += 1e-9 * trace;
    for (std::size_t i = 0; i < count; ++i) {
      for (std::size_t k = i + 1; k < count; ++k) {
        const double factor = m_matrix[k][i] / m_matrix[i][i];
        for (std::size_t j = i; j < count; ++j)
          m_matrix[k][j] -= factor * m_matrix[i][j];
        m_right[k] -= factor * m_right[i];
      }
    }
    for (std::size_t i = count; i-- > 0;) {
      double sum = m_right[i];
      for (std::size_t j = i + 1; j < count; ++j)
        sum -= m_matrix[i][j] * x[j];
      x[i] = sum / m_matrix[i][i];
    }
    return x;
  }

 private:
  std::array<std::array<double, 4>, 4> m_matrix{};
  std::array<double, 4> m_right{};
  double m_squares = 0.0;
  double m_count = 0.0;
};

struct Registration {
  Fit fit;
  double meanSquare = 0.0;
};

/// Lays two chains on each other. Coordinates are reduced to the means of the samples, so that
/// shift and roll hardly depend on each other and squares keep their digits.
class Registrar {
 public:
  Registrar(const RolledChain& start, const RolledChain& end)
      : m_startSamples(samplesOf(start)),
        m_endSamples(samplesOf(end)),
        m_startOrigin(meanOf(m_startSamples)),
        m_endOrigin(meanOf(m_endSamples)),
        m_start(start, m_startOrigin),
        m_end(end, m_endOrigin) {
    for (Point2D& p : m_startSamples)
      p = p - m_startOrigin;
    for (Point2D& p : m_endSamples)
      p = p - m_endOrigin;
  }

  /// Shift and scale alone bring both chains near; from there the roll is found without going
  /// astray.
  Registration fitted(bool isTurned, const Fit& from) const {
    Registration found{from, 0.0};
    Fit& fit = found.fit;
    for (int i = 0; i < kMostIterations; ++i) {
      NormalEquations equations = equationsAt(fit);
      const std::array<double, 4> step = equations.solved(isTurned ? 4 : 3);
      fit.shift = fit.shift + Point2D(step[0], step[1]);
      fit.scale += step[2];
      fit.roll += step[3];
      double size = 0.0;
      for (const double s : step)
        size += std::abs(s);
      if (!(size > kConverged)) break;
    }
    found.meanSquare = equationsAt(fit).meanSquare();
    return found;
  }

 private:
  NormalEquations equationsAt(const Fit& fit) const {
    const HalfFit start(fit, 0.5);
    const HalfFit end(fit, -0.5);
    NormalEquations equations;
    std::size_t nearest = 0;
    for (const Point2D& p : m_startSamples) {
      const Point2D place = start.toMean(p);
      const Foot foot = m_end.footOf(end.fromMean(place), nearest);
      equations.add(turnedTo(end.direction, foot.normal), place, foot.distance * end.scale);
    }
    nearest = 0;
    for (const Point2D& p : m_endSamples) {
      const Point2D place = end.toMean(p);
      const Foot foot = m_start.footOf(start.fromMean(place), nearest);
      equations.add(turnedTo(start.direction, foot.normal), place, -foot.distance * start.scale);
    }
    return equations;
  }

  std::vector<Point2D> m_startSamples;
  std::vector<Point2D> m_endSamples;
  Point2D m_startOrigin;
  Point2D m_endOrigin;
  FootFinder m_start;
  FootFinder m_end;
};

double fading(double value, double full, double none) {
  return std::clamp((none - value) / (none - full), 0.0, 1.0);
}

}  // namespace

/// The weight changes evenly with the inputs, so that the result does.
double rollBetween(const RolledChain& start, const RolledChain& end, double largest) {
  if (!(largest > 0.0)) return 0.0;
  const Registrar registrar(start, end);
  const Registration upright = registrar.fitted(false, Fit());
  const Registration rolled = registrar.fitted(true, upright.fit);
  const double noise = kShapeNoise * kShapeNoise;
  const double residue = std::sqrt((rolled.meanSquare + noise) / (upright.meanSquare + noise));
  const double roll = rolled.fit.roll;
  const double weight = fading(residue, kFollowedResidue, kIgnoredResidue) *
                        fading(std::abs(roll), largest, kFadedOut * largest);
  return weight > 0.0 ? weight * roll : 0.0;
}

}  // namespace Calculations
}  // namespace Ruv
