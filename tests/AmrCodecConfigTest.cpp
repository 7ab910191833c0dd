#include "AmrCodecConfig.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "Counted.h"
#include "DtmfCodecConfig.h"
#include "ExpectAbort.h"
#include "LogCapture.h"
#include "StreamConfig.h"

namespace tessel::rva::tests {

// A configuration on `band` holding `rates`, each accepted by addAmrRate.
AmrCodecConfig withRates(BandType band, const std::vector<int>& rates) {
    AmrCodecConfig config;
    EXPECT_TRUE(config.setBandType(band).isSuccess());
    for (const int rate : rates) EXPECT_TRUE(config.addAmrRate(static_cast<AmrRate>(rate)).isSuccess());
    return config;
}

// Rates added from the least preferred up: each new one is the preferred rate, so the
// whole ranking of the band shows.
TEST(AmrCodecConfigTest, PreferredRateCheckAddAmrRateAndTextOfEveryField) {
    const std::vector<int> rankings[] = {{6, 5, 3, 1, 0, 2, 4, 7}, {8, 7, 6, 5, 4, 3, 0, 1, 2}};
    for (const BandType band : {BandTypeNb, BandTypeWb}) {
        AmrCodecConfig config = withRates(band, {});
        for (const int rate : rankings[band]) {
            ASSERT_TRUE(config.addAmrRate(static_cast<AmrRate>(rate)).isSuccess());
            EXPECT_EQ(rate, config.getPreferedAmrRate()) << "band " << band;
        }
    }
    EXPECT_EQ(AmrRate8, withRates(BandTypeNb, {8}).getPreferedAmrRate());  // alone, so never compared
    // An empty list, or an index past its end, reads as "no rate": all bits set.
    EXPECT_EQ(static_cast<AmrRate>(0xFFFFFFFF), AmrCodecConfig().getPreferedAmrRate());

    const std::string bad = "Invalid Configuration (Code 1003): ";
    EXPECT_EQ(bad + "Amr rate list is empty.", AmrCodecConfig().check().format());
    EXPECT_EQ(bad + "Invalid rate: 8", withRates(BandTypeNb, {0, 8, 7}).check().format());
    AmrCodecConfig config = withRates(BandTypeNb, {8});
    config.setPacketTime(0);
    EXPECT_EQ(bad + "Packet time must be greater than 0", config.check().format());

    config = withRates(BandTypeWb, {7, 2, 7});
    EXPECT_EQ("Success", config.check().format());
    EXPECT_EQ("Invalid Param (Code 1002): Bad amr rate: 9", config.addAmrRate(static_cast<AmrRate>(9)).format());
    EXPECT_EQ(static_cast<AmrRate>(0xFFFFFFFF), config.getAmrRate(2));
    EXPECT_EQ(
        "    Codec: AMR (0)\n    BandType: 16kHz (1)\n    PayloadType: 98\n    PacketTime: 20\n    MaxPacketTime: 240\n"
        "    OctetAlignEnabled: 0\n    DtxModeEnabled: 1\n    RdcyEnabled: 0\n    MaxRdcy: 1\n    RateCount: 2\n"
        "    Rates: 7 2 \n    CrcEnabled: 0\n    RobustSortingEnabled: 0\n    InterleavingEnabled: 0\n"
        "    ModeChangeNeighborEnabled: 0\n    ModeChangePeriod: 0\n",
        config.toString());
    config.setModeChangePeriod(ModeChangePeriodTwoFrames);
    EXPECT_EQ(ModeChangePeriodTwoFrames, config.getModeChangePeriod());
}

// Each row changes fields of a configuration with rates. Copies carry the change and
// stream equality, exact and silent, always sees it; the codec's own equality sees it
// unless the field takes no part there, and it warns whenever the rate lists differ,
// unless codec, band or payload type differ already. An object of another codec class
// relabelled AMR is never read as AMR; a derived one compares equal.
TEST(AmrCodecConfigTest, EveryFieldIsCopiedAndCountsInStreamEqualityButNotAllInTheCodecs) {
    const std::tuple<const char*, void (*)(AmrCodecConfig&), bool, bool> rows[] = {
        // codec ignores it, warns
        {"band type", [](AmrCodecConfig& c) { c.setBandType(BandTypeNb); }, false, false},
        {"payload type", [](AmrCodecConfig& c) { c.setPayloadType(97); }, false, false},
        {"packet time", [](AmrCodecConfig& c) { c.setPacketTime(40); }, true, false},
        {"max packet time", [](AmrCodecConfig& c) { c.setMaxPacketTime(60); }, true, false},
        {"octet align", [](AmrCodecConfig& c) { c.setOctetAlignMode(true); }, false, false},
        {"dtx", [](AmrCodecConfig& c) { c.setDTXMode(false); }, false, false},
        {"rdcy", [](AmrCodecConfig& c) { c.setRdcyMode(true); }, false, false},
        {"max rdcy", [](AmrCodecConfig& c) { c.setMaxRdcy(3); }, false, false},
        {"crc", [](AmrCodecConfig& c) { c.setCrcMode(true); }, false, false},
        {"robust sorting", [](AmrCodecConfig& c) { c.setRobustSortingMode(true); }, false, false},
        {"interleaving", [](AmrCodecConfig& c) { c.setInterleavingMode(true); }, false, false},
        {"neighbor", [](AmrCodecConfig& c) { c.setModeChangeNeighbor(true); }, true, false},
        {"period", [](AmrCodecConfig& c) { c.setModeChangePeriod(ModeChangePeriodTwoFrames); }, true, false},
        {"rate order",
         [](AmrCodecConfig& c) { c.clearAmrRateVector(), c.addAmrRate(AmrRate0), c.addAmrRate(AmrRate2); }, true, true},
        {"dtx, rates", [](AmrCodecConfig& c) { c.setDTXMode(false), c.addAmrRate(AmrRate7); }, false, true},
        {"payload type, rates", [](AmrCodecConfig& c) { c.setPayloadType(97), c.addAmrRate(AmrRate7); }, false, false},
    };
    const auto uplinkOf = [](const CodecConfig& codec) {
        StreamConfig stream;
        EXPECT_TRUE(stream.addUplinkCodec(codec).isSuccess() && stream.addUplinkCodec(DtmfCodecConfig()).isSuccess());
        return stream;
    };
    const AmrCodecConfig reference = withRates(BandTypeWb, {2, 0});
    const StreamConfig stream = uplinkOf(reference);
    EXPECT_TRUE(stream == uplinkOf(reference));
    for (const auto& [field, change, codecIgnores, warns] : rows) {
        SCOPED_TRACE(field);
        AmrCodecConfig changed(reference);
        change(changed);
        rvatest::AndroidLogCapture android;
        testing::internal::CaptureStderr();
        EXPECT_TRUE(stream != uplinkOf(changed) && !(uplinkOf(changed) == stream));
        EXPECT_EQ(codecIgnores, reference == changed);
        testing::internal::GetCapturedStderr();
        EXPECT_EQ(warns ? 3 : 0, std::count(android.text.begin(), android.text.end(), '\n'));
        AmrCodecConfig assigned = withRates(BandTypeNb, {7});
        assigned = changed;
        assigned = static_cast<const AmrCodecConfig&>(assigned);
        EXPECT_EQ(changed.toString(), assigned.toString());
        EXPECT_EQ(changed.toString(), std::unique_ptr<CodecConfig>(changed.clone())->toString());
    }
    const rvatest::Counted<AmrCodecConfig, CodecConfig> derived;
    EXPECT_TRUE(AmrCodecConfig() == derived && derived == AmrCodecConfig());
    DtmfCodecConfig relabelled;
    static_cast<CodecConfig&>(relabelled) = AmrCodecConfig();
    EXPECT_FALSE(AmrCodecConfig() == relabelled);
    // The three warnings go each to the Android log before standard error.
    rvatest::AndroidLogCapture android;
    testing::internal::CaptureStderr();
    EXPECT_TRUE(withRates(BandTypeWb, {0, 2}) == withRates(BandTypeWb, {2, 0}));
    EXPECT_EQ(
        "W/ORVA Input AMR rates do not match; You may experience some wrong behaviour\n"
        "W/ORVA Expected rates are: 0 2 \nW/ORVA Input rates are: 2 0 \n",
        testing::internal::GetCapturedStderr());
    EXPECT_EQ(
        "5 ORVA: Input AMR rates do not match; You may experience some wrong behaviour @0\n"
        "5 ORVA: Expected rates are: 0 2  @77\n5 ORVA: Input rates are: 2 0  @109\n",
        android.text);
}

TEST(AmrCodecConfigDeathTest, ARateWithoutRankInTheBandAborts) {
    const std::string kNoRank = "F/TESSEL .*Assertion it != mRatesRanks\\.end\\(\\) failed: Invalid AMR mode:";
    EXPECT_ABORT(withRates(BandTypeNb, {7, 8}).getPreferedAmrRate(), kNoRank + "8 for band 8kHz\n");
    EXPECT_ABORT(AmrCodecConfig::AmrRatePreferenceComparator<BandTypeWb>()(static_cast<AmrRate>(9), AmrRate2),
                 kNoRank + "9 for band 16kHz\n");
}

}  // namespace tessel::rva::tests
