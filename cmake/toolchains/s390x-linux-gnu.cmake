# SPDX-License-Identifier: BSL-1.0
# IBM Z, which stores the high byte of a number first, by Debian's cross compiler and its libraries; what is built runs under qemu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(CMAKE_C_COMPILER s390x-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER s390x-linux-gnu-g++)
# Libraries of the same architecture may be installed on the host too.
set(CMAKE_CROSSCOMPILING_EMULATOR
  qemu-s390x -L /usr/s390x-linux-gnu -E LD_LIBRARY_PATH=/usr/s390x-linux-gnu/lib)
