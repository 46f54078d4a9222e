// SPDX-License-Identifier: BSL-1.0
/// @file
/// A block of an axis, straightened to its chord.

#ifndef CALCULATIONS_BLOCK_AXIS_DEFINITION_H
#define CALCULATIONS_BLOCK_AXIS_DEFINITION_H

#include <Calculations/AxisDefinition.h>
#include <Calculations/Export.h>

#include <boost/shared_ptr.hpp>

#include <memory>

namespace Ruv {
namespace Calculations {

class BlockAxisDefinitionImpl;

/// One block of a reference axis, between two of its stationings, with an axis of its own: the
/// straight chord in space between the block's end points.
///
/// The block axis keeps the stationing of its start and reaches 2 m beyond each end. Its
/// transverse slope changes linearly between the values of the reference axis at both ends, and
/// its tunnel meter continues that of the reference axis. A block of a shaft is a shaft.
///
/// Conventions: metres; Stng2d is a stationing, in plan, Stng3d a tunnel meter, in space.
/// Failure: never throws. Where the reference axis cannot be evaluated the values concerned are 0:
///   a block that reaches beyond its reference axis leads to the grid point (0, 0, 0), and its
///   axis with it. So check both stationings against the range of the reference axis first.
///   An untyped or null reference axis leaves the block without axis (a null pointer).
/// Cost: a few conversions by AxisCalculator to construct, at most as many a question.
/// Lifetime: immutable after construction, shareable between threads, not copyable.
/// @snippet snippets/Axes.cpp BlockAxisDefinition
class CALCULATIONS_EXPORT BlockAxisDefinition {
 public:
  /// Makes a block from one stationing of the reference axis to another.
  BlockAxisDefinition(const boost::shared_ptr<const AxisDefinition>& referenceAxis,
                      double blockStartStng2d, double blockEndStng2dOnRefAxis);
  BlockAxisDefinition(const BlockAxisDefinition&) = delete;
  BlockAxisDefinition& operator=(const BlockAxisDefinition&) = delete;
  virtual ~BlockAxisDefinition();

  /// The start stationing that was given.
  double blockStartStng2d() const;
  /// The end stationing that was given, on the reference axis.
  double blockEndStng2dOnRefAxis() const;
  /// Plan length of the chord; on a shaft the height difference.
  double blockLength2d() const;
  /// End stationing on the block axis: start + plan length of the chord.
  double blockEndStng2d() const;

  /// Tunnel meter of the reference axis at the start; where it has none, the start stationing.
  double blockStartStng3d() const;
  /// Length of the chord in space.
  double blockLength3d() const;
  /// Tunnel meter at the end: start + length of the chord in space.
  double blockEndStng3d() const;

  /// The block's own axis.
  boost::shared_ptr<const AxisDefinition> asAxisDefinition() const;

 private:
  std::unique_ptr<BlockAxisDefinitionImpl> m_impl;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
