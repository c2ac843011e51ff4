#!/usr/bin/env bash
# Builds the library and runs the whole test suite, first in a normal
# optimised build, then under AddressSanitizer + UndefinedBehaviorSanitizer.
# Installs missing build dependencies first.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh

jobs=$(nproc 2>/dev/null || echo 2)
for preset in default sanitize; do
  echo "=== $preset build ==="
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j "$jobs"
  ctest --preset "$preset" -j "$jobs"
done
