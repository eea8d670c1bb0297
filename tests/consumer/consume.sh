#!/usr/bin/env bash
# consume.sh BUILD-DIR WORK-DIR: installs the build and uses it as two outside programs would.
set -euo pipefail
source_dir=$(cd "$(dirname "$0")" && pwd)
build=$1 work=$2
rm -rf "$work"
mkdir -p "$work"
cmake --install "$build" --prefix "$work/prefix" >"$work/install.log"

cmake -S "$source_dir" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$work/prefix" >"$work/cmake.log"
cmake --build "$work/cmake" >>"$work/cmake.log"
"$work/cmake/consumer"

pc=$(find "$work/prefix" -name vxxmplib.pc)
export PKG_CONFIG_PATH=$(dirname "$pc")
c++ -std=c++11 -Wall -Wextra -Werror "$source_dir/consumer.cpp" -o "$work/consumer" \
  $(pkg-config --cflags --libs vxxmplib)
LD_LIBRARY_PATH=$(pkg-config --variable=libdir vxxmplib) "$work/consumer"
