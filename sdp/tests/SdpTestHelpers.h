// Helpers shared by the SDP layer's tests: reading a description that must parse, and a
// one-line summary per codec of a stream's list, so that tests compare negotiated or
// mapped streams field by field in one string.
#ifndef RVA_SDP_TESTS_SDP_TEST_HELPERS_H
#define RVA_SDP_TESTS_SDP_TEST_HELPERS_H

#include <gtest/gtest.h>

#include <string>

#include "AmrCodecConfig.h"
#include "CodecConfig.h"
#include "MediaTypes.h"
#include "SessionDescription.h"
#include "StreamConfig.h"

namespace tessel::rva::sdp {

inline SessionDescription parsed(const std::string& text) {
    SessionDescription description;
    const Result result = SessionDescription::parse(text, description);
    EXPECT_TRUE(result.isSuccess()) << result.format();
    return description;
}

// A remote description: a session head, `session` lines, then "m=<media>" and its lines.
inline SessionDescription described(const std::string& media, const std::string& session = "c=IN IP4 192.0.2.9\n") {
    return parsed("v=0\no=- 1 1 IN IP4 192.0.2.9\ns=-\nt=0 0\n" + session + "m=" + media);
}

// One line per codec of a list: every field the SDP layer sets.
inline std::string codecs(const StreamConfig& stream, bool uplink) {
    std::string text;
    const std::size_t count = uplink ? stream.getUplinkCodecCount() : stream.getDownlinkCodecCount();
    for (std::size_t i = 0; i < count; ++i) {
        const CodecConfig* codec = uplink ? stream.getUplinkCodec(i) : stream.getDownlinkCodec(i);
        text += std::string(getCodecIdDescription(codec->getCodecId())) + " " +
                getBandTypeDescription(codec->getBandType()) + " pt" + std::to_string(codec->getPayloadType()) + " " +
                std::to_string(codec->getPacketTime()) + "/" + std::to_string(codec->getMaxPacketTime());
        if (const auto* amr = dynamic_cast<const AmrCodecConfig*>(codec)) {
            text += std::string(amr->isOctetAlignModeEnabled() ? " oa" : " be") + " rates";
            for (const AmrRate rate : amr->getSupportedAmrRates()) text += " " + std::to_string(rate);
            text += " crc" + std::to_string(amr->isCrcModeEnabled()) + " rs" +
                    std::to_string(amr->isRobustSortingModeEnabled()) + " il" +
                    std::to_string(amr->isInterleavingModeEnabled()) + " mcn" +
                    std::to_string(amr->isModeChangeNeighborEnabled()) + " mcp" +
                    std::to_string(amr->getModeChangePeriod()) + " red" + std::to_string(amr->isRdcyModeEnabled()) +
                    "/" + std::to_string(amr->getMaxRdcy()) + " dtx" + std::to_string(amr->isDTXModeEnabled());
        }
        text += "\n";
    }
    return text;
}

}  // namespace tessel::rva::sdp

#endif  // RVA_SDP_TESTS_SDP_TEST_HELPERS_H
