# SPDX-License-Identifier: BSL-1.0
# 64-bit ARM, by Debian's cross compiler and its libraries; what is built runs under qemu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
# Libraries of the same architecture may be installed on the host too.
set(CMAKE_CROSSCOMPILING_EMULATOR
  qemu-aarch64 -L /usr/aarch64-linux-gnu -E LD_LIBRARY_PATH=/usr/aarch64-linux-gnu/lib)
