#include "StreamCapabilities.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "AmrCodecCapabilities.h"
#include "Counted.h"
#include "DtmfCodecCapabilities.h"
#include "ExpectAbort.h"

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
// does, and so does the order of an AMR codec's rates. A new object holds the default RTCP.
TEST(StreamCapabilitiesTest, EqualityComparesRtcpProfileSetsAndCodecListsInOrder) {
    EXPECT_TRUE(StreamCapabilities().getRTCPcaps() == RtcpConfig());
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
        EXPECT_TRUE(!(other == original) && original != other) << (&other - different);
    }
}

// Every codec held is a clone of its own, deleted exactly once, first to last: by
// clearing, by an assignment or copyFrom over it, or with its holder. An assignment
// replaces the profiles; assigning an object to itself keeps its codecs; copyFrom with
// itself drops them and keeps the profiles and RTCP.
TEST(StreamCapabilitiesTest, HoldsDistinctClonesDeletedOnceInOrderAndOnlyCopyFromItselfDropsThem) {
    const CountedDtmf counted;
    const auto ids = [](const StreamCapabilities& caps, std::vector<int>& out) -> std::vector<int>& {
        for (size_t i = 0; i < caps.getCodecCapabilityCount(); ++i) {
            out.push_back(CountedDtmf::idOf(caps.getCodecCapabilities(i)));
        }
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

TEST(RtcpConfigTest, StoresAnyValueAndComparesEveryField) {
    RtcpConfig rtcp;
    EXPECT_TRUE(rtcp == RtcpConfig(5000, 0, 800, 64, false) &&
                RtcpConfig::disabledRtcpConfig == RtcpConfig(0, 0, 0, 0, false));
    const RtcpConfig others[] = {RtcpConfig(5001, 0, 800, 64, false), RtcpConfig(5000, 1, 800, 64, false),
                                 RtcpConfig(5000, 0, 801, 64, false), RtcpConfig(5000, 0, 800, 65, false),
                                 RtcpConfig(5000, 0, 800, 64, true),  RtcpConfig(5000, 800, 0, 64, false)};
    for (const RtcpConfig& other : others) EXPECT_TRUE(rtcp != other) << "row " << &other - others;
    rtcp.setInterval(4294967295U), rtcp.setRr(1), rtcp.setRs(2), rtcp.setAs(3), rtcp.setReducedSizeMode(true);
    EXPECT_TRUE(rtcp == RtcpConfig(4294967295U, 1, 2, 3, true) && rtcp.getRs() == 2 && rtcp.getAs() == 3);
}

typedef AmrCodecCapabilities Amr;

// The base made concrete, so that any codec id and band reach its constructor.
struct PlainCaps : CodecCapabilities {
    PlainCaps(CodecId codecId, BandType bandType) : CodecCapabilities(codecId, bandType, 20, 240, 1) {}
    CodecCapabilities* clone() const noexcept override { return new PlainCaps(*this); }
};

// Each field, changed alone, reads back through its getter and makes the object unequal,
// also through the base as a stream compares its codecs; clones and assignments carry it;
// clearing the rates and adding them back leaves it as it was. Both concrete classes start
// from band 1, 20 ms, 240 ms and one channel: the codec id alone keeps them apart. Counts
// are set and read as 64-bit values: the low 32 bits are kept, read back sign-extended.
TEST(AmrCodecCapabilitiesTest, EachFieldCountsInEqualityAndSurvivesCopiesAndClearingTheRates) {
    const std::pair<const char*, bool (*)(Amr&)> changes[] = {
        {"band", [](Amr& a) { return a.setBandType(BandTypeNb), a.getBandType() == BandTypeNb; }},
        {"packet time", [](Amr& a) { return a.setPacketTime(40), a.getPacketTime() == 40; }},
        {"max packet time", [](Amr& a) { return a.setMaxPacketTime(120), a.getMaxPacketTime() == 120; }},
        {"channel count", [](Amr& a) { return a.setChannelCount(8589934591U), a.getChannelCount() == ~0ULL; }},
        {"octet align", [](Amr& a) { return a.setOctetAlignModeRequired(true), a.isOctetAlignModeRequired(); }},
        {"dtx", [](Amr& a) { return a.setDTXModeSupport(false), !a.isDTXModeSupported(); }},
        {"redundancy", [](Amr& a) { return a.setRdcyModeSupport(true), a.getMaxSupportedRdcy() == 220; }},
        {"max redundancy", [](Amr& a) { return a.setMaxSupportedRdcy(100), !a.isRdcyModeSupported(); }},
        {"added rate", [](Amr& a) { return a.addSupportedAmrRate(AmrRate7).isSuccess(); }},
        {"adaptation", [](Amr& a) { return a.setRateAdaptationModeSupport(true), a.isRateAdaptationModeSupported(); }},
        {"period", [](Amr& a) { return a.setModeChangePeriod(ModeChangePeriodTwoFrames).isSuccess(); }},
        {"capability", [](Amr& a) { return a.setModeChangeCapability(ModeChangeCapabilityAny).isSuccess(); }},
        {"neighbor", [](Amr& a) { return a.setModeChangeNeighborRequired(true), a.isModeChangeNeighborRequired(); }},
        {"crc", [](Amr& a) { return a.setCrcModeSupport(true), a.isCrcModeSupported(); }},
        {"robust sorting",
         [](Amr& a) { return a.setRobustSortingModeSupport(true), a.isRobustSortingModeSupported(); }},
        {"interleaving", [](Amr& a) { return a.setInterleavingModeSupport(true), a.isInterleavingModeSupported(); }},
    };
    EXPECT_TRUE(PlainCaps(CodecIdAmr, BandTypeWb) == Amr() &&
                PlainCaps(CodecIdDtmf, BandTypeWb) == DtmfCodecCapabilities());
    EXPECT_TRUE(DtmfCodecCapabilities() != Amr());
    // Redundancy off: the maximum reads -1, yet the stored one still counts. A rate added
    // again succeeds and is kept once, where it was (else the refill below misses one).
    Amr original;
    original.setRdcyModeSupport(false);
    EXPECT_EQ(-1, original.getMaxSupportedRdcy());
    for (AmrRate rate : {AmrRate2, AmrRate3, AmrRate2}) EXPECT_EQ(1000, original.addSupportedAmrRate(rate).getCode());
    for (const auto& [name, apply] : changes) {
        SCOPED_TRACE(name);
        Amr changed = original;
        EXPECT_TRUE(apply(changed));
        EXPECT_FALSE(static_cast<const CodecCapabilities&>(original) == changed);
        EXPECT_TRUE(changed != original && changed == *std::unique_ptr<CodecCapabilities>(changed.clone()));
        Amr assigned;
        (assigned = changed).clearSupportedAmrRateVector();
        EXPECT_EQ(0U, assigned.getSupportedAmrRateCount());
        // Read in order; past the end reads -1, which is refused.
        for (size_t i = 0; i < 3; ++i) assigned.addSupportedAmrRate(changed.getSupportedAmrRate(i));
        EXPECT_TRUE(assigned == changed);
    }
}

TEST(AmrCodecCapabilitiesTest, RefusedSettersLeaveTheObjectUnchanged) {
    const std::pair<const char*, Amr::Result (*)(Amr&)> refusals[] = {
        {"Bad amr rate: 9", [](Amr& a) { return a.addSupportedAmrRate(AmrRate(9)); }},
        {"Bad mode change period: 2", [](Amr& a) { return a.setModeChangePeriod(ModeChangePeriod(2)); }},
        {"Bad mode change capability: -1", [](Amr& a) { return a.setModeChangeCapability(ModeChangeCapability(-1)); }},
    };
    Amr amr;
    for (const auto& [message, apply] : refusals) {
        EXPECT_EQ(std::string("Invalid Param (Code 1002): ") + message, apply(amr).format());
        EXPECT_TRUE(amr == Amr()) << message;
    }
}

// Capabilities of a derived AMR implementation compare by their AMR fields from either
// side; a DTMF object relabelled AMR through the base assignment is never taken for AMR.
TEST(AmrCodecCapabilitiesTest, EqualityHoldsBothWaysForDerivedAndNeverReadsOtherTypesAsAmr) {
    struct DerivedAmr : Amr {
        CodecCapabilities* clone() const noexcept override { return new DerivedAmr(*this); }
    };
    EXPECT_TRUE(Amr() == DerivedAmr() && DerivedAmr() == Amr());
    DtmfCodecCapabilities relabelled;
    static_cast<CodecCapabilities&>(relabelled) = Amr();
    EXPECT_TRUE(relabelled.getCodecId() == CodecIdAmr && Amr() != relabelled);
}

TEST(AmrCodecCapabilitiesDeathTest, ConstructorAssertsAValidCodecIdThenAValidBandType) {
    EXPECT_ABORT(PlainCaps(CodecId(2), BandType(2)), "KARDU.*Assertion failed: isCodecIdValid\\(mCodecId\\)");
    EXPECT_ABORT(PlainCaps(CodecIdDtmf, BandType(-1)), "KARDU.*Assertion failed: isBandTypeValid\\(mBandType\\)");
}

}  // namespace
