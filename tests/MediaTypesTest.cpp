#include "MediaTypes.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using namespace tessel::rva;

TEST(MediaTypesTest, ValidityTestsCompareAsUnsigned) {
    const struct {
        int value;
        bool codecOrBandOrModeChange;
        bool amrRate;
    } rows[] = {{-1, false, false}, {0, true, true},  {1, true, true},   {2, false, true},
                {7, false, true},   {8, false, true}, {9, false, false}, {-2147483647 - 1, false, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        EXPECT_EQ(row.codecOrBandOrModeChange, isCodecIdValid(static_cast<CodecId>(row.value)));
        EXPECT_EQ(row.codecOrBandOrModeChange, isBandTypeValid(static_cast<BandType>(row.value)));
        EXPECT_EQ(row.codecOrBandOrModeChange, isModeChangePeriodValid(static_cast<ModeChangePeriod>(row.value)));
        EXPECT_EQ(row.codecOrBandOrModeChange,
                  isModeChangeCapabilityValid(static_cast<ModeChangeCapability>(row.value)));
        EXPECT_EQ(row.amrRate, isAmrRateValid(static_cast<AmrRate>(row.value)));
    }
}

TEST(MediaTypesTest, DescriptionsAndRatesWithTheirFallbacks) {
    const struct {
        int value;
        const char* codec;
        const char* band;
        unsigned int rate;
    } rows[] = {
        {0, "AMR", "8kHz", 8000},
        {1, "DTMF", "16kHz", 16000},
        {2, "Unknown codec", "Uknown band type", 0},
        {-1, "Unknown codec", "Uknown band type", 0},
        {-10, "Unknown codec", "Uknown band type", 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        EXPECT_STREQ(row.codec, getCodecIdDescription(static_cast<CodecId>(row.value)));
        EXPECT_STREQ(row.band, getBandTypeDescription(static_cast<BandType>(row.value)));
        EXPECT_EQ(row.rate, getBandTypeSamplingRate(static_cast<BandType>(row.value)));
    }
}

TEST(MediaTypesTest, OnlyExactSamplingRatesMapToABand) {
    EXPECT_EQ(BandTypeNb, getSamplingRateBandType(getBandTypeSamplingRate(BandTypeNb)));
    EXPECT_EQ(BandTypeWb, getSamplingRateBandType(getBandTypeSamplingRate(BandTypeWb)));
    for (unsigned int rate : {0U, 7999U, 8001U, 15999U, 44100U, 4294967295U}) {
        SCOPED_TRACE(rate);
        const BandType band = getSamplingRateBandType(rate);
        EXPECT_EQ(-10, band);
        EXPECT_FALSE(isBandTypeValid(band));
        EXPECT_STREQ("Uknown band type", getBandTypeDescription(band));
    }
}

TEST(MediaTypesTest, PublishedNamesAndProfileNumbers) {
    EXPECT_EQ(12U, sizeof BandTypeConverter::mNb);
    EXPECT_EQ(10U, sizeof BandTypeConverter::mWb);
    EXPECT_EQ(4U, sizeof RtpProfileConverter::mAvp);
    EXPECT_EQ(5U, sizeof RtpProfileConverter::mAvpf);
    EXPECT_STREQ("Narrow Band", BandTypeConverter::mNb);
    EXPECT_STREQ("Wide Band", BandTypeConverter::mWb);
    EXPECT_STREQ("AVP", RtpProfileConverter::mAvp);
    EXPECT_STREQ("AVPF", RtpProfileConverter::mAvpf);
    EXPECT_EQ(3551, RtpProfileAvp);
    EXPECT_NE(RtpProfileAvp, RtpProfileAvpf);
}

}  // namespace
