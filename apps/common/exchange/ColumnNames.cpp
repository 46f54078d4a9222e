// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/ColumnNames.h"

#include "common/exchange/NumberParsing.h"
#include "common/exchange/VisibleText.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace Exchange {

namespace {

using Names = std::set<std::string, std::less<>>;

/// What a column is called. Weak names count when no heading has a proper one.
struct Synonyms {
  Names proper;
  Names weak;
};

/// In plain names. The names of one schema must not overlap.
const std::map<std::string, Synonyms, std::less<>>& synonyms() {
  static const std::map<std::string, Synonyms, std::less<>> table = {
      {"id",
       {{"id",        "point",       "pointid",     "pointno",     "pointnr",
         "pointname", "pointnumber", "pt",          "ptid",        "ptno",
         "ptnr",      "pid",         "p",           "punkt",       "punktid",
         "punktnr",   "punktnummer", "punktname",   "pkt",         "pktnr",
         "pktid",     "pktname",     "ziel",        "zielpunkt",   "target",
         "targetid",  "messung",     "measurement", "bezeichnung", "label",
         "ident",     "identifier",  "zielnr",      "zielpunktnr", "punktbezeichnung"},
        {"name", "nr", "no", "number", "nummer", "num"}}},
      {"east",
       {{"east",        "easting",        "eastings",    "e",
         "ost",         "ostwert",        "rechtswert",  "rechts",
         "rw",          "eastcoordinate", "ecoordinate", "ecoord",
         "ekoordinate", "koordinateost",  "utme",        "yeast",
         "yost",        "yrechtswert",    "xeast",       "gridy",
         "ylocal"},
        {}}},
      {"north",
       {{"north", "northing", "northings", "n", "nord", "nordwert", "hochwert", "hoch", "hw",
         "northcoordinate", "ncoordinate", "ncoord", "nkoordinate", "koordinatenord", "utmn",
         "xnorth", "xnord", "xhochwert", "ynorth"},
        {}}},
      {"height",
       {{"height",
         "h",
         "z",
         "elevation",
         "elev",
         "hoehe",
         "hohe",
         "hoeheuenn",
         "hoehenn",
         "hoehenhn",
         "hoehenormalnull",
         "kote",
         "altitude",
         "alt",
         "orthoheight",
         "orthometricheight",
         "rl",
         "reducedlevel",
         "zkoordinate",
         "zcoordinate",
         "level"},
        {"el"}}},
      {"x",
       {{"x", "xcoordinate", "xkoordinate", "xlocal"},
        {"offset", "abstand", "ablage", "querabstand", "achsabstand", "rechtsabstand"}}},
      {"y",
       {{"y", "ycoordinate", "ykoordinate", "ylocal"},
        {"height", "hoehe", "hohe", "h", "z", "elevation"}}},
      {"ring", {{"ring", "ringid", "ringno", "ringnr", "ringnumber", "ringnummer"}, {}}},
      {"section",
       {{"section", "sectionid", "sectionno", "sectionname", "crosssection", "profil", "profile",
         "profilnr", "profilname", "querprofil", "querprofilnr", "querschnitt", "schnitt"},
        {"name", "id", "nr", "no"}}},
      {"station",
       {{"station", "stationing", "stationierung", "stationm", "chainage", "ch", "sta", "stat",
         "kilometrierung", "achsstation"},
        {}}},
      {"offset",
       {{"offset", "off", "abstand", "ablage", "querabstand", "achsabstand", "offsetright"}, {}}},
      {"height_above_axis",
       {{"heightaboveaxis", "aboveaxis", "hoeheueberachse", "hoehenabstand", "dh", "dz"}, {}}},
      {"azimuth", {{"azimuth", "azimut", "richtungswinkel", "bearing", "brg", "az"}, {}}},
      {"start_x", {{"startx", "xstart", "x1", "xa", "anfangx", "xanfang"}, {}}},
      {"start_y", {{"starty", "ystart", "y1", "ya", "anfangy", "yanfang"}, {}}},
      {"end_x", {{"endx", "xend", "x2", "xe", "endex", "xende"}, {}}},
      {"end_y", {{"endy", "yend", "y2", "ye", "endey", "yende"}, {}}},
      {"radius", {{"radius", "r"}, {}}},
      {"horizontal_angle",
       {{"horizontalangle", "horizontaldirection", "horizontal", "hangle", "horangle", "hz",
         "hzangle", "hzrichtung", "hzwinkel", "horizontalrichtung", "horizontalwinkel", "richtung",
         "ha", "har", "direction", "hzcircle"},
        {}}},
      {"zenith_angle",
       {{"zenithangle", "zenith", "zenithdistance", "zenit", "zenitwinkel", "zenitdistanz", "v",
         "vz", "va", "vangle", "verticalangle", "vertikalwinkel", "vwinkel", "zd", "za", "vert"},
        {}}},
      {"elevation_angle", {{"elevationangle", "altitudeangle", "hoehenwinkel", "hohenwinkel"}, {}}},
      {"slope_distance",
       {{"slopedistance", "slopedist", "sdist", "sd", "sdistance", "schraegdistanz",
         "schraegstrecke", "schragdistanz", "raumstrecke", "slope"},
        {"distance", "distanz", "dist", "strecke", "d", "s"}}},
      {"target_height",
       {{"targetheight", "th", "hr", "rh", "reflectorheight", "reflektorhoehe", "prismheight",
         "prismenhoehe", "rodheight", "zielhoehe", "zielpunkthoehe", "tafelhoehe", "ht"},
        {}}},
      {"instrument_height",
       {{"instrumentheight", "hi", "ih", "instrumentenhoehe", "instrheight", "geraetehoehe",
         "kippachshoehe"},
        {}}},
  };
  return table;
}

const Synonyms& synonymsOf(const std::string& column) {
  static const Synonyms none;
  const auto found = synonyms().find(column);
  return found == synonyms().end() ? none : found->second;
}

struct Heading {
  std::string text;   ///< as it stands
  std::string name;   ///< plain
  std::string inner;  ///< plain name in brackets that is no unit: "East" of "Y (East)"
  std::optional<Unit> unit;
  std::string unknownUnit;
};

bool isKnownTo(const TableSchema& schema, const std::string& name) {
  if (name == "x" || name == "y") return true;
  return std::any_of(schema.columns.begin(), schema.columns.end(), [&](const TableColumn& column) {
    const Synonyms& known = synonymsOf(column.name);
    return known.proper.count(name) > 0 || known.weak.count(name) > 0;
  });
}

/// Words that add nothing to a name: "Rechtswert Y", "Grid East", "Punkt Nr."
std::string withoutFillers(const Heading& heading, const TableSchema& schema) {
  static const Names fillers = {"coordinate", "coordinates", "koordinate", "coord", "koord",
                                "value",      "grid",        "local",      "utm",   "gk",
                                "lv95",       "nn",          "nhn",        "nr",    "no",
                                "number",     "name"};
  std::string found;
  std::size_t start = 0;
  while (start < heading.text.size()) {
    const std::size_t end =
        std::min(heading.text.find_first_of(" ._-/=:", start), heading.text.size());
    const std::string word = plainName(std::string_view(heading.text).substr(start, end - start));
    start = end + 1;
    if (word.size() < 2 || fillers.count(word) > 0) continue;
    if (!found.empty() || !isKnownTo(schema, word)) return {};
    found = word;
  }
  return found;
}

/// Takes the unit off the end of a name as in "height_m" and "Hz gon".
void splitTrailingUnit(Heading& heading, const TableSchema& schema) {
  const std::size_t end = heading.text.find_last_of("_ /");
  if (end == std::string::npos || isKnownTo(schema, heading.name)) return;
  const auto unit = unitNamed(std::string_view(heading.text).substr(end + 1));
  const std::string name = plainName(std::string_view(heading.text).substr(0, end));
  if (!unit || !isKnownTo(schema, name)) return;
  heading.unit = unit;
  heading.name = name;
}

Heading headingOf(std::string_view cell, const TableSchema& schema) {
  Heading heading;
  const std::string whole(trimmed(cell));
  heading.text = whole;
  const std::size_t open = heading.text.find_first_of("[(<");
  const std::size_t close = heading.text.find_first_of("])>", open == std::string::npos ? 0 : open);
  heading.name = plainName(heading.text.substr(0, open));
  if (open == std::string::npos || close == std::string::npos) {
    heading.name = plainName(heading.text);
    splitTrailingUnit(heading, schema);
  } else {
    const std::string inside = heading.text.substr(open + 1, close - open - 1);
    heading.unit = unitNamed(inside);
    // "m above sea level", in any language.
    if (!heading.unit) heading.unit = unitNamed(inside.substr(0, inside.find_first_of(" +")));
    if (!heading.unit) heading.inner = plainName(inside);
    // By custom square brackets hold units and nothing else.
    const bool isUnit = heading.text[open] == '[' && !isKnownTo(schema, heading.inner);
    if (!heading.unit && isUnit) heading.unknownUnit = inside;
    heading.text.resize(open);
  }
  if (!isKnownTo(schema, heading.name)) {
    const std::string name = withoutFillers(heading, schema);
    if (!name.empty()) heading.name = name;
  }
  heading.text = whole;
  return heading;
}
using Headings = std::vector<Heading>;

std::vector<std::size_t> placesNamed(const Headings& headings, const Names& names,
                                     const TableSchema& schema) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < headings.size(); ++i) {
    const Heading& heading = headings[i];
    // "Y (East)": what stands in brackets explains the name.
    const bool isExplained = !heading.inner.empty() && heading.inner != "x" &&
                             heading.inner != "y" && isKnownTo(schema, heading.inner);
    if (names.count(isExplained ? heading.inner : heading.name) > 0) places.push_back(i);
  }
  return places;
}

