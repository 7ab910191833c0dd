#include "StreamRules.h"

#include <arpa/inet.h>

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

#include "LineGrammar.h"
#include "SdpText.h"
#include "Utils.h"

namespace tessel {
namespace rva {
namespace sdp {
namespace rules {

namespace {

const std::uint32_t kMaxPort = 65535;
const std::uint32_t kMaxMilliseconds = 0xFFFFFFFFu;

// `value` as it stands when it is plain printable ASCII, quoted and escaped otherwise, so
// that a hostile description cannot forge log lines through a note.
std::string printable(std::string_view value) {
    const bool plain = !value.empty() && std::all_of(value.begin(), value.end(), [](char c) {
        return c >= ' ' && c < 0x7f && c != '"' && c != '\\';
    });
    return plain ? std::string(value) : text::quote(value);
}

// The direction attribute a= value names, if it is one.
std::optional<DeclaredDirection> directionNamed(std::string_view name) {
    static const std::pair<const char*, DeclaredDirection> kDirections[] = {
        {"sendrecv", DeclaredSendRecv},
        {"sendonly", DeclaredSendOnly},
        {"recvonly", DeclaredRecvOnly},
        {"inactive", DeclaredInactive},
    };
    for (const auto& direction : kDirections) {
        if (text::equalsIgnoreCase(name, direction.first)) {
            return direction.second;
        }
    }
    return std::nullopt;
}

// The first direction attribute of one level; a later, different one is noted.
std::optional<DeclaredDirection> firstDirection(const SdpSection& section, Notes* notes) {
    std::optional<DeclaredDirection> first;
    std::string_view firstName;
    for (std::size_t i = 0; i < section.lineCount(); ++i) {
        const SdpSection::Line line = section.line(i);
        std::string_view rest;
        const std::string_view name = line.type == 'a' ? grammar::attributeName(line.value, rest) : std::string_view();
        const std::optional<DeclaredDirection> direction = directionNamed(name);
        if (!direction) {
            continue;
        }
        if (!first) {
            first = direction;
            firstName = name;
        } else if (*direction != *first) {
            addNote(notes, "a=" + std::string(name) + " after a=" + std::string(firstName) +
                               ": the first direction attribute counts");
        }
    }
    return first;
}

// "a=rtcp:<port> [IN IP4|IP6 <address>]" of the media (RFC 3605 section 2.1): the
// records hold no RTCP port or address of their own, only RTP port + 1 at the RTP address.
void noteRtcpAttribute(const MediaDescription& media, const RemoteEndpoint& remote, Notes* notes) {
    if (!media.hasAttribute("rtcp")) {
        return;
    }
    const std::string value = media.attributeValue("rtcp");
    std::size_t position = 0;
    const std::string_view port = text::nextField(value, position);
    text::nextField(value, position);  // IN
    text::nextField(value, position);  // IP4 or IP6
    const std::string_view address = text::nextField(value, position);
    std::uint32_t number = 0;
    if (!text::parseNumber(port, kMaxPort, number) || static_cast<int>(number) != remote.port + 1) {
        addNote(notes, "a=rtcp:" + printable(value) + ": an RTCP port other than the RTP port + 1 cannot be held");
    } else if (!address.empty() && address != remote.address) {
        addNote(notes, "a=rtcp:" + printable(value) + ": an RTCP address other than the RTP address cannot be held");
    }
}

// The static audio payload types of RFC 3551 section 6; null where none is assigned.
const char* staticPayloadName(int payloadType) {
    static const char* const kNames[] = {
        "PCMU/8000", nullptr,         nullptr,      "GSM/8000",    "G723/8000",  "DVI4/8000",  "DVI4/16000",
        "LPC/8000",  "PCMA/8000",     "G722/8000",  "L16/44100/2", "L16/44100",  "QCELP/8000", "CN/8000",
        "MPA/90000", "G728/8000",     "DVI4/11025", "DVI4/22050",  "G729/8000",
    };
    const std::size_t index = static_cast<std::size_t>(payloadType);
    return payloadType >= 0 && index < sizeof kNames / sizeof kNames[0] ? kNames[index] : nullptr;
}

// An a=ptime or a=maxptime value in whole milliseconds; noted and left out otherwise.
std::optional<unsigned int> milliseconds(const MediaDescription& media, const char* name, Notes* notes) {
    if (!media.hasAttribute(name)) {
        return std::nullopt;
    }
    const std::string value = media.attributeValue(name);
    std::uint32_t number = 0;
    if (!text::parseNumber(text::trimBlanks(value), kMaxMilliseconds, number)) {
        addNote(notes, std::string("a=") + name + ":" + printable(value) + ": not a whole number of milliseconds, ignored");
        return std::nullopt;
    }
    return number;
}

}  // namespace

void addNote(Notes* notes, std::string note) {
    if (notes != nullptr) {
        notes->push_back(std::move(note));
    }
}

// RFC 4566 section 5.14 and RFC 4585 section 4.1: RTP/AVP and RTP/AVPF are the plain
// profiles; RFC 3711 section 12: RTP/SAVP and its kin need keys that no record holds.
std::optional<RtpProfile> rtpProfileOf(const std::string& protocol) {
    if (protocol == "RTP/AVP") {
        return RtpProfileAvp;
    }
    if (protocol == "RTP/AVPF") {
        return RtpProfileAvpf;
    }
    return std::nullopt;
}

// RFC 4566 section 5.7: a media c= line overrides the session's; one of them must exist.
// The records hold literal addresses only, and ports from 1024 up.
Result remoteEndpoint(const SdpSection& session, const MediaDescription& media, RemoteEndpoint& out) {
    std::optional<SdpSection::Connection> connection = media.connection();
    if (!connection) {
        connection = session.connection();
    }
    if (!connection) {
        return Result(Malformed) << "no c= line in the media section nor at session level";
    }
    const std::string address(connection->address);
    const bool ip6 = connection->addressType == "IP6";
    // The address checks read up to a NUL byte; the text after one must not ride along.
    const bool literal = address.find('\0') == std::string::npos &&
                         (ip6 ? Utils::isValidIpV6(address) : Utils::isValidIpV4(address));
    if (!literal) {
        return Result(Unsupported) << "address " << text::quote(address) << " is not an "
                                   << (ip6 ? "IPv6" : "IPv4") << " address";
    }
    const int port = static_cast<int>(media.port());
    if (!Utils::isValidSocketPort(port)) {
        return Result(Unsupported) << "port " << port << " out of range 1024..65535";
    }
    out.address = address;
    out.port = port;
    return Result::success();
}

Result audioSection(const SessionDescription& description, std::size_t mediaIndex) {
    if (mediaIndex >= description.mediaCount()) {
        return Result(InvalidParam) << "media index " << mediaIndex << " past the end: the description has "
                                    << description.mediaCount() << " media section(s)";
    }
    const MediaDescription& media = description.media(mediaIndex);
    if (media.mediaType() != "audio") {
        return Result(InvalidParam) << "media section " << mediaIndex << " is " << text::quote(media.mediaType())
                                    << ", not audio";
    }
    return Result::success();
}

Result remoteStream(const SessionDescription& description, std::size_t mediaIndex, RemoteStream& out) {
    Result result = audioSection(description, mediaIndex);
    if (!result.isSuccess()) {
        return result;
    }
    const MediaDescription& media = description.media(mediaIndex);
    // RFC 3264 section 5.1: port 0 offers a stream that must not be used.
    if (media.port() == 0) {
        return Result(Rejected) << "stream disabled (port 0)";
    }
    // RFC 4566 section 5.14: several ports carry a layered stream, which no record holds.
    if (media.portCount()) {
        return Result(Unsupported) << "port count /" << *media.portCount() << ": one RTP port per stream only";
    }
    const std::optional<RtpProfile> profile = rtpProfileOf(media.protocol());
    if (!profile) {
        return Result(Unsupported) << "protocol " << text::quote(media.protocol())
                                   << ": only RTP/AVP and RTP/AVPF can be held";
    }
    RemoteEndpoint endpoint;
    result = remoteEndpoint(description, media, endpoint);
    if (result.isSuccess()) {
        out.profile = *profile;
        out.endpoint = endpoint;
    }
    return result;
}

// RFC 3264 section 8.4: 0.0.0.0 (and its IPv6 counterpart) as connection address means
// that neither RTP nor RTCP is to be sent.
bool isNullAddress(const std::string& address) {
    unsigned char bytes[16] = {};
    const bool parsed = inet_pton(AF_INET, address.c_str(), bytes) == 1 ||
                        inet_pton(AF_INET6, address.c_str(), bytes) == 1;
    return parsed && std::all_of(std::begin(bytes), std::end(bytes), [](unsigned char b) { return b == 0; });
}

// RFC 4566 section 6 and RFC 3264 section 5.1: a media-level direction attribute
// overrides the session's; with none, sendrecv.
DeclaredDirection declaredDirection(const SdpSection& session, const MediaDescription& media, Notes* notes) {
    if (const std::optional<DeclaredDirection> direction = firstDirection(media, notes)) {
        return *direction;
    }
    return firstDirection(session, notes).value_or(DeclaredSendRecv);
}

// RFC 3264 section 5.1: a direction attribute speaks from its describer's side, so what
// the remote sends only, we receive only.
StreamConfig::Direction mirroredDirection(DeclaredDirection declared) {
    switch (declared) {
        case DeclaredSendRecv: return StreamConfig::FullDuplex;
        case DeclaredSendOnly: return StreamConfig::ReceiveOnly;
        case DeclaredRecvOnly: return StreamConfig::SendOnly;
        case DeclaredInactive: return StreamConfig::Inactive;
    }
    return StreamConfig::Inactive;
}

// RFC 3264 section 8.4: nothing is sent to a null address.
StreamConfig::Direction directionTowardAddress(StreamConfig::Direction direction, const std::string& remoteAddress) {
    if (!isNullAddress(remoteAddress)) {
        return direction;
    }
    return static_cast<StreamConfig::Direction>(direction & ~StreamConfig::SendOnly);
}

// RFC 3556 section 4: media-level b=RS and b=RR take precedence over session-level ones,
// each type on its own, and b=AS likewise (RFC 4566 section 5.8). RFC 3556 leaves RS and
// RR both 0 open; read here, as commonly, as RTCP off. RFC 3264 section 8.4: no RTCP to a
// null address. RFC 5506 section 4: reduced-size RTCP only under AVPF.
RtcpSettings rtcpSettings(const SdpSection& session, const MediaDescription& media, const RtcpConfig& start,
                          const RemoteEndpoint& remote, Notes* notes) {
    const auto bandwidth = [&](std::string_view type) {
        const std::optional<std::uint32_t> value = media.bandwidth(type);
        return value ? value : session.bandwidth(type);
    };
    RtcpSettings settings;
    settings.config = start;
    const std::optional<std::uint32_t> as = bandwidth("AS");
    const std::optional<std::uint32_t> rs = bandwidth("RS");
    const std::optional<std::uint32_t> rr = bandwidth("RR");
    if (as) {
        settings.config.setAs(*as);
    }
    if (rs) {
        settings.config.setRs(*rs);
    }
    if (rr) {
        settings.config.setRr(*rr);
    }
    if (media.hasAttribute("rtcp-rsize")) {
        if (media.protocol() == "RTP/AVPF") {
            settings.config.setReducedSizeMode(true);
        } else {
            addNote(notes, "a=rtcp-rsize: reduced-size RTCP needs RTP/AVPF, ignored on " + printable(media.protocol()));
        }
    }
    settings.enabled = !(rs == 0u && rr == 0u) && !isNullAddress(remote.address);
    noteRtcpAttribute(media, remote, notes);
    if (media.hasAttribute("rtcp-mux")) {
        addNote(notes, "a=rtcp-mux: RTP and RTCP on one port cannot be held");
    }
    return settings;
}

// RFC 4867 section 8.3: AMR at 8000 Hz, AMR-WB at 16000 Hz, encoding names compared
// case-insensitively, channels absent or 1 here. RFC 4733 section 2.1 and TS 26.114
// annex G.2: telephone-event at the clock rate of the voice codec. RFC 3551 section 6:
// payload types without a=rtpmap.
PayloadFormat payloadFormat(const MediaDescription& media, int payloadType) {
    PayloadFormat format;
    const std::optional<MediaDescription::RtpMap> rtpmap = media.rtpmap(payloadType);
    if (!rtpmap) {
        const char* name = staticPayloadName(payloadType);
        format.name = name != nullptr ? name : "";
        format.reason = name != nullptr ? "not a supported encoding" : "no a=rtpmap";
        return format;
    }
    format.name = printable(rtpmap->encoding) + "/" + std::to_string(rtpmap->clockRate);
    if (rtpmap->channels != 0) {
        format.name += "/" + std::to_string(rtpmap->channels);
    }
    const bool amr = text::equalsIgnoreCase(rtpmap->encoding, "AMR");
    const bool amrWb = text::equalsIgnoreCase(rtpmap->encoding, "AMR-WB");
    if (amr || amrWb) {
        if (rtpmap->clockRate != (amr ? 8000u : 16000u)) {
            format.reason = amr ? "AMR runs at 8000 Hz" : "AMR-WB runs at 16000 Hz";
        } else if (rtpmap->channels > 1) {
            format.reason = "only one channel is supported";
        } else {
            format.kind = PayloadFormat::Amr;
            format.band = amr ? BandTypeNb : BandTypeWb;
        }
    } else if (text::equalsIgnoreCase(rtpmap->encoding, "telephone-event")) {
        if (rtpmap->clockRate == 8000 || rtpmap->clockRate == 16000) {
            format.kind = PayloadFormat::TelephoneEvent;
            format.band = rtpmap->clockRate == 8000 ? BandTypeNb : BandTypeWb;
        } else {
            format.reason = "telephone-event goes with AMR at 8000 Hz or AMR-WB at 16000 Hz only";
        }
    } else {
        format.reason = "not a supported encoding";
    }
    return format;
}

// RFC 4867 section 8.1 and 8.3.2: the declared configuration is used as given. crc,
// robust-sorting and interleaving imply octet-aligned operation; without mode-set every
// mode of the band may be used; max-red=0 means no redundancy. mode-change-capability
// means nothing outside a negotiation.
AmrCodecConfig amrCodecConfig(BandType band, int payloadType, const AmrParameters& parameters) {
    const int maxMode = band == BandTypeWb ? 8 : 7;
    AmrCodecConfig amr;
    amr.setBandType(band);
    amr.setPayloadType(payloadType);
    amr.setOctetAlignMode(parameters.isOctetAligned());
    if (parameters.modeSet) {
        for (const int mode : *parameters.modeSet) {
            if (mode >= 0 && mode <= maxMode) {
                amr.addAmrRate(static_cast<AmrRate>(mode));
            }
        }
    } else {
        for (int mode = 0; mode <= maxMode; ++mode) {
            amr.addAmrRate(static_cast<AmrRate>(mode));
        }
    }
    if (parameters.modeChangePeriod) {
        amr.setModeChangePeriod(*parameters.modeChangePeriod == 2 ? ModeChangePeriodTwoFrames : ModeChangePeriodAny);
    }
    if (parameters.modeChangeNeighbor) {
        amr.setModeChangeNeighbor(*parameters.modeChangeNeighbor == 1);
    }
    if (parameters.crc) {
        amr.setCrcMode(*parameters.crc == 1);
    }
    if (parameters.robustSorting) {
        amr.setRobustSortingMode(*parameters.robustSorting == 1);
    }
    if (parameters.interleaving) {
        amr.setInterleavingMode(true);
    }
    if (parameters.maxRed) {
        amr.setRdcyMode(*parameters.maxRed > 0);
        amr.setMaxRdcy(*parameters.maxRed);
    }
    return amr;
}

// RFC 4566 section 6 and RFC 4867 section 8.3: a=ptime and a=maxptime are media-level
// and state what the describer wants to receive.
PacketTimes declaredPacketTimes(const MediaDescription& media, Notes* notes) {
    PacketTimes times;
    times.packetTime = milliseconds(media, "ptime", notes);
    times.maxPacketTime = milliseconds(media, "maxptime", notes);
    return times;
}

void applyPacketTimes(const PacketTimes& times, CodecConfig& codec) {
    if (times.packetTime) {
        codec.setPacketTime(*times.packetTime);
    }
    if (times.maxPacketTime) {
        codec.setMaxPacketTime(*times.maxPacketTime);
    }
}

}  // namespace rules
}  // namespace sdp
}  // namespace rva
}  // namespace tessel
