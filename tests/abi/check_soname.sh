#!/bin/sh
# Checks the SONAME recorded in a shared library.
#   check_soname.sh LIBRARY EXPECTED_SONAME
set -eu
actual=$(${READELF:-readelf} -d "$1" | sed -n 's/.*(SONAME).*\[\(.*\)\].*/\1/p')
if [ "$actual" != "$2" ]; then
  echo "SONAME is '$actual', expected '$2'"
  exit 1
fi
echo "SONAME $actual"
