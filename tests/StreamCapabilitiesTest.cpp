#include "StreamCapabilities.h"

#include <gtest/gtest.h>

#include "AmrCodecCapabilities.h"
#include "Counted.h"
#include "DtmfCodecCapabilities.h"
#include "ExpectAbort.h"

namespace tessel::rva::tests {

typedef rvatest::Counted<DtmfCodecCapabilities, CodecCapabilities> CountedDtmf;

// The codecs and profiles added in the given order; RTCP away from its defaults.
StreamCapabilities make(std::initializer_list<const CodecCapabilities*> codecs,
                        std::initializer_list<int> profiles = {1, 0, 1}, bool reducedSize = true) {
    StreamCapabilities caps;
    for (const CodecCapabilities* codec : codecs) caps.addCodecCapabilities(*codec);
    for (int profile : profiles) caps.addRtpProfile(static_cast<RtpProfile>(profile));
    RtcpConfig rtcp(2500, 10, 20, 30, reducedSize);
    caps.setRtcpCaps(rtcp);
    return caps;
}

// Profiles form a set, so their order of adding does not count; the order of the codecs
// does, and so does the order of an AMR codec's rates. A new object holds the default RTCP.
// Every codec held is a clone of its own, deleted exactly once, first to last: by
// clearing, by an assignment or copyFrom over it, or with its holder. An assignment
// replaces the profiles; assigning an object to itself keeps its codecs; copyFrom with
// itself drops them and keeps the profiles and RTCP.
TEST(StreamCapabilitiesTest, ComparesCodecsInOrderAndHoldsDistinctClonesDeletedOnceInOrder) {
    EXPECT_TRUE(StreamCapabilities().getRTCPcaps() == RtcpConfig());
    AmrCodecCapabilities amr23, amr32;
    for (AmrRate rate : {AmrRate2, AmrRate3}) amr23.addSupportedAmrRate(rate);
    for (AmrRate rate : {AmrRate3, AmrRate2}) amr32.addSupportedAmrRate(rate);
    const DtmfCodecCapabilities dtmf;
    const StreamCapabilities reference = make({&amr23, &dtmf});
    EXPECT_EQ((std::set<RtpProfile>{RtpProfile(0), RtpProfile(1)}), reference.getSupportedRtpProfiles());
    EXPECT_TRUE(reference == make({&amr23, &dtmf}, {0, 1}));
    const StreamCapabilities different[] = {make({&amr23, &dtmf}, {1, 0, 1}, false), make({&amr23, &dtmf}, {0}),
                                            make({&dtmf, &amr23}), make({&amr32, &dtmf}), make({&amr23, &dtmf, &dtmf})};
    for (const StreamCapabilities& other : different) EXPECT_TRUE(!(other == reference) && reference != other);
    const CountedDtmf counted;
    const auto ids = [](const StreamCapabilities& caps, std::vector<int>& out) -> std::vector<int>& {
        for (size_t i = 0; i < caps.getCodecCapabilityCount(); ++i)
            out.push_back(dynamic_cast<const CountedDtmf&>(*caps.getCodecCapabilities(i)).mId);
        return out;
    };
    std::vector<int> expected, held;
    {
        StreamCapabilities original = make({&counted, &counted});
        StreamCapabilities copy(original), assigned = make({&counted, &counted}, {4585});
        ids(assigned, expected);
        CountedDtmf::deleted.clear();
        assigned = original;
        EXPECT_EQ(expected, CountedDtmf::deleted);
        EXPECT_TRUE(copy == original && assigned == original && original.getCodecCapabilities(2) == nullptr);
        CountedDtmf::deleted.clear();
        expected.clear();
        ids(assigned, ids(copy, ids(original, expected)));
        original.clearCodecCapabilities();
        assigned = *&assigned;
        EXPECT_EQ(std::vector<int>(expected.end() - 2, expected.end()), ids(assigned, held));  // the same objects
        copy.copyFrom(copy);
        EXPECT_TRUE(copy == make({}));
    }
    EXPECT_EQ(expected, CountedDtmf::deleted);
}

TEST(StreamCapabilitiesDeathTest, CopyingANullCodecCapabilityAborts) {
    struct NullClone : DtmfCodecCapabilities {
        CodecCapabilities* clone() const noexcept override { return nullptr; }
    };
    StreamCapabilities caps;
    caps.addCodecCapabilities(NullClone());
    EXPECT_ABORT(StreamCapabilities copy(caps),
                 "F/TESSEL common/src/StreamCapabilities\\.cpp:[0-9]+: Assertion \\*it != NULL failed: "
                 "CodecCapabilities is null\n");
}

}  // namespace tessel::rva::tests
