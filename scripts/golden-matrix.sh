#!/usr/bin/env bash
# Runs the golden digest test (tests/golden) in every x86-64 configuration
# whose results must agree to the byte: gcc and clang, each at -O0, in the
# normal optimised build (RelWithDebInfo) and at -O3 -march=native. Only the
# library and the golden program are built, in build-golden-<config>/.
# Installs clang (and the usual build packages) if missing.
#
#   scripts/golden-matrix.sh [CONFIG...]
#
# CONFIG is one of gcc-O0 gcc-normal gcc-O3-native clang-O0 clang-normal
# clang-O3-native (default: all six). Exits non-zero if any configuration
# fails to build or disagrees with tests/golden/digests.txt.
set -euo pipefail
cd "$(dirname "$0")/.."

all_configs=(gcc-O0 gcc-normal gcc-O3-native clang-O0 clang-normal clang-O3-native)
configs=("${@:-${all_configs[@]}}")

scripts/install-deps.sh clang

jobs=$(nproc 2>/dev/null || echo 2)

# Sets args to the cmake options of one configuration.
config_args() {
  local compiler=${1%%-*} level=${1#*-}
  args=()
  case $compiler in
    gcc) args+=(-DCMAKE_CXX_COMPILER=g++) ;;
    clang) args+=(-DCMAKE_CXX_COMPILER=clang++) ;;
    *) return 1 ;;
  esac
  case $level in
    O0) args+=(-DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g") ;;
    normal) args+=(-DCMAKE_BUILD_TYPE=RelWithDebInfo) ;;
    O3-native) args+=(-DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_FLAGS_RELEASE=-O3 -march=native") ;;
    *) return 1 ;;
  esac
}

run_config() {
  local dir=build-golden-$1
  config_args "$1" || { echo "unknown configuration $1"; return 1; }
  cmake -S . -B "$dir" "${args[@]}" -DQTZQ_BUILD_TOOLS=OFF >/dev/null &&
    cmake --build "$dir" -j "$jobs" --target qtzq_golden >/dev/null &&
    ctest --test-dir "$dir" -R '^golden\.digests$' --output-on-failure
}

passed=0
failed=0
summary=()
for config in "${configs[@]}"; do
  echo "=== golden digests: $config ==="
  start=$SECONDS
  if run_config "$config"; then
    passed=$((passed + 1))
    summary+=("$config: ok ($((SECONDS - start)) s)")
  else
    failed=$((failed + 1))
    summary+=("$config: FAILED ($((SECONDS - start)) s)")
  fi
done
printf '%s\n' "${summary[@]}"
echo "$passed passed, $failed failed"
((failed == 0))
