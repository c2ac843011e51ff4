#!/usr/bin/env bash
# Checks that every artefact carries the CMake project's version
# (scripts/version.sh): Debian packages (control, changelog; in the library
# package the file name behind the soname and the shlibs file; in the -dev
# package the pkg-config file and the CMake package), Python wheels and npm
# packages (package.json, or a packed .tgz).
#
#   tests/packaging/check_versions.sh ARTEFACT...
set -euo pipefail
repo=$(cd "$(dirname "$0")/../.." && pwd)
version=$("$repo/scripts/version.sh")
major=$("$repo/scripts/version.sh" major)

failed=0
# expect WHAT FOUND: one line of the report, a failure when FOUND is not the version.
expect() {
  if [[ $2 == "$version" ]]; then echo "ok   $1: $2"; else echo "FAIL $1: '$2'"; failed=1; fi
}
# A member of a .deb's data, printed.
deb_file() { dpkg-deb --fsys-tarfile "$1" | tar -xOf - --wildcards "$2"; }

for artefact in "$@"; do
  name=$(basename "$artefact")
  case $name in
    *.deb)
      package=$(dpkg-deb -f "$artefact" Package)
      expect "$name control" "$(dpkg-deb -f "$artefact" Version)"
      expect "$name changelog" "$(deb_file "$artefact" "./usr/share/doc/$package/changelog.gz" |
        gzip -dc | sed -n '1s/^[^ ]* (\([^)]*\)).*/\1/p')"
      case $package in
        libqtzqeffect$major)
          expect "$name library file" "$(dpkg-deb -c "$artefact" |
            sed -n "s/^-.*libQtzqeffect\.so\.\([0-9.]*\)\$/\1/p")"
          expect "$name shlibs" "$(dpkg-deb -I "$artefact" shlibs | sed -n 's/.*(>= \(.*\))$/\1/p')" ;;
        libqtzqeffect-dev)
          expect "$name pkg-config" "$(deb_file "$artefact" '*/qtzqeffect.pc' | sed -n 's/^Version: //p')"
          expect "$name CMake package" "$(deb_file "$artefact" '*/QtzqeffectConfigVersion.cmake' |
            sed -n 's/^set(PACKAGE_VERSION "\(.*\)")$/\1/p')" ;;
      esac ;;
    *.whl)
      expect "$name file name" "$(cut -d- -f2 <<<"$name")"
      expect "$name metadata" "$(unzip -p "$artefact" '*.dist-info/METADATA' | sed -n 's/^Version: //p')" ;;
    package.json)
      expect "$artefact" "$(sed -n 's/^  "version": "\(.*\)",\?$/\1/p' "$artefact")" ;;
    *.tgz)
      expect "$name package.json" "$(tar -xOzf "$artefact" package/package.json |
        sed -n 's/^  "version": "\(.*\)",\?$/\1/p')" ;;
    *) echo "FAIL $artefact: not a .deb, .whl, package.json or .tgz"; failed=1 ;;
  esac
done
exit $failed
