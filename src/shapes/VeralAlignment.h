// SPDX-License-Identifier: BSL-1.0
/// @file
/// The vertical alignment, prepared for evaluation and for lengths in space.

#ifndef CALCULATIONS_SHAPES_VERAL_ALIGNMENT_H
#define CALCULATIONS_SHAPES_VERAL_ALIGNMENT_H

#include "foundation/MathConstants.h"
#include "shapes/StationingIndex.h"
#include "shapes/VerticalCurve.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace Ruv {

/// A stretch of stationings on which one curve gives the height. The curve, which is all that a
/// height takes, lies in one line of the cache.
struct alignas(64) CVeralPiece {
  CVerticalCurve curve;
  double from = 0.0;
  double to = 0.0;
  double lengthBefore = 0.0;  ///< length in space from the start of the alignment to from
};

/// An immutable vertical alignment ("Veral", the heights of an axis over its plan length).
///
/// The order of the points decides which curve holds where several could: for each point in turn
/// its rounding comes first, then the line that leads to it. So a kink takes the grade of the line
/// into it, the earlier of two overlapping roundings wins, and a rounding that cannot be computed
/// fails every stationing that no earlier curve holds. The pieces are the outcome of this rule for
/// all stationings at once.
class CVeralAlignment {
 public:
  CVeralAlignment() = default;
  explicit CVeralAlignment(const std::vector<CVeralPoint>& points);

  /// Height and grade at a stationing. Nothing outside the points, with fewer than two of them, or
  /// where the evaluation fails. O(log n).
  std::optional<CHeightAndGrade> at(double stationing) const;
  /// The same for the stationings of a list: faster on the piece of the stationing before, whose
  /// index is kept.
  std::optional<CHeightAndGrade> at(double stationing, std::size_t& piece) const {
    if (!(stationing >= m_first && stationing <= m_last)) return std::nullopt;
    piece = m_index.firstNotLess(stationing, piece);
    if (piece == m_index.size()) return std::nullopt;
    return m_pieces[piece].curve.at(stationing);
  }

  /// Length in space from the first point to a stationing. Outside the points it grows by 1 per
  /// metre of stationing. Not-a-number beyond a place where the height is undefined. O(log n).
  double lengthAt(double stationing) const;
  /// The last stationing of the alignment up to which lengthAt gives a number; not-a-number when
  /// there is none.
  double lastStationingWithLength() const { return m_lastWithLength; }
  /// The inverse of lengthAt for the lengths that it gives.
  double stationingAtLength(double length) const;

  const std::vector<CVeralPiece>& pieces() const { return m_pieces; }
  /// Index of the piece that gives the height at a stationing; pieces().size() if none does.
  std::size_t pieceAt(double stationing) const;

  /// The rounded or unrounded curve around one point as drawn: the rounding, if there is one.
  static std::optional<CRounding> roundingAt(const std::vector<CVeralPoint>& points,
                                             std::size_t index);

 private:
  double m_first = 0.0;
  double m_last = 0.0;
  double m_lastWithLength = kNotANumber;
  std::size_t m_numWithLength = 0;  // number of pieces, from the first on, that have a length
  std::vector<CVeralPiece> m_pieces;
  CStationingIndex m_index;  // finds a piece by the greatest stationing that it holds
};

}  // namespace Ruv

#endif
