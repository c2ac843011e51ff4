#!/usr/bin/env bash
# Builds the WebAssembly module, its npm package and the photo page with
# Emscripten, and runs their tests: the golden digests under node, the
# JavaScript API under node and the page in headless Chromium, the last two
# compared byte for byte with the native qtzq tool (built here if needed).
# Installs Emscripten, node, npm and Chromium first if they are missing, and
# the tests' own npm packages from tests/wasm/package-lock.json.
#
#   scripts/wasm-test.sh [BUILD_DIR]      (default: build-wasm)
set -euo pipefail
cd "$(dirname "$0")/.."

build_dir=${1:-build-wasm}

scripts/install-deps.sh emscripten node-acorn nodejs chromium
# npm comes with some node builds; Debian's package only where it does not.
command -v npm >/dev/null || scripts/install-deps.sh npm
# The tests' own JavaScript dependencies (pngjs), as the lock file pins them.
npm ci --prefix tests/wasm --no-audit --no-fund >/dev/null
# Debian's Emscripten runs its optimiser with Debian's acorn, found here.
export NODE_PATH=/usr/share/nodejs

jobs=$(nproc 2>/dev/null || echo 2)
cmake --preset default >/dev/null
cmake --build --preset default -j "$jobs" --target qtzq
emcmake cmake -S . -B "$build_dir" -DCMAKE_BUILD_TYPE=Release \
  -DQTZQ_CLI="$PWD/build/tools/qtzq" >/dev/null
cmake --build "$build_dir" -j "$jobs"
ctest --test-dir "$build_dir" -j "$jobs" --output-on-failure
# The npm package carries the project's version, as the other packages do.
tests/packaging/check_versions.sh "$build_dir"/qtzqeffect-*.tgz
echo "module: $(stat -c %s "$build_dir/package/qtzqeffect-core.wasm") bytes of .wasm;" \
  "package: $(ls "$build_dir"/qtzqeffect-*.tgz); page: $build_dir/demo/index.html"
