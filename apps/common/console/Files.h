// SPDX-License-Identifier: BSL-1.0
/// @file
/// Files read by the program, and what is told about them. Those written: see ResultFolder.h.

#ifndef CALCULATIONS_APPS_COMMON_CONSOLE_FILES_H
#define CALCULATIONS_APPS_COMMON_CONSOLE_FILES_H

#include "common/exchange/Outcome.h"
#include "common/exchange/Stationing.h"

#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace Console {

/// What ends the program: told to the user, exit code 1.
struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The same for options that do not go together: exit code 2.
struct WrongUsage : Failure {
  using Failure::Failure;
};

/// "file:line: message"
std::string located(const std::string& path, const Exchange::Remark& remark);

template <class T>
T valueOrFail(Exchange::Outcome<T> outcome, const std::string& path) {
  if (!outcome.value) throw Failure(located(path, outcome.error));
  return std::move(*outcome.value);
}

/// The place of a station that an option gives. Throws WrongUsage for what is none.
double placeOf(const std::string& option, const std::string& station,
               const Exchange::Stationing& stationing);

/// On the error stream, how a file is written; nothing when that is empty.
void tellDescription(const std::string& path, const std::string& description);

/// Throws a Failure for a file that cannot be read or is empty.
std::ifstream openFile(const std::string& path);

/// The same for a file of at most a gigabyte, read as a whole.
std::string textOf(const std::string& path);

/// Reads a table and tells how it is written if that is not the plain form.
template <class File, class Format>
File readTable(const std::string& path,
               Exchange::Outcome<File> (*read)(std::istream&, const Format&),
               const Format& format) {
  std::ifstream in = openFile(path);
  File file = valueOrFail(read(in, format), path);
  tellDescription(path, file.description);
  return file;
}

std::string fileName(const std::string& path);

/// Prints the first remarks in the order of their lines to the error stream, and how many more
/// there are.
void printRemarks(const std::string& path, std::vector<Exchange::Remark> remarks);

/// Prints why results of a file may be wrong to the error stream.
void printDoubts(const std::string& path, const std::vector<std::string>& doubts);

void printHeading(const std::string& heading);

}  // namespace Console

#endif
