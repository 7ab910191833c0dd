#!/usr/bin/env bash
# Builds the benchmarks in Release, runs them (5 repetitions, medians) and prints two
# tables: per record operation, its time and heap allocations next to its baseline's with
# the time ratio; per SDP operation, the time and allocations of rvasdp and of each peer
# parser with the time ratio rvasdp / peer.
# Extra arguments go to the benchmark binary, e.g. --benchmark_filter=toString.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/deps.sh
require_packages "${BUILD_PACKAGES[@]}" "${BENCH_PACKAGES[@]}"

build=${BUILD_DIR:-build/bench}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DRVA_BUILD_BENCHMARKS=ON \
    -DRVA_BUILD_TESTS=OFF -DRVA_BUILD_EXAMPLES=OFF >/dev/null
cmake --build "$build" --target rva_bench -j"$(nproc)" >/dev/null

compiler=$(sed -n 's/^CMAKE_CXX_COMPILER:[A-Z]*=//p' "$build/CMakeCache.txt")
cpu=$(sed -n 's/^model name[[:space:]]*: //p' /proc/cpuinfo | head -n 1)
read -r load _ </proc/loadavg
echo "Machine: ${cpu:-unknown CPU}, $(nproc) cores, $("$compiler" --version | head -n 1), load average $load"
if awk -v load="$load" 'BEGIN { exit !(load >= 1) }'; then
    echo "Warning: load average $load; the figures will be noisy" >&2
fi

json="$build/bench.json"
# Repetitions of all benchmarks are interleaved in random order, so that a change of load
# during the run falls on every side of a comparison alike.
"$build/bench/rva_bench" --benchmark_repetitions=5 --benchmark_enable_random_interleaving=true \
    --benchmark_report_aggregates_only=true \
    --benchmark_out="$json" --benchmark_out_format=json "$@" >"$build/bench.txt" 2>&1 ||
    { cat "$build/bench.txt" >&2; exit 1; }
read -r load _ </proc/loadavg
echo "Load average at the end of the run: $load"

python3 - "$json" <<'EOF'
import json, sys

# Benchmarks are named "<operation>/<side>": sides "lib" and "base" for a record
# operation and its baseline, "rvasdp" and a peer parser's name for an SDP operation.
# The runs come in random order; rows follow the order of registration.
runs, rank = {}, {}
for run in json.load(open(sys.argv[1]))["benchmarks"]:
    if run.get("run_type") == "aggregate" and run.get("aggregate_name") != "median":
        continue
    name = run.get("run_name", run["name"])
    operation, _, side = name.rpartition("/")
    runs.setdefault(operation, {})[side] = run
    rank[(operation, side)] = run.get("family_index", len(rank))
order = sorted(runs, key=lambda operation: min(rank[(operation, side)] for side in runs[operation]))

scale = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}
ns = lambda run: run["cpu_time"] * scale[run["time_unit"]]

def table(rows, left):
    """Prints rows as a Markdown table, the first `left` columns left-aligned."""
    widths = [max(len(row[i]) for row in rows) for i in range(len(rows[0]))]
    for index, row in enumerate(rows):
        cells = [cell.ljust(width) if i < left else cell.rjust(width)
                 for i, (cell, width) in enumerate(zip(row, widths))]
        print("| " + " | ".join(cells) + " |")
        if index == 0:
            print("|" + "|".join("-" * (width + 1) + ("-" if i < left else ":")
                                 for i, width in enumerate(widths)) + "|")

records = [("operation", "ns", "allocs", "baseline ns", "baseline allocs", "ratio")]
sdp = [("operation", "parser", "ns", "allocs", "rvasdp / peer")]
for operation in order:
    sides = runs[operation]
    if "lib" in sides and "base" in sides:
        lib, base = sides["lib"], sides["base"]
        records.append((operation, f"{ns(lib):.1f}", f"{lib['allocs']:.0f}", f"{ns(base):.1f}",
                        f"{base['allocs']:.0f}", f"{ns(lib) / ns(base):.1f}x"))
    elif "rvasdp" in sides:
        ours = sides["rvasdp"]
        peers = sorted(((side, run) for side, run in sides.items() if side != "rvasdp"),
                       key=lambda item: rank[(operation, item[0])])
        for index, (side, run) in enumerate([("rvasdp", ours)] + peers):
            ratio = f"{ns(ours) / ns(run):.2f}x" if index else ""
            sdp.append((operation if index == 0 else "", side, f"{ns(run):.1f}", f"{run['allocs']:.0f}", ratio))
if len(records) > 1:
    table(records, 1)
if len(records) > 1 and len(sdp) > 1:
    print()
if len(sdp) > 1:
    table(sdp, 2)
EOF
