#include "common/console/Files.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace Console {

namespace fs = std::filesystem;

std::string located(const std::string& path, const Exchange::Remark& remark) {
  const std::string line = remark.line > 0 ? ":" + std::to_string(remark.line) : "";
  return path + line + ": " + remark.message;
}

std::string textOf(const std::string& path) {
  if (!fs::exists(path)) throw Failure(path + ": there is no such file");
  if (fs::is_directory(path)) throw Failure(path + ": is a directory");
  std::ifstream file(path, std::ios::binary);
  std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  if (!file) throw Failure(path + ": cannot be read");
  if (text.empty()) throw Failure(path + ": the file is empty");
  return text;
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

void printHeading(const std::string& heading) {
  std::cout << '\n' << heading << '\n' << std::string(heading.size(), '=') << "\n\n";
}

}  // namespace Console
