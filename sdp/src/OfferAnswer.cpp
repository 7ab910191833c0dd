#include "OfferAnswer.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "AmrCodecCapabilities.h"
#include "AmrCodecConfig.h"
#include "AmrParameters.h"
#include "DtmfCodecCapabilities.h"
#include "DtmfCodecConfig.h"
#include "MediaTypes.h"
#include "RtcpConfig.h"
#include "SdpText.h"
#include "StreamRules.h"
#include "Utils.h"

namespace tessel {
namespace rva {
namespace sdp {

namespace {

const int kMaxPayloadType = 127;
const int kFirstDynamicPayloadType = 96;
const char kDtmfEvents[] = "0-15";  // the DTMF events of RFC 4733 section 3.2

using rules::addNote;

int maxAmrMode(BandType band) { return band == BandTypeWb ? 8 : 7; }


// The attribute that writes a direction (RFC 3264 section 5.1).
const char* directionAttribute(StreamConfig::Direction direction) {
    switch (direction) {
        case StreamConfig::SendOnly: return "sendonly";
        case StreamConfig::ReceiveOnly: return "recvonly";
        case StreamConfig::Inactive: return "inactive";
        case StreamConfig::FullDuplex: break;
    }
    return "sendrecv";
}

// The payload type a format of an m= line names; nothing for a format that is not 0..127.
std::optional<int> payloadTypeOf(const std::string& format) {
    std::uint32_t number = 0;
    if (!text::parseNumber(format, 127, number)) {
        return std::nullopt;
    }
    return static_cast<int>(number);
}

const AmrCodecCapabilities* asAmr(const CodecCapabilities* capabilities) {
    return capabilities != nullptr && capabilities->getCodecId() == CodecIdAmr
               ? dynamic_cast<const AmrCodecCapabilities*>(capabilities)
               : nullptr;
}

// True when `local` holds a DTMF capability of the band.
bool hasDtmf(const StreamCapabilities& local, BandType band) {
    for (std::size_t i = 0; i < local.getCodecCapabilityCount(); ++i) {
        const CodecCapabilities* capabilities = local.getCodecCapabilities(i);
        if (capabilities->getCodecId() == CodecIdDtmf && capabilities->getBandType() == band) {
            return true;
        }
    }
    return false;
}

// The modes a capability supports on its band, ascending; every mode of the band when it
// lists none.
std::vector<int> supportedModes(const AmrCodecCapabilities& capabilities) {
    const int maxMode = maxAmrMode(capabilities.getBandType());
    std::vector<int> modes;
    for (std::size_t i = 0; i < capabilities.getSupportedAmrRateCount(); ++i) {
        const int mode = capabilities.getSupportedAmrRate(i);
        if (mode >= 0 && mode <= maxMode && std::find(modes.begin(), modes.end(), mode) == modes.end()) {
            modes.push_back(mode);
        }
    }
    if (capabilities.getSupportedAmrRateCount() == 0) {
        for (int mode = 0; mode <= maxMode; ++mode) {
            modes.push_back(mode);
        }
    }
    std::sort(modes.begin(), modes.end());
    return modes;
}

bool isEveryMode(const std::vector<int>& modes, BandType band) {
    return static_cast<int>(modes.size()) == maxAmrMode(band) + 1;
}

// The max-red we can take: the capability's maximum redundancy, 0 when it has none
// (RFC 4867 section 8.1), within what the parameter can carry.
int ourMaxRed(const AmrCodecCapabilities& capabilities) {
    return std::clamp(capabilities.getMaxSupportedRdcy(), 0, 65535);
}

// The parameters that say what we receive and how we change modes: mode-change-period=2
// when we change modes only every second frame, mode-change-capability=2 when we can,
// mode-change-neighbor=1 when we need it, and our max-red.
void addOwnRequirements(const AmrCodecCapabilities& capabilities, AmrParameters& parameters) {
    if (capabilities.getModeChangePeriod() == ModeChangePeriodTwoFrames) {
        parameters.modeChangePeriod = 2;
    }
    if (capabilities.getModeChangeCapability() == ModeChangeCapabilityTwoFrames) {
        parameters.modeChangeCapability = 2;
    }
    if (capabilities.isModeChangeNeighborRequired()) {
        parameters.modeChangeNeighbor = 1;
    }
    parameters.maxRed = ourMaxRed(capabilities);
}

std::string encodingOf(BandType band) { return band == BandTypeWb ? "AMR-WB/16000/1" : "AMR/8000/1"; }

// c=, b=AS, b=RS, b=RR: the first lines of every section this layer writes.
void writeHead(const LocalEndpoint& endpoint, const RtcpConfig& rtcp, MediaDescription& media) {
    const char* type = Utils::isValidIpV4(endpoint.address) ? "IN IP4 " : "IN IP6 ";
    media.addLine('c', type + endpoint.address);
    media.addLine('b', "AS:" + std::to_string(rtcp.getAs()));
    media.addLine('b', "RS:" + std::to_string(rtcp.getRs()));
    media.addLine('b', "RR:" + std::to_string(rtcp.getRr()));
}

void writeFormat(int payloadType, const std::string& encoding, const std::string& fmtp, MediaDescription& media) {
    const std::string number = std::to_string(payloadType);
    media.addLine('a', "rtpmap:" + number + " " + encoding);
    if (!fmtp.empty()) {
        media.addLine('a', "fmtp:" + number + " " + fmtp);
    }
}

void writeTail(unsigned long packetTime, unsigned long maxPacketTime, StreamConfig::Direction direction,
               bool reducedSize, MediaDescription& media) {
    media.addLine('a', "ptime:" + std::to_string(packetTime));
    media.addLine('a', "maxptime:" + std::to_string(maxPacketTime));
    media.addLine('a', directionAttribute(direction));
    if (reducedSize) {
        media.addLine('a', "rtcp-rsize");
    }
}

// What createOffer and createAnswer refuse in our own endpoint.
Result checkEndpoint(const LocalEndpoint& endpoint) {
    // The address checks read up to a NUL byte; what follows it would reach the c= line.
    if (!Utils::isValidIpAddress(endpoint.address) || endpoint.address.find('\0') != std::string::npos) {
        return Result(InvalidParam) << "Invalid internet address : " << text::quote(endpoint.address);
    }
    if (!Utils::isValidSocketPort(endpoint.rtpPort)) {
        return Result(InvalidParam) << "Invalid socket port: " << endpoint.rtpPort;
    }
    if (endpoint.direction < StreamConfig::Inactive || endpoint.direction > StreamConfig::FullDuplex) {
        return Result(InvalidParam) << "Invalid direction : " << static_cast<int>(endpoint.direction);
    }
    return Result::success();
}

// The protocol of an offer: RTP/AVPF only when it is the one profile we run (RFC 4585
// section 3.5 asks for a separate offer to fall back to RTP/AVP, which one section can't).
std::string offerProtocol(const StreamCapabilities& local) {
    const std::set<RtpProfile>& profiles = local.getSupportedRtpProfiles();
    return profiles.count(RtpProfileAvpf) != 0 && profiles.count(RtpProfileAvp) == 0 ? "RTP/AVPF" : "RTP/AVP";
}

// Whether we run the offered protocol (RFC 3264 section 6: an answer keeps the offered
// transport or rejects the stream).
bool acceptsProtocol(const StreamCapabilities& local, const std::string& protocol) {
    const std::set<RtpProfile>& profiles = local.getSupportedRtpProfiles();
    if (protocol == "RTP/AVP") {
        return profiles.empty() || profiles.count(RtpProfileAvp) != 0;
    }
    return protocol == "RTP/AVPF" && profiles.count(RtpProfileAvpf) != 0;
}

// Whether `capabilities` can take the offered AMR payload type as it is (RFC 4867 section
// 8.3.1); "" when it can, else why not, naming the parameter.
std::string refusalOf(const AmrCodecCapabilities& capabilities, const AmrParameters& offered) {
    const std::vector<int> ours = supportedModes(capabilities);
    if (ours.empty()) {
        return "our capability supports no mode of its band";
    }
    if (!offered.isOctetAligned() && capabilities.isOctetAlignModeRequired()) {
        return "octet-align: bandwidth-efficient operation not supported";
    }
    if (offered.crc.value_or(0) == 1 && !capabilities.isCrcModeSupported()) {
        return "crc=1 not supported";
    }
    if (offered.robustSorting.value_or(0) == 1 && !capabilities.isRobustSortingModeSupported()) {
        return "robust-sorting=1 not supported";
    }
    if (offered.interleaving && !capabilities.isInterleavingModeSupported()) {
        return "interleaving not supported";
    }
    if (offered.modeSet) {
        for (const int mode : *offered.modeSet) {
            if (std::find(ours.begin(), ours.end(), mode) == ours.end()) {
                return "mode-set: mode " + std::to_string(mode) + " not supported";
            }
        }
    }
    // An offered mode-change-period=2 asks us to send so: our mode-change capability must
    // allow it. Our own period of 2 may be asked only of an offerer that can send so.
    const bool weCanPace = capabilities.getModeChangeCapability() == ModeChangeCapabilityTwoFrames;
    if (offered.modeChangePeriod.value_or(1) == 2 && !weCanPace) {
        return "mode-change-period=2: we cannot restrict our mode changes to every second frame";
    }
    const bool weNeedPacing = capabilities.getModeChangePeriod() == ModeChangePeriodTwoFrames;
    if (weNeedPacing && offered.modeChangeCapability.value_or(1) != 2 && offered.modeChangePeriod.value_or(1) != 2) {
        return "mode-change-capability: the offerer cannot restrict mode changes to every second frame";
    }
    return {};
}

// "payload type 97 (AMR-WB/16000)", or "payload type 97" when no name is known.
std::string describePayloadType(int payloadType, const rules::PayloadFormat& format) {
    std::string text = "payload type " + std::to_string(payloadType);
    if (!format.name.empty()) {
        text += " (" + format.name + ")";
    }
    return text;
}

// The voice format of an answer: the first offered AMR payload type that one of our AMR
// capabilities of its band accepts, capabilities tried in their order.
struct VoiceChoice {
    int payloadType = -1;
    BandType band = BandTypeWb;
    const AmrCodecCapabilities* capabilities = nullptr;
    AmrParameters offered;
};

// Walks the offered formats up to the voice format. Every format passed over but
// telephone-event is noted; the AMR payload types refused are also added to `refused`.
std::optional<VoiceChoice> chooseVoice(const StreamCapabilities& local, const MediaDescription& offer,
                                       std::vector<std::string>& refused, std::vector<std::string>* notes) {
    for (const std::string& format : offer.formats()) {
        const std::optional<int> payloadType = payloadTypeOf(format);
        if (!payloadType) {
            addNote(notes, "format " + text::quote(format) + ": not an RTP payload type");
            continue;
        }
        const rules::PayloadFormat payload = rules::payloadFormat(offer, *payloadType);
        if (payload.kind == rules::PayloadFormat::Unsupported) {
            addNote(notes, describePayloadType(*payloadType, payload) + ": " + payload.reason);
            continue;
        }
        if (payload.kind != rules::PayloadFormat::Amr) {
            continue;
        }
        VoiceChoice choice;
        choice.payloadType = *payloadType;
        choice.band = payload.band;
        std::string refusal;
        const Result parsed = AmrParameters::parse(offer.fmtp(*payloadType), payload.band, choice.offered);
        if (!parsed.isSuccess()) {
            refusal = "a=fmtp refused: " + parsed.mMessage;
        } else {
            refusal = "no AMR capability of its band";
            for (std::size_t i = 0; i < local.getCodecCapabilityCount() && choice.capabilities == nullptr; ++i) {
                const AmrCodecCapabilities* amr = asAmr(local.getCodecCapabilities(i));
                if (amr == nullptr || amr->getBandType() != payload.band) {
                    continue;
                }
                refusal = refusalOf(*amr, choice.offered);
                if (refusal.empty()) {
                    choice.capabilities = amr;
                }
            }
        }
        if (choice.capabilities != nullptr) {
            return choice;
        }
        refused.push_back(describePayloadType(*payloadType, payload) + ": " + refusal);
        addNote(notes, refused.back());
    }
    return std::nullopt;
}

// The answered fmtp of the voice format (RFC 4867 section 8.3.1): the payload format and
// the mode-set as offered (else our own modes when we do not take every mode), our
// mode-change requirements, and the smaller max-red.
AmrParameters answerParameters(const VoiceChoice& voice) {
    AmrParameters answered;
    answered.octetAlign = voice.offered.octetAlign;
    answered.crc = voice.offered.crc;
    answered.robustSorting = voice.offered.robustSorting;
    answered.interleaving = voice.offered.interleaving;
    if (voice.offered.modeSet) {
        answered.modeSet = voice.offered.modeSet;
    } else {
        const std::vector<int> ours = supportedModes(*voice.capabilities);
        if (!isEveryMode(ours, voice.band)) {
            answered.modeSet = ours;
        }
    }
    addOwnRequirements(*voice.capabilities, answered);
    if (voice.offered.maxRed) {
        answered.maxRed = std::min(*voice.offered.maxRed, *answered.maxRed);
    }
    return answered;
}

// The telephone-event of an answer: the first offered at the voice clock rate, when we
// hold DTMF of that band (3GPP TS 26.114 section 6.2.3: DTMF runs at the voice rate).
std::optional<int> telephoneEventFor(const StreamCapabilities& local, const MediaDescription& offer, BandType band,
                                     std::vector<std::string>* notes) {
    if (!hasDtmf(local, band)) {
        addNote(notes, std::string("telephone-event: no DTMF capability at ") +
                        (band == BandTypeWb ? "16000" : "8000") + " Hz");
        return std::nullopt;
    }
    for (const std::string& format : offer.formats()) {
        const std::optional<int> payloadType = payloadTypeOf(format);
        if (payloadType) {
            const rules::PayloadFormat payload = rules::payloadFormat(offer, *payloadType);
            if (payload.kind != rules::PayloadFormat::TelephoneEvent || payload.band != band) {
                continue;
            }
            // Events travel in one channel (RFC 4733 section 2.1); the answer writes none.
            const std::optional<MediaDescription::RtpMap> rtpmap = offer.rtpmap(*payloadType);
            if (rtpmap && rtpmap->channels > 1) {
                addNote(notes, describePayloadType(*payloadType, payload) + ": events travel in one channel only");
                continue;
            }
            return payloadType;
        }
    }
    addNote(notes, std::string("telephone-event: none offered at ") + (band == BandTypeWb ? "16000" : "8000") + " Hz");
    return std::nullopt;
}

// Our direction in an answer (RFC 3264 section 6.1), from the offerer's direction as the
// offerer wrote it.
StreamConfig::Direction answerDirection(rules::DeclaredDirection offered, StreamConfig::Direction wanted) {
    const bool weSend = (wanted & StreamConfig::SendOnly) != 0;
    const bool weReceive = (wanted & StreamConfig::ReceiveOnly) != 0;
    switch (offered) {
        case rules::DeclaredSendOnly: return weReceive ? StreamConfig::ReceiveOnly : StreamConfig::Inactive;
        case rules::DeclaredRecvOnly: return weSend ? StreamConfig::SendOnly : StreamConfig::Inactive;
        case rules::DeclaredInactive: return StreamConfig::Inactive;
        case rules::DeclaredSendRecv: break;
    }
    return wanted;
}

MediaDescription rejectedStream(const MediaDescription& offer) {
    MediaDescription rejected;
    rejected.setMediaLine("audio 0 " + offer.protocol() + " " + offer.formats().front());
    return rejected;
}

// The AMR record of a negotiated payload type: band, payload type and payload format from
// the answered parameters, `rates`, redundancy from max-red.
AmrCodecConfig amrConfig(BandType band, int payloadType, const AmrParameters& answered, bool dtx) {
    AmrCodecConfig amr = rules::amrCodecConfig(band, payloadType, answered);
    amr.setDTXMode(dtx);
    return amr;
}


// Our own direction attribute read from our side (no mirroring).
StreamConfig::Direction ownDirection(rules::DeclaredDirection declared) {
    switch (declared) {
        case rules::DeclaredSendOnly: return StreamConfig::SendOnly;
        case rules::DeclaredRecvOnly: return StreamConfig::ReceiveOnly;
        case rules::DeclaredInactive: return StreamConfig::Inactive;
        case rules::DeclaredSendRecv: break;
    }
    return StreamConfig::FullDuplex;
}

// Whether the answer's format means what our offer's does (RFC 3264 section 6.1: an
// answer uses the offered payload types with their offered meaning).
bool sameRtpMap(const MediaDescription& ours, const MediaDescription& theirs, int payloadType) {
    const std::optional<MediaDescription::RtpMap> mine = ours.rtpmap(payloadType);
    const std::optional<MediaDescription::RtpMap> other = theirs.rtpmap(payloadType);
    if (!mine || !other) {
        return !mine && !other;
    }
    return text::equalsIgnoreCase(mine->encoding, other->encoding) && mine->clockRate == other->clockRate &&
           std::max(mine->channels, 1u) == std::max(other->channels, 1u);
}

// A format of the answer that our offer does not hold with the same meaning; null when
// every format is one of ours.
std::optional<std::string> unofferedFormat(const MediaDescription& ours, const MediaDescription& theirs) {
    for (const std::string& format : theirs.formats()) {
        const std::optional<int> payloadType = payloadTypeOf(format);
        bool offered = false;
        for (const std::string& candidate : ours.formats()) {
            const std::optional<int> ourType = payloadTypeOf(candidate);
            offered = offered || (payloadType ? ourType == payloadType : candidate == format);
        }
        if (!offered || (payloadType && !sameRtpMap(ours, theirs, *payloadType))) {
            return format;
        }
    }
    return std::nullopt;
}

// The answered payload format must be the offered one (RFC 4867 section 8.3.1); null
// when it is, else the parameter that differs.
const char* payloadFormatMismatch(const AmrParameters& offered, const AmrParameters& answered) {
    if (offered.octetAlign.value_or(0) != answered.octetAlign.value_or(0)) {
        return "octet-align";
    }
    if (offered.crc.value_or(0) != answered.crc.value_or(0)) {
        return "crc";
    }
    if (offered.robustSorting.value_or(0) != answered.robustSorting.value_or(0)) {
        return "robust-sorting";
    }
    if (offered.interleaving.value_or(0) != answered.interleaving.value_or(0)) {
        return "interleaving";
    }
    if (offered.modeSet && answered.modeSet) {
        std::vector<int> ours = *offered.modeSet;
        std::vector<int> theirs = *answered.modeSet;
        std::sort(ours.begin(), ours.end());
        std::sort(theirs.begin(), theirs.end());
        if (ours != theirs) {
            return "mode-set";
        }
    }
    return nullptr;
}

// The RTCP parameters our offer declared, over the record defaults.
RtcpConfig offeredRtcp(const MediaDescription& ourOffer) {
    RtcpConfig rtcp;
    if (const std::optional<std::uint32_t> as = ourOffer.bandwidth("AS")) {
        rtcp.setAs(*as);
    }
    if (const std::optional<std::uint32_t> rs = ourOffer.bandwidth("RS")) {
        rtcp.setRs(*rs);
    }
    if (const std::optional<std::uint32_t> rr = ourOffer.bandwidth("RR")) {
        rtcp.setRr(*rr);
    }
    return rtcp;
}

}  // namespace

StreamCapabilities defaultCapabilities() noexcept {
    StreamCapabilities capabilities;
    AmrCodecCapabilities amrWb;
    amrWb.setBandType(BandTypeWb);
    capabilities.addCodecCapabilities(amrWb);
    AmrCodecCapabilities amrNb;
    amrNb.setBandType(BandTypeNb);
    capabilities.addCodecCapabilities(amrNb);
    DtmfCodecCapabilities dtmfWb;
    dtmfWb.setBandType(BandTypeWb);
    capabilities.addCodecCapabilities(dtmfWb);
    DtmfCodecCapabilities dtmfNb;
    dtmfNb.setBandType(BandTypeNb);
    capabilities.addCodecCapabilities(dtmfNb);
    capabilities.addRtpProfile(RtpProfileAvp);
    capabilities.addRtpProfile(RtpProfileAvpf);
    RtcpConfig rtcp(5000, 2000, 0, 41, false);
    capabilities.setRtcpCaps(rtcp);
    return capabilities;
}

Result createOffer(const StreamCapabilities& local, const LocalEndpoint& endpoint, MediaDescription& offer,
                   std::vector<std::string>* notes) noexcept {
    Result checked = checkEndpoint(endpoint);
    if (!checked.isSuccess()) {
        return checked;
    }
    if (endpoint.firstPayloadType < kFirstDynamicPayloadType || endpoint.firstPayloadType > kMaxPayloadType) {
        return Result(InvalidParam) << "Invalid first payload type: " << endpoint.firstPayloadType;
    }

    struct Format {
        int payloadType;
        std::string encoding;
        std::string fmtp;
    };
    std::vector<Format> formats;
    std::vector<BandType> rates;  // voice bands in the order they first appear
    const AmrCodecCapabilities* first = nullptr;
    int next = endpoint.firstPayloadType;
    for (std::size_t i = 0; i < local.getCodecCapabilityCount(); ++i) {
        const AmrCodecCapabilities* amr = asAmr(local.getCodecCapabilities(i));
        if (amr == nullptr) {
            continue;
        }
        const BandType band = amr->getBandType();
        if (!isBandTypeValid(band)) {
            addNote(notes, "AMR capability " + std::to_string(i) + ": invalid band");
            continue;
        }
        const std::vector<int> modes = supportedModes(*amr);
        if (modes.empty()) {
            addNote(notes, "AMR capability " + std::to_string(i) + ": no mode of its band, not offered");
            continue;
        }
        first = first != nullptr ? first : amr;
        if (std::find(rates.begin(), rates.end(), band) == rates.end()) {
            rates.push_back(band);
        }
        AmrParameters parameters;
        if (!isEveryMode(modes, band)) {
            parameters.modeSet = modes;
        }
        addOwnRequirements(*amr, parameters);
        if (!amr->isOctetAlignModeRequired()) {
            formats.push_back(Format{next++, encodingOf(band), parameters.toString()});
        }
        parameters.octetAlign = 1;
        formats.push_back(Format{next++, encodingOf(band), parameters.toString()});
    }
    if (first == nullptr) {
        return Result(InvalidParam) << "No AMR capability";
    }
    for (const BandType band : rates) {
        if (hasDtmf(local, band)) {
            formats.push_back(Format{next++, band == BandTypeWb ? "telephone-event/16000" : "telephone-event/8000",
                                     kDtmfEvents});
        }
    }
    if (next - 1 > kMaxPayloadType) {
        return Result(InvalidParam) << "Payload types run past 127: " << formats.size() << " formats from "
                                    << endpoint.firstPayloadType;
    }

    const std::string protocol = offerProtocol(local);
    std::string mediaLine = "audio " + std::to_string(endpoint.rtpPort) + " " + protocol;
    for (const Format& format : formats) {
        mediaLine += " " + std::to_string(format.payloadType);
    }
    MediaDescription written;
    written.setMediaLine(mediaLine);
    const RtcpConfig& rtcp = local.getRTCPcaps();
    writeHead(endpoint, rtcp, written);
    for (const Format& format : formats) {
        writeFormat(format.payloadType, format.encoding, format.fmtp, written);
    }
    writeTail(first->getPacketTime(), first->getMaxPacketTime(), endpoint.direction,
              rtcp.isReducedSizeMode() && protocol == "RTP/AVPF", written);
    offer = std::move(written);
    return Result::success();
}

Result createAnswer(const StreamCapabilities& local, const LocalEndpoint& endpoint, const SessionDescription& offer,
                    std::size_t mediaIndex, MediaDescription& answer, StreamConfig& negotiated,
                    std::vector<std::string>* notes) noexcept {
    Result checked = checkEndpoint(endpoint);
    if (checked.isSuccess()) {
        checked = rules::audioSection(offer, mediaIndex);
    }
    if (!checked.isSuccess()) {
        return checked;
    }
    const MediaDescription& offered = offer.media(mediaIndex);
    if (offered.port() == 0) {
        answer = rejectedStream(offered);
        return Result(Rejected) << "stream disabled (port 0)";
    }
    if (!acceptsProtocol(local, offered.protocol())) {
        answer = rejectedStream(offered);
        return Result(Rejected) << "protocol not supported: " << text::quote(offered.protocol());
    }
    std::vector<std::string> refused;
    const std::optional<VoiceChoice> voice = chooseVoice(local, offered, refused, notes);
    if (!voice) {
        answer = rejectedStream(offered);
        Result rejected(Rejected);
        if (refused.empty()) {
            rejected << "no AMR or AMR-WB payload type offered";
        } else {
            rejected << "no acceptable AMR or AMR-WB format: " << refused.front();
            for (std::size_t i = 1; i < refused.size(); ++i) {
                rejected << "; " << refused[i];
            }
        }
        return rejected;
    }
    const std::optional<int> dtmf = telephoneEventFor(local, offered, voice->band, notes);
    const AmrParameters answered = answerParameters(*voice);
    const RtcpConfig& rtcpCaps = local.getRTCPcaps();
    const StreamConfig::Direction direction =
        answerDirection(rules::declaredDirection(offer, offered, notes), endpoint.direction);
    const bool reducedSize =
        offered.hasAttribute("rtcp-rsize") && rtcpCaps.isReducedSizeMode() && offered.protocol() == "RTP/AVPF";

    MediaDescription written;
    std::string mediaLine = "audio " + std::to_string(endpoint.rtpPort) + " " + offered.protocol() + " " +
                            std::to_string(voice->payloadType);
    if (dtmf) {
        mediaLine += " " + std::to_string(*dtmf);
    }
    written.setMediaLine(mediaLine);
    writeHead(endpoint, rtcpCaps, written);
    writeFormat(voice->payloadType, encodingOf(voice->band), answered.toString(), written);
    if (dtmf) {
        writeFormat(*dtmf, voice->band == BandTypeWb ? "telephone-event/16000" : "telephone-event/8000", kDtmfEvents,
                    written);
    }
    const AmrCodecCapabilities& ours = *voice->capabilities;
    writeTail(ours.getPacketTime(), ours.getMaxPacketTime(), direction, reducedSize, written);

    // The stream to run: the remote end as the offer gives it, our direction as answered.
    rules::RemoteEndpoint remote;
    Result usable = rules::remoteEndpoint(offer, offered, remote);
    if (!usable.isSuccess()) {
        answer = rejectedStream(offered);
        return usable;
    }
    // RFC 4566 section 5.14: a port count asks for a layered stream, which no record holds.
    if (offered.portCount()) {
        answer = rejectedStream(offered);
        return Result(Unsupported) << "port count /" << *offered.portCount() << ": one RTP port per stream only";
    }
    StreamConfig stream;
    stream.setRemoteIp(remote.address);
    stream.setRemoteRtpPort(remote.port);
    stream.setDirection(rules::directionTowardAddress(direction, remote.address));
    rules::RtcpSettings rtcp = rules::rtcpSettings(offer, offered, rtcpCaps, remote, notes);
    rtcp.config.setReducedSizeMode(reducedSize);
    stream.setRtcpConfig(rtcp.config);
    stream.setRtcp(rtcp.enabled);
    stream.setRtpProfile(*rules::rtpProfileOf(offered.protocol()));

    const rules::PacketTimes remoteTimes = rules::declaredPacketTimes(offered, notes);
    const unsigned int ourPacketTime = static_cast<unsigned int>(ours.getPacketTime());
    const unsigned int ourMaxPacketTime = static_cast<unsigned int>(ours.getMaxPacketTime());

    AmrCodecConfig uplink = amrConfig(voice->band, voice->payloadType, answered, ours.isDTXModeSupported());
    uplink.setPacketTime(remoteTimes.packetTime.value_or(ourPacketTime));
    uplink.setMaxPacketTime(remoteTimes.maxPacketTime.value_or(ourMaxPacketTime));
    uplink.setModeChangePeriod(voice->offered.modeChangePeriod.value_or(1) == 2 ? ModeChangePeriodTwoFrames
                                                                                 : ModeChangePeriodAny);
    uplink.setModeChangeNeighbor(voice->offered.modeChangeNeighbor.value_or(0) == 1);
    AmrCodecConfig downlink = uplink;
    downlink.setPacketTime(ourPacketTime);
    downlink.setMaxPacketTime(ourMaxPacketTime);
    downlink.setModeChangePeriod(ours.getModeChangePeriod());
    downlink.setModeChangeNeighbor(ours.isModeChangeNeighborRequired());
    stream.addUplinkCodec(uplink);
    stream.addDownlinkCodec(downlink);
    if (dtmf) {
        DtmfCodecConfig events;
        events.setBandType(voice->band);
        events.setPayloadType(*dtmf);
        events.setPacketTime(uplink.getPacketTime());
        events.setMaxPacketTime(uplink.getMaxPacketTime());
        stream.addUplinkCodec(events);
        events.setPacketTime(ourPacketTime);
        events.setMaxPacketTime(ourMaxPacketTime);
        stream.addDownlinkCodec(events);
    }
    answer = std::move(written);
    const StreamConfig::Result valid = stream.check();
    if (!valid.isSuccess()) {
        return Result(InvalidConfiguration) << valid.format();
    }
    negotiated = stream;
    return Result::success();
}

Result applyAnswer(const MediaDescription& ourOffer, const SessionDescription& answer, std::size_t mediaIndex,
                   StreamConfig& negotiated, std::vector<std::string>* notes) noexcept {
    rules::RemoteStream remoteStream;
    Result usable = rules::remoteStream(answer, mediaIndex, remoteStream);
    if (!usable.isSuccess()) {
        return usable;
    }
    const MediaDescription& answered = answer.media(mediaIndex);
    const rules::RemoteEndpoint& remote = remoteStream.endpoint;
    if (answered.protocol() != ourOffer.protocol()) {
        return Result(Unsupported) << "protocol " << text::quote(answered.protocol()) << " differs from the offered "
                                   << text::quote(ourOffer.protocol());
    }
    if (const std::optional<std::string> format = unofferedFormat(ourOffer, answered)) {
        return Result(Unsupported) << "payload type " << text::quote(*format) << " was not offered with that meaning";
    }

    // The voice format: the answer's first AMR payload type, with the payload format we offered.
    std::optional<int> voice;
    BandType band = BandTypeWb;
    for (std::size_t i = 0; i < answered.formats().size() && !voice; ++i) {
        const std::optional<int> payloadType = payloadTypeOf(answered.formats()[i]);
        if (!payloadType) {
            continue;
        }
        const rules::PayloadFormat format = rules::payloadFormat(answered, *payloadType);
        if (format.kind == rules::PayloadFormat::Amr) {
            voice = payloadType;
            band = format.band;
        }
    }
    if (!voice) {
        return Result(Rejected) << "no AMR or AMR-WB format in the answer";
    }
    AmrParameters theirs;
    const Result theirsRead = AmrParameters::parse(answered.fmtp(*voice), band, theirs);
    if (!theirsRead.isSuccess()) {
        return Result(Unsupported) << "payload type " << *voice << ": " << theirsRead.mMessage;
    }
    AmrParameters ours;
    const Result oursRead = AmrParameters::parse(ourOffer.fmtp(*voice), band, ours);
    if (!oursRead.isSuccess()) {
        return Result(Unsupported) << "payload type " << *voice << " of our offer: " << oursRead.mMessage;
    }
    if (const char* parameter = payloadFormatMismatch(ours, theirs)) {
        return Result(Unsupported) << "payload type " << *voice << ": " << parameter << " differs from the offer";
    }

    // The telephone-event at the voice clock rate, if the answer kept one.
    std::optional<int> dtmf;
    for (std::size_t i = 0; i < answered.formats().size() && !dtmf; ++i) {
        const std::optional<int> payloadType = payloadTypeOf(answered.formats()[i]);
        if (payloadType) {
            const rules::PayloadFormat format = rules::payloadFormat(answered, *payloadType);
            if (format.kind == rules::PayloadFormat::TelephoneEvent && format.band == band) {
                dtmf = payloadType;
            }
        }
    }

    // The direction the answer grants, within what our offer allowed (RFC 3264 section 6.1).
    const StreamConfig::Direction granted =
        rules::mirroredDirection(rules::declaredDirection(answer, answered, notes));
    const StreamConfig::Direction allowed = ownDirection(rules::declaredDirection(SdpSection(), ourOffer, nullptr));
    const auto direction = static_cast<StreamConfig::Direction>(granted & allowed);
    if (direction != granted) {
        addNote(notes, std::string("answered direction ") + directionAttribute(granted) +
                           " exceeds the offered one; using " + directionAttribute(direction));
    }

    StreamConfig stream;
    stream.setRemoteIp(remote.address);
    stream.setRemoteRtpPort(remote.port);
    stream.setDirection(rules::directionTowardAddress(direction, remote.address));
    stream.setRtpProfile(remoteStream.profile);
    rules::RtcpSettings rtcp = rules::rtcpSettings(answer, answered, offeredRtcp(ourOffer), remote, notes);
    // RFC 5506 section 5: an answer may take reduced-size RTCP only when the offer asked for it.
    if (rtcp.config.isReducedSizeMode() && !ourOffer.hasAttribute("rtcp-rsize")) {
        addNote(notes, "a=rtcp-rsize: not offered, RTCP stays full size");
        rtcp.config.setReducedSizeMode(false);
    }
    stream.setRtcpConfig(rtcp.config);
    stream.setRtcp(rtcp.enabled);

    // Uplink: what the answerer asked to receive; downlink: what we asked.
    AmrParameters uplinkParameters = theirs;
    if (!uplinkParameters.modeSet) {
        uplinkParameters.modeSet = ours.modeSet;
    }
    AmrCodecConfig uplink = rules::amrCodecConfig(band, *voice, uplinkParameters);
    AmrCodecConfig downlink = uplink;
    downlink.setModeChangePeriod(ours.modeChangePeriod.value_or(1) == 2 ? ModeChangePeriodTwoFrames
                                                                         : ModeChangePeriodAny);
    downlink.setModeChangeNeighbor(ours.modeChangeNeighbor.value_or(0) == 1);
    const rules::PacketTimes offeredTimes = rules::declaredPacketTimes(ourOffer, nullptr);
    rules::PacketTimes answeredTimes = rules::declaredPacketTimes(answered, notes);
    answeredTimes.packetTime = answeredTimes.packetTime ? answeredTimes.packetTime : offeredTimes.packetTime;
    answeredTimes.maxPacketTime = answeredTimes.maxPacketTime ? answeredTimes.maxPacketTime : offeredTimes.maxPacketTime;
    rules::applyPacketTimes(answeredTimes, uplink);
    rules::applyPacketTimes(offeredTimes, downlink);
    stream.addUplinkCodec(uplink);
    stream.addDownlinkCodec(downlink);
    if (dtmf) {
        DtmfCodecConfig events;
        events.setBandType(band);
        events.setPayloadType(*dtmf);
        rules::applyPacketTimes(answeredTimes, events);
        stream.addUplinkCodec(events);
        events.setPacketTime(DtmfCodecConfig::DEFAULT_PACKET_TIME);
        events.setMaxPacketTime(DtmfCodecConfig::DEFAULT_MAX_PACKET_TIME);
        rules::applyPacketTimes(offeredTimes, events);
        stream.addDownlinkCodec(events);
    }
    const StreamConfig::Result valid = stream.check();
    if (!valid.isSuccess()) {
        return Result(InvalidConfiguration) << valid.format();
    }
    negotiated = stream;
    return Result::success();
}

}  // namespace sdp
}  // namespace rva
}  // namespace tessel
