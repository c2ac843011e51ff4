#!/bin/sh
# Compares the dynamic symbols that a shared library defines with the list of
# the public surface: every *.symbols file in the given folder, one demangled
# signature per line ('#' starts a comment). AddressSanitizer's one-definition
# markers for exported globals (__odr_asan.*) are not part of the surface.
#
#   check_exports.sh LIBRARY SYMBOLS_DIR
set -eu
library=$1
folder=$2
nm=${NM:-nm}
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT

cat "$folder"/*.symbols | sed -e 's/#.*//' -e 's/[[:space:]]*$//' | grep -v '^$' |
  LC_ALL=C sort -u >"$tmp/expected"
"$nm" -D --defined-only "$library" | awk '$2 ~ /^[TtWVvDdBbRri]$/ { print $3 }' |
  c++filt | sed 's/@@.*//' | grep -v -E '^(QTZQEFFECT_[0-9.]+|_init|_fini|_edata|_end|__bss_start)$' |
  grep -v -E '^__odr_asan[._]' |
  LC_ALL=C sort -u >"$tmp/actual"

if ! diff -u "$tmp/expected" "$tmp/actual" >"$tmp/diff"; then
  echo "exported symbols differ from $folder/*.symbols ('-' missing, '+' unexpected):"
  sed -n '3,$p' "$tmp/diff" | grep -E '^[-+]'
  exit 1
fi
echo "$(wc -l <"$tmp/actual") exported symbols match $folder/*.symbols"
