// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/Stationing.h"

#include "common/exchange/NumberParsing.h"
#include "common/exchange/VisibleText.h"

#include "common/drawing/NumberText.h"

#include <cstddef>
#include <limits>
#include <utility>

namespace Exchange {

namespace {

/// A station that a table prints to the millimetre still belongs to the equation that it is at.
constexpr double kSamePlace = 0.001;

}  // namespace

Stationing::Stationing(std::vector<StationEquation> equations)
    : m_equations(std::move(equations)) {}

/// How many equations lie before a place.
std::size_t Stationing::regionOf(double place) const {
  std::size_t region = 0;
  while (region < m_equations.size() && place > m_equations[region].place)
    ++region;
  return region;
}

double Stationing::stationAt(double place) const {
  const std::size_t region = regionOf(place);
  if (region == 0) return place;
  const StationEquation& equation = m_equations[region - 1];
  return equation.ahead + (place - equation.place);
}

std::string Stationing::text(double place, int decimals) const {
  return Drawing::stationText(stationAt(place), decimals) + (regionOf(place) > 0 ? " ahead" : "");
}

std::string Stationing::metresText(double place, int decimals) const {
  return Drawing::fixed(stationAt(place), decimals) + (regionOf(place) > 0 ? " ahead" : "");
}

/// In ascending order.
std::vector<double> Stationing::placesOf(double station) const {
  std::vector<double> places;
  for (std::size_t region = 0; region <= m_equations.size(); ++region) {
    const bool isFirst = region == 0;
    const double start =
        isFirst ? -std::numeric_limits<double>::infinity() : m_equations[region - 1].place;
    const double end = region == m_equations.size() ? std::numeric_limits<double>::infinity()
                                                    : m_equations[region].place;
    const double place =
        isFirst ? station
                : m_equations[region - 1].place + (station - m_equations[region - 1].ahead);
    if (place >= start - kSamePlace && place <= end + kSamePlace) places.push_back(place);
  }
  return places;
}

Outcome<double> Stationing::placeOf(double station) const {
  const std::vector<double> places = placesOf(station);
  const std::string name = Drawing::stationText(station, 3);
  if (places.empty()) {
    return Outcome<double>::failure({0, "station " + name + " is none of this axis"});
  }
  if (places.size() > 1 && places.back() - places.front() > kSamePlace) {
    return Outcome<double>::failure({0, "station " + name + " is there more than once: say " +
                                            name + " back or " + name + " ahead"});
  }
  return Outcome<double>::success(places.front());
}

Outcome<double> Stationing::placeOf(const std::string& text) const {
  const std::vector<std::string> words = wordsOf(text);
  const bool isQualified = words.size() == 2 && (words[1] == "ahead" || words[1] == "back");
  const auto station = words.empty() ? std::nullopt : parseStation(words[0]);
  if (!station || (words.size() > 1 && !isQualified)) {
    return Outcome<double>::failure(
        {0, inQuotes(text) + " is no station; write 7320.5, 7+320.5, 7+320 back or 7+320 ahead"});
  }
  if (!isQualified) return placeOf(*station);
  const std::vector<double> places = placesOf(*station);
  const bool isAhead = words[1] == "ahead";
  const double place = places.empty() ? 0.0 : isAhead ? places.back() : places.front();
  const bool isThere =
      !places.empty() && (isAhead ? !m_equations.empty() && place >= m_equations[0].place
                                  : m_equations.empty() || place <= m_equations.back().place);
  if (!isThere) return Outcome<double>::failure({0, inQuotes(text) + " is none of this axis"});
  return Outcome<double>::success(place);
}

}  // namespace Exchange
