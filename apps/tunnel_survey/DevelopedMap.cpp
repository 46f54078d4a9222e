// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/DevelopedMap.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace TunnelSurvey {

namespace {

constexpr double kNothing = std::numeric_limits<double>::quiet_NaN();
constexpr double kWidestGap = 3.0;  // in usual gaps

double median(std::vector<double> values) {
  if (values.empty()) return 0.0;
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// Sorted by derolment, and the first and the last repeated beyond the other end.
std::vector<Deviation> aroundProfile(std::vector<Deviation> deviations, double circumference) {
  std::sort(deviations.begin(), deviations.end(),
            [](const Deviation& a, const Deviation& b) { return a.derolment < b.derolment; });
  if (deviations.empty()) return deviations;
  Deviation before = deviations.back();
  Deviation after = deviations.front();
  before.derolment -= circumference;
  after.derolment += circumference;
  deviations.insert(deviations.begin(), before);
  deviations.push_back(after);
  return deviations;
}

double widestGapOf(const std::vector<Deviation>& deviations) {
  std::vector<double> gaps;
  for (std::size_t i = 1; i < deviations.size(); ++i) {
    gaps.push_back(deviations[i].derolment - deviations[i - 1].derolment);
  }
  return kWidestGap * median(gaps);
}

std::vector<double> distancesAt(const std::vector<double>& derolments,
                                const std::vector<Deviation>& deviations) {
  const double widestGap = widestGapOf(deviations);
  std::vector<double> distances;
  distances.reserve(derolments.size());
  for (const double derolment : derolments) {
    const auto above = std::upper_bound(
        deviations.begin(), deviations.end(), derolment,
        [](double value, const Deviation& deviation) { return value < deviation.derolment; });
    if (above == deviations.begin() || above == deviations.end()) {
      distances.push_back(kNothing);
      continue;
    }
    const Deviation& a = *(above - 1);
    const double gap = above->derolment - a.derolment;
    const double share = (derolment - a.derolment) / gap;
    const bool isNear = gap <= widestGap;
    distances.push_back(isNear ? a.distance + share * (above->distance - a.distance) : kNothing);
  }
  return distances;
}

std::vector<double> between(const std::vector<double>& a, const std::vector<double>& b,
                            double share) {
  std::vector<double> values;
  values.reserve(a.size());
  for (std::size_t i = 0; i < a.size(); ++i) {
    values.push_back(a[i] + share * (b[i] - a[i]));
  }
  return values;
}

}  // namespace

DevelopedMap::DevelopedMap(const SectionSurvey& survey)
    : m_circumference(survey.design.circumference()) {
  for (const SectionResult& result : survey.results) {
    m_positions.push_back(result.section.station.value_or(static_cast<double>(m_sections.size())));
    m_sections.push_back(aroundProfile(result.deviations, m_circumference));
  }
}

std::vector<std::vector<double>> DevelopedMap::columnsAt(
    const std::vector<double>& positions, const std::vector<double>& derolments) const {
  std::vector<std::vector<double>> measured;
  for (const std::vector<Deviation>& section : m_sections) {
    measured.push_back(distancesAt(derolments, section));
  }
  std::vector<double> gaps;
  for (std::size_t i = 1; i < m_positions.size(); ++i) {
    gaps.push_back(m_positions[i] - m_positions[i - 1]);
  }
  const double widestGap = kWidestGap * median(gaps);
  const std::vector<double> nothing(derolments.size(), kNothing);
  std::vector<std::vector<double>> columns;
  for (const double position : positions) {
    const auto above = std::upper_bound(m_positions.begin(), m_positions.end(), position);
    const auto i = static_cast<std::size_t>(above - m_positions.begin());
    if (i == 0 || i == m_positions.size() || !(gaps[i - 1] <= widestGap)) {
      columns.push_back(nothing);
    } else {
      const double share = (position - m_positions[i - 1]) / gaps[i - 1];
      columns.push_back(between(measured[i - 1], measured[i], share));
    }
  }
  return columns;
}

}  // namespace TunnelSurvey
