// SPDX-License-Identifier: BSL-1.0
#include "common/console/Files.h"
#include "common/console/ResultFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>
#include <csignal>

namespace {

namespace fs = std::filesystem;
using Console::ResultFolder;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class ResultFolderTest : public testing::Test {
 protected:
  ResultFolderTest() {
    fs::remove_all(m_path);
    fs::create_directory(m_path);
  }
  ~ResultFolderTest() override { fs::remove_all(m_path); }

  std::string folder() const { return (m_path / "results").string(); }

  /// Of everything below the folder, hidden or not.
  std::vector<std::string> names() const {
    std::vector<std::string> found;
    if (!fs::exists(folder())) return found;
    for (const auto& entry : fs::recursive_directory_iterator(folder())) {
      found.push_back(entry.path().lexically_relative(folder()).string());
    }
    return found;
  }

  static std::string textOf(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
  }

  const fs::path m_path =
      fs::temp_directory_path() / ("result_folder_test_" + std::to_string(getpid()));
};

TEST_F(ResultFolderTest, ResultsAppearTogetherOrNotAtAll) {
  {
    ResultFolder results(folder());
    results.write("a.csv", "1");
    EXPECT_FALSE(fs::exists(results.placeOf("a.csv")));
  }
  EXPECT_FALSE(fs::exists(folder()));
  {
    ResultFolder results(folder());
    results.write("a.csv", "1");
    results.write("pages/b.csv", "2");
    results.publish();
  }
  EXPECT_THAT(names(), UnorderedElementsAre("a.csv", "pages", "pages/b.csv"));
}

TEST_F(ResultFolderTest, LinksAreReplacedAndNeverFollowed) {
  fs::create_directories(m_path / "elsewhere");
  std::ofstream(m_path / "elsewhere" / "a.csv") << "kept";
  fs::create_directory(folder());
  fs::create_symlink(m_path / "elsewhere" / "a.csv", fs::path(folder()) / "a.csv");
  fs::create_directory_symlink(m_path / "elsewhere", fs::path(folder()) / "pages");
  {
    ResultFolder results(folder());
    results.write("a.csv", "new");
    results.publish();
  }
  EXPECT_EQ(textOf(m_path / "elsewhere" / "a.csv"), "kept");
  EXPECT_EQ(textOf(fs::path(folder()) / "a.csv"), "new");
  ResultFolder results(folder());
  results.write("pages/a.csv", "new");
  EXPECT_THROW(results.publish(), Console::Failure);
  EXPECT_EQ(textOf(m_path / "elsewhere" / "a.csv"), "kept");
}

TEST_F(ResultFolderTest, ASignalLeavesNothingBehind) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
      ResultFolder results(folder());
      results.write("a.csv", "1");
      if (write(ready[1], "x", 1) != 1) _exit(1);
      for (;;)
        pause();
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    kill(child, signal);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
    EXPECT_THAT(names(), IsEmpty());
  }
}

}  // namespace
