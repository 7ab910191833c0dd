#!/usr/bin/env bash
# Builds the fuzz targets with clang (libFuzzer, AddressSanitizer with leak detection,
# UndefinedBehaviorSanitizer) and runs each for a bounded time on a scratch copy of its
# seed corpus. Exits non-zero on any crash, leak, sanitizer report or broken invariant.
#
#   FUZZ_SECONDS   seconds per target (default 60)
#   FUZZ_BUILD_DIR build directory (default build/fuzz)
#   FUZZ_JOBS      parallel compile jobs (default 2)
#
# A crashing input is kept as <build>/artifacts/<target>/crash-*; replay it with
#   <build>/fuzz/<target> <that file>
# and the whole run's output is in <build>/logs/<target>.log.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/deps.sh
require_packages "${BUILD_PACKAGES[@]}" clang libclang-rt-14-dev llvm-14

seconds=${FUZZ_SECONDS:-60}
build=${FUZZ_BUILD_DIR:-build/fuzz}
jobs=${FUZZ_JOBS:-2}

cmake -S . -B "$build" -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DRVA_SANITIZE=address,undefined -DRVA_BUILD_FUZZERS=ON -DRVA_BUILD_TESTS=OFF -DRVA_BUILD_EXAMPLES=OFF
cmake --build "$build" -j"$jobs" --target address_fuzzer operations_fuzzer sdp_fuzzer

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1}
if [ -x /usr/bin/llvm-symbolizer-14 ]; then
    export ASAN_SYMBOLIZER_PATH=${ASAN_SYMBOLIZER_PATH:-/usr/bin/llvm-symbolizer-14}
fi

failed=0
# target:max_len
for entry in address_fuzzer:4096 operations_fuzzer:1024 sdp_fuzzer:8192; do
    target=${entry%%:*}
    corpus="$scratch/$target"
    artifacts="$build/artifacts/$target"
    log="$build/logs/$target.log"
    mkdir -p "$corpus" "$artifacts" "$(dirname "$log")"
    cp fuzz/corpus/"$target"/* "$corpus"/
    echo "== $target: ${seconds}s, max_len ${entry##*:}"
    if "$build/fuzz/$target" "$corpus" -max_total_time="$seconds" -max_len="${entry##*:}" -timeout=10 \
        -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="$artifacts/" >"$log" 2>&1; then
        grep -E '^#[0-9]+[[:space:]]+DONE|^Done [0-9]+ runs' "$log" || true
        grep -E '^stat::(number_of_executed_units|average_exec_per_sec|peak_rss_mb)' "$log" || true
    else
        failed=1
        echo "!! $target FAILED; last lines of $log:"
        tail -n 60 "$log"
        ls -1 "$artifacts"
    fi
done

if [ "$failed" -ne 0 ]; then
    echo "fuzzing found problems" >&2
    exit 1
fi
echo "fuzzing passed"
