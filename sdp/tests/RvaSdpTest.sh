#!/bin/sh
# End to end: rva-sdp stream on an example description prints the stream it declares and
# "result: Success" and exits 0; a refused description exits 1 with its result and no
# stream; an unreadable file or a bad command line exits 2 with one line on standard error.
#
#   RvaSdpTest.sh <rva-sdp> <examples directory>
set -u
program=$1
examples=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

fail() {
    echo "FAIL: $*" >&2
    failures=$((failures + 1))
}

# run <expected status> <arguments>...: runs the program, stdout to $work/out, stderr to
# $work/err, and checks its exit status.
run() {
    wanted=$1
    shift
    "$program" "$@" >"$work/out" 2>"$work/err"
    status=$?
    [ "$status" -eq "$wanted" ] || fail "rva-sdp $*: exit status $status, expected $wanted"
}

# same <what> <expected file> <actual file>
same() {
    diff -u "$2" "$3" >"$work/diff" || { fail "$1 differs:"; cat "$work/diff" >&2; }
}

# The IPv6 answer: AVPF with reduced-size RTCP, narrow-band AMR with a mode set and
# mode-change restrictions, telephone events at 8000 Hz; the codecs in both lists.
codec() {
    printf '%s\n' \
        "  $1 codec 1/2" \
        "    Codec: AMR (0)" \
        "    BandType: 8kHz (0)" \
        "    PayloadType: 98" \
        "    PacketTime: 20" \
        "    MaxPacketTime: 40" \
        "    OctetAlignEnabled: 0" \
        "    DtxModeEnabled: 1" \
        "    RdcyEnabled: 0" \
        "    MaxRdcy: 0" \
        "    RateCount: 4" \
        "    Rates: 0 2 4 7 " \
        "    CrcEnabled: 0" \
        "    RobustSortingEnabled: 0" \
        "    InterleavingEnabled: 0" \
        "    ModeChangeNeighborEnabled: 1" \
        "    ModeChangePeriod: 1" \
        "  $1 codec 2/2" \
        "    Codec: DTMF (1)" \
        "    BandType: 8kHz (0)" \
        "    PayloadType: 100" \
        "    PacketTime: 20" \
        "    MaxPacketTime: 40"
}
{
    printf '%s\n' \
        "  Remote: 2001:db8:a0b:12f0::1:40202" \
        "  Mute: 0" \
        "  Direction : Full duplex (3)" \
        "  RtcpEnabled: 1" \
        "  RtcpConfig: AS=38 RS=0 RR=1500 interval=5000  ReducedSizeMode=1" \
        "  IsHeld: 0" \
        "  RtpProfile: 4585" \
        "  PdpContext: primaryCID=1 secondaryCID=1"
    codec Uplink
    codec Downlink
    echo "result: Success"
} >"$work/expected"
run 0 stream "$examples/ipv6-answer.sdp"
same "stream of ipv6-answer.sdp" "$work/expected" "$work/out"
[ -s "$work/err" ] && fail "stream of ipv6-answer.sdp wrote to standard error"

# A secure stream read from standard input: refused, no stream printed.
printf 'm=audio 49170 RTP/SAVP 96\r\nc=IN IP4 192.0.2.1\r\na=rtpmap:96 AMR-WB/16000\r\n' >"$work/secure.sdp"
echo 'result: Unsupported (Code 1005): protocol "RTP/SAVP": only RTP/AVP and RTP/AVPF can be held' >"$work/expected"
run 1 stream - <"$work/secure.sdp"
same "stream of a secure description" "$work/expected" "$work/out"

# An unreadable file, then a bad command line: one line on standard error, nothing else.
run 2 stream "$work/missing.sdp"
echo "rva-sdp: cannot read $work/missing.sdp: No such file or directory" >"$work/expected"
same "error for a missing file" "$work/expected" "$work/err"
[ -s "$work/out" ] && fail "a missing file printed to standard output"
run 2 stream --media one "$examples/ipv6-answer.sdp"
[ "$(wc -l <"$work/err")" -eq 1 ] || fail "a bad --media gave not one line on standard error"

run 0 --help
grep -q '^  rva-sdp stream \[--media N\] FILE|-$' "$work/out" || fail "--help does not show the stream command"

[ "$failures" -eq 0 ] && echo "rva-sdp: all checks passed"
exit "$failures"
