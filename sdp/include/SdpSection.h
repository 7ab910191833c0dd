// One level of a session description: the session level (the lines before the first m=)
// or one media section (the lines after its m= line). It keeps every line as read, in
// order, unknown letters included, so that writing gives back what was read; meaning is
// given by the accessors and by the layers above.
//
//   const MediaDescription& audio = description.media(0);
//   audio.attributeValue("ptime");               // "20"
//   audio.connection()->address;                 // "192.0.2.10"
//   audio.bandwidth("AS");                       // 41
//
// Every line held passes the checks of the parser: a line added by a caller through
// addLine() is refused (1002) when parsing it would fail.
#ifndef TESSEL_RVA_SDP_SDP_SECTION_H
#define TESSEL_RVA_SDP_SDP_SECTION_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "RvaExport.h"
#include "SdpResult.h"

namespace tessel {
namespace rva {
namespace sdp {

class RVA_EXPORT SdpSection {
public:
    // A line as held: its letter and its value (the text after "<letter>=", trailing
    // blanks removed). The view stays valid until this section is changed or destroyed.
    struct Line {
        char type;
        std::string_view value;
    };
    // The fields of a c= line ("IN <addressType> <address>"), viewed in this section.
    struct Connection {
        std::string_view addressType;  // "IP4" or "IP6"
        std::string_view address;      // as written: may carry a "/ttl" suffix or be a host name
    };

    SdpSection() noexcept;
    SdpSection(const SdpSection& other) noexcept;
    SdpSection(SdpSection&& other) noexcept;
    SdpSection& operator=(const SdpSection& other) noexcept;
    SdpSection& operator=(SdpSection&& other) noexcept;
    virtual ~SdpSection();

    // The lines held, in the order read (a media section's m= line is not among them).
    std::size_t lineCount() const noexcept { return mLines.size(); }
    Line line(std::size_t index) const noexcept;  // index < lineCount()
    // The value of the first line of that letter, or nothing.
    std::optional<std::string_view> firstValue(char type) const noexcept;

    // Attribute names compare case-insensitively ("a=SendRecv" is "sendrecv").
    bool hasAttribute(const std::string& name) const noexcept;
    // The value after "a=<name>:" of the first such attribute, exactly as written; "" when
    // there is none or when it has no value.
    std::string attributeValue(const std::string& name) const noexcept;
    // The first c= line.
    std::optional<Connection> connection() const noexcept;
    // The number of the first "b=<type>:<number>" line whose type equals `type`
    // case-insensitively.
    std::optional<std::uint32_t> bandwidth(std::string_view type) const noexcept;

    // Appends a line, e.g. addLine('a', "ptime:20"). Refused with 1002, the section
    // unchanged, when the line would not parse: a letter other than an ASCII letter or
    // 'm', a value holding a line end or over 4096 bytes, a malformed c=, b=, a=rtpmap or
    // a=fmtp value. Trailing blanks of the value are dropped, as the parser drops them.
    Result addLine(char type, std::string_view value) noexcept;

protected:
    friend class SessionDescription;  // its reader fills the sections it creates

    // Appends "<letter>=<value>\r\n" for every line held, in the order of a written
    // description: letter after letter as `order` lists them (it ends in 'a'), the lines
    // of letters not listed in the order read just before the a= lines.
    void writeLines(std::string& out, std::string_view order) const;
    // True when both sections hold the same lines in the order of a written description
    // (see writeLines): the same values for each letter of `order`, in the same order, and
    // the same lines of the other letters, in the same order. Two sections that write the
    // same text are equal.
    bool equalLines(const SdpSection& other, std::string_view order) const;
    // Bytes of all values held.
    std::size_t textSize() const;
    // Appends a line already checked; the parser's path.
    void appendChecked(char type, std::string_view value);
    // The first a= line whose name is `name` (case-insensitive) and whose value then
    // starts with a payload type equal to `payloadType` and a blank or its end: the text
    // after the payload type and its blanks. Used for a=rtpmap and a=fmtp.
    std::optional<std::string_view> payloadAttribute(std::string_view name, int payloadType) const noexcept;
    void reserveLines(std::size_t lines, std::size_t bytes);

private:
    struct Entry {
        char type;
        std::uint32_t offset;
        std::uint32_t length;
    };
    std::string mText;  // every value, one after the other
    std::vector<Entry> mLines;
};

}  // namespace sdp
}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_SDP_SDP_SECTION_H
