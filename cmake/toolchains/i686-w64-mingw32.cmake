# SPDX-License-Identifier: BSL-1.0
set(CMAKE_SYSTEM_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
string(APPEND CMAKE_CXX_FLAGS_INIT " -msse2 -mfpmath=sse")  # the clipper's code too
