// One media section of a session description: its m= line (media, port, optional port
// count, protocol, formats) and the lines after it (see SdpSection). Read from a parsed
// description, or built by a caller (an offer, an answer) from a media line and lines.
//
//   MediaDescription audio;
//   audio.setMediaLine("audio 49152 RTP/AVP 96 97");
//   audio.addLine('a', "rtpmap:96 AMR-WB/16000/1");
//   audio.addLine('a', "fmtp:96 mode-change-capability=2; max-red=220");
//   audio.toString();  // "m=audio 49152 RTP/AVP 96 97\r\na=rtpmap:96 AMR-WB/16000/1\r\n..."
//
// A value type: copies are deep and own their text.
#ifndef TESSEL_RVA_SDP_MEDIA_DESCRIPTION_H
#define TESSEL_RVA_SDP_MEDIA_DESCRIPTION_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "RvaExport.h"
#include "SdpResult.h"
#include "SdpSection.h"

namespace tessel {
namespace rva {
namespace sdp {
namespace grammar {
struct MediaLine;
}

class RVA_EXPORT MediaDescription : public SdpSection {
public:
    // The fields of "a=rtpmap:<pt> <encoding>/<clockRate>[/<channels>]", viewed in this
    // section (valid until it changes). `channels` is 0 when the line gives none.
    struct RtpMap {
        std::string_view encoding;
        std::uint32_t clockRate;
        std::uint32_t channels;
    };

    // "audio", port 0, "RTP/AVP" and no format: no description until setMediaLine()
    // succeeds (written as it stands, it would not parse again).
    MediaDescription() noexcept;
    MediaDescription(const MediaDescription& other) noexcept;
    MediaDescription(MediaDescription&& other) noexcept;
    MediaDescription& operator=(const MediaDescription& other) noexcept;
    MediaDescription& operator=(MediaDescription&& other) noexcept;
    ~MediaDescription() override;

    // Replaces the m= line from its value, "<media> <port>[/<count>] <protocol> <format>...":
    // fields separated by blanks, port 0..65535, at most 128 formats and at least one.
    // Refused with 1002, the section unchanged, otherwise.
    Result setMediaLine(std::string_view value) noexcept;

    const std::string& mediaType() const noexcept { return mMediaType; }     // "audio"
    std::uint32_t port() const noexcept { return mPort; }                    // 0: disabled
    // The "/<count>" of the port field ("49170/2"), when written.
    std::optional<std::uint32_t> portCount() const noexcept { return mPortCount; }
    const std::string& protocol() const noexcept { return mProtocol; }       // "RTP/AVP" as written
    const std::vector<std::string>& formats() const noexcept { return mFormats; }  // in order

    // The first a=rtpmap of the payload type (0..127), when there is one.
    std::optional<RtpMap> rtpmap(int payloadType) const noexcept;
    // The text after "a=fmtp:<pt> " of the first a=fmtp of the payload type; "" if none.
    std::string fmtp(int payloadType) const noexcept;

    // The canonical text, every line ended by "\r\n": the m= line with single blanks, then
    // i=, c=, b=, k= lines, lines of other letters in the order read, a= lines; within one
    // letter the order read. Parsing it gives an equal section.
    std::string toString() const noexcept;
    // Appends toString() to `out`.
    void writeTo(std::string& out) const;

    // The m= fields and the lines.
    bool operator==(const MediaDescription& other) const noexcept;
    bool operator!=(const MediaDescription& other) const noexcept { return !(*this == other); }

private:
    friend class SessionDescription;
    void assign(const grammar::MediaLine& line);

    std::string mMediaType;
    std::uint32_t mPort;
    std::optional<std::uint32_t> mPortCount;
    std::string mProtocol;
    std::vector<std::string> mFormats;
};

}  // namespace sdp
}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_SDP_MEDIA_DESCRIPTION_H
