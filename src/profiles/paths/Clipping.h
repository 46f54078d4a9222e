/// @file
/// Boolean operations and offsets on the clipping library's own paths.

#ifndef CALCULATIONS_PROFILES_PATHS_CLIPPING_H
#define CALCULATIONS_PROFILES_PATHS_CLIPPING_H

#include <clipper.hpp>

namespace Ruv {
namespace Calculations {

/// Points this close (clipping units of 0.1 mm) to their neighbours or to their neighbours' line
/// are removed: just above sqrt(2), hence the diagonal neighbour too.
constexpr double kCleaningDistanceUnits = 1.415;

/// All results are free of holes. Empty when the clipping fails.
/// @{
ClipperLib::Paths intersectionOf(const ClipperLib::Paths& a, const ClipperLib::Paths& b);
ClipperLib::Paths differenceOf(const ClipperLib::Paths& a, const ClipperLib::Paths& b);
/// @param distance in clipping units
ClipperLib::Paths bandsAround(const ClipperLib::Paths& lines, ClipperLib::cInt distance);
/// @}

/// May hold holes, as the outlines may.
/// @param distance in clipping units
ClipperLib::Paths offsetOutlines(const ClipperLib::Paths& outlines, ClipperLib::cInt distance);

/// The parts of open lines inside an area, as the clipper gives them.
ClipperLib::Paths linesInside(const ClipperLib::Paths& lines, const ClipperLib::Paths& area);

}  // namespace Calculations
}  // namespace Ruv

#endif