std::string conflictOf(const std::string& column, const Headings& headings,
                       const std::vector<std::size_t>& places) {
  return "the headings " + quoted(headings[places[0]].text) + " and " +
         quoted(headings[places[1]].text) + " both mean " + column +
         ": name the columns by --columns, with - for those that are not wanted";
}

/// East and north by headings that are just Y and X.
void matchPlane(const Headings& headings, const TableSchema& schema, HeadingMatch& match) {
  const auto indexOf = [&schema](const char* name) {
    const auto found =
        std::find_if(schema.columns.begin(), schema.columns.end(),
                     [name](const TableColumn& column) { return column.name == name; });
    return static_cast<std::size_t>(found - schema.columns.begin());
  };
  const std::size_t east = indexOf("east");
  const std::size_t north = indexOf("north");
  const std::size_t count = schema.columns.size();
  if (east == count || north == count || match.places[east] || match.places[north]) return;
  const Names yNames = {"y", "ykoordinate", "ycoordinate", "ycoord"};
  const Names xNames = {"x", "xkoordinate", "xcoordinate", "xcoord"};
  const auto y = placesNamed(headings, yNames, schema);
  const auto x = placesNamed(headings, xNames, schema);
  if (y.size() != 1 || x.size() != 1) return;
  if (x[0] < y[0] && !schema.isScan) {
    match.conflict =
        "X and Y may be east and north or north and east: name the columns in their order by "
        "--columns, as --columns id,east,north,height";
    return;
  }
  const bool isGeodetic = y[0] < x[0];
  match.places[east] = isGeodetic ? y[0] : x[0];
  match.places[north] = isGeodetic ? x[0] : y[0];
}

