/// @file
/// Limits of numbers on the command line.

#ifndef CALCULATIONS_APPS_COMMON_CONSOLE_RANGE_CHECK_H
#define CALCULATIONS_APPS_COMMON_CONSOLE_RANGE_CHECK_H

#include <CLI/CLI.hpp>

namespace Console {

/// Unlike CLI::Range it refuses not-a-number.
CLI::Validator between(double lowest, double highest);

}  // namespace Console

#endif
