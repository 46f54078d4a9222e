/// @file
/// The frame of a command: reads its options, runs it, reports failures.

#ifndef CALCULATIONS_APPS_COMMON_CONSOLE_COMMAND_LINE_H
#define CALCULATIONS_APPS_COMMON_CONSOLE_COMMAND_LINE_H

#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <string>

namespace Console {

/// Options are those of addOptions(CLI::App&, Options&), found beside the type. Failures are
/// exceptions.
/// @return what main() returns
template <class Options>
int runCommand(const std::string& name, const std::string& purpose, void (*run)(const Options&),
               int argc, char** argv) {
  try {
    CLI::App app{purpose};
    Options options;
    addOptions(app, options);
    try {
      app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
      return app.exit(error) == 0 ? 0 : 1;
    }
    run(options);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << name << ": " << error.what() << '\n';
    return 1;
  }
}

}  // namespace Console

#endif
