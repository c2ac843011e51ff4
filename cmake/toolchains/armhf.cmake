# Cross-compiling for 32-bit ARM Linux, hard-float (Debian's armhf), the
# platform of the applications that load this library.
#
#   cmake -S . -B build-armhf -DCMAKE_TOOLCHAIN_FILE=cmake/toolchains/armhf.cmake
#
# Needs Debian's crossbuild-essential-armhf. With qemu-user installed the
# test programs run on the build machine through qemu-arm (ctest and the
# GoogleTest discovery both prepend CMAKE_CROSSCOMPILING_EMULATOR), with
# the armhf C and C++ runtime libraries taken from the cross sysroot.
# scripts/cross-test-armhf.sh installs both and runs the whole suite.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)

set(QTZQ_ARMHF_TRIPLE arm-linux-gnueabihf)
set(QTZQ_ARMHF_SYSROOT /usr/${QTZQ_ARMHF_TRIPLE}
    CACHE PATH "armhf runtime libraries, the library prefix qemu-arm loads them from")

# The compilers' own defaults are the armhf ABI (ARMv7-A, VFPv3-D16,
# Thumb-2, hard-float calling convention); nothing is added here so that the
# build sees exactly what Debian's armhf packages are built with.
set(CMAKE_C_COMPILER ${QTZQ_ARMHF_TRIPLE}-gcc)
set(CMAKE_CXX_COMPILER ${QTZQ_ARMHF_TRIPLE}-g++)
# GCC notes that the argument passing of some standard-library types
# changed in GCC 7.1; everything here is built by one compiler, so the note
# does not concern us and would only bury real warnings.
set(CMAKE_C_FLAGS_INIT -Wno-psabi)
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)

# Libraries and headers come from the cross sysroot only; programs (nm,
# readelf, the emulator) from the build machine.
set(CMAKE_FIND_ROOT_PATH ${QTZQ_ARMHF_SYSROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Binary tools of the cross toolchain: the ABI test reads the armhf
# library's dynamic symbols with these.
find_program(CMAKE_NM ${QTZQ_ARMHF_TRIPLE}-nm)
find_program(CMAKE_READELF ${QTZQ_ARMHF_TRIPLE}-readelf)

find_program(QTZQ_QEMU_ARM qemu-arm)
if(QTZQ_QEMU_ARM)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${QTZQ_QEMU_ARM} -L ${QTZQ_ARMHF_SYSROOT})
endif()
