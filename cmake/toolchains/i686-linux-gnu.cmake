# SPDX-License-Identifier: BSL-1.0
# 32-bit x86, by Debian's cross compiler and its libraries; what is built runs under qemu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER i686-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER i686-linux-gnu-g++)
# Libraries of the same architecture may be installed on the host too.
set(CMAKE_CROSSCOMPILING_EMULATOR
  qemu-i386 -L /usr/i686-linux-gnu -E LD_LIBRARY_PATH=/usr/i686-linux-gnu/lib)
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")  # the clipper's code too
