#!/usr/bin/env bash
# Fuzzes the frame, collage and bubble readers, frame compositing and the
# photo file readers (PNG, JPEG, WebP, TIFF, HEIF).
#
#   scripts/fuzz.sh [SECONDS_PER_TARGET]    (default 60)
#
# Builds the libFuzzer targets with clang, AddressSanitizer and
# UndefinedBehaviorSanitizer in build-fuzz/ (QTZQ_FUZZ_BUILD_DIR overrides),
# writes the seed corpus with the tests' file builders, then runs each target
# for the given time. Fails on any crash, sanitizer report, leak, timeout or
# out-of-memory; the input that caused it is kept in <build>/fuzz-artifacts/.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh clang libclang-rt-dev

seconds=${1:-60}
build=${QTZQ_FUZZ_BUILD_DIR:-build-fuzz}
jobs=$(nproc 2>/dev/null || echo 2)
targets=(frame_file frame_composite free_puzzle puzzle_format speech_bubble
  read_png read_jpeg read_webp read_tiff read_heif)

CC=clang CXX=clang++ cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DQTZQ_BUILD_FUZZERS=ON -DQTZQ_BUILD_TESTS=OFF -DQTZQ_BUILD_TOOLS=OFF >/dev/null
cmake --build "$build" --target qtzq-fuzzers -j "$jobs"

seeds="$build/fuzz-seeds"
artifacts="$build/fuzz-artifacts"
rm -rf "$seeds"
mkdir -p "$artifacts"
"$build/fuzz/qtzq-fuzz-seeds" "$seeds"
# (the HEVC encoder libheif uses for a seed keeps a block it never frees)
ASAN_OPTIONS=detect_leaks=0 "$build/fuzz/qtzq-fuzz-photo-seeds" "$seeds"

export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
for target in "${targets[@]}"; do
  echo "=== fuzzing $target for ${seconds}s ==="
  corpus="$build/fuzz-corpus/$target"   # grows from run to run
  mkdir -p "$corpus"
  "$build/fuzz/qtzq-fuzz-$target" -max_total_time="$seconds" -timeout=10 \
    -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="$artifacts/$target-" \
    "$corpus" "$seeds/$target"
done
echo "fuzzing passed: ${targets[*]}"
