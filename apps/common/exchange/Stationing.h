// SPDX-License-Identifier: BSL-1.0
/// @file
/// Stations as people read them, where they jump along an axis.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_STATIONING_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_STATIONING_H

#include "common/exchange/Outcome.h"

#include <string>
#include <vector>

namespace Exchange {

/// At a place of an axis its stations jump, for instance where a detour was built later.
struct StationEquation {
  double place = 0.0;  ///< continuous stationing
  double ahead = 0.0;  ///< the station that counts on from there
};

/// The library's stationing is continuous: the first station plus the length along the axis. The
/// stations that people read are the same, until an equation sets them anew.
class Stationing {
 public:
  Stationing() = default;
  /// @param equations in ascending places
  explicit Stationing(std::vector<StationEquation> equations);

  bool hasEquations() const { return !m_equations.empty(); }
  const std::vector<StationEquation>& equations() const { return m_equations; }

  /// The station that people read at a place; at an equation itself, the one before it.
  double stationAt(double place) const;

  /// "7+320.000", and beyond an equation "7+320.000 ahead".
  std::string text(double place, int decimals) const;
  /// The same as plain metres: "7320.000", "7320.000 ahead".
  std::string metresText(double place, int decimals) const;

  /// The place of "7+320", "7320.5", "7+320 ahead" or "7+320 back". A station that there is twice
  /// needs one of these words: back means before the first equation that it fits, ahead behind the
  /// last.
  Outcome<double> placeOf(const std::string& text) const;
  /// The same for a number of a table.
  Outcome<double> placeOf(double station) const;

 private:
  std::vector<double> placesOf(double station) const;
  std::size_t regionOf(double place) const;

  std::vector<StationEquation> m_equations;
};

}  // namespace Exchange

#endif
