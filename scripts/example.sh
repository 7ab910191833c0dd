#!/usr/bin/env bash
# Builds the libraries and shows their main job: a session description received from the
# other end goes in, the checked stream it declares comes out.
#
#   ./scripts/example.sh                     rva-sdp stream examples/volte-offer.sdp
#   ./scripts/example.sh FILE.sdp            the same on another description
#   ./scripts/example.sh --records           the record example: a stream built by hand
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/deps.sh
require_packages "${BUILD_PACKAGES[@]}"

build=${BUILD_DIR:-build/example}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DRVA_BUILD_TESTS=OFF -DRVA_BUILD_EXAMPLES=ON \
    -DRVA_BUILD_TOOLS=ON >/dev/null
cmake --build "$build" --target rva-sdp rva_example -j"$(nproc)" >/dev/null

what=${1:-examples/volte-offer.sdp}
if [ "$what" = --records ]; then
    exec "$build/examples/rva_example"
fi
echo "\$ rva-sdp stream $what"
exec "$build/sdp/tools/rva-sdp" stream "$what"
