// Offer and answer (RFC 3264) for one audio stream from the engine's capabilities: AMR and
// AMR-WB (RFC 4867) with telephone-event (RFC 4733) at the voice codec's clock rate.
//
//   LocalEndpoint local{"192.0.2.1", 49152};
//   MediaDescription offer;
//   createOffer(defaultCapabilities(), local, offer);              // we call
//   ...
//   StreamConfig stream;
//   applyAnswer(offer, remoteAnswer, 0, stream);                    // they answered
//
//   MediaDescription answer;                                        // they call
//   createAnswer(defaultCapabilities(), local, remoteOffer, 0, answer, stream);
//
// AMR payload types are negotiated as RFC 4867 section 8.3.1 asks: an offered mode-set is
// answered unchanged or the payload type is refused (never intersected); the payload
// format (octet-align, crc, robust-sorting, interleaving) is echoed; telephone-event is
// taken only at the voice format's clock rate. Packet times split by direction: the uplink
// uses what the other end asked to receive, the downlink what we asked.
//
// The sections produced are written in this order: m=, c=, b=AS, b=RS, b=RR, then for each
// format its a=rtpmap and a=fmtp, a=ptime, a=maxptime, the direction attribute (always),
// and a=rtcp-rsize when it applies. A rejected stream is the single line
// "m=audio 0 <offered protocol> <first offered format>".
#ifndef TESSEL_RVA_SDP_OFFER_ANSWER_H
#define TESSEL_RVA_SDP_OFFER_ANSWER_H

#include <cstddef>
#include <string>
#include <vector>

#include "MediaDescription.h"
#include "RvaExport.h"
#include "SdpResult.h"
#include "SessionDescription.h"
#include "StreamCapabilities.h"
#include "StreamConfig.h"

namespace tessel {
namespace rva {
namespace sdp {

// Our end of the stream.
struct LocalEndpoint {
    std::string address;                                           // our IPv4 or IPv6 address for c=
    int rtpPort = 0;                                               // our RTP port, 1024..65535
    StreamConfig::Direction direction = StreamConfig::FullDuplex;  // what we want
    int firstPayloadType = 96;                                     // offers number their formats from here
};

// The terminal profile of 3GPP TS 26.114, in this order: AMR-WB and AMR capabilities
// (every mode, bandwidth-efficient allowed, DTX, redundancy up to 220, mode-change
// capability 2, 20/240 ms), telephone-event at 16000 and at 8000, profiles RTP/AVP and
// RTP/AVPF, RTCP capabilities interval 5000, rr 2000, rs 0, as 41, full-size RTCP.
RVA_EXPORT StreamCapabilities defaultCapabilities() noexcept;

// Writes our offer. For each AMR capability in order: a bandwidth-efficient payload type
// (unless the capability requires octet-align) and an octet-aligned one; then one
// telephone-event per distinct voice clock rate when a DTMF capability of that band is
// held. Payload types count up from endpoint.firstPayloadType. An AMR capability with no
// rate listed supports every mode of its band.
// Refused with 1002, `offer` unchanged: an address that is not IPv4 or IPv6, a port
// outside 1024..65535, a direction outside 0..3, a first payload type outside 96..127,
// no AMR capability, or payload types running past 127. An AMR capability whose rates hold
// no mode of its band is left out (a note).
RVA_EXPORT Result createOffer(const StreamCapabilities& local, const LocalEndpoint& endpoint, MediaDescription& offer,
                              std::vector<std::string>* notes = nullptr) noexcept;

// Answers media section `mediaIndex` of `offer`. `answer` is written on every result but
// 1002; `negotiated` on success only. 1002: a bad endpoint (as createOffer, the payload
// type aside), no such section or not audio. 1006 with the rejected-stream answer: port 0,
// a protocol we do not support, or no AMR payload type that a capability accepts (the
// message names each refused AMR payload type and why; notes also name the formats that
// are not AMR or telephone-event). The remote address and port must be usable as for
// toStreamConfig (1004 without c=, else 1005, with the rejected-stream answer); an offered
// port count ("49170/2", a layered stream) is 1005 with the rejected-stream answer; 1003 when
// the negotiated stream fails its check().
RVA_EXPORT Result createAnswer(const StreamCapabilities& local, const LocalEndpoint& endpoint,
                               const SessionDescription& offer, std::size_t mediaIndex, MediaDescription& answer,
                               StreamConfig& negotiated, std::vector<std::string>* notes = nullptr) noexcept;

// Applies the remote's answer to our offer: `negotiated` is written on success only.
// 1002: no such section or not audio; 1006: port 0 or no AMR payload type in the answer;
// 1005: a port count, a secure or unknown protocol, an unusable address or port, a
// protocol other than the offered one, a format we did not offer or with another
// meaning, or an AMR payload format or mode-set that differs from our offer (the
// message names the parameter); 1004: no c= line; 1003: the stream fails its check().
// An answer that grants more than the offer allowed is clamped, with a note: a direction
// beyond the offered one, reduced-size RTCP that the offer did not ask for.
RVA_EXPORT Result applyAnswer(const MediaDescription& ourOffer, const SessionDescription& answer,
                              std::size_t mediaIndex, StreamConfig& negotiated,
                              std::vector<std::string>* notes = nullptr) noexcept;

}  // namespace sdp
}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_SDP_OFFER_ANSWER_H
