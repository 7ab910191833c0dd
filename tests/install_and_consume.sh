#!/usr/bin/env bash
# Installs the built libraries into a scratch prefix and builds a program against each
# (rvacommon, and rvasdp over it) through the CMake package and through pkg-config, each with g++ and with clang++, the
# program asking for no language standard of its own (the package must ask for C++17);
# then builds the same program with clang++ and the library's source tree pulled in by
# add_subdirectory().
set -euo pipefail
build_dir=$1
source_dir=$(cd "$(dirname "$0")" && pwd)/consumer
library_source_dir=$(cd "$(dirname "$0")/.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cmake --install "$build_dir" --prefix "$scratch/prefix" >/dev/null
libdir=$(dirname "$(find "$scratch/prefix" -name 'librvacommon.so' | head -n 1)")
test -L "$libdir/librvacommon.so" && test -L "$libdir/librvacommon.so.1"
test -L "$libdir/librvasdp.so" && test -L "$libdir/librvasdp.so.1"
"$scratch/prefix/bin/rva-sdp" stream "$library_source_dir/examples/volte-offer.sdp" >/dev/null

export PKG_CONFIG_PATH="$libdir/pkgconfig"
for compiler in g++ clang++; do
    if ! command -v "$compiler" >/dev/null; then
        echo "$compiler is needed; on Debian: apt-get install g++ clang" >&2
        exit 1
    fi
    cmake -S "$source_dir" -B "$scratch/cmake-$compiler" -DCMAKE_CXX_COMPILER="$compiler" \
        -DCMAKE_PREFIX_PATH="$scratch/prefix" >/dev/null
    cmake --build "$scratch/cmake-$compiler" >/dev/null
    "$scratch/cmake-$compiler/consumer"
    "$scratch/cmake-$compiler/sdp_consumer"

    # shellcheck disable=SC2046
    "$compiler" "$source_dir/consumer.cpp" $(pkg-config --cflags --libs rvacommon) \
        -Wl,-rpath,"$libdir" -o "$scratch/pkgconfig-consumer-$compiler"
    "$scratch/pkgconfig-consumer-$compiler"
    # shellcheck disable=SC2046
    "$compiler" "$source_dir/sdp_consumer.cpp" $(pkg-config --cflags --libs rvasdp) \
        -Wl,-rpath,"$libdir" -o "$scratch/pkgconfig-sdp-consumer-$compiler"
    "$scratch/pkgconfig-sdp-consumer-$compiler"
done

cmake -S "$source_dir" -B "$scratch/subdirectory" -DCMAKE_CXX_COMPILER=clang++ \
    -DRVA_SOURCE_DIR="$library_source_dir" >/dev/null
cmake --build "$scratch/subdirectory" -j"$(nproc)" >/dev/null
"$scratch/subdirectory/consumer"
"$scratch/subdirectory/sdp_consumer"
for inner in tests examples sdp/tests sdp/tools; do
    if [ -e "$scratch/subdirectory/rvacommon/$inner" ]; then
        echo "$inner was configured inside a parent project" >&2
        exit 1
    fi
done
