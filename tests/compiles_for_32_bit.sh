#!/usr/bin/env bash
# Compiles the library sources, the tests and the example for a 32-bit target, where long
# is 32 bits as on armeabi-v7a, with the warnings of the real build. The 32-bit ARM cross
# compiler is used when there is one, otherwise the host compiler with -m32. Only the
# compilation is checked: no 32-bit copy of any library is needed.
#
#   compiles_for_32_bit.sh <host c++ compiler> <include directory of android/log.h>
set -euo pipefail
compiler=$1
log_include=$2
root=$(cd "$(dirname "$0")/.." && pwd)

if command -v arm-linux-gnueabihf-g++ >/dev/null; then
    target=(arm-linux-gnueabihf-g++ -idirafter /usr/include)  # GoogleTest's headers, after the target's own
elif echo '#include <string>' | "$compiler" -m32 -std=c++17 -x c++ -fsyntax-only - 2>/dev/null; then
    target=("$compiler" -m32)
else
    echo "No compiler for a 32-bit target; on Debian: apt-get install g++-arm-linux-gnueabihf" >&2
    exit 1
fi
status=0
for source in "$root"/common/src/*.cpp "$root"/tests/*Test.cpp "$root"/examples/*.cpp; do
    "${target[@]}" -std=c++17 -fsyntax-only -Wall -Wextra -Werror \
        -I"$root/common/include" -I"$root/utilities" -I"$root/common/src" -I"$root/tests/support" \
        ${log_include:+-I"$log_include"} "$source" || status=1
done
[ "$status" -eq 0 ] && echo "every source compiles for a 32-bit target (${target[0]})"
exit "$status"
