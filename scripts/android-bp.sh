#!/usr/bin/env bash
# Checks Android.bp, the build file for an Android platform tree, without such a tree:
# bpfmt finds it well-formed and formatted, and Debian's mini-soong (a small
# reimplementation of the platform's build system for host builds) builds the two shared
# libraries from it; the example and rva-sdp are then linked against those and run.
#
# mini-soong falls short of the real thing in ways worked around here:
# - it compiles C++ as -std=c++11 whatever cpp_std says, and drops -Werror: CXXFLAGS is
#   given on make's command line, with -std=c++17 and -Werror;
# - liblog's headers are not exported to it as on a device, and Debian keeps them under
#   /usr/include/android: CPPFLAGS names that directory;
# - its cc_binary rule is generated without sources or flags (the link fails on a missing
#   main), so rva-sdp is linked by hand from the same sources; cc_test it skips;
# - version_script and rtti are ignored: the exported symbols are not checked here (the
#   CMake build's tests check them).
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/deps.sh
require_packages "${BUILD_PACKAGES[@]}" blueprint-tools mini-soong dpkg-dev

diff=$(bpfmt -d Android.bp)
if [ -n "$diff" ]; then
    printf 'Android.bp is not formatted as bpfmt would (bpfmt -w Android.bp):\n%s\n' "$diff" >&2
    exit 1
fi
echo "bpfmt: Android.bp is well-formed and formatted"

root=$PWD
build=${BUILD_DIR:-build/soong}
rm -rf "$build"
mkdir -p "$build"
# mini-soong reads Android.bp in the current directory and builds there: the build
# directory gets links to the sources.
for entry in Android.bp common utilities sdp tests; do
    ln -s "$root/$entry" "$build/$entry"
done
cd "$build"
mini-soong Android.bp >Makefile
make -j2 librvacommon.so librvasdp.so CXXFLAGS="-O2 -g -std=c++17 -Werror" CPPFLAGS=-I/usr/include/android \
    >make.log 2>&1 || { cat make.log >&2; exit 1; }
echo "mini-soong: built librvacommon.so and librvasdp.so"

liblog_dir=/usr/lib/$(dpkg-architecture -q DEB_HOST_MULTIARCH)/android
link=(-std=c++17 -Wall -Wextra -Werror -Icommon/include -Iutilities -Isdp/include -L. "-Wl,-rpath-link,$liblog_dir")
g++ "${link[@]}" "$root/examples/stream_example.cpp" -lrvacommon -o rva_example
g++ "${link[@]}" "$root"/sdp/tools/*.cpp -lrvasdp -lrvacommon -o rva-sdp
export LD_LIBRARY_PATH="$PWD:$liblog_dir"
./rva_example >/dev/null
./rva-sdp stream "$root/examples/volte-offer.sdp" >/dev/null
echo "the example and rva-sdp link against the mini-soong libraries and run"
