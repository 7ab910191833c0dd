// Fuzz target for the SDP reader and writer: the input is a description's text (any
// bytes).
//
// Checked: a refused text gives 1004 and leaves the output untouched; an accepted one
// writes a text that parses to an equal description and writes again to the same text;
// copies compare equal; the parameters of every a=fmtp line, read as AMR for either
// band, either are refused with the output untouched or write a text that reads back
// equal and writes again the same. Every media section is also answered and the answer
// applied back to it (checkOfferAnswer).
#include <arpa/inet.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "AmrCodecCapabilities.h"
#include "AmrCodecConfig.h"
#include "AmrParameters.h"
#include "FuzzSupport.h"
#include "OfferAnswer.h"
#include "SessionDescription.h"
#include "StreamConfig.h"
#include "StreamMapping.h"

using tessel::rva::BandType;
using tessel::rva::BandTypeNb;
using tessel::rva::BandTypeWb;
using tessel::rva::StreamConfig;
using namespace tessel::rva::sdp;

namespace {

// A description that no input can produce by accident, to see that a failed parse did
// not touch its output.
const SessionDescription& sentinel() {
    static const SessionDescription description = [] {
        SessionDescription parsed;
        FUZZ_CHECK(SessionDescription::parse("v=0\r\ns=sentinel\r\nm=audio 9 RTP/AVP 0\r\n", parsed).isSuccess());
        return parsed;
    }();
    return description;
}

void checkAmrParameters(const std::string& fmtp, BandType band) {
    AmrParameters parameters;
    parameters.maxRed = 12345;  // a mark a failed parse must leave
    const AmrParameters before = parameters;
    const Result result = AmrParameters::parse(fmtp, band, parameters);
    if (!result.isSuccess()) {
        FUZZ_CHECK(result.getCode() == Malformed);
        FUZZ_CHECK(parameters == before);
        return;
    }
    const std::string written = parameters.toString();
    AmrParameters again;
    FUZZ_CHECK(AmrParameters::parse(written, band, again).isSuccess());
    FUZZ_CHECK(again == parameters);
    FUZZ_CHECK(again.toString() == written);
}

// Every a=fmtp line of the section, its parameters read for both bands.
void checkFmtpLines(const SdpSection& section) {
    for (std::size_t i = 0; i < section.lineCount(); ++i) {
        const SdpSection::Line line = section.line(i);
        std::string name(line.value.substr(0, 5));
        for (char& c : name) {
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
        if (line.type != 'a' || name != "fmtp:") {
            continue;
        }
        const std::string_view rest = line.value.substr(5);
        const std::size_t blank = rest.find_first_of(" \t");
        const std::string parameters(blank == std::string_view::npos ? std::string_view() : rest.substr(blank + 1));
        checkAmrParameters(parameters, BandTypeNb);
        checkAmrParameters(parameters, BandTypeWb);
    }
}

void checkRoundTrip(const SessionDescription& description) {
    const std::string written = description.toString();
    SessionDescription again;
    const Result result = SessionDescription::parse(written, again);
    if (!result.isSuccess()) {
        std::fprintf(stderr, "written text refused: %s\n", result.format().c_str());
    }
    FUZZ_CHECK(result.isSuccess());
    FUZZ_CHECK(again == description);
    FUZZ_CHECK(again.toString() == written);

    const SessionDescription copy(description);
    FUZZ_CHECK(copy == description);
    for (std::size_t i = 0; i < description.mediaCount(); ++i) {
        const MediaDescription media(description.media(i));
        FUZZ_CHECK(media == description.media(i));
        checkFmtpLines(media);
    }
}

// Every media section, and one index past the end, read as the stream to run. A failure
// other than 1003 leaves the output untouched; a success is a stream that passes its
// check, prints, copies equal, and gives each AMR codec a preferred rate (which aborts on a
// rate its band lacks). Notes are single lines, so that they cannot forge log lines.
void checkStreamMapping(const SessionDescription& description) {
    for (std::size_t i = 0; i <= description.mediaCount(); ++i) {
        StreamConfig stream;
        stream.setRemoteRtpPort(1234);  // a mark a refusal must leave
        const StreamConfig before(stream);
        std::vector<std::string> notes;
        const Result result = toStreamConfig(description, i, stream, &notes);
        for (const std::string& note : notes) {
            FUZZ_CHECK(!note.empty() && note.find_first_of("\r\n") == std::string::npos);
        }
        if (!result.isSuccess()) {
            FUZZ_CHECK(result.getCode() >= InvalidParam && result.getCode() <= Rejected);
            // 1003 hands back the filled stream, which fails its check; the rest leave it.
            FUZZ_CHECK(result.getCode() == InvalidConfiguration ? !stream.check().isSuccess() : stream == before);
            continue;
        }
        FUZZ_CHECK(stream.check().isSuccess());
        FUZZ_CHECK(!stream.toString().empty());
        const StreamConfig copy(stream);
        FUZZ_CHECK(copy == stream && copy.toString() == stream.toString());
        for (std::size_t c = 0; c < stream.getUplinkCodecCount(); ++c) {
            if (const auto* amr = dynamic_cast<const tessel::rva::AmrCodecConfig*>(stream.getUplinkCodec(c))) {
                FUZZ_CHECK(tessel::rva::isAmrRateValid(amr->getPreferedAmrRate()));
            }
        }
        for (std::size_t c = 0; c < stream.getDownlinkCodecCount(); ++c) {
            if (const auto* amr = dynamic_cast<const tessel::rva::AmrCodecConfig*>(stream.getDownlinkCodec(c))) {
                FUZZ_CHECK(tessel::rva::isAmrRateValid(amr->getPreferedAmrRate()));
            }
        }
    }
}

// What both ends of a negotiated stream must agree on for each codec of a list: payload
// type, band and packet times, and for AMR the payload format, rates, redundancy and
// mode-change requirements.
std::string codecTerms(const StreamConfig& stream, bool uplink) {
    std::string terms;
    const std::size_t count = uplink ? stream.getUplinkCodecCount() : stream.getDownlinkCodecCount();
    for (std::size_t c = 0; c < count; ++c) {
        const tessel::rva::CodecConfig* codec = uplink ? stream.getUplinkCodec(c) : stream.getDownlinkCodec(c);
        terms += std::to_string(codec->getCodecId()) + " band " + std::to_string(codec->getBandType()) + " pt " +
                 std::to_string(codec->getPayloadType()) + " ptime " + std::to_string(codec->getPacketTime()) + "/" +
                 std::to_string(codec->getMaxPacketTime());
        if (const auto* amr = dynamic_cast<const tessel::rva::AmrCodecConfig*>(codec)) {
            terms += " oa " + std::to_string(amr->isOctetAlignModeEnabled()) + " crc " +
                     std::to_string(amr->isCrcModeEnabled()) + " rs " +
                     std::to_string(amr->isRobustSortingModeEnabled()) + " il " +
                     std::to_string(amr->isInterleavingModeEnabled()) + " red " +
                     std::to_string(amr->isRdcyModeEnabled()) + "/" + std::to_string(amr->getMaxRdcy()) + " mcp " +
                     std::to_string(amr->getModeChangePeriod()) + " mcn " +
                     std::to_string(amr->isModeChangeNeighborEnabled()) + " rates";
            for (const tessel::rva::AmrRate rate : amr->getSupportedAmrRates()) {
                terms += " " + std::to_string(rate);
            }
        }
        terms += "\n";
    }
    return terms;
}

bool isNullAddress(const std::string& address) {
    unsigned char bytes[16] = {};
    const bool parsed =
        inet_pton(AF_INET, address.c_str(), bytes) == 1 || inet_pton(AF_INET6, address.c_str(), bytes) == 1;
    return parsed && std::all_of(std::begin(bytes), std::end(bytes), [](unsigned char b) { return b == 0; });
}

// The engine's default capabilities, and a restricted set: every AMR capability requires
// octet-align and holds modes 0, 1 and 2 only.
const tessel::rva::StreamCapabilities& capabilitySet(bool restricted) {
    static const tessel::rva::StreamCapabilities defaults = defaultCapabilities();
    static const tessel::rva::StreamCapabilities narrow = [] {
        tessel::rva::StreamCapabilities caps(defaults);
        caps.clearCodecCapabilities();
        for (std::size_t c = 0; c < defaults.getCodecCapabilityCount(); ++c) {
            const tessel::rva::CodecCapabilities* codec = defaults.getCodecCapabilities(c);
            if (const auto* amr = dynamic_cast<const tessel::rva::AmrCodecCapabilities*>(codec)) {
                tessel::rva::AmrCodecCapabilities required(*amr);
                required.setOctetAlignModeRequired(true);
                required.addSupportedAmrRate(tessel::rva::AmrRate0);
                required.addSupportedAmrRate(tessel::rva::AmrRate1);
                required.addSupportedAmrRate(tessel::rva::AmrRate2);
                caps.addCodecCapabilities(required);
            } else {
                caps.addCodecCapabilities(*codec);
            }
        }
        return caps;
    }();
    return restricted ? narrow : defaults;
}

// Every media section, and one index past the end, answered with both capability sets.
// A refusal leaves the stream untouched, and the answer too on 1002; any other result
// writes an answer that reads back equal, the rejected-stream line unless the stream
// was answerable. A successful answer is accepted by our own applyAnswer against the
// section it answers, and both ends agree: what one sends the other receives, with the
// same payload types and payload format, and mirrored directions.
void checkOfferAnswer(const SessionDescription& description) {
    const LocalEndpoint endpoint{"192.0.2.1", 49152};
    for (const bool restricted : {false, true}) {
        for (std::size_t i = 0; i <= description.mediaCount(); ++i) {
            MediaDescription answer;
            FUZZ_CHECK(answer.setMediaLine("audio 9 RTP/AVP 0").isSuccess());  // a mark
            const MediaDescription before(answer);
            StreamConfig theirs;
            theirs.setRemoteRtpPort(1234);
            const StreamConfig mark(theirs);
            std::vector<std::string> notes;
            const Result result =
                createAnswer(capabilitySet(restricted), endpoint, description, i, answer, theirs, &notes);
            for (const std::string& note : notes) {
                FUZZ_CHECK(!note.empty() && note.find_first_of("\r\n") == std::string::npos);
            }
            if (!result.isSuccess()) {
                FUZZ_CHECK(result.getCode() >= InvalidParam && result.getCode() <= Rejected);
                FUZZ_CHECK(theirs == mark && theirs.toString() == mark.toString());
            }
            if (result.getCode() == InvalidParam) {
                FUZZ_CHECK(answer == before);
                continue;
            }
            SessionDescription answered;
            FUZZ_CHECK(SessionDescription::parse(answer.toString(), answered).isSuccess());
            FUZZ_CHECK(answered.mediaCount() == 1 && answered.media(0) == answer);
            if (!result.isSuccess()) {
                const bool rejected = answer.port() == 0 && answer.formats().size() == 1 && answer.lineCount() == 0;
                FUZZ_CHECK(rejected == (result.getCode() != InvalidConfiguration));
                continue;
            }
            FUZZ_CHECK(theirs.check().isSuccess());
            StreamConfig ours;
            const Result applied = applyAnswer(description.media(i), answered, 0, ours, &notes);
            if (!applied.isSuccess()) {
                std::fprintf(stderr, "our own answer refused: %s\n", applied.format().c_str());
            }
            FUZZ_CHECK(applied.isSuccess());
            FUZZ_CHECK(ours.check().isSuccess());
            FUZZ_CHECK(codecTerms(ours, true) == codecTerms(theirs, false));
            FUZZ_CHECK(codecTerms(ours, false) == codecTerms(theirs, true));
            if (!isNullAddress(theirs.getRemoteIp())) {
                const int mirrored = ((theirs.getDirection() & StreamConfig::SendOnly) << 1) |
                                     ((theirs.getDirection() & StreamConfig::ReceiveOnly) >> 1);
                FUZZ_CHECK(ours.getDirection() == mirrored);
            }
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    rvafuzz::quietAndroidLog();
    const std::string text(reinterpret_cast<const char*>(data), size);
    SessionDescription description = sentinel();
    const Result result = SessionDescription::parse(text, description);
    if (!result.isSuccess()) {
        FUZZ_CHECK(result.getCode() == Malformed);
        FUZZ_CHECK(!result.mMessage.empty());
        FUZZ_CHECK(description == sentinel());
        return 0;
    }
    checkRoundTrip(description);
    checkStreamMapping(description);
    checkOfferAnswer(description);
    return 0;
}
