#!/usr/bin/env bash
# Builds the library and runs every check that CI runs, stage by stage.
# Installs missing packages first (each stage's script installs its own).
#
#   scripts/run-tests.sh [STAGE...]
#
# STAGE is one of (default: all, in this order):
#   default   optimised build, whole suite (golden digests, Python package,
#             benchmark smoke run included)
#   sanitize  whole suite under AddressSanitizer + UndefinedBehaviorSanitizer
#   tsan      the blur suite (concurrent blurs) under ThreadSanitizer
#   armhf     cross build for 32-bit ARM, whole suite under qemu-arm
#   matrix    golden digests with clang, and gcc at -O3 -march=native
#   fuzz      the file readers and frame compositing, 30 s per fuzz target
#   files     look tables checked in ImageMagick and ffmpeg (installs both)
#   package   Debian packages (amd64, armhf) and the Python wheel, built,
#             installed into scratch roots and used; one version in all
#   wasm      WebAssembly build: golden digests under node, the JavaScript
#             API and the photo page (headless Chromium) against qtzq
set -euo pipefail
cd "$(dirname "$0")/.."

all_stages=(default sanitize tsan armhf matrix fuzz files package wasm)
stages=("${@:-${all_stages[@]}}")
jobs=$(nproc 2>/dev/null || echo 2)

scripts/install-deps.sh

# Configures, builds and tests one CMake preset (optionally one test target).
run_preset() {
  local preset=$1 target=${2:-} filter=${3:-}
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j "$jobs" ${target:+--target "$target"}
  ctest --preset "$preset" -j "$jobs" ${filter:+-R "$filter"}
}

for stage in "${stages[@]}"; do
  echo "=== $stage ==="
  start=$SECONDS
  case $stage in
    default) run_preset default ;;
    sanitize) run_preset sanitize ;;
    tsan) run_preset tsan qtzq_blur_tests '^blur\.' ;;
    armhf) scripts/cross-test-armhf.sh ;;
    matrix) scripts/golden-matrix.sh gcc-O3-native clang-O0 clang-normal clang-O3-native ;;
    fuzz) scripts/fuzz.sh 30 ;;
    files) scripts/install-deps.sh imagemagick ffmpeg && run_preset default qtzq '^files\.' ;;
    package) scripts/package.sh ;;
    wasm) scripts/wasm-test.sh ;;
    *) echo "unknown stage '$stage' (one of: ${all_stages[*]})" >&2; exit 2 ;;
  esac
  echo "=== $stage: passed in $((SECONDS - start)) s ==="
done

# Every stage stops the script on its first failure, so reaching this line
# means all of them passed.
echo "stages: ${#stages[@]} passed, 0 failed"
