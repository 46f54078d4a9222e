// SPDX-License-Identifier: BSL-1.0
/// @file
/// What a MeasuredProfileCalculator holds.

#ifndef CALCULATIONS_PROFILES_MEASURED_PROFILE_CALCULATOR_IMPL_H
#define CALCULATIONS_PROFILES_MEASURED_PROFILE_CALCULATOR_IMPL_H

#include "profiles/GeologicalDivision.h"
#include "profiles/KeptOfProfile.h"
#include "profiles/ProfileFilters.h"
#include "profiles/ProfileOutline.h"
#include "profiles/ReferenceCalculator.h"

#include <Calculations/MeasuredProfile.h>
#include <Calculations/PointLists.h>

#include <boost/shared_ptr.hpp>

#include <vector>

namespace Ruv {
namespace Calculations {

class MeasuredProfileCalculatorImpl {
 public:
  boost::shared_ptr<const IProfileSegmentProvider> reference;
  boost::shared_ptr<const MeasuredProfile> comparison;
  ProfileFilters filters;

  const ThProfileCalculator& calculator() { return m_calculator.of(*reference).calculator(); }

  /// The finite start points of all segments that no filter excludes.
  std::vector<Point2D> keptPoints(const IProfileSegmentProvider& profile) const;
  std::vector<Point2D> cutAtUpOffset(const IProfileSegmentProvider& profile, double up) const;
  std::vector<Point2D> cutAtRightOffset(const IProfileSegmentProvider& profile, double right) const;
  double circumferenceOf(const IProfileSegmentProvider& profile) const;
  std::vector<Polyline> linesOf(const IProfileSegmentProvider& profile, bool clean) const;

  const Path& referenceOutline();
  const Path& comparisonOutline() { return m_comparisonOutline.of(*comparison).path(); }
  double areaOf(const Path& outline) const;
  /// @name Areas that no filter excludes
  /// @{
  Pathes overProfile();
  Pathes underProfile();
  double overArea() { return differenceArea(comparisonOutline(), referenceOutline()); }
  double underArea() { return differenceArea(referenceOutline(), comparisonOutline()); }
  Pathes geologicalPart(const GeologicalDivision& division) const;
  double geologicalArea(const GeologicalDivision& division) const;
  Pathes remainingPart(const GeologicalDivision& division) const;
  /// @}
  GeologicalDivision division(const GeologicalLimits& limits);

 private:
  double differenceArea(const Path& whole, const Path& taken) const;
  /// Works in place, as areas of many outlines are slow to copy.
  void filter(Pathes& area) const;

  KeptOfProfile<ReferenceCalculator> m_calculator;
  KeptOfProfile<CleanOutline> m_referenceOutline;
  KeptOfProfile<CleanOutline> m_comparisonOutline;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