/// The same name twice.
std::string repeatedName(const Headings& headings) {
  std::set<std::string> seen;
  for (const Heading& heading : headings) {
    const std::string whole = plainName(heading.text);
    if (!whole.empty() && !seen.insert(whole).second) {
      return "two columns are named " + quoted(heading.text) +
             ": name the columns by --columns, with - for those that are not wanted";
    }
  }
  return {};
}

bool fits(const Unit& unit, Quantity quantity) {
  if (quantity == Quantity::Text) return true;
  return (unit.kind == Unit::Kind::Length) != (quantity == Quantity::Angle);
}

/// Units that cannot be right.
std::string badUnit(const Headings& headings, const TableSchema& schema,
                    const HeadingMatch& match) {
  for (std::size_t i = 0; i < schema.columns.size(); ++i) {
    const Quantity quantity = schema.columns[i].quantity;
    if (!match.places[i] || quantity == Quantity::Text) continue;
    const Heading& heading = headings[*match.places[i]];
    const std::string option = quantity == Quantity::Angle ? "--angles" : "--lengths";
    if (!heading.unknownUnit.empty()) {
      return "the unit of " + quoted(heading.text) +
             " is not known; name the columns by --columns"
             " and, if need be, the unit by " +
             option;
    }
    if (heading.unit && !fits(*heading.unit, quantity)) {
      return quoted(heading.text) + " names no unit of " + schema.columns[i].name +
             ": name the columns by --columns";
    }
  }
  return {};
}

}  // namespace

