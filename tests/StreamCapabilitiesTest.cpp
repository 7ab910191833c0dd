#include "StreamCapabilities.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "AmrCodecCapabilities.h"
#include "Counted.h"
#include "DtmfCodecCapabilities.h"

namespace {

using namespace tessel::rva;

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
// does, and so does the order of an AMR codec's rates.
TEST(StreamCapabilitiesTest, EqualityComparesRtcpProfileSetsAndCodecListsInOrder) {
    AmrCodecCapabilities amr23, amr32;
    for (AmrRate rate : {AmrRate2, AmrRate3}) amr23.addSupportedAmrRate(rate);
    for (AmrRate rate : {AmrRate3, AmrRate2}) amr32.addSupportedAmrRate(rate);
    const DtmfCodecCapabilities dtmf;
    const StreamCapabilities original = make({&amr23, &dtmf});
    EXPECT_EQ((std::set<RtpProfile>{RtpProfile(0), RtpProfile(1)}), original.getSupportedRtpProfiles());
    EXPECT_TRUE(original == make({&amr23, &dtmf}, {0, 1}));

    const StreamCapabilities different[] = {make({&amr23, &dtmf}, {1, 0, 1}, false), make({&amr23, &dtmf}, {0}),
                                            make({&dtmf, &amr23}), make({&amr32, &dtmf}), make({&amr23, &dtmf, &dtmf})};
    for (const StreamCapabilities& other : different) {
        EXPECT_FALSE(other == original) << (&other - different);
        EXPECT_TRUE(original != other) << (&other - different);
    }
}

// Every codec held is a clone of its own, deleted exactly once: by clearing, by an
// assignment or copyFrom over it, or with its holder. Assigning an object to itself keeps
// its codecs; copyFrom with itself drops them and keeps the profiles and RTCP.
TEST(StreamCapabilitiesTest, HoldsDistinctClonesDeletedOnceAndOnlyCopyFromItselfDropsThem) {
    const AmrCodecCapabilities amr;
    const CountedDtmf counted;
    auto heldId = [](const StreamCapabilities& caps) { return CountedDtmf::idOf(caps.getCodecCapabilities(2)); };
    std::vector<int> ids;
    {
        StreamCapabilities original = make({&amr, &amr, &counted});
        StreamCapabilities copy(original), assigned(original);
        ids = {heldId(assigned), heldId(original), heldId(copy)};
        assigned = original;
        ids.push_back(heldId(assigned));
        EXPECT_TRUE(copy == original && assigned == original);
        EXPECT_EQ(nullptr, original.getCodecCapabilities(3));
        original.clearCodecCapabilities();

        StreamCapabilities& alias = assigned;
        assigned = alias;
        EXPECT_EQ(ids[3], heldId(assigned));  // the very same object, not a new clone
        copy.copyFrom(copy);
        EXPECT_TRUE(copy == make({}));
    }
    for (int id : ids) EXPECT_EQ(1, CountedDtmf::deletionsOf(id)) << id;
}

}  // namespace
