// SPDX-License-Identifier: BSL-1.0
#include "common/console/Files.h"
#include "common/console/ResultFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>

namespace {

namespace fs = std::filesystem;
using Console::ResultFolder;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::ThrowsMessage;
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

TEST_F(ResultFolderTest, WhatIsNoFileIsNotReplaced) {
  fs::create_directories(fs::path(folder()) / "a.csv");
  ASSERT_EQ(mkfifo((folder() + "/b.csv").c_str(), 0600), 0);
  std::ofstream(folder() + "/c.csv") << "kept";
  const struct {
    const char* name;
    const char* reason;
  } cases[] = {{"a.csv", "a.csv: is a directory"},
               {"b.csv", "a device or a pipe"},
               {"c.csv/d.csv", "c.csv: File exists"}};
  for (const auto& c : cases) {
    ResultFolder results(folder());
    results.write(c.name, "new");
    results.write("e.csv", "new");
    EXPECT_THAT([&] { results.publish(); }, ThrowsMessage<Console::Failure>(HasSubstr(c.reason)));
  }
  EXPECT_THAT(names(), UnorderedElementsAre("a.csv", "b.csv", "c.csv"));
  EXPECT_EQ(textOf(folder() + "/c.csv"), "kept");
}

TEST_F(ResultFolderTest, DevicesAndPipesTakeTextAtOnce) {
  // By a link of our own: a device that was replaced would be missing everywhere.
  const fs::path full = m_path / "full";
  fs::create_symlink("/dev/full", full);
  EXPECT_THAT([&] { Console::writeResult(full.string(), "1"); },
              ThrowsMessage<Console::Failure>(HasSubstr("full: cannot be written")));
  EXPECT_TRUE(fs::is_symlink(full));
  const std::string fifo = (m_path / "pipe").string();
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  std::thread writer([&fifo] { Console::writeResult(fifo, "through"); });
  EXPECT_EQ(textOf(fifo), "through");
  writer.join();
  EXPECT_TRUE(fs::is_fifo(fifo));
}

TEST_F(ResultFolderTest, FoldersThatCannotBeMadeAreTold) {
  std::ofstream(m_path / "file") << "kept";
  for (const char* name : {"file", "file/below"}) {
    EXPECT_THAT([&] { ResultFolder((m_path / name).string()); },
                ThrowsMessage<Console::Failure>(HasSubstr("Not a directory")));
  }
  EXPECT_THROW(ResultFolder("/proc/results"), Console::Failure);  // not even by root
}

TEST_F(ResultFolderTest, IgnoredSignalsStayIgnored) {
  std::signal(SIGHUP, SIG_IGN);  // as nohup does
  {
    ResultFolder results(folder());
    raise(SIGHUP);
    results.write("a.csv", "1");
    results.publish();
  }
  std::signal(SIGHUP, SIG_DFL);
  EXPECT_THAT(names(), UnorderedElementsAre("a.csv"));
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
