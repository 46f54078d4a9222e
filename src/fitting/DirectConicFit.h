// SPDX-License-Identifier: BSL-1.0
/// @file
/// The direct least-squares fit of an ellipse's equation.

#ifndef CALCULATIONS_FITTING_DIRECT_CONIC_FIT_H
#define CALCULATIONS_FITTING_DIRECT_CONIC_FIT_H

#include "fitting/Conic.h"
#include "fitting/PointFrame.h"
#include "fitting/PointSubset.h"

#include <optional>

namespace Ruv {
namespace Calculations {

/// The ellipse, in the coordinates of the frame, with the least sum of squared algebraic distances
/// under the constraint 4 xx yy - xy^2 = const > 0, and with xx + yy < 0. The constraint does not
/// change with the frame but for a factor, so neither does the ellipse.
///
/// Fitzgibbon, Pilu and Fisher (1999), partitioned into quadratic and linear terms by Halir and
/// Flusser (1998), which avoids their singular matrices. The scatter matrices are summed up without
/// storing a design matrix.
/// @return nothing for fewer than five points, collinear points or non-finite coordinates
std::optional<Conic> fitConic(const PointSubset& points, const PointFrame& frame);

}  // namespace Calculations
}  // namespace Ruv

#endif
