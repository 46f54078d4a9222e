// SPDX-License-Identifier: BSL-1.0
/// @file
/// The axis of a program, from LandXML.

#ifndef CALCULATIONS_APPS_COMMON_CONSOLE_AXIS_FILE_H
#define CALCULATIONS_APPS_COMMON_CONSOLE_AXIS_FILE_H

#include "common/console/CommandLine.h"
#include "common/exchange/AxisBuilder.h"
#include "common/exchange/LandXmlReader.h"

#include <optional>
#include <string>

namespace Console {

struct AxisOptions {
  std::string alignment;  ///< its name; empty: the first
  std::string profile;    ///< its name; empty: the proposed one
  std::optional<double> cantBase;
};

struct AxisFile {
  Exchange::Alignment alignment;
  Exchange::BuiltAxis built;
};

/// @param file the option that names the file, without which these have no use
void addAxisOptions(OptionGroup group, AxisOptions& options, const Option& file);

/// Throws a Failure for a file that cannot be used.
AxisFile readAxisFile(const std::string& path, const AxisOptions& options);

}  // namespace Console

#endif
