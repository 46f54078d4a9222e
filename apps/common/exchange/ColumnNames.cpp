// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/ColumnNames.h"

#include "common/exchange/NumberParsing.h"
#include "common/exchange/VisibleText.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <unordered_map>

namespace Exchange {

namespace {

using Names = std::set<std::string, std::less<>>;

/// What a column is called. Weak names count when no heading has a proper one.
struct Synonyms {
  Names proper;
  Names weak;
};

/// In plain names. The names of one schema must not overlap.
const std::map<std::string, Synonyms> kSynonyms = {
    {"id",
     {{"id",        "point",       "pointid",     "pointno",     "pointnr",
       "pointname", "pointnumber", "pt",          "ptid",        "ptno",
       "ptnr",      "pid",         "p",           "punkt",       "punktid",
       "punktnr",   "punktnummer", "punktname",   "pkt",         "pktnr",
       "pktid",     "pktname",     "ziel",        "zielpunkt",   "target",
       "targetid",  "messung",     "measurement", "bezeichnung", "label",
       "ident",     "identifier",  "zielnr",      "zielpunktnr", "punktbezeichnung",
       "pnr",       "ptname",      "pno",         "pname",       "vermessungspunkt"},
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
     {{"zenithangle", "zenith", "zenithdistance", "zenit", "zenitwinkel", "zenitdistanz", "v", "vz",
       "va", "vangle", "verticalangle", "vertikalwinkel", "vwinkel", "zd", "za", "vert"},
      {}}},
    {"slope_distance",
     {{"slopedistance", "slopedist", "sdist", "sd", "sdistance", "schraegdistanz", "schraegstrecke",
       "schragdistanz", "raumstrecke", "slope"},
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

enum class Fit { None, Weak, Proper };

/// A column that a name may mean, and how well it does.
struct Meaning {
  std::string_view column;
  Fit fit = Fit::None;
};

/// The synonyms, by name.
const std::unordered_map<std::string, std::vector<Meaning>>& meanings() {
  static const auto table = [] {
    std::unordered_map<std::string, std::vector<Meaning>> found;
    for (const auto& [column, names] : kSynonyms) {
      for (const std::string& name : names.proper) {
        found[name].push_back({column, Fit::Proper});
      }
      for (const std::string& name : names.weak) {
        found[name].push_back({column, Fit::Weak});
      }
    }
    return found;
  }();
  return table;
}

struct Heading {
  std::string text;   ///< as it stands
  std::string name;   ///< plain
  std::string inner;  ///< plain name in brackets that is no unit: "East" of "Y (East)"
  std::optional<Unit> unit;
  std::string unknownUnit;
  std::vector<Fit> fits;  ///< by column of the schema
  char letter = 0;        ///< x or y for a heading that is just one of them
};

/// What the columns of a schema are called.
struct Vocabulary {
  /// How well a name fits each column.
  std::vector<Fit> fitsOf(const std::string& name) const {
    std::vector<Fit> fits(schema.columns.size(), Fit::None);
    const auto found = meanings().find(name);
    if (found == meanings().end()) return fits;
    for (const Meaning& meaning : found->second) {
      for (std::size_t i = 0; i < fits.size(); ++i) {
        if (schema.columns[i].name == meaning.column) fits[i] = meaning.fit;
      }
    }
    return fits;
  }

  bool knows(const std::string& name) const {
    if (name == "x" || name == "y") return true;
    const std::vector<Fit> fits = fitsOf(name);
    return std::any_of(fits.begin(), fits.end(), [](Fit fit) { return fit != Fit::None; });
  }

  const TableSchema& schema;
};

/// Words that add nothing to a name, without the numbers of reference systems: "Grid East",
/// "Punkt Nr.", "Ost LV95", "Höhe ü. M."
bool isFiller(const std::string& word) {
  static const Names fillers = {
      "coordinate", "coordinates", "koordinate", "coord", "koord", "value",  "grid",
      "local",      "utm",         "gk",         "lv",    "ln",    "lhn",    "dhhn",
      "nn",         "nhn",         "ue",         "nr",    "no",    "number", "name"};
  return fillers.count(word.substr(0, word.find_first_of("0123456789"))) > 0;
}

/// The only word that says something. Letters alone only explain a word, as in "Rechtswert Y", but
/// are the name where there is none: "Y Coord".
std::string withoutFillers(const Heading& heading, const Vocabulary& vocabulary) {
  std::string found;
  std::string letter;
  std::size_t start = 0;
  while (start < heading.text.size()) {
    const std::size_t end =
        std::min(heading.text.find_first_of(" ._-/=:", start), heading.text.size());
    const std::string word = plainName(std::string_view(heading.text).substr(start, end - start));
    start = end + 1;
    if (word.size() < 2) letter += word;
    if (word.size() < 2 || isFiller(word)) continue;
    if (!found.empty() || !vocabulary.knows(word)) return {};
    found = word;
  }
  return found.empty() && letter.size() == 1 && vocabulary.knows(letter) ? letter : found;
}

/// Takes the unit off the end of a name as in "height_m", "Hz gon" and "east in m".
void splitTrailingUnit(Heading& heading, const Vocabulary& vocabulary) {
  const std::size_t end = heading.text.find_last_of("_ /");
  if (end == std::string::npos || vocabulary.knows(heading.name)) return;
  const auto unit = unitNamed(std::string_view(heading.text).substr(end + 1));
  std::string_view rest = trimmed(std::string_view(heading.text).substr(0, end));
  constexpr std::string_view kIn = " in";
  if (rest.size() > kIn.size() && rest.substr(rest.size() - kIn.size()) == kIn) {
    rest.remove_suffix(kIn.size());
  }
  const std::string name = plainName(rest);
  if (!unit || !vocabulary.knows(name)) return;
  heading.unit = unit;
  heading.name = name;
}

/// Which columns the heading may name.
void settleMeaning(Heading& heading, const Vocabulary& vocabulary) {
  // "Y (East)": what stands in brackets explains the name.
  const bool isExplained = !heading.inner.empty() && heading.inner != "x" && heading.inner != "y" &&
                           vocabulary.knows(heading.inner);
  const std::string& name = isExplained ? heading.inner : heading.name;
  heading.fits = vocabulary.fitsOf(name);
  constexpr std::array<std::string_view, 4> kAfterLetter = {"", "koordinate", "coordinate",
                                                            "coord"};
  const bool isLetter =
      !name.empty() && (name[0] == 'x' || name[0] == 'y') &&
      std::count(kAfterLetter.begin(), kAfterLetter.end(), std::string_view(name).substr(1)) > 0;
  if (isLetter) heading.letter = name[0];
}

Heading headingOf(std::string_view cell, const Vocabulary& vocabulary) {
  Heading heading;
  const std::string whole(trimmed(cell));
  heading.text = whole;
  const std::size_t open = heading.text.find_first_of("[(<");
  const std::size_t close = heading.text.find_first_of("])>", open == std::string::npos ? 0 : open);
  heading.name = plainName(heading.text.substr(0, open));
  if (open == std::string::npos || close == std::string::npos) {
    heading.name = plainName(heading.text);
    splitTrailingUnit(heading, vocabulary);
  } else {
    const std::string inside = heading.text.substr(open + 1, close - open - 1);
    heading.unit = unitNamed(inside);
    // "m above sea level", in any language.
    if (!heading.unit) heading.unit = unitNamed(inside.substr(0, inside.find_first_of(" +")));
    if (!heading.unit) heading.inner = plainName(inside);
    // By custom square brackets hold units and nothing else.
    const bool isUnit = heading.text[open] == '[' && !vocabulary.knows(heading.inner);
    if (!heading.unit && isUnit) heading.unknownUnit = inside;
    heading.text.resize(open);
  }
  if (!vocabulary.knows(heading.name)) {
    const std::string name = withoutFillers(heading, vocabulary);
    if (!name.empty()) heading.name = name;
  }
  heading.text = whole;
  settleMeaning(heading, vocabulary);
  return heading;
}

using Headings = std::vector<const Heading*>;

std::vector<std::size_t> placesThatFit(const Headings& headings, std::size_t column, Fit fit) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < headings.size(); ++i) {
    if (headings[i]->fits[column] == fit) places.push_back(i);
  }
  return places;
}

std::string conflictOf(const std::string& column, const Headings& headings,
                       const std::vector<std::size_t>& places) {
  return "the headings " + inQuotes(headings[places[0]]->text) + " and " +
         inQuotes(headings[places[1]]->text) + " both mean " + column +
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
  const auto placesOf = [&headings](char letter) {
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < headings.size(); ++i) {
      if (headings[i]->letter == letter) places.push_back(i);
    }
    return places;
  };
  const auto y = placesOf('y');
  const auto x = placesOf('x');
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
  for (const Heading* heading : headings) {
    const std::string whole = plainName(heading->text);
    if (!whole.empty() && !seen.insert(whole).second) {
      return "two columns are named " + inQuotes(heading->text) +
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
    const Heading& heading = *headings[*match.places[i]];
    const std::string option = quantity == Quantity::Angle ? "--angles" : "--lengths";
    if (!heading.unknownUnit.empty()) {
      return "the unit of " + inQuotes(heading.text) +
             " is not known; name the columns by --columns"
             " and, if need be, the unit by " +
             option;
    }
    if (heading.unit && !fits(*heading.unit, quantity)) {
      return inQuotes(heading.text) + " names no unit of " + schema.columns[i].name +
             ": name the columns by --columns";
    }
  }
  return {};
}

/// An umlaut or a sharp s by the second of its bytes; the first is always the same.
std::string_view germanLetter(char second) {
  switch (second) {
    case '\xA4':
    case '\x84':
      return "ae";
    case '\xB6':
    case '\x96':
      return "oe";
    case '\xBC':
    case '\x9C':
      return "ue";
    case '\x9F':
      return "ss";
    default:
      return {};
  }
}

/// Whether there is something that no column of the schema takes, with a heading or without.
bool hasFurther(const Headings& headings, const HeadingMatch& match) {
  const auto last = std::find_if(headings.rbegin(), headings.rend(),
                                 [](const Heading* heading) { return !heading->text.empty(); });
  return static_cast<std::size_t>(headings.rend() - last) > match.matched;
}

/// Required columns that no heading names. Rows of a table that has all others, and nothing else,
/// are counted.
std::vector<std::string> missingColumns(const Headings& headings, const TableSchema& schema,
                                        const HeadingMatch& match) {
  std::vector<std::string> missing;
  const bool mayCount = !hasFurther(headings, match);
  for (std::size_t i = 0; i < schema.columns.size(); ++i) {
    const TableColumn& column = schema.columns[i];
    const bool isNeeded = column.isRequired && !(column.isCounted && mayCount);
    if (isNeeded && !match.places[i]) missing.push_back(column.name);
  }
  return missing;
}

}  // namespace

std::string plainName(std::string_view heading) {
  constexpr char kFirstOfGerman = '\xC3';
  std::string name;
  for (std::size_t i = 0; i < heading.size(); ++i) {
    const char letter = heading[i];
    const bool isCapital = letter >= 'A' && letter <= 'Z';
    const bool isKept = (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9');
    if (isCapital) name += static_cast<char>(letter - 'A' + 'a');
    if (isKept) name += letter;
    if (letter == kFirstOfGerman && i + 1 < heading.size()) name += germanLetter(heading[i + 1]);
  }
  return name;
}

struct HeadingReader::Memory {
  explicit Memory(const TableSchema& schema) : vocabulary{schema} {}

  Vocabulary vocabulary;
  std::map<std::string, Heading, std::less<>> seen;  // by the text of their cell
};

HeadingReader::HeadingReader(const TableSchema& schema)
    : m_memory(std::make_unique<Memory>(schema)) {}

HeadingReader::~HeadingReader() = default;

HeadingMatch HeadingReader::match(const std::vector<std::string_view>& cells) {
  const TableSchema& schema = m_memory->vocabulary.schema;
  Headings headings;
  for (const std::string_view cell : cells) {
    auto found = m_memory->seen.find(cell);
    if (found == m_memory->seen.end()) {
      found = m_memory->seen.emplace(cell, headingOf(cell, m_memory->vocabulary)).first;
    }
    headings.push_back(&found->second);
  }
  HeadingMatch match;
  match.places.resize(schema.columns.size());
  for (const Heading* heading : headings) {
    match.units.push_back(heading->unit);
  }
  for (std::size_t i = 0; i < schema.columns.size(); ++i) {
    auto places = placesThatFit(headings, i, Fit::Proper);
    if (places.empty()) places = placesThatFit(headings, i, Fit::Weak);
    if (places.size() > 1) match.conflict = conflictOf(schema.columns[i].name, headings, places);
    if (places.size() == 1) match.places[i] = places[0];
  }
  if (match.conflict.empty()) matchPlane(headings, schema, match);
  for (const auto& place : match.places) {
    if (place) ++match.matched;
  }
  match.missing = missingColumns(headings, schema, match);
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
