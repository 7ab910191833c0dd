// Fuzz target for the SDP reader and writer: the input is a description's text (any
// bytes).
//
// Checked: a refused text gives 1004 and leaves the output untouched; an accepted one
// writes a text that parses to an equal description and writes again to the same text;
// copies compare equal; the parameters of every a=fmtp line, read as AMR for either
// band, either are refused with the output untouched or write a text that reads back
// equal and writes again the same.
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "AmrCodecConfig.h"
#include "AmrParameters.h"
#include "FuzzSupport.h"
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
    return 0;
}
