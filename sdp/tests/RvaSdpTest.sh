#!/bin/sh
# End to end: rva-sdp stream on an example description prints the stream it declares and
# "result: Success" and exits 0; a refused description exits 1 with its result and no
# stream; an unreadable file or a bad command line exits 2 with one line on standard error.
# rva-sdp offer prints our default offer; rva-sdp answer answers an example offer.
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

# offer: our section as written on the wire, CRLF line ends; a refused address is a result.
crlf() { printf '%s\r\n' "$@"; }
crlf "m=audio 49152 RTP/AVP 96 97 98 99 100 101" "c=IN IP4 192.0.2.1" "b=AS:41" "b=RS:0" "b=RR:2000" \
    "a=rtpmap:96 AMR-WB/16000/1" "a=fmtp:96 mode-change-capability=2; max-red=220" \
    "a=rtpmap:97 AMR-WB/16000/1" "a=fmtp:97 octet-align=1; mode-change-capability=2; max-red=220" \
    "a=rtpmap:98 AMR/8000/1" "a=fmtp:98 mode-change-capability=2; max-red=220" \
    "a=rtpmap:99 AMR/8000/1" "a=fmtp:99 octet-align=1; mode-change-capability=2; max-red=220" \
    "a=rtpmap:100 telephone-event/16000" "a=fmtp:100 0-15" "a=rtpmap:101 telephone-event/8000" \
    "a=fmtp:101 0-15" "a=ptime:20" "a=maxptime:240" "a=recvonly" >"$work/expected"
run 0 offer --address 192.0.2.1 --direction recvonly
same "offer" "$work/expected" "$work/out"
echo 'result: Invalid Param (Code 1002): Invalid internet address : "host.example"' >"$work/expected"
run 1 offer --address host.example
same "offer from a host name" "$work/expected" "$work/out"

# answer: the answer section, an empty line, the notes, the stream we run, the result.
{
    crlf "m=audio 40000 RTP/AVP 116 111" "c=IN IP4 127.0.0.1" "b=AS:41" "b=RS:0" "b=RR:2000" \
        "a=rtpmap:116 AMR-WB/16000/1" "a=fmtp:116 mode-change-capability=2; max-red=0" \
        "a=rtpmap:111 telephone-event/16000" "a=fmtp:111 0-15" "a=ptime:20" "a=maxptime:240" "a=sendrecv"
    printf '%s\n' "" "note: payload type 104 (EVS/16000): not a supported encoding" \
        "  Remote: 198.51.100.23:31000"
} >"$work/expected"
run 0 answer --port 40000 "$examples/volte-offer.sdp"
head -n 15 "$work/out" >"$work/head"
same "answer to volte-offer.sdp" "$work/expected" "$work/head"
[ "$(grep -c 'PayloadType: 116' "$work/out")" -eq 2 ] || fail "the answered voice format is not in both lists"
[ "$(tail -n 1 "$work/out")" = "result: Success" ] || fail "answer to volte-offer.sdp did not succeed"
# A secure offer gets the rejected-stream answer and no stream.
{
    crlf "m=audio 0 RTP/SAVP 96"
    printf '%s\n' "" 'result: Rejected (Code 1006): protocol not supported: "RTP/SAVP"'
} >"$work/expected"
run 1 answer - <"$work/secure.sdp"
same "answer to a secure offer" "$work/expected" "$work/out"

run 0 --help
grep -q '^  rva-sdp stream \[--media N\] FILE|-$' "$work/out" || fail "--help does not show the stream command"
for command in offer answer; do
    grep -q "^  rva-sdp $command \\[--address IP\\]" "$work/out" || fail "--help does not show the $command command"
done

[ "$failures" -eq 0 ] && echo "rva-sdp: all checks passed"
exit "$failures"
