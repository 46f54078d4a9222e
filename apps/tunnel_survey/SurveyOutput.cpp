// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/SurveyOutput.h"

#include "common/console/Files.h"
#include "common/console/Progress.h"
#include "common/console/ResultFolder.h"
#include "tunnel_survey/HtmlReport.h"
#include "tunnel_survey/PdfReport.h"
#include "tunnel_survey/PointTable.h"
#include "tunnel_survey/SectionTable.h"
#include "tunnel_survey/SurveyDxf.h"
#include "tunnel_survey/SurveyReport.h"

#include <cstddef>
#include <iostream>
#include <string>

namespace TunnelSurvey {

namespace {

using Console::ResultFolder;

void writeNamed(ResultFolder& folder, const std::string& name, const std::string& text) {
  folder.write(name, text);
  std::cout << folder.placeOf(name) << '\n';
}

void writeTables(ResultFolder& folder, const SurveyResults& results) {
  constexpr int kDecimals = 4;
  if (results.axis && !results.axis->points.empty()) {
    writeNamed(folder, "points_on_axis.csv",
               csvOf(pointTable(results.axis->points, *results.axis, kDecimals)));
  }
  if (results.axis && !results.axis->setOut.empty()) {
    writeNamed(folder, "setting_out.csv",
               csvOf(pointTable(results.axis->setOut, *results.axis, kDecimals)));
  }
  if (results.transition) {
    writeNamed(folder, "transition.csv", csvOf(transitionTable(*results.transition)));
    writeNamed(folder, "transition_elements.csv", csvOf(elementTable(*results.transition)));
  }
  if (!results.sections) return;
  writeNamed(folder, "sections.csv", csvOf(sectionTable(*results.sections)));
  if (results.sections->volumes) {
    writeNamed(folder, "volumes.csv", csvOf(volumeTable(*results.sections)));
  }
}

void writeDxf(ResultFolder& folder, const std::string& name, const DxfWriter& write) {
  if (!write) return;
  const std::string file = name + ".dxf";
  if (!write(folder.draft(file).string())) {
    throw Console::Failure(folder.placeOf(file) + ": cannot be written");
  }
}

std::size_t figuresOf(const Report& report) {
  std::size_t count = 0;
  for (const Chapter& chapter : report.chapters) {
    count += chapter.figures.size();
  }
  return count;
}

/// Each drawing as files, and into both kinds of report.
void writeReport(ResultFolder& folder, const Report& report, HtmlPictures pictures) {
  HtmlReport html(pictures);
  PdfReport pdf(report);
  html.addHead(report);
  Console::Progress progress("Drawing", figuresOf(report));
  for (const Chapter& chapter : report.chapters) {
    html.beginChapter(chapter);
    pdf.beginChapter(chapter);
    for (const Figure& figure : chapter.figures) {
      const Drawing::Picture picture = pictureOf(figure.sheet);
      folder.writePicture(figure.name, picture);
      writeDxf(folder, figure.name, figure.dxf);
      html.addFigure(figure, picture);
      pdf.addFigure(figure, picture);
      progress.advance();
    }
    html.endChapter();
  }
  folder.write("report.html", html.finish());
  folder.write("report.pdf", pdf.finish());
}

/// What is in a folder of its own is counted.
void tellFigures(const ResultFolder& folder, const Report& report) {
  std::size_t sections = 0;
  for (const Chapter& chapter : report.chapters) {
    for (const Figure& figure : chapter.figures) {
      if (figure.name.find('/') != std::string::npos) {
        ++sections;
      } else {
        std::cout << folder.placeOf(figure.name)
                  << (figure.dxf ? ".svg, .png, .dxf\n" : ".svg, .png\n");
      }
    }
  }
  if (sections > 0) {
    std::cout << folder.placeOf("sections") << ": " << sections << " drawings as SVG, PNG and DXF\n"
              << folder.placeOf("sections.dxf") << '\n';
  }
  std::cout << folder.placeOf("report.html") << '\n' << folder.placeOf("report.pdf") << '\n';
}

}  // namespace

void writeResults(const Options& options, const SurveyResults& results) {
  ResultFolder folder(options.output);
  Console::printHeading("Written");
  writeTables(folder, results);
  const Report report = reportOf(options, results);
  writeReport(folder, report, options.isSingleFile ? HtmlPictures::Inside : HtmlPictures::Beside);
  if (results.sections) {
    writeDxf(folder, "sections", [&results](const std::string& path) {
      return writeSectionsDxf(path, *results.sections, results.axis ? results.axis->axis : nullptr);
    });
  }
  tellFigures(folder, report);
  folder.publish();
}

}  // namespace TunnelSurvey
