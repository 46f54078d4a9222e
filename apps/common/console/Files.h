/// @file
/// Files read by the program, and what is told about them. Those written: see ResultFolder.h.

#ifndef CALCULATIONS_APPS_COMMON_CONSOLE_FILES_H
#define CALCULATIONS_APPS_COMMON_CONSOLE_FILES_H

#include "common/exchange/AlignmentModel.h"

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

/// Throws a Failure for a file that cannot be read or is empty.
std::string textOf(const std::string& path);

std::string fileName(const std::string& path);

/// Prints the first remarks in the order of their lines to the error stream, and how many more
/// there are.
void printRemarks(const std::string& path, std::vector<Exchange::Remark> remarks);

void printHeading(const std::string& heading);

}  // namespace Console

#endif
