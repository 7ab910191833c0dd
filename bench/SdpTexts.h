// The descriptions the SDP benchmarks parse, as a VoLTE terminal exchanges them.
#ifndef RVA_BENCH_SDP_TEXTS_H
#define RVA_BENCH_SDP_TEXTS_H

namespace bench {

// An offer: AMR-WB and AMR, each bandwidth-efficient and octet-aligned, then
// telephone-event at both clock rates (RFC 4867, RFC 4733).
inline constexpr char kVolteOffer[] =
    "v=0\r\n"
    "o=- 1946270321 1946270321 IN IP4 192.0.2.10\r\n"
    "s=-\r\n"
    "c=IN IP4 192.0.2.10\r\n"
    "t=0 0\r\n"
    "m=audio 50000 RTP/AVP 96 97 98 99 100 101\r\n"
    "b=AS:41\r\n"
    "b=RS:600\r\n"
    "b=RR:2000\r\n"
    "a=rtpmap:96 AMR-WB/16000/1\r\n"
    "a=fmtp:96 mode-change-capability=2; max-red=220\r\n"
    "a=rtpmap:97 AMR-WB/16000/1\r\n"
    "a=fmtp:97 octet-align=1; mode-change-capability=2; max-red=220\r\n"
    "a=rtpmap:98 AMR/8000/1\r\n"
    "a=fmtp:98 mode-change-capability=2; max-red=220\r\n"
    "a=rtpmap:99 AMR/8000/1\r\n"
    "a=fmtp:99 octet-align=1; mode-change-capability=2; max-red=220\r\n"
    "a=rtpmap:100 telephone-event/16000\r\n"
    "a=fmtp:100 0-15\r\n"
    "a=rtpmap:101 telephone-event/8000\r\n"
    "a=fmtp:101 0-15\r\n"
    "a=ptime:20\r\n"
    "a=maxptime:240\r\n"
    "a=sendrecv\r\n";

// The answer to kVolteOffer: bandwidth-efficient AMR-WB and its telephone-event.
inline constexpr char kVolteAnswer[] =
    "v=0\r\n"
    "o=- 3174512088 3174512088 IN IP4 198.51.100.20\r\n"
    "s=-\r\n"
    "c=IN IP4 198.51.100.20\r\n"
    "t=0 0\r\n"
    "m=audio 40000 RTP/AVP 96 100\r\n"
    "b=AS:41\r\n"
    "b=RS:600\r\n"
    "b=RR:2000\r\n"
    "a=rtpmap:96 AMR-WB/16000/1\r\n"
    "a=fmtp:96 mode-change-capability=2; max-red=220\r\n"
    "a=rtpmap:100 telephone-event/16000\r\n"
    "a=fmtp:100 0-15\r\n"
    "a=ptime:20\r\n"
    "a=maxptime:240\r\n"
    "a=sendrecv\r\n";

// A re-offer putting the call on hold (RFC 3264 section 8.4) from an IPv6 terminal: the
// formats of kVolteOffer, a=sendonly.
inline constexpr char kHoldReofferIpv6[] =
    "v=0\r\n"
    "o=- 2208733705 2208733706 IN IP6 2001:db8::10\r\n"
    "s=-\r\n"
    "c=IN IP6 2001:db8::10\r\n"
    "t=0 0\r\n"
    "m=audio 50000 RTP/AVP 96 97 98 99 100 101\r\n"
    "b=AS:49\r\n"
    "b=RS:600\r\n"
    "b=RR:2000\r\n"
    "a=rtpmap:96 AMR-WB/16000/1\r\n"
    "a=fmtp:96 mode-change-capability=2; max-red=220\r\n"
    "a=rtpmap:97 AMR-WB/16000/1\r\n"
    "a=fmtp:97 octet-align=1; mode-change-capability=2; max-red=220\r\n"
    "a=rtpmap:98 AMR/8000/1\r\n"
    "a=fmtp:98 mode-change-capability=2; max-red=220\r\n"
    "a=rtpmap:99 AMR/8000/1\r\n"
    "a=fmtp:99 octet-align=1; mode-change-capability=2; max-red=220\r\n"
    "a=rtpmap:100 telephone-event/16000\r\n"
    "a=fmtp:100 0-15\r\n"
    "a=rtpmap:101 telephone-event/8000\r\n"
    "a=fmtp:101 0-15\r\n"
    "a=ptime:20\r\n"
    "a=maxptime:240\r\n"
    "a=sendonly\r\n";

}  // namespace bench

#endif  // RVA_BENCH_SDP_TEXTS_H
