// SPDX-License-Identifier: BSL-1.0
#include "common/console/TableOptions.h"

#include "common/console/Files.h"
#include "common/exchange/Units.h"

#include <algorithm>
#include <map>
#include <optional>

namespace Console {

namespace {

using Exchange::AngleUnit;
using Exchange::Separator;

/// "points:semicolon": the table, or nothing for all of them, and the word.
struct Scoped {
  std::string table;
  std::string word;
};

Scoped scopedOf(const std::string& text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string::npos || colon == 0 || colon + 1 == text.size()) return {"", text};
  return {text.substr(0, colon), text.substr(colon + 1)};
}

template <class Value>
Value meaningOf(const std::string& option, const std::string& word,
                const std::map<std::string, Value>& words) {
  const auto found = words.find(word);
  if (found != words.end()) return found->second;
  std::string known;
  for (const auto& [name, value] : words) {
    if (name.size() > 1 || words.size() < 3) known += (known.empty() ? "" : ", ") + name;
  }
  throw WrongUsage(option + ": " + word + " is none of " + known);
}

Separator separatorOf(const std::string& word) {
  static const std::map<std::string, Separator> words = {
      {"comma", Separator::Comma}, {",", Separator::Comma}, {"semicolon", Separator::Semicolon},
      {";", Separator::Semicolon}, {"tab", Separator::Tab}, {"\t", Separator::Tab},
      {"bar", Separator::Bar},     {"|", Separator::Bar},   {"blank", Separator::Blanks},
      {" ", Separator::Blanks}};
  return meaningOf("--delimiter", word, words);
}

char decimalOf(const std::string& word) {
  static const std::map<std::string, char> words = {
      {"point", '.'}, {".", '.'}, {"comma", ','}, {",", ','}};
  return meaningOf("--decimal", word, words);
}

AngleUnit angleUnitOf(const std::string& word) {
  static const std::map<std::string, AngleUnit> words = {{"gon", AngleUnit::Gon},
                                                         {"deg", AngleUnit::Degree},
                                                         {"dms", AngleUnit::Sexagesimal},
                                                         {"d.mmss", AngleUnit::DegreeMinuteSecond},
                                                         {"rad", AngleUnit::Radian}};
  return meaningOf("--angles", word, words);
}

double lengthUnitOf(const std::string& word) {
  static const std::map<std::string, double> words = {{"m", 1.0},
                                                      {"mm", 0.001},
                                                      {"ft", Exchange::kInternationalFoot},
                                                      {"usft", Exchange::kSurveyFoot}};
  const auto found = words.find(word);
  if (found == words.end()) throw WrongUsage("--lengths: " + word + " is none of m, mm, ft, usft");
  return found->second;
}

std::vector<std::string> namesIn(const std::string& list) {
  std::vector<std::string> names;
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = std::min(list.find(',', start), list.size());
    names.push_back(list.substr(start, end - start));
    if (end == list.size()) return names;
    start = end + 1;
  }
}

const Exchange::TableColumn* columnNamed(const Exchange::TableSchema& schema,
                                         const std::string& name) {
  const auto found =
      std::find_if(schema.columns.begin(), schema.columns.end(),
                   [&name](const Exchange::TableColumn& column) { return column.name == name; });
  return found == schema.columns.end() ? nullptr : &*found;
}

bool isSkipped(const std::string& name) { return name == "-" || name.empty(); }

/// Whether the table has columns of all these names, and what it needs is among them.
bool suits(const std::vector<std::string>& names, const Exchange::TableSchema& schema) {
  const auto isKnown = [&schema](const std::string& name) {
    return isSkipped(name) || columnNamed(schema, name) != nullptr;
  };
  const auto isGiven = [&names](const Exchange::TableColumn& column) {
    return !column.isRequired || column.isCounted ||
           std::count(names.begin(), names.end(), column.name) == 1;
  };
  return std::all_of(names.begin(), names.end(), isKnown) &&
         std::all_of(schema.columns.begin(), schema.columns.end(), isGiven);
}

