#include <gtest/gtest.h>

#include <set>
#include <typeinfo>
#include <vector>

#include "AmrCodecCapabilities.h"
#include "DtmfCodecCapabilities.h"
#include "RtcpConfig.h"
#include "StreamCapabilities.h"

namespace {

using namespace tessel::rva;

// DTMF capabilities that count the live and destroyed instances; clone() keeps the type.
class CountedDtmfCapabilities : public DtmfCodecCapabilities {
public:
    static int sAlive;
    static int sDestroyed;
    CountedDtmfCapabilities() { ++sAlive; }
    CountedDtmfCapabilities(const CountedDtmfCapabilities& other) : DtmfCodecCapabilities(other) { ++sAlive; }
    ~CountedDtmfCapabilities() override {
        --sAlive;
        ++sDestroyed;
    }
    CodecCapabilities* clone() const override { return new CountedDtmfCapabilities(*this); }
};
int CountedDtmfCapabilities::sAlive = 0;
int CountedDtmfCapabilities::sDestroyed = 0;

AmrCodecCapabilities amrWithRates() {
    AmrCodecCapabilities amr;
    amr.addSupportedAmrRate(static_cast<AmrRate>(2));
    amr.addSupportedAmrRate(static_cast<AmrRate>(7));
    return amr;
}

// AMR then DTMF, profiles 3551 and 4585, RTCP capabilities away from the defaults.
void fill(StreamCapabilities& caps) {
    caps.addCodecCapabilities(amrWithRates());
    caps.addCodecCapabilities(DtmfCodecCapabilities());
    caps.addRtpProfile(RtpProfileAvpf);
    caps.addRtpProfile(RtpProfileAvp);
    RtcpConfig rtcp(2500, 10, 20, 30, true);
    caps.setRtcpCaps(rtcp);
}

// Equal, and every codec a different object of the same dynamic type.
void expectDeepCopy(const StreamCapabilities& original, const StreamCapabilities& copy) {
    EXPECT_TRUE(copy == original);
    ASSERT_EQ(original.getCodecCapabilityCount(), copy.getCodecCapabilityCount());
    for (size_t index = 0; index < original.getCodecCapabilityCount(); ++index) {
        SCOPED_TRACE(index);
        EXPECT_NE(original.getCodecCapabilities(index), copy.getCodecCapabilities(index));
        EXPECT_EQ(typeid(*original.getCodecCapabilities(index)), typeid(*copy.getCodecCapabilities(index)));
    }
}

TEST(StreamCapabilitiesTest, HoldsDistinctCopiesOfTheAddedCapabilitiesInOrder) {
    StreamCapabilities caps;
    EXPECT_EQ(nullptr, caps.getCodecCapabilities(0));

    AmrCodecCapabilities amr = amrWithRates();
    caps.addCodecCapabilities(amr);
    caps.addCodecCapabilities(DtmfCodecCapabilities());
    caps.addCodecCapabilities(amr);
    ASSERT_EQ(3U, caps.getCodecCapabilityCount());
    EXPECT_EQ(nullptr, caps.getCodecCapabilities(3));

    const CodecCapabilities* first = caps.getCodecCapabilities(0);
    const CodecCapabilities* third = caps.getCodecCapabilities(2);
    ASSERT_NE(nullptr, dynamic_cast<const AmrCodecCapabilities*>(first));
    EXPECT_NE(nullptr, dynamic_cast<const DtmfCodecCapabilities*>(caps.getCodecCapabilities(1)));
    EXPECT_NE(&amr, first);
    EXPECT_NE(first, third);
    EXPECT_TRUE(*first == amr && *third == amr);

    amr.clearSupportedAmrRateVector();  // the held copies do not follow the caller's object
    EXPECT_TRUE(*first == amrWithRates());
}

TEST(StreamCapabilitiesTest, ProfilesFormAnAscendingSetWhateverTheOrderOfAdding) {
    StreamCapabilities oneZeroOne;
    StreamCapabilities zeroOne;
    for (int profile : {1, 0, 1}) {
        oneZeroOne.addRtpProfile(static_cast<RtpProfile>(profile));
    }
    zeroOne.addRtpProfile(static_cast<RtpProfile>(0));
    zeroOne.addRtpProfile(static_cast<RtpProfile>(1));
    const std::set<RtpProfile>& profiles = oneZeroOne.getSupportedRtpProfiles();
    EXPECT_EQ(std::vector<int>({0, 1}), std::vector<int>(profiles.begin(), profiles.end()));
    EXPECT_TRUE(oneZeroOne == zeroOne);
    EXPECT_FALSE(oneZeroOne != zeroOne);
}

TEST(StreamCapabilitiesTest, EqualityComparesRtcpProfilesAndCodecsInOrder) {
    const struct {
        const char* name;
        void (*mutate)(StreamCapabilities&);
    } rows[] = {
        {"rtcp reduced size",
         [](StreamCapabilities& c) {
             RtcpConfig rtcp(2500, 10, 20, 30, false);
             c.setRtcpCaps(rtcp);
         }},
        {"extra profile", [](StreamCapabilities& c) { c.addRtpProfile(static_cast<RtpProfile>(1)); }},
        {"codecs swapped",
         [](StreamCapabilities& c) {
             c.clearCodecCapabilities();
             c.addCodecCapabilities(DtmfCodecCapabilities());
             c.addCodecCapabilities(amrWithRates());
         }},
        {"amr field only",
         [](StreamCapabilities& c) {
             AmrCodecCapabilities amr = amrWithRates();
             amr.setInterleavingModeSupport(true);
             c.clearCodecCapabilities();
             c.addCodecCapabilities(amr);
             c.addCodecCapabilities(DtmfCodecCapabilities());
         }},
        {"extra codec", [](StreamCapabilities& c) { c.addCodecCapabilities(DtmfCodecCapabilities()); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        StreamCapabilities original;
        StreamCapabilities changed;
        fill(original);
        fill(changed);
        ASSERT_TRUE(original == changed);
        row.mutate(changed);
        EXPECT_FALSE(original == changed);
        EXPECT_FALSE(changed == original);
        EXPECT_TRUE(original != changed);
    }
}

TEST(StreamCapabilitiesTest, CopyAndAssignmentCloneEveryCodecAndStayIndependent) {
    StreamCapabilities original;
    fill(original);
    StreamCapabilities copy(original);
    expectDeepCopy(original, copy);

    StreamCapabilities assigned;
    assigned.addCodecCapabilities(DtmfCodecCapabilities());
    assigned.addRtpProfile(static_cast<RtpProfile>(0));
    assigned = original;
    expectDeepCopy(original, assigned);

    copy.clearCodecCapabilities();
    copy.addRtpProfile(static_cast<RtpProfile>(0));
    RtcpConfig rtcp;
    assigned.setRtcpCaps(rtcp);
    StreamCapabilities reference;
    fill(reference);
    EXPECT_TRUE(original == reference);

    original.clearCodecCapabilities();  // the assigned object's codecs outlive the original's
    ASSERT_EQ(2U, assigned.getCodecCapabilityCount());
    EXPECT_TRUE(*assigned.getCodecCapabilities(0) == amrWithRates());
}

TEST(StreamCapabilitiesTest, SelfAssignmentKeepsTheCodecsButCopyFromItselfDropsThem) {
    StreamCapabilities caps;
    fill(caps);
    const CodecCapabilities* first = caps.getCodecCapabilities(0);
    const CodecCapabilities* second = caps.getCodecCapabilities(1);
    StreamCapabilities reference;
    fill(reference);

    StreamCapabilities& alias = caps;
    caps = alias;
    EXPECT_EQ(first, caps.getCodecCapabilities(0));
    EXPECT_EQ(second, caps.getCodecCapabilities(1));
    EXPECT_TRUE(caps == reference);

    caps.copyFrom(alias);
    EXPECT_EQ(0U, caps.getCodecCapabilityCount());
    reference.clearCodecCapabilities();
    EXPECT_TRUE(caps == reference);  // profiles and RTCP capabilities survive
}

TEST(StreamCapabilitiesTest, DeletesEachHeldCapabilityExactlyOnce) {
    CountedDtmfCapabilities::sAlive = 0;
    CountedDtmfCapabilities::sDestroyed = 0;
    {
        const CountedDtmfCapabilities counted;
        StreamCapabilities caps;
        caps.addCodecCapabilities(counted);
        caps.addCodecCapabilities(counted);
        EXPECT_EQ(3, CountedDtmfCapabilities::sAlive);
        caps.clearCodecCapabilities();
        EXPECT_EQ(1, CountedDtmfCapabilities::sAlive);
        EXPECT_EQ(2, CountedDtmfCapabilities::sDestroyed);

        caps.addCodecCapabilities(counted);
        caps.addCodecCapabilities(counted);
        StreamCapabilities copy(caps);
        EXPECT_EQ(5, CountedDtmfCapabilities::sAlive);
        EXPECT_NE(nullptr, dynamic_cast<const CountedDtmfCapabilities*>(copy.getCodecCapabilities(0)));

        StreamCapabilities single;
        single.addCodecCapabilities(counted);
        copy = single;  // deletes the two held before cloning the one
        EXPECT_EQ(5, CountedDtmfCapabilities::sAlive);
        EXPECT_EQ(4, CountedDtmfCapabilities::sDestroyed);

        copy.copyFrom(copy);
        EXPECT_EQ(4, CountedDtmfCapabilities::sAlive);
        EXPECT_EQ(5, CountedDtmfCapabilities::sDestroyed);
    }
    // Then caps held two, single one, and the prototype goes too.
    EXPECT_EQ(0, CountedDtmfCapabilities::sAlive);
    EXPECT_EQ(9, CountedDtmfCapabilities::sDestroyed);
}

}  // namespace
