#!/usr/bin/env bash
# Prints the project version, the one in the top CMakeLists.txt's project()
# call, for everything built outside CMake (the Debian packages, the Python
# wheel, the npm package):
#
#   scripts/version.sh            1.0.0
#   scripts/version.sh major      1  (also: minor, patch)
set -euo pipefail
cd "$(dirname "$0")/.."

version=$(sed -n '/^project(Qtzqeffect/,/)/s/.*\bVERSION  *\([0-9][0-9.]*\).*/\1/p' CMakeLists.txt | head -n1)
if [[ ! $version =~ ^[0-9]+\.[0-9]+\.[0-9]+$ ]]; then
  echo "no X.Y.Z VERSION in the project() call of CMakeLists.txt" >&2
  exit 1
fi
IFS=. read -r major minor patch <<<"$version"
case ${1:-full} in
  full) echo "$version" ;;
  major) echo "$major" ;;
  minor) echo "$minor" ;;
  patch) echo "$patch" ;;
  *) echo "usage: $0 [full|major|minor|patch]" >&2; exit 2 ;;
esac
