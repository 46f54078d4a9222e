# The client in the README is the one that is compiled.
file(READ ${README} readme)
file(READ ${CLIENT} client)
string(FIND "${readme}" "```cpp\n${client}```" place)
if(place EQUAL -1)
  message(FATAL_ERROR "The README does not show ${CLIENT}")
endif()
