// SPDX-License-Identifier: BSL-1.0
/// @file
/// The frame of a command: declares its options, reads them, runs it, reports failures.
///
/// The library that reads command lines takes half a minute to compile and is therefore included in
/// one source alone; programs declare their options through these few classes.

#ifndef CALCULATIONS_APPS_COMMON_CONSOLE_COMMAND_LINE_H
#define CALCULATIONS_APPS_COMMON_CONSOLE_COMMAND_LINE_H

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace Console {

/// One option of a command line. Copies refer to the same option.
class Option {
 public:
  explicit Option(CLI::Option* option) : m_option(option) {}

  Option& required();
  /// Numbers from lowest to highest only; not-a-number is none of them.
  Option& between(double lowest, double highest);
  /// The help tells the value that holds when the option is not given.
  Option& tellDefault();
  /// Several numbers, separated by commas.
  Option& list();
  /// That many numbers, separated by commas.
  Option& list(int count);
  Option& needs(const Option& other);
  Option& excludes(const Option& other);

 private:
  CLI::Option* m_option;
};

/// Options that belong together, under a heading of their own in the help. A name without dashes is
/// that of an argument told by its place. Targets must live until the command line is read; one
/// whose option is not given keeps its value.
class OptionGroup {
 public:
  explicit OptionGroup(CLI::App* app) : m_app(app) {}

  Option add(const std::string& name, std::string& target, const std::string& purpose);
  Option add(const std::string& name, double& target, const std::string& purpose);
  Option add(const std::string& name, std::optional<double>& target, const std::string& purpose);
  /// May be given several times.
  Option add(const std::string& name, std::vector<std::string>& target, const std::string& purpose);
  /// True when given.
  Option addFlag(const std::string& name, bool& target, const std::string& purpose);

  OptionGroup group(const std::string& heading);

 private:
  CLI::App* m_app;
};

/// What main() returns. Told at the end of every --help.
enum class ExitCode {
  Fine = 0,
  Failed = 1,
  WrongUsage = 2,
  Doubtful = 3,  ///< the results are there, but something says that they may be wrong
};

struct Program {
  std::string name;
  std::string purpose;   ///< in a sentence
  std::string examples;  ///< lines for the end of the help
};

class CommandLine {
 public:
  explicit CommandLine(const Program& program);
  ~CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  OptionGroup options() { return OptionGroup(m_app.get()); }

  /// Writes the values into the targets, or prints the help, the version or what is wrong.
  /// @return nothing when the command is to run, else the exit code
  std::optional<ExitCode> read(int argc, char** argv);

 private:
  std::unique_ptr<CLI::App> m_app;
};

/// Runs the work and says why it failed. What cannot be printed counts as failure too.
/// @return what main() returns
int exitCodeOf(const std::string& name, const std::function<ExitCode()>& work);

/// Options are those of addOptions(OptionGroup, Options&), found beside the type. Failures are
/// exceptions.
/// @return what main() returns
template <class Options>
int runCommand(const Program& program, ExitCode (*run)(const Options&), int argc, char** argv) {
  return exitCodeOf(program.name, [&] {
    CommandLine line(program);
    Options options;
    addOptions(line.options(), options);
    if (const auto end = line.read(argc, argv)) return *end;
    return run(options);
  });
}

}  // namespace Console

#endif
