#!/usr/bin/env bash
# Builds the benchmarks in Release, runs them (5 repetitions, medians) and prints, per
# operation, its time and heap allocations next to its baseline's, and the time ratio.
# Extra arguments go to the benchmark binary, e.g. --benchmark_filter=toString.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/deps.sh
require_packages "${BUILD_PACKAGES[@]}" libbenchmark-dev python3

build=${BUILD_DIR:-build/bench}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DRVA_BUILD_BENCHMARKS=ON \
    -DRVA_BUILD_TESTS=OFF -DRVA_BUILD_EXAMPLES=OFF >/dev/null
cmake --build "$build" --target rva_bench -j"$(nproc)" >/dev/null

compiler=$(sed -n 's/^CMAKE_CXX_COMPILER:[A-Z]*=//p' "$build/CMakeCache.txt")
cpu=$(sed -n 's/^model name[[:space:]]*: //p' /proc/cpuinfo | head -n 1)
echo "Machine: ${cpu:-unknown CPU}, $(nproc) cores, $("$compiler" --version | head -n 1)"
read -r load _ </proc/loadavg
if awk -v load="$load" 'BEGIN { exit !(load >= 1) }'; then
    echo "Warning: load average $load; the figures will be noisy" >&2
fi

json="$build/bench.json"
"$build/bench/rva_bench" --benchmark_repetitions=5 --benchmark_report_aggregates_only=true \
    --benchmark_out="$json" --benchmark_out_format=json "$@" >"$build/bench.txt" 2>&1 ||
    { cat "$build/bench.txt" >&2; exit 1; }

python3 - "$json" <<'EOF'
import json, sys

runs, order = {}, []
for run in json.load(open(sys.argv[1]))["benchmarks"]:
    if run.get("run_type") == "aggregate" and run.get("aggregate_name") != "median":
        continue
    name = run.get("run_name", run["name"])
    operation, _, side = name.rpartition("/")
    if operation not in order:
        order.append(operation)
    runs[(operation, side)] = run

scale = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}
ns = lambda run: run["cpu_time"] * scale[run["time_unit"]]
rows = [("operation", "ns", "allocs", "baseline ns", "baseline allocs", "ratio")]
for operation in order:
    lib, base = runs.get((operation, "lib")), runs.get((operation, "base"))
    if lib is None or base is None:
        continue
    rows.append((operation, f"{ns(lib):.1f}", f"{lib['allocs']:.0f}", f"{ns(base):.1f}",
                 f"{base['allocs']:.0f}", f"{ns(lib) / ns(base):.1f}x"))
widths = [max(len(row[i]) for row in rows) for i in range(len(rows[0]))]
for index, row in enumerate(rows):
    cells = [row[0].ljust(widths[0])] + [cell.rjust(width) for cell, width in zip(row[1:], widths[1:])]
    print("| " + " | ".join(cells) + " |")
    if index == 0:
        print("|" + "|".join("-" * (width + 1) + (":" if i else "-") for i, width in enumerate(widths)) + "|")
EOF
