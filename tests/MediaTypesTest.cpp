#include "MediaTypes.h"

#include <gtest/gtest.h>

namespace tessel::rva::tests {

TEST(MediaTypesTest, ValidityDescriptionsAndRatesWithTheirFallbacks) {
    const struct {
        int value;
        bool valid, amrRate;  // valid: codec id, band type, mode-change period and capability
        const char *codec, *band;
        unsigned int rate;
    } rows[] = {{0, true, true, "AMR", "8kHz", 8000},
                {1, true, true, "DTMF", "16kHz", 16000},
                {2, false, true, "Unknown codec", "Uknown band type", 0},
                {8, false, true, "Unknown codec", "Uknown band type", 0},
                {9, false, false, "Unknown codec", "Uknown band type", 0},
                {-1, false, false, "Unknown codec", "Uknown band type", 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        EXPECT_EQ(row.valid, isCodecIdValid(static_cast<CodecId>(row.value)));
        EXPECT_EQ(row.valid, isBandTypeValid(static_cast<BandType>(row.value)));
        EXPECT_EQ(row.valid, isModeChangePeriodValid(static_cast<ModeChangePeriod>(row.value)));
        EXPECT_EQ(row.valid, isModeChangeCapabilityValid(static_cast<ModeChangeCapability>(row.value)));
        EXPECT_EQ(row.amrRate, isAmrRateValid(static_cast<AmrRate>(row.value)));
        EXPECT_STREQ(row.codec, getCodecIdDescription(static_cast<CodecId>(row.value)));
        EXPECT_STREQ(row.band, getBandTypeDescription(static_cast<BandType>(row.value)));
        EXPECT_EQ(row.rate, getBandTypeSamplingRate(static_cast<BandType>(row.value)));
        EXPECT_EQ(row.rate != 0 ? row.value : -10, getSamplingRateBandType(row.rate == 0 ? 8001 : row.rate));
    }
}

}  // namespace tessel::rva::tests
