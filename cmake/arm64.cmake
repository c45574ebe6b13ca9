# SPDX-License-Identifier: Apache-2.0
# Toolchain for arm64: Debian's cross compiler, and the arm64 libraries that script/cross unpacks to ORVANE_SYSROOT.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)

set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ORVANE_SYSROOT)
set(ORVANE_SYSROOT ${CMAKE_CURRENT_LIST_DIR}/../build/arm64-sysroot CACHE PATH "Directory with the arm64 libraries")
cmake_path(ABSOLUTE_PATH ORVANE_SYSROOT NORMALIZE)
# The cross compiler has its own C library, so CMAKE_SYSROOT is not set.
list(APPEND CMAKE_FIND_ROOT_PATH ${ORVANE_SYSROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_EXE_LINKER_FLAGS_INIT
  "-Wl,-rpath-link,${ORVANE_SYSROOT}/usr/lib/aarch64-linux-gnu:${ORVANE_SYSROOT}/lib/aarch64-linux-gnu")
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${ORVANE_SYSROOT})
set(ENV{PKG_CONFIG_LIBDIR} ${ORVANE_SYSROOT}/usr/lib/aarch64-linux-gnu/pkgconfig)
