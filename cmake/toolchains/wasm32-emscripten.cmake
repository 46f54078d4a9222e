# SPDX-License-Identifier: BSL-1.0
# WebAssembly for browsers, by Debian's emscripten. Libraries and headers come from folders of their
# own: tools/port-prefix makes them.
set(CMAKE_FIND_USE_CMAKE_SYSTEM_PATH OFF)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY BOTH)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE BOTH)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
set(EMSCRIPTEN_SYSTEM_PROCESSOR wasm32)  # it would call itself x86
set(Boost_NO_BOOST_CMAKE ON)  # FindBoost asks for headers only
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)

# Without them whatever throws ends the program. Those of WebAssembly itself, which browsers have
# since 2021, are faster and smaller than emscripten's own, which go by JavaScript.
set(CMAKE_CXX_FLAGS_INIT -fwasm-exceptions)
