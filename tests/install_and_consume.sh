#!/usr/bin/env bash
# Installs the built library into a scratch prefix and builds a program against it,
# once through the CMake package and once through pkg-config; then builds the same
# program with the library's source tree pulled in by add_subdirectory().
set -euo pipefail
build_dir=$1
source_dir=$(cd "$(dirname "$0")" && pwd)/consumer
library_source_dir=$(cd "$(dirname "$0")/.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cmake --install "$build_dir" --prefix "$scratch/prefix" >/dev/null
libdir=$(dirname "$(find "$scratch/prefix" -name 'librvacommon.so' | head -n 1)")
test -L "$libdir/librvacommon.so" && test -L "$libdir/librvacommon.so.1"

cmake -S "$source_dir" -B "$scratch/cmake" -DCMAKE_PREFIX_PATH="$scratch/prefix" >/dev/null
cmake --build "$scratch/cmake" >/dev/null
"$scratch/cmake/consumer"

export PKG_CONFIG_PATH="$libdir/pkgconfig"
# shellcheck disable=SC2046
c++ -std=c++17 "$source_dir/consumer.cpp" $(pkg-config --cflags --libs rvacommon) \
    -Wl,-rpath,"$libdir" -o "$scratch/pkgconfig-consumer"
"$scratch/pkgconfig-consumer"

cmake -S "$source_dir" -B "$scratch/subdirectory" -DRVA_SOURCE_DIR="$library_source_dir" >/dev/null
cmake --build "$scratch/subdirectory" -j"$(nproc)" >/dev/null
"$scratch/subdirectory/consumer"
if [ -e "$scratch/subdirectory/rvacommon/tests" ] || [ -e "$scratch/subdirectory/rvacommon/examples" ]; then
    echo "tests or examples were configured inside a parent project" >&2
    exit 1
fi