std::string plainName(std::string_view heading) {
  struct Replacement {
    std::string_view from;
    std::string_view to;
  };
  constexpr std::array<Replacement, 7> kLetters = {{{"\xC3\xA4", "ae"},
                                                    {"\xC3\xB6", "oe"},
                                                    {"\xC3\xBC", "ue"},
                                                    {"\xC3\x84", "ae"},
                                                    {"\xC3\x96", "oe"},
                                                    {"\xC3\x9C", "ue"},
                                                    {"\xC3\x9F", "ss"}}};
  std::string name;
  while (!heading.empty()) {
    const auto* found = std::find_if(kLetters.begin(), kLetters.end(), [&](const Replacement& r) {
      return heading.compare(0, r.from.size(), r.from) == 0;
    });
    if (found != kLetters.end()) {
      name += found->to;
      heading.remove_prefix(found->from.size());
      continue;
    }
    const char letter = heading[0];
    const bool isCapital = letter >= 'A' && letter <= 'Z';
    const bool isKept = (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9');
    if (isCapital) name += static_cast<char>(letter - 'A' + 'a');
    if (isKept) name += letter;
    heading.remove_prefix(1);
  }
  return name;
}

HeadingMatch matchHeadings(const std::vector<std::string_view>& cells, const TableSchema& schema) {
  Headings headings;
  for (const std::string_view cell : cells) {
    headings.push_back(headingOf(cell, schema));
  }
  HeadingMatch match;
  match.places.resize(schema.columns.size());
  for (const Heading& heading : headings) {
    match.units.push_back(heading.unit);
  }
  for (std::size_t i = 0; i < schema.columns.size(); ++i) {
    const std::string& column = schema.columns[i].name;
    const Synonyms& names = synonymsOf(column);
    auto places = placesNamed(headings, names.proper, schema);
    if (places.empty()) places = placesNamed(headings, names.weak, schema);
    if (places.size() > 1) match.conflict = conflictOf(column, headings, places);
    if (places.size() == 1) match.places[i] = places[0];
  }
  if (match.conflict.empty()) matchPlane(headings, schema, match);
  for (std::size_t i = 0; i < schema.columns.size(); ++i) {
    if (match.places[i]) ++match.matched;
    if (!match.places[i] && schema.columns[i].isRequired) {
      match.missing.push_back(schema.columns[i].name);
    }
  }
  if (match.conflict.empty() && match.missing.empty()) match.conflict = repeatedName(headings);
  if (match.conflict.empty()) match.conflict = badUnit(headings, schema, match);
  return match;
}

std::optional<Unit> unitInBrackets(std::string_view cell) {
  cell = trimmed(cell);
  const bool isBracketed = cell.size() > 2 && (cell.front() == '[' || cell.front() == '(');
  return unitNamed(isBracketed ? cell.substr(1, cell.size() - 2) : cell);
}

bool areUnits(const std::vector<std::string_view>& cells) {
  std::size_t units = 0;
  for (const std::string_view cell : cells) {
    const std::string_view text = trimmed(cell);
    if (unitInBrackets(text)) {
      ++units;
    } else if (!text.empty() && text != "-" && text != "[-]" && text != "[]") {
      return false;
    }
  }
  return units > 0;
}

}  // namespace Exchange
