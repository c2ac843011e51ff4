#!/bin/sh
# Fails if library code calls the host maths library's exp, log, pow or
# trigonometric functions (std:: or not) instead of the portable ones of
# src/math/portable_math.h: their last bit differs between CPUs, and a
# coefficient or table built from them moves pixels. expf (whose arguments
# in the library give the same bits everywhere) and sqrt (exact by IEEE 754)
# stay allowed. Comments are ignored.
#
#   check_host_maths.sh SOURCE_DIR      (the library's src/ folder)
set -eu
source_dir=$1

calls='(^|[^A-Za-z0-9_])(exp|exp2|expm1|log|log2|log10|log1p|pow|sin|cos|tan|sincos|asin|acos|atan|atan2|sinh|cosh|tanh|cbrt|hypot)[fl]?[[:space:]]*\('

found=$(
  cd "$source_dir" &&
    find . -type f \( -name '*.cpp' -o -name '*.h' \) ! -name 'portable_math.*' | sed 's|^\./||' |
    LC_ALL=C sort | while read -r file; do
      # Comments dropped and expf( blanked out before looking for calls.
      sed -E -e 's://.*$::' -e 's:/\*.*\*/::g' -e 's/(^|[^A-Za-z0-9_])expf[[:space:]]*\(/\1(/g' "$file" |
        grep -n -E "$calls" | cut -d: -f1 | while read -r line; do
          echo "$file:$line: $(sed -n "${line}p" "$file")"
        done
    done
)

if [ -n "$found" ]; then
  echo "host maths library calls (use qtzq::portable_exp / _sin / _cos / _pow):"
  echo "$found"
  exit 1
fi
echo "no host maths library calls outside portable_math.*"
