/// @file
/// Parts of the section plane that a comparison leaves out.

#ifndef CALCULATIONS_PROFILES_PROFILE_FILTERS_H
#define CALCULATIONS_PROFILES_PROFILE_FILTERS_H

#include <Calculations/Paths.h>
#include <Calculations/Points.h>

#include <map>
#include <vector>

namespace Ruv {
namespace Calculations {

enum class LineFilter { ExcludeAbove = 1, ExcludeBelow = 2, ExcludeLeftOf = 3, ExcludeRightOf = 4 };

/// The filters that are set, and the area that they allow.
class ProfileFilters {
 public:
  void set(LineFilter kind, double limit);
  void addAngles(double startAngle, double endAngle, const Point2D& centre);
  void reset();

  bool areSet() const { return !m_limits.empty() || !m_angles.empty(); }
  /// Worked out when a filter is set, not once for each point that is asked for. A rectangle with
  /// the excluded wedges in it, which the even-odd rule takes out.
  const Pathes& allowedArea() const { return m_allowedArea; }
  bool excludes(const Point2D& p) const;

 private:
  struct AngleFilter {
    double startAngle = 0.0;
    double endAngle = 0.0;
    Point2D centre;
  };

  void update();
  double limitOf(LineFilter kind, double unset) const;
  Path allowedRectangle() const;
  static Path wedgeOf(const AngleFilter& filter);

  std::map<LineFilter, double> m_limits;
  std::vector<AngleFilter> m_angles;
  Path m_rectangle;
  Pathes m_wedges;  // within the rectangle, without overlaps
  Pathes m_allowedArea;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