/// The last word that holds for a table.
std::optional<std::string> wordFor(const std::string& table,
                                   const std::vector<std::string>& given) {
  std::optional<std::string> word;
  bool isOwn = false;
  for (const std::string& text : given) {
    const Scoped scoped = scopedOf(text);
    if (scoped.table == table || (scoped.table.empty() && !isOwn)) word = scoped.word;
    isOwn = isOwn || scoped.table == table;
  }
  return word;
}

void checkTable(const std::string& text, const std::vector<NamedTable>& tables) {
  const std::string name = scopedOf(text).table;
  const bool isKnown =
      name.empty() || std::any_of(tables.begin(), tables.end(),
                                  [&](const NamedTable& table) { return table.name == name; });
  if (!isKnown) throw WrongUsage(text + ": this command reads no table " + name);
}

void checkColumns(const std::string& text, const std::vector<NamedTable>& tables) {
  const Scoped scoped = scopedOf(text);
  const std::vector<std::string> names = namesIn(scoped.word);
  const bool isUsed = std::any_of(tables.begin(), tables.end(), [&](const NamedTable& table) {
    return (scoped.table.empty() || scoped.table == table.name) && suits(names, *table.schema);
  });
  if (isUsed) return;
  std::string known;
  for (const NamedTable& table : tables) {
    known += (known.empty() ? "" : "; ") + table.name + ":";
    for (const Exchange::TableColumn& column : table.schema->columns) {
      known += ' ' + column.name + (column.isRequired && !column.isCounted ? "" : "?");
    }
  }
  throw WrongUsage("--columns " + text + " suits no table of this command (" + known +
                   "; - for columns that are not wanted)");
}

}  // namespace

void TableOptions::check(const std::vector<NamedTable>& tables) const {
  for (const auto* given : {&delimiters, &decimals, &columns, &angles, &lengths}) {
    for (const std::string& text : *given) {
      checkTable(text, tables);
    }
  }
  for (const std::string& text : columns) {
    checkColumns(text, tables);
  }
  for (const NamedTable& table : tables) {
    formatFor(table);
  }
}

Exchange::TableFormat TableOptions::formatFor(const NamedTable& table) const {
  Exchange::TableFormat format;
  format.hasNoHeader = hasNoHeader;
  if (const auto word = wordFor(table.name, delimiters)) format.separator = separatorOf(*word);
  if (const auto word = wordFor(table.name, decimals)) format.decimal = decimalOf(*word);
  if (const auto word = wordFor(table.name, angles)) format.angles = angleUnitOf(*word);
  if (const auto word = wordFor(table.name, lengths)) format.metresPerLength = lengthUnitOf(*word);
  for (const std::string& text : columns) {
    const Scoped scoped = scopedOf(text);
    const std::vector<std::string> names = namesIn(scoped.word);
    const bool concerns = scoped.table.empty() || scoped.table == table.name;
    if (concerns && suits(names, *table.schema)) format.columns = names;
  }
  return format;
}

void addTableOptions(OptionGroup all, TableOptions& options, const std::string& tables) {
  OptionGroup group =
      all.group("Tables, where they cannot be recognised; with the name of a table (" + tables +
                ") and a colon before it, a word holds for that one alone");
  group.add("--delimiter", options.delimiters,
            "Between cells: comma, semicolon, tab, bar or blank");
  group.add("--decimal", options.decimals, "Sign: point or comma");
  group.add("--columns", options.columns,
            "Names of the columns in their order, separated by commas, with - for one that is not "
            "wanted: id,north,east,height");
  group.addFlag("--no-header", options.hasNoHeader,
                "Where there are no headings, the columns come in their usual order");
  group.add("--angles", options.angles,
            "Unit: gon, deg, dms (187 45 06.4, with signs, dashes or colons too), d.mmss "
            "(187.45064) or rad");
  group.add("--lengths", options.lengths, "Unit: m, mm, ft (0.3048 m) or usft (of the US survey)");
}

}  // namespace Console
