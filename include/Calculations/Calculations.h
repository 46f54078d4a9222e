// SPDX-License-Identifier: BSL-1.0
/// @file
/// Includes every public header.

#ifndef CALCULATIONS_CALCULATIONS_H
#define CALCULATIONS_CALCULATIONS_H

#include <Calculations/AxisCalculator.h>
#include <Calculations/AxisDefinition.h>
#include <Calculations/AxisMapper.h>
#include <Calculations/BlockAxisDefinition.h>
#include <Calculations/ClipperLib.h>
#include <Calculations/Export.h>
#include <Calculations/FittingHelper.h>
#include <Calculations/FittingResult.h>
#include <Calculations/GeologicalOverProfileMethod.h>
#include <Calculations/GuidanceCalculator.h>
#include <Calculations/GuidanceVectorDefinition.h>
#include <Calculations/MeasuredProfile.h>
#include <Calculations/MeasuredProfileCalculator.h>
#include <Calculations/PathHelper.h>
#include <Calculations/Paths.h>
#include <Calculations/PointDetermination.h>
#include <Calculations/PointLists.h>
#include <Calculations/Points.h>
#include <Calculations/ProfilePointResult.h>
#include <Calculations/Resection.h>
#include <Calculations/ShapeElements.h>
#include <Calculations/StationPlacement.h>
#include <Calculations/ThProfileCalculator.h>
#include <Calculations/ThProfileDefinition.h>
#include <Calculations/ThProfileMorpher.h>
#include <Calculations/TransitionCurves.h>
#include <Calculations/Utilities.h>

#include <boost/shared_ptr.hpp>

#endif
