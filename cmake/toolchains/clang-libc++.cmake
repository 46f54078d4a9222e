# SPDX-License-Identifier: BSL-1.0
# This machine by clang with LLVM's standard library. With the name of a system CMake builds as for
# another machine: libraries of the host that stand on another standard library are left alone.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_FLAGS_INIT -stdlib=libc++)
set(CMAKE_CROSSCOMPILING_EMULATOR env)  # which runs a program as it is
