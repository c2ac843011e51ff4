#!/usr/bin/env bash
# Cross-builds the library and its test suite for 32-bit ARM Linux
# (armhf) and runs every test under qemu-arm, golden digests included.
# Installs the cross compiler and the emulator first if they are missing.
#
#   scripts/cross-test-armhf.sh [BUILD_DIR]      (default: build-armhf)
set -euo pipefail
cd "$(dirname "$0")/.."

build_dir=${1:-build-armhf}

scripts/install-deps.sh crossbuild-essential-armhf qemu-user googletest

jobs=$(nproc 2>/dev/null || echo 2)
cmake -S . -B "$build_dir" \
  -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/toolchains/armhf.cmake" \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DQTZQ_BUILD_TOOLS=OFF \
  -DQTZQ_GTEST_FROM_SOURCE=ON >/dev/null
cmake --build "$build_dir" -j "$jobs"
ctest --test-dir "$build_dir" -j "$jobs" --output-on-failure
