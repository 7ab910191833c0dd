#include "LineGrammar.h"

#include <cstddef>
#include <limits>

#include "SdpText.h"

namespace tessel {
namespace rva {
namespace sdp {
namespace grammar {

namespace {

const std::uint32_t kMaxPayloadType = 127;
const std::uint32_t kMaxPort = 65535;
const std::uint32_t kMaxNumber = std::numeric_limits<std::uint32_t>::max();

// c=<nettype> <addrtype> <address>: the network type is IN and the address type IP4 or
// IP6 (RFC 4566 section 5.7), written as registered.
const char* checkConnection(std::string_view value) {
    std::size_t position = 0;
    const std::string_view network = text::nextField(value, position);
    const std::string_view type = text::nextField(value, position);
    const std::string_view address = text::nextField(value, position);
    const std::string_view extra = text::nextField(value, position);
    if (network != "IN" || (type != "IP4" && type != "IP6") || address.empty() || !extra.empty()) {
        return "bad c= line: expected \"IN IP4|IP6 <address>\"";
    }
    return nullptr;
}

// b=<bwtype>:<bandwidth> (RFC 4566 section 5.8), the number unsigned 32-bit.
const char* checkBandwidth(std::string_view value) {
    const std::size_t colon = value.find(':');
    std::uint32_t number = 0;
    if (colon == 0 || colon == std::string_view::npos ||
        !text::parseNumber(value.substr(colon + 1), kMaxNumber, number)) {
        return "bad b= line: expected \"<type>:<number>\" with an unsigned 32-bit number";
    }
    return nullptr;
}

// a=<name>[:<value>] (RFC 4566 section 5.13); a=rtpmap and a=fmtp are read further
// (sections 6 and RFC 3264), with their payload type in 0..127.
const char* checkAttribute(std::string_view value) {
    std::string_view rest;
    const std::string_view name = attributeName(value, rest);
    if (name.empty()) {
        return "attribute without a name";
    }
    std::uint32_t payloadType = 0;
    std::string_view parameters;
    // Sizes first: most attributes are neither, and the comparison is a call.
    if (name.size() == 6 && text::equalsIgnoreCase(name, "rtpmap")) {
        RtpMapFields fields;
        if (!splitPayloadType(rest, payloadType, parameters) || !readRtpMap(parameters, fields)) {
            return "bad a=rtpmap: expected \"<pt> <encoding>/<clock>[/<channels>]\" with pt 0..127";
        }
    } else if (name.size() == 4 && text::equalsIgnoreCase(name, "fmtp")) {
        if (!splitPayloadType(rest, payloadType, parameters)) {
            return "bad a=fmtp: expected \"<pt> <parameters>\" with pt 0..127";
        }
    }
    return nullptr;
}

const char* acceptAny(std::string_view) { return nullptr; }

struct LineKind {
    char type;
    const char* (*check)(std::string_view value);
};

// Every letter not listed is kept as read.
const LineKind kLineKinds[] = {
    {'c', checkConnection},
    {'b', checkBandwidth},
    {'a', checkAttribute},
};

}  // namespace

const char* checkLine(char type, std::string_view value) {
    if (!text::isLetter(type) || type == 'm') {
        return "not a line of the form <letter>=<value>";
    }
    for (const LineKind& kind : kLineKinds) {
        if (kind.type == type) {
            return kind.check(value);
        }
    }
    return acceptAny(value);
}

const char* readMediaLine(std::string_view value, MediaLine& line) {
    static const char* const kShape = "bad m= line: expected \"<media> <port>[/<count>] <protocol> <format>...\"";
    std::size_t position = 0;
    line.media = text::nextField(value, position);
    const std::string_view portField = text::nextField(value, position);
    line.protocol = text::nextField(value, position);
    if (line.media.empty() || portField.empty() || line.protocol.empty()) {
        return kShape;
    }
    const std::size_t slash = portField.find('/');
    if (!text::parseNumber(portField.substr(0, slash), kMaxPort, line.port)) {
        return "port out of range 0..65535";
    }
    line.portCount.reset();
    if (slash != std::string_view::npos) {
        std::uint32_t count = 0;
        if (!text::parseNumber(portField.substr(slash + 1), kMaxNumber, count)) {
            return kShape;
        }
        line.portCount = count;
    }
    line.formatCount = 0;
    for (std::string_view format = text::nextField(value, position); !format.empty();
         format = text::nextField(value, position)) {
        if (line.formatCount == line.formats.size()) {
            return "more than 128 formats";
        }
        line.formats[line.formatCount++] = format;
    }
    if (line.formatCount == 0) {
        return "no format";
    }
    return nullptr;
}

std::string_view attributeName(std::string_view value, std::string_view& rest) {
    const std::size_t colon = value.find(':');
    if (colon == std::string_view::npos) {
        rest = std::string_view();
        return value;
    }
    rest = value.substr(colon + 1);
    return value.substr(0, colon);
}

bool splitPayloadType(std::string_view value, std::uint32_t& payloadType, std::string_view& rest) {
    std::size_t end = 0;
    while (end < value.size() && !text::isBlank(value[end])) {
        ++end;
    }
    if (!text::parseNumber(value.substr(0, end), kMaxPayloadType, payloadType)) {
        return false;
    }
    while (end < value.size() && text::isBlank(value[end])) {
        ++end;
    }
    rest = value.substr(end);
    return true;
}

bool readRtpMap(std::string_view text, RtpMapFields& fields) {
    const std::size_t first = text.find('/');
    if (first == 0 || first == std::string_view::npos) {
        return false;
    }
    fields.encoding = text.substr(0, first);
    for (const char c : fields.encoding) {
        if (text::isBlank(c)) {
            return false;
        }
    }
    const std::string_view numbers = text.substr(first + 1);
    const std::size_t second = numbers.find('/');
    if (!text::parseNumber(numbers.substr(0, second), kMaxNumber, fields.clockRate)) {
        return false;
    }
    fields.channels = 0;
    return second == std::string_view::npos ||
           text::parseNumber(numbers.substr(second + 1), kMaxNumber, fields.channels);
}

}  // namespace grammar
}  // namespace sdp
}  // namespace rva
}  // namespace tessel
