#!/usr/bin/env bash
# Builds the Debian packages of one architecture from the CMake build:
#
#   packaging/debian/build-debs.sh ARCH [OUT_DIR]     (default: build-deb/ARCH)
#
#   amd64: libqtzqeffect1, libqtzqeffect-dev, qtzq, python3-qtzqeffect
#          (built natively, on an amd64 machine)
#   armhf: libqtzqeffect1, libqtzqeffect-dev (cross-compiled)
#
# The build uses Debian's compiler flags (dpkg-buildflags), installs into a
# staging root with stripped binaries and splits it into one tree per
# package. Depends are computed: dpkg-shlibdeps for the binaries (our own
# library through the shlibs file of libqtzqeffect1), the interpreter and
# numpy ABI for the Python module. The version is the CMake project's.
set -euo pipefail
cd "$(dirname "$0")/../.."

arch=${1:?usage: $0 amd64|armhf [OUT_DIR]}
out=$(realpath -m "${2:-build-deb/$arch}")
version=$(scripts/version.sh)
soversion=$(scripts/version.sh major)
multiarch=$(dpkg-architecture -a"$arch" -qDEB_HOST_MULTIARCH 2>/dev/null)
maintainer="libQtzqeffect maintainers <maintainers@users.noreply.c-seed-8ad3b6d4.example>"
libpkg=libqtzqeffect$soversion
work=$out/work          # dpkg-shlibdeps looks for the package trees in ./debian/
stage=$work/stage
rm -rf "$work" && mkdir -p "$work/debian"
rm -f "$out"/*.deb

# --- build and install into the staging root --------------------------------
# Build type None: the flags are dpkg-buildflags' alone. No install RPATH:
# the library is in the linker's default path.
cmake_args=(-DCMAKE_INSTALL_PREFIX=/usr -DCMAKE_INSTALL_LIBDIR="lib/$multiarch"
  -DCMAKE_BUILD_TYPE=None -DCMAKE_SKIP_INSTALL_RPATH=ON -DQTZQ_BUILD_TESTS=OFF)
case $arch in
  amd64) cmake_args+=(-DQTZQ_BUILD_TOOLS=ON -DQTZQ_BUILD_PYTHON=ON
           -DQTZQ_PYTHON_INSTALL_DIR=lib/python3/dist-packages) ;;
  armhf) cmake_args+=(-DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/toolchains/armhf.cmake"
           -DQTZQ_BUILD_TOOLS=OFF -DQTZQ_BUILD_PYTHON=OFF) ;;
  *) echo "unknown architecture '$arch' (amd64 or armhf)" >&2; exit 2 ;;
esac
flags() { DEB_HOST_ARCH=$arch dpkg-buildflags --get "$1"; }
CXXFLAGS="$(flags CPPFLAGS) $(flags CXXFLAGS)" LDFLAGS="$(flags LDFLAGS)" \
  cmake -S . -B "$out/build" "${cmake_args[@]}" >/dev/null
cmake --build "$out/build" -j "$(nproc 2>/dev/null || echo 2)"
DESTDIR=$stage cmake --install "$out/build" --strip >/dev/null

# --- split the staging root into package trees ------------------------------
# Moves PATHS (relative to the staging root) into the tree of PACKAGE.
take() {
  local package=$1 path; shift
  for path in "$@"; do
    mkdir -p "$work/debian/$package/$(dirname "$path")" "$work/debian/$package/DEBIAN"
    mv "$stage/$path" "$work/debian/$package/$path"
  done
}
libdir=usr/lib/$multiarch
take "$libpkg" "$libdir/libQtzqeffect.so.$soversion" "$libdir/libQtzqeffect.so.$version"
take libqtzqeffect-dev usr/include "$libdir/libQtzqeffect.so" "$libdir/pkgconfig" "$libdir/cmake"
packages=("$libpkg" libqtzqeffect-dev)
if [[ $arch == amd64 ]]; then
  take qtzq usr/bin/qtzq
  take python3-qtzqeffect usr/lib/python3
  packages+=(qtzq python3-qtzqeffect)
fi
leftover=$(find "$stage" -not -type d)
if [[ -n $leftover ]]; then
  echo "installed files that no package takes:" >&2
  echo "$leftover" >&2
  exit 1
fi

# --- control files -----------------------------------------------------------
# The library's shlibs file: what a binary linked against it depends on.
echo "libQtzqeffect $soversion $libpkg (>= $version)" >"$work/debian/$libpkg/DEBIAN/shlibs"
echo "activate-noawait ldconfig" >"$work/debian/$libpkg/DEBIAN/triggers"

# Depends of the ELF files in a package tree, as dpkg-shlibdeps computes them
# (it reads the source's package list from debian/control). A cross build
# finds the target's C and C++ runtimes in the cross toolchain's packages,
# whose shlibs and symbols files name either the target package
# (libc6:armhf) or themselves (libgcc-s1-armhf-cross): both become the
# target package's plain name.
printf 'Source: qtzqeffect\n' >"$work/debian/control"
printf '\nPackage: %s\nArchitecture: any\n' "${packages[@]}" >>"$work/debian/control"
runtime_dir=/usr/$(dpkg-architecture -a"$arch" -qDEB_HOST_GNU_TYPE 2>/dev/null)/lib
shlib_depends() {
  local elves depends
  mapfile -t elves < <(cd "$work" &&
    find "debian/$1" -type f -exec sh -c 'head -c4 "$1" | grep -q ELF' _ {} \; -print)
  depends=$(cd "$work" && DEB_HOST_ARCH=$arch dpkg-shlibdeps -O -x"$1" \
    -l"$work/debian/$libpkg/$libdir" -l"$runtime_dir" "${elves[@]}")
  sed -n -e "s/:$arch\b//g" -e "s/-$arch-cross\b//g" -e 's/^shlibs:Depends=//p' <<<"$depends"
}

# The interpreter range and numpy ABI the extension module was built for.
python_depends() {
  local python numpy_api numpy_abi
  python=$(/usr/bin/python3 -c 'import sys; print("%d.%d" % sys.version_info[:2])')
  numpy_api=$(sed -n 's/^api-min-version //p' /usr/share/numpy3/versions)
  numpy_abi=$(sed -n 's/^abi //p' /usr/share/numpy3/versions)
  echo "python3 (>= $python~), python3 (<< ${python%.*}.$((${python#*.} + 1))), \
python3-numpy (>= $numpy_api), python3-numpy-abi$numpy_abi"
}

description() {
  case $1 in
    "$libpkg") echo "photo-effects library working on BGRA pixel buffers
 libQtzqeffect applies photo effects to raw BGRA pixel buffers: one-call
 style presets selected by effect id, the image-processing primitives they
 are made of, decorative frames and collage layouts. Results are exact to
 the byte on every supported CPU.
 .
 This package contains the shared library." ;;
    libqtzqeffect-dev) echo "photo-effects library working on BGRA pixel buffers - development files
 libQtzqeffect applies photo effects to raw BGRA pixel buffers.
 .
 This package contains the headers, the link to the shared library, a
 pkg-config file and a CMake package (find_package(Qtzqeffect))." ;;
    qtzq) echo "command-line tool applying libQtzqeffect's photo effects
 qtzq applies the photo effects of libQtzqeffect to PNG and JPEG files,
 renders a gallery of every effect, and builds materials, blend tables and
 frames." ;;
    python3-qtzqeffect) echo "photo effects on numpy arrays (Python 3)
 The qtzqeffect module applies the effects and primitives of libQtzqeffect
 to numpy arrays, reads and writes PNG and JPEG files and runs effects over
 many files with dask." ;;
  esac
}

# Writes DEBIAN/control of PACKAGE: SECTION MULTI_ARCH DEPENDS [EXTRA_FIELDS].
write_control() {
  local package=$1 section=$2 multi=$3 depends=$4 extra=${5:-} tree=$work/debian/$1
  [[ $depends =~ ^[a-z0-9] && $depends != *", " ]] || { echo "$package: no Depends" >&2; exit 1; }
  mkdir -p "$tree/DEBIAN"
  {
    echo "Package: $package"
    echo "Source: qtzqeffect"
    echo "Version: $version"
    echo "Architecture: $arch"
    [[ -n $multi ]] && echo "Multi-Arch: $multi"
    echo "Maintainer: $maintainer"
    echo "Installed-Size: $(du -sk --exclude=DEBIAN "$tree" | cut -f1)"
    echo "Depends: $depends"
    [[ -n $extra ]] && echo "$extra"
    echo "Section: $section"
    echo "Priority: optional"
    echo "Description: $(description "$package")"
  } >"$tree/DEBIAN/control"
}

# Copyright and changelog, identical on every architecture (Multi-Arch: same).
changelog_date=$(date -R -u -d "@${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || date +%s)}")
for package in "${packages[@]}"; do
  doc=$work/debian/$package/usr/share/doc/$package
  mkdir -p "$doc"
  cp packaging/debian/copyright "$doc/copyright"
  printf 'qtzqeffect (%s) unstable; urgency=medium\n\n  * Release %s.\n\n -- %s  %s\n' \
    "$version" "$version" "$maintainer" "$changelog_date" | gzip -9n >"$doc/changelog.gz"
done

# Contents get Debian's permissions: no executable shared objects.
for package in "${packages[@]}"; do
  find "$work/debian/$package" -type d -exec chmod 755 {} +
  find "$work/debian/$package" -type f -name '*.so*' -exec chmod 644 {} +
done

write_control "$libpkg" libs same "$(shlib_depends "$libpkg")"
write_control libqtzqeffect-dev libdevel same "$libpkg (= $version)"
if [[ $arch == amd64 ]]; then
  write_control qtzq graphics foreign "$(shlib_depends qtzq)"
  write_control python3-qtzqeffect python "" \
    "$(python_depends), $(shlib_depends python3-qtzqeffect)" "Suggests: python3-dask"
fi

# --- md5sums and the .deb files ----------------------------------------------
for package in "${packages[@]}"; do
  (cd "$work/debian/$package" &&
    find . -path ./DEBIAN -prune -o -type f -printf '%P\0' | sort -z | xargs -0 md5sum >DEBIAN/md5sums)
  dpkg-deb --root-owner-group -Zxz --build "$work/debian/$package" \
    "$out/${package}_${version}_$arch.deb" >/dev/null
done
ls "$out"/*.deb
