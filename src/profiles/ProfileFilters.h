// SPDX-License-Identifier: BSL-1.0
/// @file
/// Parts of the section plane that a comparison leaves out.

#ifndef CALCULATIONS_PROFILES_PROFILE_FILTERS_H
#define CALCULATIONS_PROFILES_PROFILE_FILTERS_H

#include <Calculations/Paths.h>
#include <Calculations/Points.h>

#include <map>
#include <memory>
#include <vector>

namespace Ruv {
namespace Calculations {

enum class LineFilter { ExcludeAbove = 1, ExcludeBelow = 2, ExcludeLeftOf = 3, ExcludeRightOf = 4 };

/// The filters that are set, and the area that they allow. A filter that cannot be set for want of
/// memory leaves the others as they are.
class ProfileFilters {
 public:
  /// Replaces the limit of this kind; one that is not a number removes it.
  void set(LineFilter kind, double limit);
  /// Has no effect unless all values are finite.
  void addAngles(double startAngle, double endAngle, const Point2D& centre);
  void reset() { m_set.reset(); }

  bool areSet() const { return m_set != nullptr; }
  /// Worked out when a filter is set, not once for each point that is asked for. A rectangle with
  /// the excluded wedges in it, which the even-odd rule takes out. To be asked only while filters
  /// are set.
  const Pathes& allowedArea() const { return m_set->allowedArea; }
  bool excludes(const Point2D& p) const;

 private:
  struct AngleFilter {
    double startAngle = 0.0;
    double endAngle = 0.0;
    Point2D centre;
  };
  using Limits = std::map<LineFilter, double>;
  using Angles = std::vector<AngleFilter>;

  /// The filters with what is derived from them.
  struct Set {
    Set(Limits limitsSet, Angles anglesSet);

    Limits limits;
    Angles angles;
    Path rectangle;
    Pathes wedges;  // within the rectangle, without overlaps
    Pathes allowedArea;
  };

  void set(Limits limits, Angles angles);
  static Path rectangleOf(const Limits& limits);
  static Path wedgeOf(const AngleFilter& filter);
  static Pathes wedgesWithin(const Path& rectangle, const Angles& angles);
  static Pathes without(const Path& rectangle, const Pathes& wedges);

  std::unique_ptr<const Set> m_set;  // null without filters
};

}  // namespace Calculations
}  // namespace Ruv

#endif
