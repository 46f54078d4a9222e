// SPDX-License-Identifier: BSL-1.0
/// @file
/// Text of files, made fit to be shown.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_VISIBLE_TEXT_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_VISIBLE_TEXT_H

#include <string>
#include <string_view>

namespace Exchange {

bool isUtf8(std::string_view text);

/// In UTF-8. The five bytes without a meaning in Windows-1252 become U+FFFD.
std::string fromWindows1252(std::string_view text);

/// Control letters, and those that change the direction of writing or show nothing, are written as
/// their numbers: "\x1b", "\u202e". A name in a file can thus neither steer a terminal nor look
/// like another one. Bytes that are no UTF-8 are written so too.
std::string visible(std::string_view text);

/// The same in double quotes, and not too long: for messages.
std::string inQuotes(std::string_view text);

}  // namespace Exchange

#endif
