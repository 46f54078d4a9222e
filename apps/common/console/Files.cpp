// SPDX-License-Identifier: BSL-1.0
#include "common/console/Files.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>

namespace Console {

namespace fs = std::filesystem;

std::string located(const std::string& path, const Exchange::Remark& remark) {
  const std::string line = remark.line > 0 ? ":" + std::to_string(remark.line) : "";
  return path + line + ": " + remark.message;
}

std::ifstream openFile(const std::string& path) {
  std::error_code problem;
  if (!fs::exists(path, problem)) throw Failure(path + ": there is no such file");
  if (fs::is_directory(path, problem)) throw Failure(path + ": is a directory");
  std::ifstream file(path, std::ios::binary);
  if (!file) throw Failure(path + ": cannot be read");
  if (file.peek() == std::ifstream::traits_type::eof()) {
    throw Failure(path + (file.bad() ? ": cannot be read" : ": the file is empty"));
  }
  return file;
}

std::string textOf(const std::string& path) {
  constexpr std::size_t kBlock = 1U << 20U;
  constexpr std::size_t kLargest = 1U << 30U;
  std::ifstream file = openFile(path);
  std::string text;
  std::string block(kBlock, '\0');
  while (file.read(block.data(), static_cast<std::streamsize>(block.size())) || file.gcount() > 0) {
    text.append(block, 0, static_cast<std::size_t>(file.gcount()));
    if (text.size() > kLargest) throw Failure(path + ": the file is larger than a gigabyte");
  }
  if (file.bad()) throw Failure(path + ": cannot be read");
  return text;
}

double placeOf(const std::string& option, const std::string& station,
               const Exchange::Stationing& stationing) {
  constexpr double kFarthest = 1e9;
  const auto place = stationing.placeOf(station);
  if (!place.value) throw WrongUsage(option + ": " + place.error.message);
  if (!(std::abs(*place.value) <= kFarthest)) throw WrongUsage(option + ": is too large");
  return *place.value;
}

void tellDescription(const std::string& path, const std::string& description) {
  if (!description.empty()) std::cerr << path << ": read as " << description << '\n';
}

std::string fileName(const std::string& path) { return fs::path(path).filename().string(); }

void printRemarks(const std::string& path, std::vector<Exchange::Remark> remarks) {
  constexpr std::size_t kMostShown = 20;
  std::stable_sort(
      remarks.begin(), remarks.end(),
      [](const Exchange::Remark& a, const Exchange::Remark& b) { return a.line < b.line; });
  for (std::size_t i = 0; i < std::min(remarks.size(), kMostShown); ++i) {
    std::cerr << located(path, remarks[i]) << '\n';
  }
  if (remarks.size() > kMostShown) {
    std::cerr << path << ": " << remarks.size() - kMostShown << " more of these\n";
  }
}

void printDoubts(const std::string& path, const std::vector<std::string>& doubts) {
  for (const std::string& doubt : doubts) {
    std::cerr << path << ": doubtful: " << doubt << '\n';
  }
}

void printHeading(const std::string& heading) {
  std::cout << '\n' << heading << '\n' << std::string(heading.size(), '=') << "\n\n";
}

}  // namespace Console
