// SPDX-License-Identifier: BSL-1.0
/// @file
/// Conversion between axis coordinates and grid coordinates.

#ifndef CALCULATIONS_SHAPES_AXIS_CONVERSION_H
#define CALCULATIONS_SHAPES_AXIS_CONVERSION_H

#include "shapes/ShapeContainer.h"

#include <Calculations/Points.h>

#include <cstddef>
#include <optional>

namespace Ruv {

/// The plane in which offset and height are measured.
enum class CProfilePlane {
  Vertical,      ///< square to the axis in plan: offset horizontal, height vertical
  Perpendicular  ///< square to the axis in space
};

/// Which transverse slope turns offset and height about the axis.
enum class CTransSlopeMode { OfAxis = 0, Ignored = 1, Given = 2 };

/// What a conversion measures and how.
///
/// AxisCalculator chooses the plane and between the transverse slope of the axis and none, and
/// always measures heights along the plumb line. The other choices, heights square to the grade and
/// a slope given by hand, belong to the conversion as the element library has it, so the kernel
/// offers them and a test compares them with a hand-worked case.
struct CConversionOptions {
  CProfilePlane plane = CProfilePlane::Vertical;
  /// In the vertical plane, whether heights run along the plumb line or square to the grade.
  bool heightAlongPlumbLine = true;
  CTransSlopeMode transSlopeMode = CTransSlopeMode::OfAxis;
  double givenTransSlope = 0.0;  ///< percent
};

/// The grid point of an axis point. Nothing outside the stationing range of the axis, on an
/// incomplete axis, or where plan or profile cannot be evaluated. O(log n).
std::optional<Calculations::ENHPoint> axisToGrid(const CAxisGeometry& axis,
                                                 const Calculations::AxisPoint& point,
                                                 const CConversionOptions& options);

/// Direction and slopes of the axis itself at one stationing.
struct CAxisProperties {
  double azimuth = 0.0;
  double radius = 0.0;
  double gradePercent = 0.0;
  double transSlopePercent = 0.0;
};

/// The properties at a stationing; nothing where axisToGrid gives nothing. O(log n).
std::optional<CAxisProperties> axisPropertiesAt(const CAxisGeometry& axis, double stationing);

/// The inverse of axisToGrid. Nothing also when the point has no foot on the axis. A stationing
/// found outside the range by no more than kFootTolerance becomes its limit. O(log n) for points
/// near the axis.
std::optional<Calculations::AxisPoint> gridToAxis(const CAxisGeometry& axis,
                                                  const Calculations::ENHPoint& point,
                                                  const CConversionOptions& options);

/// The same, to the bit, for the points of a list, faster where they follow each other closely.
/// Returns how many were found; out is written for these alone.
/// @param out may be the memory of the points
/// @param found tells of each point, unless it is null
std::size_t gridToAxis(const CAxisGeometry& axis, const Calculations::ENHPoint* points,
                       std::size_t count, const CConversionOptions& options,
                       Calculations::AxisPoint* out, bool* found);

/// Ties the tunnel meter, the length in space along the axis, to the stationing.
struct CStationingMapping {
  double origin2d = 0.0;         ///< a stationing
  double value3dAtOrigin = 0.0;  ///< the tunnel meter there
};

/// Tunnel meter at a stationing; nothing on an incomplete axis or where its height is undefined.
std::optional<double> tunnelMeterAt(const CAxisGeometry& axis, const CStationingMapping& mapping,
                                    double stationing);

/// Stationing at a tunnel meter. Nothing outside the axis; a value outside by no more than the
/// rounding of tunnelMeterAt becomes its limit.
std::optional<double> stationingAt(const CAxisGeometry& axis, const CStationingMapping& mapping,
                                   double tunnelMeter);

}  // namespace Ruv

#endif
