// SPDX-License-Identifier: BSL-1.0
// The rule of the walk is turned into pieces by claims: the points are visited in their order, and
// each curve claims the stationings up to its last one that no earlier curve has claimed. As every
// claim begins where the claims so far end, the pieces come out in ascending order, and the first
// piece whose last stationing is not less than a given one is the curve that the walk would find.

#include "shapes/VeralAlignment.h"

#include "foundation/MathConstants.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace Ruv {

namespace {

/// False from a curve without height on: lengths beyond it are unknown.
bool hasLength(const CVeralPiece& piece) {
  return std::isfinite(piece.lengthBefore + piece.curve.lengthBetween(piece.from, piece.to));
}

/// The next smaller double: the end of a stretch that lacks its last stationing.
double justBelow(double value) {
  return std::nextafter(value, -std::numeric_limits<double>::infinity());
}

/// Gives every stationing to the first curve that asks for it.
class CPieceClaims {
 public:
  explicit CPieceClaims(const std::vector<CVeralPoint>& points)
      : m_points(points),
        m_first(points.front().stationing),
        m_last(points.back().stationing),
        m_claimedTo(justBelow(m_first)) {
    // A point brings two pieces at most: what its rounding leaves of the line into it, and the
    // rounding.
    m_pieces.reserve(2 * points.size());
    m_lastStationings.reserve(2 * points.size());
    for (std::size_t i = 1; i < points.size(); ++i) {
      if (hasRoundingType(points[i]) && i + 1 < points.size()) {
        const CRoundingResult result = roundingOf(points[i - 1], points[i], points[i + 1]);
        // Nothing behind a rounding that cannot be computed has a height, so the claims end.
        if (!result.isComputable) return;
        if (result.rounding) claimAround(i, *result.rounding);
      }
      claimLineTo(i, points[i].stationing, points[i].stationing);
    }
  }

  std::vector<CVeralPiece> takePieces() { return std::move(m_pieces); }
  /// The greatest stationing that each piece holds.
  std::vector<double> takeLastStationings() { return std::move(m_lastStationings); }

 private:
  /// What the line into the point still holds before the rounding begins, then the rounding, which
  /// has both of its tangent points.
  void claimAround(std::size_t index, const CRounding& rounding) {
    claimLineTo(index, rounding.from, justBelow(rounding.from));
    claim(rounding.from, rounding.to, rounding.to, rounding.curve);
  }

  void claimLineTo(std::size_t index, double to, double lastStationing) {
    const CVeralPoint& before = m_points[index - 1];
    claim(before.stationing, to, lastStationing, lineBetween(before, m_points[index]));
  }

  /// Everything from the last claimed stationing to lastStationing.
  void claim(double from, double to, double lastStationing, const CVerticalCurve& curve) {
    if (!(lastStationing > m_claimedTo)) return;
    CVeralPiece piece;
    piece.from = std::max(std::max(from, m_claimedTo), m_first);
    piece.to = std::min(to, m_last);
    piece.curve = curve;
    if (!m_pieces.empty()) {
      const CVeralPiece& before = m_pieces.back();
      piece.lengthBefore = before.lengthBefore + before.curve.lengthBetween(before.from, before.to);
    }
    m_pieces.push_back(piece);
    m_lastStationings.push_back(lastStationing);
    m_claimedTo = lastStationing;
  }

  const std::vector<CVeralPoint>& m_points;
  double m_first;
  double m_last;
  double m_claimedTo;  // every stationing up to here has its piece
  std::vector<CVeralPiece> m_pieces;
  std::vector<double> m_lastStationings;
};

}  // namespace

CVeralAlignment::CVeralAlignment(const std::vector<CVeralPoint>& points) {
  if (points.size() < 2) return;
  m_first = points.front().stationing;
  m_last = points.back().stationing;
  CPieceClaims claims(points);
  m_pieces = claims.takePieces();
  std::vector<double> lastStationings = claims.takeLastStationings();
  while (m_numWithLength < m_pieces.size() && hasLength(m_pieces[m_numWithLength])) {
    m_lastWithLength = lastStationings[m_numWithLength++];
  }
  m_index = CStationingIndex(m_first, std::move(lastStationings));
}

std::size_t CVeralAlignment::pieceAt(double stationing) const {
  if (!(stationing >= m_first && stationing <= m_last)) return m_pieces.size();
  return m_index.firstNotLess(stationing);
}

std::optional<CHeightAndGrade> CVeralAlignment::at(double stationing) const {
  const std::size_t index = pieceAt(stationing);
  if (index == m_pieces.size()) return std::nullopt;
  return m_pieces[index].curve.at(stationing);
}

/// The lengths of all pieces before, and of the own piece as far as the stationing. Beyond the
/// points the axis goes on level, so a metre of stationing is a metre of length.
double CVeralAlignment::lengthAt(double stationing) const {
  if (m_pieces.empty()) return kNotANumber;
  if (stationing < m_first) return stationing - m_first;
  const double inside = std::min(stationing, m_last);
  const std::size_t index = pieceAt(inside);
  if (index == m_pieces.size()) return kNotANumber;
  const CVeralPiece& piece = m_pieces[index];
  return piece.lengthBefore + piece.curve.lengthBetween(piece.from, inside) + (stationing - inside);
}

/// Outside the points the axis goes on level, as for lengthAt.
double CVeralAlignment::stationingAtLength(double length) const {
  if (m_numWithLength == 0) return kNotANumber;
  if (length < 0.0) return m_first + length;
  const double whole = lengthAt(m_last);
  if (length > whole) return m_last + (length - whole);
  // Lengths grow from piece to piece; the one before the first that begins beyond the length holds
  // it.
  const auto beyond = std::upper_bound(
      m_pieces.begin(), m_pieces.begin() + static_cast<std::ptrdiff_t>(m_numWithLength), length,
      [](double value, const CVeralPiece& piece) { return value < piece.lengthBefore; });
  const CVeralPiece& piece = beyond == m_pieces.begin() ? m_pieces.front() : *(beyond - 1);
  return piece.curve.stationingBeyond(piece.from, piece.to, length - piece.lengthBefore);
}

std::optional<CRounding> CVeralAlignment::roundingAt(const std::vector<CVeralPoint>& points,
                                                     std::size_t index) {
  const bool isInner = index > 0 && index + 1 < points.size();
  if (!isInner || !hasRoundingType(points[index])) return std::nullopt;
  return roundingOf(points[index - 1], points[index], points[index + 1]).rounding;
}

}  // namespace Ruv
