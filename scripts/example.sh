#!/usr/bin/env bash
# Builds the library and runs the example program.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/deps.sh
require_packages "${BUILD_PACKAGES[@]}"

build=${BUILD_DIR:-build/example}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DRVA_BUILD_TESTS=OFF -DRVA_BUILD_EXAMPLES=ON >/dev/null
cmake --build "$build" --target rva_example -j"$(nproc)" >/dev/null
"$build/examples/rva_example"
