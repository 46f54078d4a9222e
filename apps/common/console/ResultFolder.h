// SPDX-License-Identifier: BSL-1.0
/// @file
/// The folder that a program leaves its results in.

#ifndef CALCULATIONS_APPS_COMMON_CONSOLE_RESULT_FOLDER_H
#define CALCULATIONS_APPS_COMMON_CONSOLE_RESULT_FOLDER_H

#include "common/drawing/Picture.h"

#include <filesystem>
#include <memory>
#include <set>
#include <string>

namespace Console {

class InterruptionGuard;

/// Results appear under their names only when all of them are complete. Until then they are drafts
/// in a hidden folder beside their places, which goes away when the program fails or is interrupted
/// by a signal (hang-up, interrupt, termination). A file or link of the same name is replaced; what
/// a link leads to is never written to. All operations throw a Failure when they cannot.
///
/// Every file that a program writes goes through this class:
///
///   ResultFolder results(options.output);
///   results.write("points.csv", text);
///   savePdf(results.draft("report.pdf"), ...);  // whoever writes by itself checks that it could
///   results.publish();
class ResultFolder {
 public:
  /// Creates the folder, and those above it, if need be.
  explicit ResultFolder(const std::string& path);
  /// Removes what was not published.
  ~ResultFolder();
  ResultFolder(const ResultFolder&) = delete;
  ResultFolder& operator=(const ResultFolder&) = delete;

  /// Where the result is under its name once it is published: for messages.
  std::string placeOf(const std::string& name) const;

  /// Where to write what becomes the file of this name, as "plan.pdf" or "sections/001.svg". Its
  /// folder exists.
  std::filesystem::path draft(const std::string& name);

  void write(const std::string& name, const std::string& text);

  /// As name + ".svg" and name + ".png". Words with letters that no font has are told when the
  /// results are published.
  void writePicture(const std::string& name, const Drawing::Picture& picture);

  /// Moves every draft to its place. Call it once, last.
  void publish();

 private:
  void removeDrafts();
  std::filesystem::path createdPlace(const std::filesystem::path& relative) const;

  std::filesystem::path m_folder;
  std::filesystem::path m_drafts;
  bool m_isNew = false;  // the folder, made by this run
  std::unique_ptr<InterruptionGuard> m_guard;
  std::set<std::string> m_unreadable;  // words in pictures
};

/// A single file, in the same way; to a device or a pipe, as /dev/stdout, at once.
void writeResult(const std::string& path, const std::string& text);

}  // namespace Console

#endif
