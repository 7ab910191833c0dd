#!/usr/bin/env bash
# Runs clang-tidy (checks in .clang-tidy, every finding an error) over the library sources.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/deps.sh
require_packages "${BUILD_PACKAGES[@]}" clang clang-tidy

# Configured for clang, so the compile commands hold only flags clang-tidy knows.
build=${BUILD_DIR:-build/tidy}
cmake -S . -B "$build" -DCMAKE_CXX_COMPILER=clang++ -DRVA_BUILD_TESTS=OFF -DRVA_BUILD_EXAMPLES=OFF >/dev/null
status=0
for source in common/src/*.cpp sdp/src/*.cpp; do
    clang-tidy -p "$build" --quiet "$source" 2>/dev/null || status=1
done
[ "$status" -eq 0 ] && echo "clang-tidy: $(ls common/src/*.cpp sdp/src/*.cpp | wc -l) sources clean"
exit "$status"
