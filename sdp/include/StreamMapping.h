// A description received from the other end, read as a statement of the stream to run
// (the declarative use of RFC 4867 section 8.3.2): what the remote wants to receive and
// where, turned into the StreamConfig the engine is given.
//
//   SessionDescription remote;
//   SessionDescription::parse(text, remote);
//   StreamConfig stream;
//   std::vector<std::string> notes;
//   Result r = toStreamConfig(remote, 0, stream, &notes);  // 1000: `stream` is checked
//   for (const std::string& note : notes) log(note);         // "payload type 0 (PCMU/8000): ..."
#ifndef TESSEL_RVA_SDP_STREAM_MAPPING_H
#define TESSEL_RVA_SDP_STREAM_MAPPING_H

#include <cstddef>
#include <string>
#include <vector>

#include "RvaExport.h"
#include "SdpResult.h"
#include "SessionDescription.h"
#include "StreamConfig.h"

namespace tessel {
namespace rva {
namespace sdp {

// Fills `out` from media section `mediaIndex` of `remote`. The steps below run in this
// order and the first failure decides (a disabled stream is 1006 whatever its address):
//
//   1002  `mediaIndex` past the end, or a media other than "audio".
//   1006  port 0: the stream is disabled.
//   1005  a port count ("49170/2").
//   1005  a protocol other than RTP/AVP (profile 3551) and RTP/AVPF (RtpProfileAvpf): a
//         secure stream is never turned into a plain one, the records hold no keys.
//   1004  no c= line in the section nor at session level.
//   1005  an address that is not a literal of its type (a "/ttl" suffix, a host name), or
//         a port below 1024.
//         Direction: the media's direction attribute, else the session's, else sendrecv,
//         seen from our side (the remote's sendonly is our ReceiveOnly). An address of
//         0.0.0.0 or :: means that nothing is to be sent (RFC 3264 section 8.4): the
//         uplink is dropped from the direction and RTCP is off.
//         RTCP: a default RtcpConfig whose as, rs and rr are replaced by b=AS, b=RS and
//         b=RR of the section, else of the session, each on its own; off when both b=RS:0
//         and b=RR:0 are given; reduced size on a=rtcp-rsize of an RTP/AVPF section.
//         Codecs, in m= order: AMR/8000 (narrow band), AMR-WB/16000 (wide band), one
//         channel, with its a=fmtp; telephone-event/8000 or /16000. Every other format,
//         and an AMR format whose a=fmtp is refused, is skipped with a note. a=ptime and
//         a=maxptime of the section apply to every codec (20 and 240 when absent). Each
//         codec goes to both the uplink and the downlink list.
//   1005  no AMR or AMR-WB format left.
//   1003  the filled stream fails StreamConfig::check(); the message is that check's
//         format(), and `out` holds the filled stream so that it can be logged.
//
// On every other failure `out` is unchanged. Mute, hold and the PDP context are call
// state: they stay as a default StreamConfig has them. When `notes` is given, one line is
// appended for each format or attribute skipped and why, e.g.
// "payload type 0 (PCMU/8000): not a supported encoding"; notes never change the result.
//
// Choices where the RFCs leave room: the media name and the protocol compare as written
// ("audio", "RTP/AVP"); the first direction attribute of a level counts, a different later
// one is noted; a=rtcp-rsize, a=rtcp, a=rtcp-mux, a=ptime and a=maxptime are media-level
// attributes and read there only; an a=ptime or a=maxptime that is not a whole number of
// milliseconds is noted and left out; a=rtcp naming another port than RTP port + 1, or
// another address, is noted (the records hold neither); a format that is not a number
// 0..127 is noted.
RVA_EXPORT Result toStreamConfig(const SessionDescription& remote, std::size_t mediaIndex, StreamConfig& out,
                                 std::vector<std::string>* notes = nullptr) noexcept;

}  // namespace sdp
}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_SDP_STREAM_MAPPING_H
