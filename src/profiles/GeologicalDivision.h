// SPDX-License-Identifier: BSL-1.0
/// @file
/// Divides the over profile into a geological part and the rest.

#ifndef CALCULATIONS_PROFILES_GEOLOGICAL_DIVISION_H
#define CALCULATIONS_PROFILES_GEOLOGICAL_DIVISION_H

#include <Calculations/GeologicalOverProfileMethod.h>
#include <Calculations/Paths.h>

namespace Ruv {
namespace Calculations {

/// The limits a and b as distances outside the reference.
struct GeologicalLimits {
  GeologicalOverProfileMethod::Method method;
  double outer;
  double inner;
};

/// The over profile of an excavation, divided by how far it reaches beyond a reference.
class GeologicalDivision {
 public:
  /// @param reference, excavation closed outlines
  GeologicalDivision(const Path& reference, const Path& excavation, const GeologicalLimits& limits);

  /// The band followed by what lies beyond the outer limit, not united.
  Pathes geologicalPart() const;
  /// The same area as geologicalPart, with the holes of the band as paths of negative area.
  Pathes geologicalPartWithHoles() const;
  /// What lies within the outer limit but outside reference and band.
  Pathes remainingPart() const;

 private:
  Pathes beyondLimit() const;

  Path m_reference;
  Pathes m_excavation;
  Pathes m_outerLimit;  // one outline at most
  Pathes m_band;  // near the places where the excavation passes the outer limit; with its holes
};

}  // namespace Calculations
}  // namespace Ruv

#endif
