#!/usr/bin/env bash
# dpkg installs a Multi-Arch: same package for several architectures at
# once only if the files they share are identical: checks that for every
# such package built for two architectures.
#
#   tests/packaging/check_multiarch.sh DEB_DIR_A DEB_DIR_B
set -euo pipefail

failed=0
for deb in "$1"/*.deb; do
  [[ $(dpkg-deb -f "$deb" Multi-Arch) == same ]] || continue
  package=$(dpkg-deb -f "$deb" Package)
  other=$(ls "$2/${package}_"*.deb)
  # Path, checksum here, checksum there: of every path both packages ship.
  shared=$(join -j2 <(dpkg-deb -I "$deb" md5sums | sort -k2) <(dpkg-deb -I "$other" md5sums | sort -k2))
  differing=$(awk '$2 != $3 {print $1}' <<<"$shared")
  if [[ -n $differing ]]; then
    echo "FAIL $package: shared files differ between architectures: $differing"
    failed=1
  else
    echo "ok   $package: $(wc -l <<<"$shared") shared files identical"
  fi
done
exit $failed
