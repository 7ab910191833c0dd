#include "MediaTypes.h"

#include <gtest/gtest.h>

#include "Dtmf.h"

namespace {

using namespace tessel::rva;

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

// The key of each character is the telephone-event code a caller sends on the wire.
TEST(MediaTypesTest, DtmfKeyCharactersGiveTheirEventCodesAndOthersLeaveTheKeyUntouched) {
    const char characters[] = "0123456789*#ABCD";
    const Dtmf::Key keys[] = {Dtmf::Key0, Dtmf::Key1, Dtmf::Key2, Dtmf::Key3, Dtmf::Key4,    Dtmf::Key5,
                              Dtmf::Key6, Dtmf::Key7, Dtmf::Key8, Dtmf::Key9, Dtmf::KeyStar, Dtmf::KeyHash,
                              Dtmf::KeyA, Dtmf::KeyB, Dtmf::KeyC, Dtmf::KeyD};
    for (int code = 0; code < 16; ++code) {
        Dtmf::Key key = static_cast<Dtmf::Key>(-1);
        EXPECT_TRUE(Dtmf::getDtmfKeyFromChar(characters[code], key)) << characters[code];
        EXPECT_TRUE(key == code && keys[code] == code) << characters[code];
    }
    for (char character : {'a', 'd', 'E', '\0', '\xff'}) {
        Dtmf::Key key = Dtmf::KeyHash;
        EXPECT_FALSE(Dtmf::getDtmfKeyFromChar(character, key) || key != Dtmf::KeyHash) << static_cast<int>(character);
    }
}

}  // namespace
