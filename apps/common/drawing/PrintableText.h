// SPDX-License-Identifier: BSL-1.0
/// @file
/// Text from files as it can be shown.

#ifndef CALCULATIONS_APPS_COMMON_DRAWING_PRINTABLE_TEXT_H
#define CALCULATIONS_APPS_COMMON_DRAWING_PRINTABLE_TEXT_H

#include <string>

namespace Drawing {

/// Valid UTF-8: bytes that are none become '?', and characters that are not seen but change how
/// others are shown (controls, line breaks, changes of the writing direction) are written out, as
/// "\u202E".
std::string printable(const std::string& text);

/// Printable, with the characters that mean something in XML and HTML escaped.
std::string escapedForXml(const std::string& text);

}  // namespace Drawing

#endif
