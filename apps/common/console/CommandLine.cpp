// SPDX-License-Identifier: BSL-1.0
#include "common/console/CommandLine.h"

#include "common/console/Files.h"
#include "common/exchange/NumberParsing.h"

#include <CLI/CLI.hpp>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <sstream>

#include <fcntl.h>
#include <unistd.h>

namespace Console {

namespace {

std::string rangeText(double lowest, double highest) {
  constexpr int kEveryDigit = 12;
  std::ostringstream text;
  text.precision(kEveryDigit);
  text << lowest << " to " << highest;
  return text.str();
}

/// Unlike CLI::Range it refuses not-a-number.
CLI::Validator rangeCheck(double lowest, double highest) {
  const std::string range = rangeText(lowest, highest);
  const auto complaint = [=](const std::string& text) {
    const auto number = Exchange::parseNumber(text);
    const bool fits = number && *number >= lowest && *number <= highest;
    return fits ? std::string() : text + " is not a number from " + range;
  };
  return CLI::Validator(complaint, range);
}

/// An empty text is what a script gives whose variable is not set.
std::string complaintOnEmpty(const std::string& text) { return text.empty() ? "is empty" : ""; }

/// A file that is opened while a standard stream is closed would take its place, and get its text.
/// A closed pipe is an output that cannot be written, not a reason to end without a word.
void keepStandardStreams() {
  std::signal(SIGPIPE, SIG_IGN);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    const bool isClosed = fcntl(stream, F_GETFD) < 0;
    // Opened for reading, so that writing to it fails.
    if (isClosed && open("/dev/null", O_RDONLY) != stream) std::abort();
  }
}

}  // namespace

Option& Option::required() {
  m_option->required();
  return *this;
}

Option& Option::between(double lowest, double highest) {
  m_option->check(rangeCheck(lowest, highest));
  return *this;
}

Option& Option::tellDefault() {
  m_option->capture_default_str();
  return *this;
}

Option& Option::list() {
  m_option->delimiter(',');
  return *this;
}

Option& Option::list(int count) {
  m_option->delimiter(',')->expected(count);
  return *this;
}

Option& Option::needs(const Option& other) {
  m_option->needs(other.m_option);
  return *this;
}

Option& Option::excludes(const Option& other) {
  m_option->excludes(other.m_option);
  return *this;
}

Option OptionGroup::add(const std::string& name, std::string& target, const std::string& purpose) {
  return Option(m_app->add_option(name, target, purpose)->check(complaintOnEmpty));
}

Option OptionGroup::add(const std::string& name, double& target, const std::string& purpose) {
  return Option(m_app->add_option(name, target, purpose));
}

Option OptionGroup::add(const std::string& name, std::optional<double>& target,
                        const std::string& purpose) {
  return Option(m_app->add_option(name, target, purpose));
}

Option OptionGroup::add(const std::string& name, std::vector<std::string>& target,
                        const std::string& purpose) {
  return Option(m_app->add_option(name, target, purpose)->allow_extra_args(false));
}

Option OptionGroup::addFlag(const std::string& name, bool& target, const std::string& purpose) {
  return Option(m_app->add_flag(name, target, purpose));
}

OptionGroup OptionGroup::group(const std::string& heading) {
  return OptionGroup(m_app->add_option_group(heading));
}

CommandLine::CommandLine(const Program& program)
    : m_app(std::make_unique<CLI::App>(program.purpose, program.name)) {
  m_app->set_version_flag("--version", program.name + " " CALCULATIONS_VERSION);
  m_app->footer("Examples:\n" + program.examples +
                "\nExit codes: 0 fine, 1 failed, 2 wrong usage, 3 results that are doubtful.");
}

CommandLine::~CommandLine() = default;

std::optional<ExitCode> CommandLine::read(int argc, char** argv) {
  try {
    m_app->parse(argc, argv);
    return std::nullopt;
  } catch (const CLI::ParseError& error) {
    return m_app->exit(error) == 0 ? ExitCode::Fine : ExitCode::WrongUsage;
  }
}

int exitCodeOf(const std::string& name, const std::function<ExitCode()>& work) {
  keepStandardStreams();
  const auto failed = [&name](const std::string& reason, ExitCode code) {
    std::cerr << name << ": " << reason << '\n';
    return static_cast<int>(code);
  };
  try {
    const ExitCode code = work();
    std::cout.flush();
    return std::cout ? static_cast<int>(code)
                     : failed("standard output: cannot be written", ExitCode::Failed);
  } catch (const WrongUsage& error) {
    return failed(error.what(), ExitCode::WrongUsage);
  } catch (const std::bad_alloc&) {
    return failed("there is not enough memory", ExitCode::Failed);
  } catch (const std::exception& error) {
    return failed(error.what(), ExitCode::Failed);
  }
}

}  // namespace Console
