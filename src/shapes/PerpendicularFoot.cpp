// SPDX-License-Identifier: BSL-1.0
// The foot of a point P on the axis in space C(s) = (plan, height), where s is the stationing.
//
//   t, k           tangent and curvature of the plan, positive to the right
//   g, g'          grade (a ratio) and its derivative by s
//   r, z           vector in plan and height difference from C(s) to P
//   m              scale of the placed curve, the length of its derivative in plan
//
// P lies square to the axis where the forward distance f vanishes, and f falls with s near the
// curve, as its derivative tells:
//
//   f(s)  = r.t + g z
//   f'(s) = k (r to the right of t) - m + g' z - g^2
//
// At the foot the offset is r to the right of t, and the height the component of (r, z) along the
// upward normal (-g t, 1) / sqrt(1 + g^2).

#include "shapes/PerpendicularFoot.h"

#include "shapes/FootSearch.h"
#include "shapes/Nearest.h"
#include "shapes/ShapeTolerances.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Ruv {

namespace {

/// The axis at one place, and where the point lies as seen from there.
struct CView {
  CCurvePoint plan;
  CHeightAndGrade profile;
  Point2D ray;        // in plan, from the axis to the point
  double rise = 0.0;  // from the axis to the point
  CForwardDistance forward;

  double distance() const { return std::sqrt(ray.x * ray.x + ray.y * ray.y + rise * rise); }
};

/// A stretch of the axis on which plan and profile are one curve each.
struct CStretch {
  const CHoralSegment* segment = nullptr;
  const CVeralPiece* piece = nullptr;

  /// @param length from the start of the segment
  std::optional<CView> viewFrom(double length, const Calculations::ENHPoint& point) const {
    CView view;
    const auto profile = piece->curve.at(segment->stationingStart + length);
    if (!profile) return std::nullopt;
    view.profile = *profile;
    view.plan = segment->path.at(length);
    view.ray = Point2D(point.east, point.north) - view.plan.position;
    view.rise = point.height - view.profile.height;
    const double grade = view.profile.grade;
    view.forward.value = forwardComponent(view.ray, view.plan.tangent) + grade * view.rise;
    view.forward.slope = view.plan.curvature * rightComponent(view.ray, view.plan.tangent) -
                         segment->path.scale + view.profile.gradeChange * view.rise - grade * grade;
    return view;
  }
};

/// The point in the plane square to the axis at a place that is its foot.
CSpatialFoot squareFoot(double stationing, const CView& view) {
  const double cosine = 1.0 / std::sqrt(1.0 + view.profile.grade * view.profile.grade);
  const double ahead = forwardComponent(view.ray, view.plan.tangent);
  return {stationing, rightComponent(view.ray, view.plan.tangent),
          cosine * (view.rise - view.profile.grade * ahead)};
}

/// Place of a point in the wedge at a break. The offset is that from the side which has its foot in
/// plan or, on the outer side of a corner in plan, where neither has, the distance in plan; the
/// height takes up the rest. Where one case goes over into another they agree, so rounding does not
/// choose between different places.
CSpatialFoot wedgeFoot(double stationing, const CView& before, const CView& after) {
  const Point2D& ray = after.ray;
  const double ahead = forwardComponent(ray, before.plan.tangent);
  const double behind = -forwardComponent(ray, after.plan.tangent);
  if (ahead > 0.0 && behind > 0.0) {
    const CDirection tangent = directionThrough(before.plan.tangent, after.plan.tangent);
    return {stationing, std::copysign(ray.length(), rightComponent(ray, tangent)), after.rise};
  }
  const CDirection& beside = behind > ahead ? before.plan.tangent : after.plan.tangent;
  const double rest = std::hypot(after.rise, forwardComponent(ray, beside));
  return {stationing, rightComponent(ray, beside), std::copysign(rest, after.rise)};
}

/// Part of a parabola from one end to its vertex, where the grade is 0; 0 when it does not lie
/// between the ends.
double shareToVertex(const CHeightAndGrade& first, const CHeightAndGrade& last) {
  return first.grade * last.grade < 0.0 ? first.grade / (first.grade - last.grade) : 0.0;
}

/// The largest angle (rad) by which a stretch turns on a metre, in plan and in profile together. In
/// profile it is that of a parabola at its vertex, of a circle at its steeper end.
double sharpestTurningBetween(const CView& first, const CView& last) {
  return std::max(std::abs(first.plan.curvature), std::abs(last.plan.curvature)) +
         std::max(std::abs(first.profile.gradeChange), std::abs(last.profile.gradeChange));
}

class CPerpendicularSearch {
 public:
  CPerpendicularSearch(const CAxisGeometry& axis, const Calculations::ENHPoint& point)
      : m_axis(axis), m_point(point) {}

  /// @param around one place of a list, or nothing for a point alone
  template <class... Around>
  std::optional<CSpatialFoot> nearest(Around&... around) {
    m_axis.horal.boxes().visitNear(
        Point2D(m_point.east, m_point.north), [&] { return m_nearest.reach(); },
        [&](std::size_t index) { searchSegment(index); }, around...);
    return m_nearest.chosen();
  }

