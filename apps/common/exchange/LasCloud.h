// SPDX-License-Identifier: BSL-1.0
/// @file
/// Scans in LAS, the exchange format of the American Society for Photogrammetry and Remote Sensing.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_LAS_CLOUD_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_LAS_CLOUD_H

#include "common/exchange/PointCloud.h"

namespace Exchange {

/// LAS 1.0 to 1.4, all point formats. Points that the file marks as withheld are left out.
/// @param in stands at the signature, and must live as long
Outcome<std::unique_ptr<PointCloud>> openLas(std::istream& in);

}  // namespace Exchange

#endif
