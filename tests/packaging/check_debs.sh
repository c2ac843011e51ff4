#!/usr/bin/env bash
# Unpacks the Debian packages of one architecture into a scratch root (the
# machine's own package database and /usr stay untouched), builds the
# consumer of tests/install against that root through find_package and
# through pkg-config, and runs it; armhf builds cross-compile the consumer
# and run it under qemu-arm. On amd64 the tool and the Python module of the
# unpacked packages run too, each loading the unpacked library.
#
#   tests/packaging/check_debs.sh ARCH DEB_DIR WORK_DIR
set -euo pipefail
repo=$(cd "$(dirname "$0")/../.." && pwd)

arch=$1 debs=$(realpath "$2") work=$(realpath -m "$3")
multiarch=$(dpkg-architecture -a"$arch" -qDEB_HOST_MULTIARCH 2>/dev/null)
root=$work/root libdir=$work/root/usr/lib/$multiarch
rm -rf "$work" && mkdir -p "$root"
for deb in "$debs"/*_"$arch".deb; do
  dpkg-deb -x "$deb" "$root"
done

# find_package: the consumer's CMake project (its pkg-config target finds the
# library through CMAKE_PREFIX_PATH too, so pkg-config is checked alone
# below).
cmake_args=()
run=()
cxx=g++
if [[ $arch == armhf ]]; then
  # The armhf toolchain with the unpacked root as a second sysroot, so that
  # find_package and find_library look there as well as in the cross libc.
  printf 'include(%s)\nlist(APPEND CMAKE_FIND_ROOT_PATH %s)\n' \
    "$repo/cmake/toolchains/armhf.cmake" "$root" >"$work/toolchain.cmake"
  cmake_args+=(-DCMAKE_TOOLCHAIN_FILE="$work/toolchain.cmake" -DCMAKE_PREFIX_PATH=/usr)
  run=(qemu-arm -L /usr/arm-linux-gnueabihf)
  cxx=arm-linux-gnueabihf-g++
else
  cmake_args+=(-DCMAKE_PREFIX_PATH="$root/usr")
fi
export PKG_CONFIG_LIBDIR=$libdir/pkgconfig
cmake -S "$repo/tests/install/consumer" -B "$work/consumer" "${cmake_args[@]}" >/dev/null
cmake --build "$work/consumer" --target consumer_cmake >/dev/null

# pkg-config: the compiler given nothing but the flags of the .pc file.
read -ra pc_flags < <(pkg-config --cflags --libs qtzqeffect)
"$cxx" -o "$work/consumer_pkgconfig" "$repo/tests/install/consumer/main.cpp" "${pc_flags[@]}"

for consumer in consumer/consumer_cmake consumer_pkgconfig; do
  LD_LIBRARY_PATH=$libdir "${run[@]}" "$work/$consumer"
  echo "$arch: ${consumer#*/} built against the packages runs"
done

if [[ $arch == amd64 ]]; then
  [[ $(LD_LIBRARY_PATH=$libdir "$root/usr/bin/qtzq" list | grep -c '^ *1020 ') == 1 ]]
  echo "$arch: qtzq lists the catalogue"
  LD_LIBRARY_PATH=$libdir PYTHONPATH=$root/usr/lib/python3/dist-packages \
    /usr/bin/python3 "$repo/tests/python/installed_package.py" "$root"
  echo "$arch: the Python module loads the packaged library"
fi
