// A session description (RFC 4566) as received or sent: the session-level lines (see
// SdpSection) and the media sections in order. The parser is built for text from the
// network: every refusal is a 1004 result naming the line, sizes are bounded, and a
// failed parse leaves its output unchanged.
//
//   SessionDescription remote;
//   Result r = SessionDescription::parse(text, remote);
//   if (!r.isSuccess()) { log(r.format()); return; }
//   for (std::size_t i = 0; i < remote.mediaCount(); ++i) use(remote.media(i));
//
// Reading rules. Lines end in CRLF or LF, mixed freely; trailing blanks (space, tab) are
// dropped; empty lines are skipped but counted, so line numbers are those of the text as
// given. Every other line is "<letter>=<value>". Lines before the first m= are the session
// level; a text may also be a bare media section starting with m=. The order of lines
// within a level is not enforced and unknown letters are kept. Checked on reading:
//   m=<media> <port>[/<count>] <protocol> <format>...  port 0..65535, 1..128 formats
//   c=IN IP4|IP6 <address>                             exactly three fields
//   b=<type>:<number>                                  number unsigned 32-bit
//   a=<name>[:<value>]                                 name not empty
//   a=rtpmap:<pt> <encoding>/<clock>[/<channels>]      pt 0..127, numbers unsigned 32-bit
//   a=fmtp:<pt> <parameters>                           pt 0..127
// Limits: 65536 bytes of text, 4096 bytes a line (its line end not counted), 64 media
// sections. Numbers never wrap. When a payload type has two a=rtpmap or two a=fmtp
// lines, the first counts. Attribute and encoding names compare case-insensitively.
#ifndef TESSEL_RVA_SDP_SESSION_DESCRIPTION_H
#define TESSEL_RVA_SDP_SESSION_DESCRIPTION_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "MediaDescription.h"
#include "RvaExport.h"
#include "SdpResult.h"
#include "SdpSection.h"

namespace tessel {
namespace rva {
namespace sdp {

class RVA_EXPORT SessionDescription : public SdpSection {
public:
    static const std::size_t MAX_TEXT_BYTES = 65536;
    static const std::size_t MAX_LINE_BYTES = 4096;
    static const std::size_t MAX_MEDIA = 64;
    static const std::size_t MAX_FORMATS = 128;

    SessionDescription() noexcept;
    SessionDescription(const SessionDescription& other) noexcept;
    SessionDescription(SessionDescription&& other) noexcept;
    SessionDescription& operator=(const SessionDescription& other) noexcept;
    SessionDescription& operator=(SessionDescription&& other) noexcept;
    ~SessionDescription() override;

    // Replaces `out` with the description read from `text` on success. On failure `out` is
    // unchanged and the result is 1004 with a message naming the line number and quoting
    // the line (cut at 80 bytes, control bytes escaped), e.g.
    // "line 4: port out of range 0..65535: \"m=audio 70000 RTP/AVP 0\"".
    static Result parse(const std::string& text, SessionDescription& out) noexcept;

    std::size_t mediaCount() const noexcept { return mMedia.size(); }
    // index < mediaCount(); past the end, an empty section (see MediaDescription()).
    const MediaDescription& media(std::size_t index) const noexcept;
    // Appends a copy of `media`. Refused with 1002 when it has no format (it would not
    // parse again) or when the description already holds 64 sections.
    Result addMedia(const MediaDescription& media) noexcept;

    // The canonical text, every line ended by "\r\n": v=, o=, s=, i=, u=, e=, p=, c=, b=,
    // t=, r=, z=, k= lines, lines of other letters in the order read, a= lines, then each
    // media section (MediaDescription::toString()). Parsing it gives an equal description
    // and writing that again gives the same text.
    std::string toString() const noexcept;

    // The session-level lines and every media section, in order.
    bool operator==(const SessionDescription& other) const noexcept;
    bool operator!=(const SessionDescription& other) const noexcept { return !(*this == other); }

private:
    // Reads `text` into an empty `description`; the first bad line ends the reading.
    static Result read(std::string_view text, SessionDescription& description);

    std::vector<MediaDescription> mMedia;
};

}  // namespace sdp
}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_SDP_SESSION_DESCRIPTION_H
