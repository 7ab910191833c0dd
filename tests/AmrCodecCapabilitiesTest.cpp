#include "AmrCodecCapabilities.h"

#include <gtest/gtest.h>

#include <memory>

#include "Counted.h"
#include "DtmfCodecCapabilities.h"

namespace tessel::rva::tests {

typedef AmrCodecCapabilities Amr;

// Each field, changed alone, reads back through its getter and makes the object unequal,
// also through the base as a stream compares its codecs; clones and assignments carry it;
// clearing the rates and adding them back leaves it as it was. Counts are set and read as
// 64-bit values: the low 32 bits are kept, read back sign-extended. A refused setter
// leaves the object as it was.
TEST(AmrCodecCapabilitiesTest, EachFieldCountsInEqualityAndSurvivesCopiesRefusalsAndDerivedClasses) {
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
    Amr refused = original;
    const std::string bad = "Invalid Param (Code 1002): Bad ";
    EXPECT_EQ(bad + "amr rate: 9", refused.addSupportedAmrRate(AmrRate(9)).format());
    EXPECT_EQ(bad + "mode change period: 2", refused.setModeChangePeriod(ModeChangePeriod(2)).format());
    EXPECT_EQ(bad + "mode change capability: -1", refused.setModeChangeCapability(ModeChangeCapability(-1)).format());
    EXPECT_TRUE(refused == original);
    // A derived AMR class compares by its AMR fields from either side; a DTMF object
    // relabelled AMR through the base assignment is never taken for AMR.
    const rvatest::Counted<Amr, CodecCapabilities> derived;
    EXPECT_TRUE(Amr() == derived && derived == Amr());
    DtmfCodecCapabilities relabelled;
    static_cast<CodecCapabilities&>(relabelled) = Amr();
    EXPECT_TRUE(relabelled.getCodecId() == CodecIdAmr && Amr() != relabelled);
}

}  // namespace tessel::rva::tests
