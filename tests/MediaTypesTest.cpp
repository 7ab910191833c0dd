#include "MediaTypes.h"

#include <gtest/gtest.h>

namespace {

using namespace tessel::rva;

TEST(MediaTypesTest, ValidityDescriptionsAndRatesWithTheirFallbacks) {
    const struct {
        int value;
        bool valid;  // codec id, band type, mode-change period and capability
        bool amrRate;
        const char* codec;
        const char* band;
        unsigned int rate;
    } rows[] = {
        {0, true, true, "AMR", "8kHz", 8000},
        {1, true, true, "DTMF", "16kHz", 16000},
        {2, false, true, "Unknown codec", "Uknown band type", 0},
        {8, false, true, "Unknown codec", "Uknown band type", 0},
        {9, false, false, "Unknown codec", "Uknown band type", 0},
        {-1, false, false, "Unknown codec", "Uknown band type", 0},
        {-2147483647 - 1, false, false, "Unknown codec", "Uknown band type", 0},
    };
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
    }
}

TEST(MediaTypesTest, OnlyExactSamplingRatesMapToABand) {
    EXPECT_EQ(BandTypeNb, getSamplingRateBandType(8000));
    EXPECT_EQ(BandTypeWb, getSamplingRateBandType(16000));
    for (unsigned int rate : {0U, 7999U, 8001U, 44100U, 4294967295U}) {
        EXPECT_EQ(-10, getSamplingRateBandType(rate)) << rate;
    }
}

TEST(MediaTypesTest, PublishedNamesKeepTheirSizes) {
    static_assert(sizeof BandTypeConverter::mNb == 12 && sizeof BandTypeConverter::mWb == 10, "band names");
    static_assert(sizeof RtpProfileConverter::mAvp == 4 && sizeof RtpProfileConverter::mAvpf == 5, "profile names");
    EXPECT_STREQ("Narrow Band", BandTypeConverter::mNb);
    EXPECT_STREQ("Wide Band", BandTypeConverter::mWb);
    EXPECT_STREQ("AVP", RtpProfileConverter::mAvp);
    EXPECT_STREQ("AVPF", RtpProfileConverter::mAvpf);
}

}  // namespace
