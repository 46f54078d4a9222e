// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/LandXmlReader.h"

#include "common/exchange/LandXmlFile.h"
#include "common/exchange/LandXmlPlan.h"
#include "common/exchange/LandXmlProfile.h"
#include "common/exchange/VisibleText.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace Exchange {

namespace {

std::vector<pugi::xml_node> alignmentsOf(const LandXmlFile& file) {
  std::vector<pugi::xml_node> all;
  for (const pugi::xml_node& list : LandXmlFile::childrenNamed(file.root(), "Alignments")) {
    const auto some = LandXmlFile::childrenNamed(list, "Alignment");
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

std::string namesOf(const std::vector<pugi::xml_node>& alignments) {
  constexpr std::size_t kMostListed = 10;
  std::string names;
  for (std::size_t i = 0; i < std::min(alignments.size(), kMostListed); ++i) {
    names += (i == 0 ? "" : ", ") + inQuotes(alignments[i].attribute("name").value());
  }
  return names + (alignments.size() > kMostListed ? " and more" : "");
}

class AlignmentReader {
 public:
  AlignmentReader(const LandXmlFile& file, const AlignmentChoice& choice)
      : m_file(file), m_choice(choice) {}

  Alignment read() {
    const pugi::xml_node node = chosen();
    m_alignment.name = visible(node.attribute("name").value());
    m_alignment.lengthUnit = m_file.units().lengthName;
    readStart(node);
    m_alignment.plan = planOf(m_file, node);
    readEquations(node);
    m_alignment.profile = profileOf(m_file, node, m_choice.profile);
    if (m_alignment.profile.empty()) {
      note(node, "has no profile: the axis lies at height 0, and heights above it are heights");
    }
    readCant(node);
    return std::move(m_alignment);
  }

 private:
  void note(const pugi::xml_node& node, const std::string& message) {
    m_alignment.notes.push_back({m_file.lineOf(node), visible(localName(node)) + ": " + message});
  }

  pugi::xml_node chosen() {
    const auto all = alignmentsOf(m_file);
    if (all.empty()) m_file.fail(m_file.root(), "the file holds no alignment");
    if (m_choice.alignment.empty()) {
      if (all.size() > 1) {
        note(all.front(), "this is the first of " + std::to_string(all.size()) + " alignments, " +
                              namesOf(all) + "; others by --alignment");
      }
      return all.front();
    }
    const auto found = std::find_if(all.begin(), all.end(), [this](const pugi::xml_node& node) {
      return node.attribute("name").value() == m_choice.alignment;
    });
    if (found == all.end()) {
      m_file.fail(m_file.root(), "no alignment is named " + inQuotes(m_choice.alignment) +
                                     "; there is " + namesOf(all));
    }
    return *found;
  }

  void readStart(const pugi::xml_node& node) {
    const auto start = m_file.optionalStation(node, "staStart");
    if (!start) note(node, "attribute staStart is missing: the axis begins at station 0");
    m_alignment.startStation = start.value_or(0.0);
  }

  /// Equations give the place as a continuous station, or by the station back of it.
  void readEquations(const pugi::xml_node& node) {
    std::vector<StationEquation> equations;
    for (const pugi::xml_node& equation : LandXmlFile::childrenNamed(node, "StaEquation")) {
      if (equation.attribute("staIncrement").value() == std::string("decreasing")) {
        m_file.fail(equation, "stations that decrease ahead are not supported");
      }
      const auto ahead = m_file.optionalStation(equation, "staAhead");
      const auto back = m_file.optionalStation(equation, "staBack");
      auto place = m_file.optionalStation(equation, "staInternal");
      if (!place && back) {
        place =
            equations.empty() ? back : equations.back().place + (*back - equations.back().ahead);
      }
      if (!ahead || !place) {
        m_file.fail(equation, "staAhead, and one of staInternal and staBack, are needed");
      }
      if (!equations.empty() && !(*place > equations.back().place)) {
        m_file.fail(equation, "lies before the equation above it");
      }
      equations.push_back({*place, *ahead});
      const double stationBack = Stationing(equations).stationAt(*place);
      note(equation, "station " + Drawing::stationText(stationBack, 3) + " back is " +
                         Drawing::stationText(*ahead, 3) + " ahead");
    }
    m_alignment.stationing = Stationing(std::move(equations));
  }

  void readCant(const pugi::xml_node& node) {
    const pugi::xml_node list = LandXmlFile::childNamed(node, "Cant");
    if (!list) return;
    double largest = 0.0;
    for (const pugi::xml_node& point : LandXmlFile::childrenNamed(list, "CantStation")) {
      const auto station = m_file.optionalStation(point, "station");
      const auto cant = m_file.optionalNumber(point, "appliedCant");
      if (!station || !cant) m_file.fail(point, "station and appliedCant are needed");
      const bool isToTheRight = point.attribute("curvature").value() == std::string("cw");
      const bool isAdverse = point.attribute("adverse").value() == std::string("true");
      const double sign = isToTheRight != isAdverse ? 1.0 : -1.0;
      m_alignment.cant.push_back({m_file.lineOf(point), *station, sign * *cant});
      largest = std::max(largest, std::abs(*cant));
    }
    scaleCant(list, largest);
    const std::string about = list.attribute("rotationPoint").value();
    if (!about.empty() && about != "center") m_alignment.cantTurnsAbout = visible(about);
  }

  /// Cant is in millimetres by custom, in metres in some files: no rail lies a metre higher.
  void scaleCant(const pugi::xml_node& list, double largest) {
    constexpr double kSurelyMillimetres = 1.0;
    constexpr double kLargestCant = 0.5;  // m
    const double scale = largest < kSurelyMillimetres ? 1.0 : 0.001;
    if (!m_file.units().isMetric && largest > 0.0) {
      m_alignment.cant.clear();
      note(list, "is left out: its unit is not known in files with feet");
    } else if (!(largest * scale <= kLargestCant)) {
      m_file.fail(list, "an appliedCant is larger than any cant");
    }
    for (CantPoint& point : m_alignment.cant) {
      point.cant *= scale;
    }
  }

  const LandXmlFile& m_file;
  const AlignmentChoice& m_choice;
  Alignment m_alignment;
};

}  // namespace

Outcome<Alignment> readLandXml(const std::string& xml, const AlignmentChoice& choice) {
  try {
    const LandXmlFile file(xml);
    return Outcome<Alignment>::success(AlignmentReader(file, choice).read());
  } catch (const LandXmlFailure& failure) {
    return Outcome<Alignment>::failure(failure.remark);
  }
}

}  // namespace Exchange
