#!/usr/bin/env bash
# Builds the library and its tests and runs every test.
#
#   ./scripts/test.sh              plain build
#   ./scripts/test.sh --sanitize   library and tests under AddressSanitizer (leak checks on)
#                                  and UndefinedBehaviorSanitizer, any report fatal
#   ./scripts/test.sh --valgrind   the test program, the example and the fuzz corpora under
#                                  valgrind memcheck: no error and no definitely lost byte
#                                  (death tests, which abort on purpose, are left out)
#   ./scripts/test.sh --arch armhf 32-bit ARM (arm-linux-gnueabihf, ILP32 like armeabi-v7a)
#   ./scripts/test.sh --arch arm64 64-bit ARM (aarch64-linux-gnu, like arm64-v8a)
#                                  built with Debian's cross compiler and the
#                                  cmake/toolchains file of that name, in build/<arch>; the
#                                  tests run under qemu-user, death tests left out
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/deps.sh

mode=${1:-plain}
jobs=$(nproc)
case "$mode" in
    plain) build=${BUILD_DIR:-build/test}; options=() ;;
    --sanitize) build=${BUILD_DIR:-build/sanitize}; options=(-DRVA_SANITIZE=address,undefined) ;;
    --valgrind) build=${BUILD_DIR:-build/test}; options=(); require_packages valgrind ;;
    --arch)
        arch=${2:-}
        triplet=$(cross_triplet "$arch") || { echo "usage: $0 --arch armhf|arm64" >&2; exit 2; }
        build=${BUILD_DIR:-build/$arch}
        options=(-DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/toolchains/$arch.cmake")
        jobs=2
        require_architecture "$arch"
        # shellcheck disable=SC2046
        require_packages $(cross_packages "$arch")
        ;;
    *) echo "usage: $0 [--sanitize | --valgrind | --arch armhf|arm64]" >&2; exit 2 ;;
esac
require_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"

# The fuzz targets build against a replay driver here, so their seed corpora run as tests.
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DRVA_BUILD_TESTS=ON -DRVA_BUILD_EXAMPLES=ON \
    -DRVA_BUILD_FUZZERS=ON "${options[@]}"
cmake --build "$build" -j"$jobs"

if [ "$mode" = --valgrind ]; then
    valgrind --quiet --leak-check=full --errors-for-leak-kinds=definite --error-exitcode=1 \
        "$build/tests/rvacommon_tests" --gtest_filter='-*DeathTest*' --gtest_brief=1
    valgrind --quiet --leak-check=full --errors-for-leak-kinds=definite --error-exitcode=1 \
        "$build/sdp/tests/rvasdp_tests" --gtest_filter='-*DeathTest*' --gtest_brief=1
    valgrind --quiet --leak-check=full --errors-for-leak-kinds=definite --error-exitcode=1 \
        "$build/examples/rva_example" >/dev/null
    for example in examples/*.sdp; do
        valgrind --quiet --leak-check=full --errors-for-leak-kinds=definite --error-exitcode=1 \
            "$build/sdp/tools/rva-sdp" stream "$example" >/dev/null
    done
    for target in address_fuzzer operations_fuzzer sdp_fuzzer; do
        valgrind --quiet --leak-check=full --errors-for-leak-kinds=definite --error-exitcode=1 \
            "$build/fuzz/$target" "fuzz/corpus/$target" >/dev/null 2>&1
    done
    echo "valgrind: no errors, no definitely lost bytes"
elif [ "$mode" = --arch ]; then
    # The toolchain file makes ctest run every test program under qemu-user. Left out:
    # - death tests: GoogleTest runs the dying statement in a clone() of the process that
    #   shares its memory, which qemu-user does not emulate (the child crashes), or in a
    #   re-executed copy of the program, which needs qemu registered with binfmt_misc;
    #   they run natively in the other modes;
    # - host-only tests: the 32-bit compilation check (this build compiles every source
    #   for the target already) and the install-and-consume test, which builds consumers
    #   with the host's g++ and clang++;
    # - rva_sdp_program, which execs the program itself: it runs below through qemu.
    ctest --test-dir "$build" --output-on-failure -j"$jobs" \
        -E 'DeathTest|^CompilesFor32Bit$|^InstallAndConsume$|^rva_sdp_program$'
    qemu="qemu-${triplet%%-*} -L /usr/$triplet"
    emulated="$build/rva-sdp-under-qemu"
    printf '#!/bin/sh\nexec %s "%s" "$@"\n' "$qemu" "$(cd "$build" && pwd)/sdp/tools/rva-sdp" >"$emulated"
    chmod +x "$emulated"
    sh sdp/tests/RvaSdpTest.sh "$emulated" examples
    $qemu "$build/examples/rva_example" >/dev/null
    echo "$triplet: the tests passed under $qemu (death tests and host-only tests left out)"
else
    ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1} ctest --test-dir "$build" --output-on-failure -j"$(nproc)"
fi
