#!/usr/bin/env bash
# Installs the wheel offline into a fresh virtual environment of the system
# Python (its site packages give Debian's numpy and pytest), checks that the
# module finds the library it carries through an $ORIGIN run path, with no
# installed libQtzqeffect, and runs part of the pytest suite against it.
#
#   tests/packaging/check_wheel.sh WHEEL WORK_DIR
set -euo pipefail
repo=$(cd "$(dirname "$0")/../.." && pwd)

wheel=$(realpath "$1") work=$(realpath -m "$2")
rm -rf "$work" && mkdir -p "$work"
/usr/bin/python3 -m venv --system-site-packages "$work/venv"
"$work/venv/bin/pip" install -q --no-index "$wheel"

site=$("$work/venv/bin/python" -c 'import sysconfig; print(sysconfig.get_path("platlib"))')
runpath=$(readelf -d "$site"/qtzqeffect/_qtzqeffect.*.so | sed -n 's/.*(RUNPATH).*\[\(.*\)\]/\1/p')
[[ $runpath == '$ORIGIN' || $runpath == '$ORIGIN/' ]] || { echo "module run path: '$runpath'" >&2; exit 1; }

# From a scratch folder, so that nothing but the venv provides qtzqeffect.
cd "$work"
env -u LD_LIBRARY_PATH -u PYTHONPATH "$work/venv/bin/python" \
  "$repo/tests/python/installed_package.py" "$work/venv"
env -u LD_LIBRARY_PATH -u PYTHONPATH PYTHONDONTWRITEBYTECODE=1 "$work/venv/bin/python" -m pytest \
  -q -p no:cacheprovider "$repo"/tests/python/test_{arrays,primitives,stubs}.py
