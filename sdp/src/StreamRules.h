// The decisions that turn what a description says into the values of the records: where
// the remote end is, which way media flows, the RTCP parameters, what a payload type is,
// the AMR configuration of a format and the packet times. One function per decision, the
// RFC section it follows in its comment; reading a remote description and negotiating
// offers and answers share them. Internal to the SDP layer.
//
//   RemoteEndpoint remote;
//   Result r = remoteEndpoint(description, media, remote);            // c= and port
//   StreamConfig::Direction d = directionTowardAddress(
//       mirroredDirection(declaredDirection(description, media, notes)), remote.address);
#ifndef TESSEL_RVA_SDP_STREAM_RULES_H
#define TESSEL_RVA_SDP_STREAM_RULES_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "AmrCodecConfig.h"
#include "AmrParameters.h"
#include "CodecConfig.h"
#include "MediaDescription.h"
#include "MediaTypes.h"
#include "RtcpConfig.h"
#include "SdpResult.h"
#include "SdpSection.h"
#include "SessionDescription.h"
#include "StreamConfig.h"

namespace tessel {
namespace rva {
namespace sdp {
namespace rules {

// Where notes go; null when the caller wants none.
typedef std::vector<std::string> Notes;

// Appends `note` when `notes` is not null.
void addNote(Notes* notes, std::string note);

// The RTP profile of an m= protocol: RTP/AVP and RTP/AVPF, compared as written; nothing
// for any other protocol (secure profiles included: the records hold no keys).
std::optional<RtpProfile> rtpProfileOf(const std::string& protocol);

// The remote end of a stream, as a description gives it.
struct RemoteEndpoint {
    std::string address;
    int port = 0;
};

// The media c= line, else the session's, and the media port. 1004 when neither level has
// a c= line; 1005 when the address is not a literal of its type (IP4: Utils::isValidIpV4,
// IP6: Utils::isValidIpV6) or the port is outside 1024..65535. `out` is written only on
// success.
Result remoteEndpoint(const SdpSection& session, const MediaDescription& media, RemoteEndpoint& out);

// Media section `mediaIndex` of `description` exists and is audio; otherwise 1002 naming
// the index or the media.
Result audioSection(const SessionDescription& description, std::size_t mediaIndex);

// What a remote section says about the stream to run, checked in this order: the section
// exists and is audio (1002), its port is not 0 (1006), it has no port count, a plain RTP
// profile and a usable address and port (1005; 1004 without c=). `out` is written only
// on success.
struct RemoteStream {
    RtpProfile profile = RtpProfileAvp;
    RemoteEndpoint endpoint;
};
Result remoteStream(const SessionDescription& description, std::size_t mediaIndex, RemoteStream& out);

// True for an address that stands for "send nothing here": 0.0.0.0 or :: however written.
bool isNullAddress(const std::string& address);

// A direction attribute as the describer writes it, from the describer's side.
enum DeclaredDirection { DeclaredSendRecv, DeclaredSendOnly, DeclaredRecvOnly, DeclaredInactive };

// The first direction attribute of the media, else of the session, else sendrecv. A
// later, different direction attribute of the same level is noted and ignored.
DeclaredDirection declaredDirection(const SdpSection& session, const MediaDescription& media, Notes* notes);

// The remote's declared direction seen from our side: its sendonly is our ReceiveOnly,
// its recvonly our SendOnly.
StreamConfig::Direction mirroredDirection(DeclaredDirection declared);

// `direction` without its uplink when the remote address is a null address (FullDuplex
// becomes ReceiveOnly, SendOnly becomes Inactive); unchanged otherwise.
StreamConfig::Direction directionTowardAddress(StreamConfig::Direction direction, const std::string& remoteAddress);

// RTCP switch and parameters.
struct RtcpSettings {
    RtcpConfig config;
    bool enabled = true;
};

// `start` with as, rs and rr replaced by the b=AS, b=RS and b=RR lines of the media, else
// of the session, each type on its own; reduced size set by a=rtcp-rsize on RTP/AVPF and
// left as `start` has it otherwise; off when b=RS:0 and b=RR:0 are both given or the
// remote address is a null address. a=rtcp-rsize on RTP/AVP, a=rtcp naming another port
// or address than the stream's, and a=rtcp-mux cannot be held: they are noted.
RtcpSettings rtcpSettings(const SdpSection& session, const MediaDescription& media, const RtcpConfig& start,
                          const RemoteEndpoint& remote, Notes* notes);

// What a payload type of a section is.
struct PayloadFormat {
    enum Kind { Amr, TelephoneEvent, Unsupported };
    Kind kind = Unsupported;
    BandType band = BandTypeNb;  // for Amr and TelephoneEvent
    std::string name;            // "AMR-WB/16000", from a=rtpmap or the static table; "" if neither
    const char* reason = "";     // why an Unsupported format is skipped
};

// AMR/8000 (narrow band) and AMR-WB/16000 (wide band) with one channel, telephone-event
// at 8000 or 16000 Hz; names from a=rtpmap, else from the static payload types.
PayloadFormat payloadFormat(const MediaDescription& media, int payloadType);

// The AMR configuration that `parameters` (read for `band`, BandTypeNb or BandTypeWb)
// declare for payload type `payloadType`. Modes outside the band are never added.
AmrCodecConfig amrCodecConfig(BandType band, int payloadType, const AmrParameters& parameters);

// The a=ptime and a=maxptime of a media section, when given as whole milliseconds; other
// values are noted and left out.
struct PacketTimes {
    std::optional<unsigned int> packetTime;
    std::optional<unsigned int> maxPacketTime;
};
PacketTimes declaredPacketTimes(const MediaDescription& media, Notes* notes);

// Sets the packet times present in `times` on `codec`; the others keep their value.
void applyPacketTimes(const PacketTimes& times, CodecConfig& codec);

}  // namespace rules
}  // namespace sdp
}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_SDP_STREAM_RULES_H
