#!/usr/bin/env bash
# Builds every distribution artefact and tests it: the Debian packages for
# amd64 and armhf (lintian, then a consumer built and run against them
# unpacked into a scratch root, under qemu-arm for armhf), the Python wheel
# (installed into a fresh virtual environment, part of the pytest suite run
# against it), and one version in all of them; the packages of both
# architectures must install side by side where Multi-Arch allows it.
# Installs what it needs first.
#
#   scripts/package.sh [OUT_DIR]      (default: build-package)
set -euo pipefail
cd "$(dirname "$0")/.."

out=${1:-build-package}

scripts/install-deps.sh dpkg-dev lintian crossbuild-essential-armhf qemu-user unzip \
  python3-pip python3-venv python3-build python3-setuptools python3-wheel

for arch in amd64 armhf; do
  packaging/debian/build-debs.sh "$arch" "$out/deb-$arch"
  # Kept warning: qtzq has no manual page; `qtzq --help` and
  # `qtzq COMMAND --help` document every command.
  lintian --fail-on error,warning --suppress-tags no-manual-page "$out/deb-$arch"/*.deb
  tests/packaging/check_debs.sh "$arch" "$out/deb-$arch" "$out/check-$arch"
done
tests/packaging/check_multiarch.sh "$out/deb-amd64" "$out/deb-armhf"

rm -rf "$out/wheel"
/usr/bin/python3 -m build --wheel --no-isolation python -o "$out/wheel" >/dev/null
tests/packaging/check_wheel.sh "$out"/wheel/*.whl "$out/check-wheel"

tests/packaging/check_versions.sh "$out"/deb-*/*.deb "$out"/wheel/*.whl
