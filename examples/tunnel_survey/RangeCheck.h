/// @file
/// Limits of numbers on the command line.

#ifndef CALCULATIONS_EXAMPLES_TUNNEL_SURVEY_RANGE_CHECK_H
#define CALCULATIONS_EXAMPLES_TUNNEL_SURVEY_RANGE_CHECK_H

#include <CLI/CLI.hpp>

namespace TunnelSurvey {

/// Unlike CLI::Range it refuses not-a-number.
CLI::Validator between(double lowest, double highest);

}  // namespace TunnelSurvey

#endif
