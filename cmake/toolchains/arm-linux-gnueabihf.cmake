# SPDX-License-Identifier: BSL-1.0
# 32-bit ARM with hardware doubles, by Debian's cross compiler. Compiled libraries come from Debian's
# armhf packages, header-only ones (Boost, Eigen) from the host; what is built runs under qemu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm)

# GCC 7 changed how some class values are passed; everything here is of one compiler.
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)
