#include "StreamMapping.h"

#include <bitset>
#include <cstdint>
#include <string>
#include <utility>

#include "AmrCodecConfig.h"
#include "AmrParameters.h"
#include "DtmfCodecConfig.h"
#include "SdpText.h"
#include "StreamRules.h"

namespace tessel {
namespace rva {
namespace sdp {

namespace {

const std::uint32_t kMaxPayloadType = 127;

// "payload type 97 (AMR-WB/16000)", or "payload type 97" when no name is known.
std::string describePayloadType(int payloadType, const rules::PayloadFormat& format) {
    std::string text = "payload type " + std::to_string(payloadType);
    if (!format.name.empty()) {
        text += " (" + format.name + ")";
    }
    return text;
}

// The codecs of the section's formats, in m= order, added to both lists of `stream`;
// every format skipped is noted. Returns how many AMR codecs were added.
std::size_t addCodecs(const MediaDescription& media, const rules::PacketTimes& times, StreamConfig& stream,
                      rules::Notes* notes) {
    std::size_t amrCount = 0;
    std::bitset<kMaxPayloadType + 1> seen;
    for (const std::string& token : media.formats()) {
        std::uint32_t number = 0;
        if (!text::parseNumber(token, kMaxPayloadType, number)) {
            rules::addNote(notes, "format " + text::quote(token) + ": not an RTP payload type");
            continue;
        }
        const int payloadType = static_cast<int>(number);
        if (seen.test(number)) {
            rules::addNote(notes, "payload type " + token + ": listed twice, the first place counts");
            continue;
        }
        seen.set(number);
        const rules::PayloadFormat format = rules::payloadFormat(media, payloadType);
        if (format.kind == rules::PayloadFormat::Unsupported) {
            rules::addNote(notes, describePayloadType(payloadType, format) + ": " + format.reason);
            continue;
        }
        if (format.kind == rules::PayloadFormat::TelephoneEvent) {
            DtmfCodecConfig dtmf;
            dtmf.setBandType(format.band);
            dtmf.setPayloadType(payloadType);
            rules::applyPacketTimes(times, dtmf);
            stream.addUplinkCodec(dtmf);
            stream.addDownlinkCodec(dtmf);
            continue;
        }
        AmrParameters parameters;
        const Result read = AmrParameters::parse(media.fmtp(payloadType), format.band, parameters);
        if (!read.isSuccess()) {
            rules::addNote(notes, describePayloadType(payloadType, format) + ": a=fmtp refused: " + read.mMessage);
            continue;
        }
        AmrCodecConfig amr = rules::amrCodecConfig(format.band, payloadType, parameters);
        rules::applyPacketTimes(times, amr);
        stream.addUplinkCodec(amr);
        stream.addDownlinkCodec(amr);
        ++amrCount;
    }
    return amrCount;
}

}  // namespace

Result toStreamConfig(const SessionDescription& remote, std::size_t mediaIndex, StreamConfig& out,
                      std::vector<std::string>* notes) noexcept {
    rules::RemoteStream remoteStream;
    Result result = rules::remoteStream(remote, mediaIndex, remoteStream);
    if (!result.isSuccess()) {
        return result;
    }
    const MediaDescription& media = remote.media(mediaIndex);
    const rules::RemoteEndpoint& endpoint = remoteStream.endpoint;

    StreamConfig stream;
    stream.setRemoteIp(endpoint.address);
    stream.setRemoteRtpPort(endpoint.port);
    stream.setRtpProfile(remoteStream.profile);
    stream.setDirection(rules::directionTowardAddress(
        rules::mirroredDirection(rules::declaredDirection(remote, media, notes)), endpoint.address));
    const rules::RtcpSettings rtcp = rules::rtcpSettings(remote, media, RtcpConfig(), endpoint, notes);
    stream.setRtcpConfig(rtcp.config);
    stream.setRtcp(rtcp.enabled);

    const rules::PacketTimes times = rules::declaredPacketTimes(media, notes);
    if (addCodecs(media, times, stream, notes) == 0) {
        return Result(Unsupported) << "no AMR or AMR-WB format";
    }

    const StreamConfig::Result checked = stream.check();
    out = stream;
    if (!checked.isSuccess()) {
        return Result(InvalidConfiguration) << checked.format();
    }
    return Result::success();
}

}  // namespace sdp
}  // namespace rva
}  // namespace tessel
