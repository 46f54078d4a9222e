// SPDX-License-Identifier: BSL-1.0
/// @file
/// Cuts scanned points into cross-sections along the axis.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_CUTTER_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_CUTTER_H

#include "tunnel_survey/SectionFile.h"

#include <Calculations/Calculations.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace TunnelSurvey {

/// Where sections lie, and how far before and behind them points count.
struct SlabRule {
  std::vector<double> stations;  ///< if empty, the multiples of the spacing
  double spacing = 5.0;
  double width = 0.5;
};

/// Takes the points of a scan one after the other. A section keeps its points as they are, up to
/// some thousand. When there are more it is thinned: the points of each cell of a square grid in
/// the section become their mean, the cells as small as they can be. However large the scan, its
/// sections thus take less than half a gigabyte.
class SectionCutter {
 public:
  explicit SectionCutter(SlabRule rule);

  /// A point goes to the nearest section if that is within half the width.
  void add(const Ruv::Calculations::AxisPoint& point);

  /// Along the stationing, numbered from 1: offset and height of the points, clockwise around the
  /// centre from its lower side. Call it once, last.
  std::vector<MeasuredSection> sections(const Ruv::Calculations::Point2D& centre);

  /// Points that belong to no section.
  std::size_t unused() const { return m_unused; }
  /// Sections so far that hold three points or more.
  std::size_t usableSections() const { return m_usable; }
  /// All of them.
  std::size_t startedSections() const { return m_slabs.size(); }
  std::size_t thinnedSections() const;
  /// Of the thinned sections (m).
  double largestCell() const;

 private:
  /// The mean of points.
  struct Mean {
    Ruv::Calculations::Point2D point;
    std::uint32_t count = 1;
  };
  struct Slab {
    std::vector<Mean> points;
    double cell = 0.0;  // 0 as long as it is not thinned
  };

  double nearestStation(double station) const;
  std::size_t mostPoints() const;
  static void thin(Slab& slab, std::size_t most);

  SlabRule m_rule;
  std::map<double, Slab> m_slabs;           // by stationing
  std::map<double, Slab>::iterator m_last;  // neighbours in a scan belong together
  std::size_t m_unused = 0;
  std::size_t m_usable = 0;
};

}  // namespace TunnelSurvey

#endif
