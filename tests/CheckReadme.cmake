# SPDX-License-Identifier: BSL-1.0
# The client in the README is the one that is compiled, but for the line that names its licence.
file(READ ${README} readme)
file(READ ${CLIENT} client)
string(REGEX REPLACE "^// SPDX[^\n]*\n" "" client "${client}")
string(FIND "${readme}" "```cpp\n${client}```" place)
if(place EQUAL -1)
  message(FATAL_ERROR "The README does not show ${CLIENT}")
endif()
