// SPDX-License-Identifier: BSL-1.0
#include "common/console/AxisFile.h"

#include "common/console/Files.h"

#include <utility>

namespace Console {

void addAxisOptions(OptionGroup group, AxisOptions& options, const Option& file) {
  group.add("--alignment", options.alignment, "Name of the alignment (default: the first)")
      .needs(file);
  group.add("--profile", options.profile, "Name of its profile (default: the proposed one)")
      .needs(file);
  group
      .add("--cant-base", options.cantBase,
           "Distance of the rails (m): the cant of the file turns offsets and heights")
      .between(0.1, 10.0)
      .needs(file);
}

AxisFile readAxisFile(const std::string& path, const AxisOptions& options) {
  AxisFile file;
  file.alignment =
      valueOrFail(Exchange::readLandXml(textOf(path), {options.alignment, options.profile}), path);
  file.built = valueOrFail(Exchange::buildAxis(file.alignment, options.cantBase), path);
  return file;
}

}  // namespace Console
