#include "MediaDescription.h"

#include "LineGrammar.h"
#include "SdpText.h"

namespace tessel {
namespace rva {
namespace sdp {

namespace {
// The letters of a media section in the order they are written (RFC 4566 section 5).
const char kMediaOrder[] = "icbka";
}  // namespace

MediaDescription::MediaDescription() noexcept : mMediaType("audio"), mPort(0), mProtocol("RTP/AVP") {}
MediaDescription::MediaDescription(const MediaDescription& other) noexcept = default;
MediaDescription::MediaDescription(MediaDescription&& other) noexcept = default;
MediaDescription& MediaDescription::operator=(const MediaDescription& other) noexcept = default;
MediaDescription& MediaDescription::operator=(MediaDescription&& other) noexcept = default;
MediaDescription::~MediaDescription() = default;

Result MediaDescription::setMediaLine(std::string_view value) noexcept {
    grammar::MediaLine line;
    const char* reason = grammar::readMediaLine(text::trimTrailingBlanks(value), line);
    if (reason != nullptr) {
        Result result(InvalidParam);
        result << reason << ": " << text::quote("m=" + std::string(value));
        return result;
    }
    assign(line);
    return Result::success();
}

void MediaDescription::assign(const grammar::MediaLine& line) {
    mMediaType.assign(line.media);
    mPort = line.port;
    mPortCount = line.portCount;
    mProtocol.assign(line.protocol);
    mFormats.assign(line.formats.begin(), line.formats.begin() + static_cast<std::ptrdiff_t>(line.formatCount));
}

std::optional<MediaDescription::RtpMap> MediaDescription::rtpmap(int payloadType) const noexcept {
    const std::optional<std::string_view> value = payloadAttribute("rtpmap", payloadType);
    grammar::RtpMapFields fields;
    if (!value || !grammar::readRtpMap(*value, fields)) {
        return std::nullopt;
    }
    return RtpMap{fields.encoding, fields.clockRate, fields.channels};
}

std::string MediaDescription::fmtp(int payloadType) const noexcept {
    const std::optional<std::string_view> value = payloadAttribute("fmtp", payloadType);
    return value ? std::string(*value) : std::string();
}

std::string MediaDescription::toString() const noexcept {
    std::string out;
    writeTo(out);
    return out;
}

void MediaDescription::writeTo(std::string& out) const {
    std::size_t size = textSize() + lineCount() * 4 + mMediaType.size() + mProtocol.size() + 20;
    for (const std::string& format : mFormats) {
        size += format.size() + 1;
    }
    out.reserve(out.size() + size);
    out += "m=";
    out += mMediaType;
    out += ' ';
    out += std::to_string(mPort);
    if (mPortCount) {
        out += '/';
        out += std::to_string(*mPortCount);
    }
    out += ' ';
    out += mProtocol;
    for (const std::string& format : mFormats) {
        out += ' ';
        out += format;
    }
    out += "\r\n";
    writeLines(out, kMediaOrder);
}

bool MediaDescription::operator==(const MediaDescription& other) const noexcept {
    return mMediaType == other.mMediaType && mPort == other.mPort && mPortCount == other.mPortCount &&
           mProtocol == other.mProtocol && mFormats == other.mFormats && equalLines(other, kMediaOrder);
}

}  // namespace sdp
}  // namespace rva
}  // namespace tessel
