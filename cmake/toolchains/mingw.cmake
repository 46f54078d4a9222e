# SPDX-License-Identifier: BSL-1.0
# Windows by Debian's mingw-w64 with threads as in POSIX, which std::mutex needs; what is built runs
# under wine. The host's /usr/include would poison the compiler, so headers come from folders of
# their own: tools/test-port makes them.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR wine)
set(CMAKE_FIND_USE_CMAKE_SYSTEM_PATH OFF)
set(Boost_NO_BOOST_CMAKE ON)  # FindBoost asks for headers only

# A folder as one has more sections than the usual object file.
set(CMAKE_CXX_FLAGS_INIT -Wa,-mbig-obj)