 private:
  /// Searches the stretches of one segment in plan, as the pieces of the profile divide it.
  void searchSegment(std::size_t index) {
    const CHoralSegment& segment = m_axis.horal.segments()[index];
    if (!segment.isEvaluable()) return;
    m_order = static_cast<double>(index);
    const double from = std::max(segment.stationingStart, m_axis.minimumStationing);
    const double to = std::min(segment.stationingEnd, m_axis.maximumStationing);
    if (!(from < to)) return;
    CStretch before = stretchBefore(index, from);
    const std::vector<CVeralPiece>& pieces = m_axis.veral.pieces();
    for (std::size_t i = m_axis.veral.pieceAt(from); i < pieces.size(); ++i) {
      const double begin = std::max(from, pieces[i].from);
      const double end = std::min(to, pieces[i].to);
      if (!(begin < to)) break;
      if (!(begin < end)) continue;
      const CStretch stretch{&segment, &pieces[i]};
      searchBreak(before, stretch, begin);
      searchStretch(stretch, begin, end);
      before = stretch;
    }
  }

  /// The stretch that leads to the start of a segment; none at the start of the axis.
  CStretch stretchBefore(std::size_t index, double stationing) const {
    const std::vector<CHoralSegment>& segments = m_axis.horal.segments();
    while (index > 0 && segments[index - 1].isOfLengthZero()) {
      --index;
    }
    if (index == 0 || stationing <= m_axis.minimumStationing) return {};
    const CHoralSegment& segment = segments[index - 1];
    const std::size_t piece = m_axis.veral.pieceAt(stationing);
    if (!segment.isEvaluable() || piece == m_axis.veral.pieces().size()) return {};
    return {&segment, &m_axis.veral.pieces()[piece]};
  }

  /// Offers the break between two stretches when the point lies ahead of the one and behind the
  /// other, so that neither has its foot.
  void searchBreak(const CStretch& before, const CStretch& after, double stationing) {
    if (before.segment == nullptr) return;
    const auto into = before.viewFrom(stationing - before.segment->stationingStart, m_point);
    const auto outOf = after.viewFrom(stationing - after.segment->stationingStart, m_point);
    if (!into || !outOf) return;
    if (into->forward.value > 0.0 && outOf->forward.value < 0.0) {
      m_nearest.regular.offer(outOf->distance(), m_order, wedgeFoot(stationing, *into, *outOf));
    }
  }

  void searchStretch(const CStretch& stretch, double fromStationing, double toStationing) {
    const double from = fromStationing - stretch.segment->stationingStart;
    const double to = toStationing - stretch.segment->stationingStart;
    const auto first = stretch.viewFrom(from, m_point);
    const auto last = stretch.viewFrom(to, m_point);
    if (!first || !last) return;
    if (first->forward.value < 0.0) offerJustOutside(fromStationing, *first);
    if (last->forward.value > 0.0) offerJustOutside(toStationing, *last);
    std::optional<CView> seen = first;  // from the place looked at last
    const auto forwardAt = [&](double length) {
      seen = stretch.viewFrom(length, m_point);
      return seen ? seen->forward : CForwardDistance{};
    };
    const auto found = [&](double length) {
      if (!seen) return;
      const double stationing = std::min(stretch.segment->stationingStart + length, toStationing);
      m_nearest.regular.offer(seen->distance(), m_order, squareFoot(stationing, *seen));
    };
    const auto nodeAt = [&](double place) {
      return place == to ? CSearchNode{to, last->forward} : CSearchNode{place, forwardAt(place)};
    };
    const double sharpest = sharpestTurningBetween(*first, *last);
    CSearchNode node{from, first->forward};
    // At its vertex a parabola turns the sharpest, and there may be an extremum on either side.
    const double vertex = from + (to - from) * shareToVertex(first->profile, last->profile);
    if (vertex > from && vertex < to) {
      node = findFeetUpTo(vertex, sharpest, node, forwardAt, nodeAt, found);
    }
    findFeetUpTo(to, sharpest, node, forwardAt, nodeAt, found);
  }

  /// How far outside the foot lies is told by one Newton step from the end.
  void offerJustOutside(double stationing, const CView& view) {
    const double outside = std::abs(view.forward.value / view.forward.slope);
    if (!(view.forward.slope < 0.0 && outside <= kFootTolerance)) return;
    m_nearest.justOutside.offer(view.distance(), m_order, squareFoot(stationing, view));
  }

  const CAxisGeometry& m_axis;
  const Calculations::ENHPoint m_point;
  // The segment that is searched. Where two share a joint, the foot there is that of the first,
  // whichever is searched first; those on one segment are found in order.
  double m_order = 0.0;
  CNearestFoot<CSpatialFoot> m_nearest;
};

/// An axis that ends at a stationing that is not a number has no places, and so no feet.
bool isSearched(const CAxisGeometry& axis, const Calculations::ENHPoint& point) {
  return axis.isComplete && axis.minimumStationing <= axis.maximumStationing &&
         std::isfinite(point.east + point.north + point.height);
}

}  // namespace

std::optional<CSpatialFoot> perpendicularFoot(const CAxisGeometry& axis,
                                              const Calculations::ENHPoint& point) {
  if (!isSearched(axis, point)) return std::nullopt;
  return CPerpendicularSearch(axis, point).nearest();
}

std::optional<CSpatialFoot> perpendicularFoot(const CAxisGeometry& axis,
                                              const Calculations::ENHPoint& point,
                                              CBoxTree::Neighbourhood& around) {
  if (!isSearched(axis, point)) return std::nullopt;
  return CPerpendicularSearch(axis, point).nearest(around);
}

}  // namespace Ruv
