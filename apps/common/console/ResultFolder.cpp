// SPDX-License-Identifier: BSL-1.0
#include "common/console/ResultFolder.h"

#include "common/console/Files.h"
#include "common/console/InterruptionGuard.h"

#include "common/drawing/PngImage.h"
#include "common/drawing/SvgWriter.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <system_error>
#include <utility>
#include <vector>

#include <unistd.h>

namespace Console {

namespace fs = std::filesystem;

namespace {

Failure failureOf(const fs::path& path, const std::error_code& problem) {
  return Failure(path.string() + ": " + problem.message());
}

/// Readable by nobody else until its files are moved to their places.
fs::path makeHiddenFolder(const fs::path& parent) {
  std::string name = (parent / ".unfinished-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw failureOf(parent, std::error_code(errno, std::generic_category()));
  }
  return name;
}

void tellUnreadable(const std::set<std::string>& words) {
  if (words.empty()) return;
  constexpr std::size_t kMostShown = 5;
  std::cerr << "drawings: no installed font has all letters of";
  std::size_t shown = 0;
  for (const std::string& word : words) {
    if (shown++ < kMostShown) std::cerr << (shown > 1 ? ", " : " ") << word;
  }
  if (words.size() > kMostShown) std::cerr << " and " << words.size() - kMostShown << " more";
  std::cerr << ": install one for that script (on Debian, fonts-noto)\n";
}

/// Files and links may be replaced; directories, devices and pipes may not.
fs::path replaceablePlace(const fs::path& place) {
  const fs::file_status status = fs::symlink_status(place);
  if (fs::is_directory(status)) throw Failure(place.string() + ": is a directory");
  if (fs::is_other(status)) throw Failure(place.string() + ": is a device or a pipe, not a file");
  return place;
}

/// A device or a pipe, or what leads to one, as /dev/stdout: nothing that could be replaced.
bool takesText(const fs::path& place) {
  std::error_code problem;
  return fs::is_other(place, problem) || fs::absolute(place).parent_path() == "/dev";
}

void writeChecked(const fs::path& file, const std::string& place, const std::string& text) {
  std::ofstream out(file, std::ios::binary);
  out << text;
  out.close();
  if (!out) throw Failure(place + ": cannot be written");
}

/// A draft and its place, both to be told apart before anything is moved.
struct Move {
  fs::path from;
  fs::path to;
};

}  // namespace

ResultFolder::ResultFolder(const std::string& path)
    : m_folder(path), m_guard(std::make_unique<InterruptionGuard>([this] { removeDrafts(); })) {
  const InterruptionGuard::Pause pause(*m_guard);
  std::error_code problem;
  m_isNew = fs::create_directories(m_folder, problem);
  if (problem) throw failureOf(m_folder, problem);
  m_drafts = makeHiddenFolder(m_folder);
}

ResultFolder::~ResultFolder() {
  m_guard.reset();
  removeDrafts();
}

void ResultFolder::removeDrafts() {
  // After a signal the program still runs on beside this, and may add files meanwhile.
  constexpr int kMostAttempts = 100;
  std::error_code problem;
  for (int i = 0; i < kMostAttempts && !m_drafts.empty(); ++i) {
    fs::remove_all(m_drafts, problem);
    if (!problem) break;
  }
  if (m_isNew) fs::remove(m_folder, problem);  // unless it holds something
}

std::string ResultFolder::placeOf(const std::string& name) const {
  return (m_folder / name).string();
}

fs::path ResultFolder::draft(const std::string& name) {
  fs::path path = m_drafts / name;
  std::error_code problem;
  fs::create_directories(path.parent_path(), problem);
  if (problem) throw failureOf(placeOf(name), problem);
  return path;
}

void ResultFolder::write(const std::string& name, const std::string& text) {
  writeChecked(draft(name), placeOf(name), text);
}

void ResultFolder::writePicture(const std::string& name, const Drawing::Picture& picture) {
  constexpr double kPixelsPerMillimetre = 2480.0 / 420.0;  // A3 is 2480 pixels wide
  write(name + ".svg", svgOf(picture));
  write(name + ".png", pngOf(picture, kPixelsPerMillimetre));
  m_unreadable.insert(picture.unreadable.begin(), picture.unreadable.end());
}

fs::path ResultFolder::createdPlace(const fs::path& relative) const {
  fs::path place = m_folder / relative;
  std::error_code problem;
  if (fs::is_symlink(place, problem)) {
    throw Failure(place.string() + ": is a link; links inside the folder are not followed");
  }
  fs::create_directory(place, problem);
  if (problem) throw failureOf(place, problem);
  return place;
}

void ResultFolder::publish() {
  const InterruptionGuard::Pause pause(*m_guard);  // a signal now takes effect afterwards
  std::vector<Move> moves;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(m_drafts)) {
    const fs::path relative = entry.path().lexically_relative(m_drafts);
    if (entry.is_directory()) {
      createdPlace(relative);
    } else {
      moves.push_back({entry.path(), replaceablePlace(m_folder / relative)});
    }
  }
  for (const Move& move : moves) {
    std::error_code problem;
    fs::rename(move.from, move.to, problem);
    if (problem) throw failureOf(move.to, problem);
  }
  m_isNew = false;
  tellUnreadable(m_unreadable);
}

void writeResult(const std::string& path, const std::string& text) {
  const std::filesystem::path file(path);
  if (takesText(file)) {
    writeChecked(file, path, text);
    return;
  }
  ResultFolder folder(file.has_parent_path() ? file.parent_path().string() : ".");
  folder.write(file.filename().string(), text);
  folder.publish();
}

}  // namespace Console
