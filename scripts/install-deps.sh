#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, if any is
# missing, and any further packages named as arguments (the cross and
# golden-matrix scripts add theirs). Safe to run again; does nothing when
# everything is there.
set -euo pipefail

packages=(cmake g++ make libgtest-dev libbenchmark-dev libpng-dev libjpeg-dev
  libwebp-dev libtiff-dev libheif-dev binutils pkg-config
  python3-dev python3-pybind11 python3-numpy python3-dask python3-distributed python3-pytest
  "$@")

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if ((${#missing[@]})); then
  echo "installing: ${missing[*]}"
  sudo_cmd=()
  [[ $(id -u) -eq 0 ]] || sudo_cmd=(sudo)
  "${sudo_cmd[@]}" apt-get update -qq
  DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq "${missing[@]}"
fi
