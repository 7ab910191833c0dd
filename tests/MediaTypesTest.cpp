#include "MediaTypes.h"

#include <gtest/gtest.h>

#include <tuple>

namespace tessel::rva::tests {

TEST(MediaTypesTest, ValidityDescriptionsAndRatesWithTheirFallbacks) {
    // Value; valid as codec id, band type, mode-change period and capability; valid as AMR
    // rate; codec and band descriptions; sampling rate of the band.
    const std::tuple<int, bool, bool, const char*, const char*, unsigned int> rows[] = {
        {0, true, true, "AMR", "8kHz", 8000},
        {1, true, true, "DTMF", "16kHz", 16000},
        {2, false, true, "Unknown codec", "Uknown band type", 0},
        {8, false, true, "Unknown codec", "Uknown band type", 0},
        {9, false, false, "Unknown codec", "Uknown band type", 0},
        {-1, false, false, "Unknown codec", "Uknown band type", 0}};
    for (const auto& [value, valid, amrRate, codec, band, rate] : rows) {
        SCOPED_TRACE(value);
        EXPECT_EQ(valid, isCodecIdValid(static_cast<CodecId>(value)));
        EXPECT_EQ(valid, isBandTypeValid(static_cast<BandType>(value)));
        EXPECT_EQ(valid, isModeChangePeriodValid(static_cast<ModeChangePeriod>(value)));
        EXPECT_EQ(valid, isModeChangeCapabilityValid(static_cast<ModeChangeCapability>(value)));
        EXPECT_EQ(amrRate, isAmrRateValid(static_cast<AmrRate>(value)));
        EXPECT_STREQ(codec, getCodecIdDescription(static_cast<CodecId>(value)));
        EXPECT_STREQ(band, getBandTypeDescription(static_cast<BandType>(value)));
        EXPECT_EQ(rate, getBandTypeSamplingRate(static_cast<BandType>(value)));
        EXPECT_EQ(rate != 0 ? value : -10, getSamplingRateBandType(rate == 0 ? 8001 : rate));
    }
}

}  // namespace tessel::rva::tests
