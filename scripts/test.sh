#!/usr/bin/env bash
# Builds the library and its tests and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/deps.sh
require_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"

build=${BUILD_DIR:-build/test}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DRVA_BUILD_TESTS=ON -DRVA_BUILD_EXAMPLES=ON
cmake --build "$build" -j"$(nproc)"
ctest --test-dir "$build" --output-on-failure -j"$(nproc)"
