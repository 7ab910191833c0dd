#include "AmrCodecCapabilities.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "DtmfCodecCapabilities.h"

namespace {

using namespace tessel::rva;

// Each field, changed alone, makes the object unequal, through the base as a stream
// compares its codecs; clones and assignments carry that field; clearing the rates and
// adding them back leaves it as it was.
TEST(AmrCodecCapabilitiesTest, EachFieldCountsInEqualityAndSurvivesCopiesAndClearingTheRates) {
    const std::pair<const char*, void (*)(AmrCodecCapabilities&)> changes[] = {
        {"band", [](auto& a) { a.setBandType(BandTypeNb); }},
        {"packet time", [](auto& a) { a.setPacketTime(40); }},
        {"max packet time", [](auto& a) { a.setMaxPacketTime(120); }},
        {"channel count", [](auto& a) { a.setChannelCount(2); }},
        {"octet align", [](auto& a) { a.setOctetAlignModeRequired(true); }},
        {"dtx", [](auto& a) { a.setDTXModeSupport(false); }},
        {"redundancy", [](auto& a) { a.setRdcyModeSupport(true); }},
        {"max redundancy", [](auto& a) { a.setMaxSupportedRdcy(100); }},
        {"added rate", [](auto& a) { a.addSupportedAmrRate(AmrRate7); }},
        {"rate adaptation", [](auto& a) { a.setRateAdaptationModeSupport(true); }},
        {"mode change period", [](auto& a) { a.setModeChangePeriod(ModeChangePeriodTwoFrames); }},
        {"mode change capability", [](auto& a) { a.setModeChangeCapability(ModeChangeCapabilityAny); }},
        {"neighbor", [](auto& a) { a.setModeChangeNeighborRequired(true); }},
        {"crc", [](auto& a) { a.setCrcModeSupport(true); }},
        {"robust sorting", [](auto& a) { a.setRobustSortingModeSupport(true); }},
        {"interleaving", [](auto& a) { a.setInterleavingModeSupport(true); }},
    };
    // Redundancy off: the maximum reads -1, yet the stored one still counts. A rate added
    // again succeeds and is kept once, where it was (else the refill below misses one).
    AmrCodecCapabilities original;
    original.setRdcyModeSupport(false);
    EXPECT_EQ(-1, original.getMaxSupportedRdcy());
    for (AmrRate rate : {AmrRate2, AmrRate3, AmrRate2}) EXPECT_EQ(1000, original.addSupportedAmrRate(rate).getCode());
    for (const auto& [name, apply] : changes) {
        SCOPED_TRACE(name);
        AmrCodecCapabilities changed = original;
        apply(changed);
        EXPECT_FALSE(static_cast<const CodecCapabilities&>(original) == changed);
        EXPECT_TRUE(changed != original);
        EXPECT_TRUE(changed == *std::unique_ptr<CodecCapabilities>(changed.clone()));
        AmrCodecCapabilities assigned;
        (assigned = changed).clearSupportedAmrRateVector();
        EXPECT_EQ(0U, assigned.getSupportedAmrRateCount());
        // Read in order; past the end reads -1, which is refused.
        for (size_t i = 0; i < 3; ++i) assigned.addSupportedAmrRate(changed.getSupportedAmrRate(i));
        EXPECT_TRUE(assigned == changed);
    }
}

TEST(AmrCodecCapabilitiesTest, RefusedSettersLeaveTheObjectUnchangedWhileZeroAndOneAreAccepted) {
    const std::pair<const char*, AmrCodecCapabilities::Result (*)(AmrCodecCapabilities&)> refusals[] = {
        {"Bad amr rate: 9", [](auto& a) { return a.addSupportedAmrRate(AmrRate(9)); }},
        {"Bad mode change period: 2", [](auto& a) { return a.setModeChangePeriod(ModeChangePeriod(2)); }},
        {"Bad mode change capability: -1", [](auto& a) { return a.setModeChangeCapability(ModeChangeCapability(-1)); }},
    };
    AmrCodecCapabilities amr;
    for (const auto& [message, apply] : refusals) {
        EXPECT_EQ(std::string("Invalid Param (Code 1002): ") + message, apply(amr).format());
        EXPECT_TRUE(amr == AmrCodecCapabilities()) << message;
    }
    // Period 0 and capability 1 come last: the defaults again.
    for (int value : {1, 0}) EXPECT_EQ(1000, amr.setModeChangePeriod(ModeChangePeriod(value)).getCode()) << value;
    for (int value : {0, 1}) EXPECT_EQ(1000, amr.setModeChangeCapability(ModeChangeCapability(value)).getCode());
    EXPECT_TRUE(amr == AmrCodecCapabilities());
    EXPECT_EQ(220, amr.getMaxSupportedRdcy());
}

// Capabilities of a derived AMR implementation compare by their AMR fields from either
// side; a DTMF object relabelled AMR through the base assignment is never taken for AMR.
TEST(AmrCodecCapabilitiesTest, EqualityHoldsBothWaysForDerivedAndNeverReadsOtherTypesAsAmr) {
    struct DerivedAmr : AmrCodecCapabilities {
        CodecCapabilities* clone() const noexcept override { return new DerivedAmr(*this); }
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
