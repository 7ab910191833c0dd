// The grammar of a description's lines, one table entry per kind of line (RFC 4566
// section 5): what each letter's value must look like. Internal to the SDP layer.
#ifndef TESSEL_RVA_SDP_LINE_GRAMMAR_H
#define TESSEL_RVA_SDP_LINE_GRAMMAR_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessel {
namespace rva {
namespace sdp {
namespace grammar {

// The fields of an m= line, viewed in its value.
struct MediaLine {
    std::string_view media;
    std::uint32_t port = 0;
    std::optional<std::uint32_t> portCount;
    std::string_view protocol;
    std::array<std::string_view, 128> formats;  // the first formatCount are read
    std::size_t formatCount = 0;
};

// The fields of "<pt> <encoding>/<clock>[/<channels>]".
struct RtpMapFields {
    std::string_view encoding;
    std::uint32_t clockRate = 0;
    std::uint32_t channels = 0;
};

// Null when `value` is acceptable for a line of letter `type` (an ASCII letter other than
// 'm'); otherwise why not, e.g. "bad c= line: expected \"IN IP4|IP6 <address>\"".
const char* checkLine(char type, std::string_view value);

// Reads the value of an m= line; null on success, otherwise why not.
const char* readMediaLine(std::string_view value, MediaLine& line);

// The name of an a= value: the text before its first ':' (all of it when there is none),
// and the text after that ':' in `rest`.
std::string_view attributeName(std::string_view value, std::string_view& rest);

// Splits "<pt>[ <rest>]" with pt 0..127; false when the payload type is not that.
bool splitPayloadType(std::string_view value, std::uint32_t& payloadType, std::string_view& rest);

// Reads "<encoding>/<clock>[/<channels>]"; false when it is not that.
bool readRtpMap(std::string_view text, RtpMapFields& fields);

}  // namespace grammar
}  // namespace sdp
}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_SDP_LINE_GRAMMAR_H
