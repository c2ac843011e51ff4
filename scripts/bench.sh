#!/usr/bin/env bash
# Builds the benchmark suite (optimised, with OpenCV anchors when OpenCV can
# be installed), runs it single-threaded on a 12-megapixel photo and writes
# the report to BENCHMARKS.md. Takes a few minutes on 2 cores; run it on an
# otherwise idle machine.
#
#   scripts/bench.sh [qtzq-bench options...]
#
# Options go to Google Benchmark, e.g. --benchmark_filter='effect/' to time
# one family (the report then holds that family only). QTZQ_BENCH_PHOTO and
# QTZQ_BENCH_SIZE=WxH choose another photo or size.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh libbenchmark-dev
# The anchors are optional: the suite builds without OpenCV.
scripts/install-deps.sh libopencv-dev || echo "OpenCV not available: no anchors"

build=build-bench
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DQTZQ_BUILD_BENCHMARKS=ON \
  -DQTZQ_BUILD_TESTS=OFF >/dev/null
cmake --build "$build" -j "$(nproc 2>/dev/null || echo 2)" --target qtzq-bench

results=$build/bench-results.json
"$build/bench/qtzq-bench" \
  --benchmark_repetitions=3 --benchmark_min_time=0.1 \
  --benchmark_report_aggregates_only=true \
  --benchmark_out="$results" --benchmark_out_format=json "$@"
python3 bench/report.py "$results" -o BENCHMARKS.md
echo "wrote BENCHMARKS.md (raw results: $results)"
