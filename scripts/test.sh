#!/usr/bin/env bash
# Builds the library and its tests and runs every test.
#
#   ./scripts/test.sh              plain build
#   ./scripts/test.sh --sanitize   library and tests under AddressSanitizer (leak checks on)
#                                  and UndefinedBehaviorSanitizer, any report fatal
#   ./scripts/test.sh --valgrind   the test program, the example and the fuzz corpora under
#                                  valgrind memcheck: no error and no definitely lost byte
#                                  (death tests, which abort on purpose, are left out)
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/deps.sh

mode=${1:-plain}
case "$mode" in
    plain) build=${BUILD_DIR:-build/test}; options=() ;;
    --sanitize) build=${BUILD_DIR:-build/sanitize}; options=(-DRVA_SANITIZE=address,undefined) ;;
    --valgrind) build=${BUILD_DIR:-build/test}; options=(); require_packages valgrind ;;
    *) echo "usage: $0 [--sanitize | --valgrind]" >&2; exit 2 ;;
esac
require_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"

# The fuzz targets build against a replay driver here, so their seed corpora run as tests.
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DRVA_BUILD_TESTS=ON -DRVA_BUILD_EXAMPLES=ON \
    -DRVA_BUILD_FUZZERS=ON "${options[@]}"
cmake --build "$build" -j"$(nproc)"

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
else
    ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1} ctest --test-dir "$build" --output-on-failure -j"$(nproc)"
fi
