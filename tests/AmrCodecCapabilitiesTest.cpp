#include <gtest/gtest.h>

#include <memory>

#include "AmrCodecCapabilities.h"
#include "DtmfCodecCapabilities.h"

namespace {

using namespace tessel::rva;

AmrRate rate(int value) { return static_cast<AmrRate>(value); }

// Every field away from its default; the rates 4 and 1 only when asked for.
AmrCodecCapabilities configured(bool withRates) {
    AmrCodecCapabilities amr;
    amr.setBandType(BandTypeNb);
    amr.setPacketTime(40);
    amr.setMaxPacketTime(80);
    amr.setChannelCount(2);
    amr.setOctetAlignModeRequired(true);
    amr.setDTXModeSupport(false);
    amr.setMaxSupportedRdcy(100);
    amr.setRateAdaptationModeSupport(true);
    amr.setModeChangePeriod(ModeChangePeriodTwoFrames);
    amr.setModeChangeCapability(ModeChangeCapabilityAny);
    amr.setModeChangeNeighborRequired(true);
    amr.setCrcModeSupport(true);
    amr.setRobustSortingModeSupport(true);
    amr.setInterleavingModeSupport(true);
    if (withRates) {
        amr.addSupportedAmrRate(rate(4));
        amr.addSupportedAmrRate(rate(1));
    }
    return amr;
}

TEST(AmrCodecCapabilitiesTest, FreshObjectOffersDtxAndRedundancyAndNoRates) {
    const AmrCodecCapabilities amr;
    EXPECT_EQ(CodecIdAmr, amr.getCodecId());
    EXPECT_EQ(BandTypeWb, amr.getBandType());
    EXPECT_EQ(20UL, amr.getPacketTime());
    EXPECT_EQ(240UL, amr.getMaxPacketTime());
    EXPECT_EQ(1UL, amr.getChannelCount());
    EXPECT_EQ(0U, amr.getSupportedAmrRateCount());
    EXPECT_TRUE(amr.isDTXModeSupported());
    EXPECT_TRUE(amr.isRdcyModeSupported());
    EXPECT_EQ(220, amr.getMaxSupportedRdcy());
    EXPECT_EQ(0, amr.getModeChangePeriod());
    EXPECT_EQ(1, amr.getModeChangeCapability());
}

TEST(AmrCodecCapabilitiesTest, MaxRedundancyReadsMinusOneWhileRedundancyIsOffButStillCompares) {
    AmrCodecCapabilities stored220;
    stored220.setRdcyModeSupport(false);
    AmrCodecCapabilities stored100 = stored220;
    stored100.setMaxSupportedRdcy(100);
    EXPECT_EQ(-1, stored220.getMaxSupportedRdcy());
    EXPECT_EQ(-1, stored100.getMaxSupportedRdcy());
    EXPECT_FALSE(stored220 == stored100);

    stored220.setRdcyModeSupport(true);
    EXPECT_EQ(220, stored220.getMaxSupportedRdcy());
}

TEST(AmrCodecCapabilitiesTest, RatesKeepInsertionOrderWithoutDuplicates) {
    AmrCodecCapabilities amr;
    for (int value : {5, 0, 5, 8, 0}) {
        SCOPED_TRACE(value);
        EXPECT_EQ(1000, amr.addSupportedAmrRate(rate(value)).getCode());
    }
    ASSERT_EQ(3U, amr.getSupportedAmrRateCount());
    EXPECT_EQ(5, amr.getSupportedAmrRate(0));
    EXPECT_EQ(0, amr.getSupportedAmrRate(1));
    EXPECT_EQ(8, amr.getSupportedAmrRate(2));
    EXPECT_EQ(-1, amr.getSupportedAmrRate(3));
    EXPECT_EQ(-1, AmrCodecCapabilities().getSupportedAmrRate(0));
}

TEST(AmrCodecCapabilitiesTest, RefusedArgumentsReturn1002AndLeaveTheObjectUnchanged) {
    const struct {
        const char* expected;
        AmrCodecCapabilities::Result (*apply)(AmrCodecCapabilities&);
    } rows[] = {
        {"Invalid Param (Code 1002): Bad amr rate: 9",
         [](AmrCodecCapabilities& a) { return a.addSupportedAmrRate(rate(9)); }},
        {"Invalid Param (Code 1002): Bad amr rate: -1",
         [](AmrCodecCapabilities& a) { return a.addSupportedAmrRate(rate(-1)); }},
        {"Invalid Param (Code 1002): Bad mode change period: 2",
         [](AmrCodecCapabilities& a) { return a.setModeChangePeriod(static_cast<ModeChangePeriod>(2)); }},
        {"Invalid Param (Code 1002): Bad mode change capability: -1",
         [](AmrCodecCapabilities& a) { return a.setModeChangeCapability(static_cast<ModeChangeCapability>(-1)); }},
        {"Invalid Param (Code 1002): Bad mode change capability: 2",
         [](AmrCodecCapabilities& a) { return a.setModeChangeCapability(static_cast<ModeChangeCapability>(2)); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.expected);
        AmrCodecCapabilities amr = configured(true);
        const AmrCodecCapabilities::Result result = row.apply(amr);
        EXPECT_EQ(1002, result.getCode());
        EXPECT_EQ(row.expected, result.format());
        EXPECT_TRUE(amr == configured(true));
    }

    AmrCodecCapabilities amr;
    for (int value : {1, 0}) {
        SCOPED_TRACE(value);
        EXPECT_EQ(1000, amr.setModeChangePeriod(static_cast<ModeChangePeriod>(value)).getCode());
        EXPECT_EQ(1000, amr.setModeChangeCapability(static_cast<ModeChangeCapability>(value)).getCode());
        EXPECT_EQ(value, amr.getModeChangePeriod());
        EXPECT_EQ(value, amr.getModeChangeCapability());
    }
}

TEST(AmrCodecCapabilitiesTest, ClearingTheRatesKeepsEveryOtherField) {
    AmrCodecCapabilities amr = configured(true);
    amr.clearSupportedAmrRateVector();
    EXPECT_EQ(0U, amr.getSupportedAmrRateCount());
    EXPECT_TRUE(amr == configured(false));
}

TEST(AmrCodecCapabilitiesTest, EqualityComparesEachFieldOneAtATime) {
    const struct {
        const char* name;
        void (*mutate)(AmrCodecCapabilities&);
    } rows[] = {
        {"band", [](AmrCodecCapabilities& a) { a.setBandType(BandTypeNb); }},
        {"packet time", [](AmrCodecCapabilities& a) { a.setPacketTime(40); }},
        {"max packet time", [](AmrCodecCapabilities& a) { a.setMaxPacketTime(120); }},
        {"channel count", [](AmrCodecCapabilities& a) { a.setChannelCount(2); }},
        {"octet align", [](AmrCodecCapabilities& a) { a.setOctetAlignModeRequired(true); }},
        {"dtx", [](AmrCodecCapabilities& a) { a.setDTXModeSupport(false); }},
        {"redundancy", [](AmrCodecCapabilities& a) { a.setRdcyModeSupport(false); }},
        {"max redundancy", [](AmrCodecCapabilities& a) { a.setMaxSupportedRdcy(100); }},
        {"added rate", [](AmrCodecCapabilities& a) { a.addSupportedAmrRate(rate(7)); }},
        {"no rates", [](AmrCodecCapabilities& a) { a.clearSupportedAmrRateVector(); }},
        {"rates reversed",
         [](AmrCodecCapabilities& a) {
             a.clearSupportedAmrRateVector();
             a.addSupportedAmrRate(rate(3));
             a.addSupportedAmrRate(rate(2));
         }},
        {"rate adaptation", [](AmrCodecCapabilities& a) { a.setRateAdaptationModeSupport(true); }},
        {"mode change period", [](AmrCodecCapabilities& a) { a.setModeChangePeriod(ModeChangePeriodTwoFrames); }},
        {"mode change capability", [](AmrCodecCapabilities& a) { a.setModeChangeCapability(ModeChangeCapabilityAny); }},
        {"neighbor", [](AmrCodecCapabilities& a) { a.setModeChangeNeighborRequired(true); }},
        {"crc", [](AmrCodecCapabilities& a) { a.setCrcModeSupport(true); }},
        {"robust sorting", [](AmrCodecCapabilities& a) { a.setRobustSortingModeSupport(true); }},
        {"interleaving", [](AmrCodecCapabilities& a) { a.setInterleavingModeSupport(true); }},
    };
    AmrCodecCapabilities original;
    original.addSupportedAmrRate(rate(2));
    original.addSupportedAmrRate(rate(3));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        AmrCodecCapabilities changed = original;
        row.mutate(changed);
        EXPECT_FALSE(changed == original);
        EXPECT_FALSE(original == changed);
        // Through the base, as a stream's codec list compares them.
        const CodecCapabilities& originalBase = original;
        const CodecCapabilities& changedBase = changed;
        EXPECT_FALSE(originalBase == changedBase);
        EXPECT_TRUE(originalBase != changedBase);
        EXPECT_TRUE(changedBase != originalBase);
    }
}

TEST(AmrCodecCapabilitiesTest, CopiesAssignmentsAndClonesAreDeep) {
    const AmrCodecCapabilities original = configured(true);
    AmrCodecCapabilities copy(original);
    EXPECT_TRUE(copy == original);
    copy.addSupportedAmrRate(rate(6));

    AmrCodecCapabilities assigned;
    assigned.addSupportedAmrRate(rate(0));
    assigned = original;
    EXPECT_TRUE(assigned == original);
    assigned.clearSupportedAmrRateVector();

    std::unique_ptr<CodecCapabilities> clone(original.clone());
    EXPECT_NE(&original, clone.get());
    AmrCodecCapabilities* amrClone = dynamic_cast<AmrCodecCapabilities*>(clone.get());
    ASSERT_NE(nullptr, amrClone);
    EXPECT_TRUE(*clone == original);
    EXPECT_TRUE(original == *clone);
    amrClone->addSupportedAmrRate(rate(7));

    EXPECT_TRUE(original == configured(true));
}

// Capabilities of a derived AMR implementation compare by their AMR fields from either
// side; a DTMF object relabelled AMR through the base assignment is never taken for AMR.
TEST(AmrCodecCapabilitiesTest, EqualityHoldsBothWaysForDerivedAndNeverReadsOtherTypesAsAmr) {
    struct DerivedAmr : AmrCodecCapabilities {
        CodecCapabilities* clone() const override { return new DerivedAmr(*this); }
    };
    const AmrCodecCapabilities amr;
    const DerivedAmr derived;
    EXPECT_TRUE(amr == derived);
    EXPECT_TRUE(derived == amr);

    DtmfCodecCapabilities relabelled;
    static_cast<CodecCapabilities&>(relabelled) = amr;
    EXPECT_EQ(tessel::rva::CodecIdAmr, relabelled.getCodecId());
    EXPECT_FALSE(amr == relabelled);
    EXPECT_TRUE(amr != relabelled);
}

}  // namespace
