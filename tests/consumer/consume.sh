#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# consume.sh installed|build-tree|subproject|absolute BUILD-DIR WORK-DIR: uses the library as outside
# programs would: installed into a prefix that was moved; from its build tree; as a part of another
# project; with a library folder that is outside the prefix. CXX and CXXFLAGS are the compiler's.
set -euo pipefail
consumer=$(cd "$(dirname "$0")" && pwd)
source=$(cd "$consumer/../.." && pwd)
way=$1 build=$2 work=$3
rm -rf "$work"
mkdir -p "$work"

fail() {
  echo "$*" >&2
  exit 1
}

# by_cmake NAME OPTION...
by_cmake() {
  local name=$1
  shift
  cmake -S "$consumer" -B "$work/$name" "$@" >"$work/$name.log"
  cmake --build "$work/$name" -j 2 >>"$work/$name.log"
  "$work/$name/consumer"
}

# by_pkg_config PACKAGE
by_pkg_config() {
  # shellcheck disable=SC2046,SC2086  # words on purpose
  ${CXX:-c++} ${CXXFLAGS:-} -std=c++11 -Wall -Wextra -Werror "$consumer/consumer.cpp" \
    -o "$work/$1" $(pkg-config --cflags --libs "$1")
  LD_LIBRARY_PATH=$(pkg-config --variable=libdir "$1") "$work/$1"
}

# everyone PREFIX PKG-CONFIG-FOLDER: programs of both kinds with both forms.
everyone() {
  export PKG_CONFIG_PATH=$2
  by_cmake shared -DCMAKE_PREFIX_PATH="$1" -DFORM=Shared
  by_cmake static -DCMAKE_PREFIX_PATH="$1" -DFORM=Static
  by_pkg_config vxxmplib
  by_pkg_config vxxmplib-static
}

case $way in
  installed)
    cmake --install "$build" --prefix "$work/first" >"$work/install.log"
    mv "$work/first" "$work/moved"
    [ "$(find "$work/moved" -name 'LICENSE*' | wc -l)" -eq 3 ] || fail "A licence is missing"
    everyone "$work/moved" "$(dirname "$(find "$work/moved" -name vxxmplib.pc)")"
    ;;
  build-tree)
    everyone "$build" "$build"
    ;;
  subproject)
    # One file of each part shows that it compiles; all of them would take minutes.
    cmake -S "$consumer" -B "$work/parent" -G Ninja -DSOURCE="$source" -DFORM=Shared >"$work/log"
    ours=_deps/vxxmplib-build
    cmake --build "$work/parent" --target CMakeFiles/consumer.dir/consumer.cpp.o \
      $ours/src/CMakeFiles/vxxmplib_objects.dir/core/handle.cpp.o \
      $ours/CMakeFiles/xmp_toolkit.dir/src/core/toolkit/glue.cpp.o >>"$work/log"
    cmake -DCMAKE_INSTALL_PREFIX="$work/prefix" -P "$work/parent/$ours/cmake_install.cmake" >>"$work/log"
    [ ! -e "$work/prefix" ] || fail "The parent installs our files"
    ;;
  absolute)
    cmake -S "$source" -B "$work/build" -DCMAKE_INSTALL_LIBDIR=/opt/else/lib \
      -DVXXMPLIB_TESTS=OFF -DVXXMPLIB_TOOLS=OFF >"$work/configure.log"
    export PKG_CONFIG_PATH="$work/build/installed"
    [ "$(pkg-config --variable=libdir vxxmplib)" = /opt/else/lib ] || fail "Another libdir"
    [ "$(pkg-config --variable=includedir vxxmplib)" = /usr/local/include ] || fail "Another includedir"
    ;;
esac
