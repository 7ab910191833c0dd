#!/usr/bin/env bash
# Fails when a library of the project exports a symbol outside the tessel:: API (compiler-
# and sanitizer-generated "__" names aside), or lacks one that callers rely on.
#
#   exported_symbols.sh LIBRARY [REQUIRED_SYMBOL...]   (librvacommon's list by default)
set -euo pipefail
library=$1
shift
symbols=$(nm -D --defined-only "$library" | awk '{ $1 = ""; $2 = ""; sub(/^ +/, ""); print }' | c++filt)

stray=$(printf '%s\n' "$symbols" |
    grep -v -E '^((typeinfo|typeinfo name|vtable|VTT|guard variable) for )?tessel::' |
    grep -v -E '^__' || true)
if [ -n "$stray" ]; then
    echo "Exported outside the tessel:: API:"
    printf '%s\n' "$stray"
    exit 1
fi

required_symbols=("$@")
[ ${#required_symbols[@]} -gt 0 ] || required_symbols=(
    'tessel::rva::RtcpConfig::disabledRtcpConfig'
    'tessel::rva::Dtmf::_dtmfCharMap'
    'tessel::rva::BandTypeConverter::mNb'
    'tessel::rva::StreamConfig::DEFAULT_REMOTE_IP'
    'tessel::rva::AmrCodecConfig::DEFAULT_PAYLOAD_TYPE'
    'tessel::rva::StreamConfig::check() const'
    'tessel::rva::AmrCodecConfig::AmrRatePreferenceComparator<(tessel::rva::BandType)0>::operator()'
    'tessel::rva::common::MonotonicClock::getTime()'
    'typeinfo for tessel::rva::AmrCodecConfig'
    'vtable for tessel::rva::StreamCapabilities')
for required in "${required_symbols[@]}"; do
    if ! grep -q -F -- "$required" <<<"$symbols"; then
        echo "Not exported: $required"
        exit 1
    fi
done
echo "$(printf '%s\n' "$symbols" | wc -l) exported symbols, all in tessel::"
