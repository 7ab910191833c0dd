#include "AmrCodecConfig.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "Counted.h"
#include "DtmfCodecConfig.h"
#include "ExpectAbort.h"
#include "LogCapture.h"

namespace {

using namespace tessel::rva;

// A configuration on `band` holding `rates`, each accepted by addAmrRate.
AmrCodecConfig withRates(BandType band, const std::vector<int>& rates) {
    AmrCodecConfig config;
    EXPECT_TRUE(config.setBandType(band).isSuccess());
    for (const int rate : rates) EXPECT_TRUE(config.addAmrRate(static_cast<AmrRate>(rate)).isSuccess());
    return config;
}

// Every pair of rates of a band, both ways round, and the preferred rate of each pair.
TEST(AmrCodecConfigTest, ComparatorAndPreferedRateFollowTheRankingOfTheBand) {
    const auto expectRanking = [](BandType band, const auto& isBefore, const std::vector<int>& order) {
        for (size_t i = 0; i < order.size(); ++i) {
            for (size_t j = 0; j < order.size(); ++j) {
                SCOPED_TRACE(testing::Message() << "band " << band << ": " << order[i] << " vs " << order[j]);
                EXPECT_EQ(i < j, isBefore(static_cast<AmrRate>(order[i]), static_cast<AmrRate>(order[j])));
                EXPECT_EQ(order[i < j ? i : j], withRates(band, {order[i], order[j]}).getPreferedAmrRate());
            }
        }
    };
    expectRanking(BandTypeNb, AmrCodecConfig::AmrRatePreferenceComparator<BandTypeNb>(), {7, 4, 2, 0, 1, 3, 5, 6});
    expectRanking(BandTypeWb, AmrCodecConfig::AmrRatePreferenceComparator<BandTypeWb>(), {2, 1, 0, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(AmrRate8, withRates(BandTypeNb, {8}).getPreferedAmrRate());  // alone, so never compared
}

TEST(AmrCodecConfigTest, CheckReportsTheBaseFailureOrTheFirstBadRate) {
    const std::string bad = "Invalid Configuration (Code 1003): ";
    EXPECT_EQ(bad + "Amr rate list is empty.", AmrCodecConfig().check().format());
    EXPECT_EQ(bad + "Invalid rate: 8", withRates(BandTypeNb, {0, 8, 7}).check().format());
    EXPECT_EQ("Success", withRates(BandTypeWb, {0, 8, 7}).check().format());
    AmrCodecConfig config = withRates(BandTypeNb, {8});
    config.setPacketTime(0);
    EXPECT_EQ(bad + "Packet time must be greater than 0", config.check().format());
}

TEST(AmrCodecConfigTest, AddAmrRateKeepsEachValidRateOnceAndToStringPrintsEveryField) {
    AmrCodecConfig config = withRates(BandTypeWb, {7, 2, 7});
    EXPECT_EQ("Invalid Param (Code 1002): Bad amr rate: 9", config.addAmrRate(static_cast<AmrRate>(9)).format());
    EXPECT_EQ(
        "    Codec: AMR (0)\n    BandType: 16kHz (1)\n    PayloadType: 98\n"
        "    PacketTime: 20\n    MaxPacketTime: 240\n"
        "    OctetAlignEnabled: 0\n    DtxModeEnabled: 1\n    RdcyEnabled: 0\n    MaxRdcy: 1\n"
        "    RateCount: 2\n    Rates: 7 2 \n    CrcEnabled: 0\n"
        "    RobustSortingEnabled: 0\n    InterleavingEnabled: 0\n"
        "    ModeChangeNeighborEnabled: 0\n    ModeChangePeriod: 0\n",
        config.toString());
}

// Each row changes one field of a default configuration with rates; every copy must carry
// the change, and equality must see it unless the field takes no part in it.
TEST(AmrCodecConfigTest, EqualityComparesOneFieldAtATimeAndCopiesCarryEveryField) {
    const struct {
        const char* field;
        void (*change)(AmrCodecConfig&);
        bool ignored;
    } rows[] = {
        {"band type", [](AmrCodecConfig& c) { c.setBandType(BandTypeNb); }, false},
        {"payload type", [](AmrCodecConfig& c) { c.setPayloadType(99); }, false},
        {"packet time", [](AmrCodecConfig& c) { c.setPacketTime(40); }, true},
        {"max packet time", [](AmrCodecConfig& c) { c.setMaxPacketTime(60); }, true},
        {"octet align", [](AmrCodecConfig& c) { c.setOctetAlignMode(true); }, false},
        {"dtx", [](AmrCodecConfig& c) { c.setDTXMode(false); }, false},
        {"rdcy", [](AmrCodecConfig& c) { c.setRdcyMode(true); }, false},
        {"max rdcy", [](AmrCodecConfig& c) { c.setMaxRdcy(3); }, false},
        {"crc", [](AmrCodecConfig& c) { c.setCrcMode(true); }, false},
        {"robust sorting", [](AmrCodecConfig& c) { c.setRobustSortingMode(true); }, false},
        {"interleaving", [](AmrCodecConfig& c) { c.setInterleavingMode(true); }, false},
        {"mode change neighbor", [](AmrCodecConfig& c) { c.setModeChangeNeighbor(true); }, true},
        {"mode change period", [](AmrCodecConfig& c) { c.setModeChangePeriod(ModeChangePeriodTwoFrames); }, true},
    };
    const AmrCodecConfig reference = withRates(BandTypeWb, {2, 0});
    for (const auto& row : rows) {
        SCOPED_TRACE(row.field);
        AmrCodecConfig changed(reference);
        row.change(changed);
        EXPECT_EQ(row.ignored, reference == changed);

        AmrCodecConfig assigned = withRates(BandTypeNb, {7});
        assigned = changed;
        assigned = static_cast<const AmrCodecConfig&>(assigned);
        EXPECT_EQ(changed.toString(), assigned.toString());
        EXPECT_EQ(changed.toString(), std::unique_ptr<CodecConfig>(changed.clone())->toString());
    }
}

// A DTMF object given the AMR codec id, band and payload type through the base
// assignment is never read as an AMR configuration; a derived AMR one (Counted serves as
// any subclass here) compares equal both ways.
TEST(AmrCodecConfigTest, EqualityNeverReadsAnotherCodecTypeAsAmr) {
    const AmrCodecConfig amr;
    const rvatest::Counted<AmrCodecConfig, CodecConfig> derived;
    EXPECT_TRUE(amr == derived);
    EXPECT_TRUE(derived == amr);

    DtmfCodecConfig relabelled;
    static_cast<CodecConfig&>(relabelled) = amr;
    ASSERT_EQ(CodecIdAmr, relabelled.getCodecId());
    EXPECT_FALSE(amr == relabelled);
}

// Differing rate lists leave the result alone but log three warnings, each to the Android
// log before standard error; a difference found earlier returns before any log.
TEST(AmrCodecConfigTest, DifferentRateListsOnlyWarnAndroidLogFirst) {
    const AmrCodecConfig expected = withRates(BandTypeWb, {0, 2});
    AmrCodecConfig input = withRates(BandTypeWb, {2, 0});
    const std::string lines[] = {"Input AMR rates do not match; You may experience some wrong behaviour",
                                 "Expected rates are: 0 2 ", "Input rates are: 2 0 "};
    rvatest::AndroidLogCapture android;
    rvatest::StderrCapture stderrCapture;
    EXPECT_TRUE(expected == input);
    input.setPayloadType(99);
    EXPECT_FALSE(expected == input);
    ASSERT_EQ(3U, android.all().size());
    std::string written;
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ("ORVA", android.all()[i].tag);
        EXPECT_EQ(lines[i], android.all()[i].message);
        EXPECT_EQ(static_cast<long>(written.size()), android.all()[i].stderrBytesBefore);
        written += "W/ORVA " + lines[i] + "\n";
    }
    EXPECT_EQ(written, stderrCapture.text());
}

TEST(AmrCodecConfigDeathTest, ARateWithoutRankInTheBandAbortsAsEitherOperand) {
    const std::string kNoRank = "F/TESSEL .*Assertion it != mRatesRanks\\.end\\(\\) failed: Invalid AMR mode:";
    const AmrCodecConfig::AmrRatePreferenceComparator<BandTypeNb> narrow;
    EXPECT_ABORT(narrow(AmrRate8, AmrRate7), kNoRank + "8 for band 8kHz\n");
    EXPECT_ABORT(narrow(AmrRate7, AmrRate8), kNoRank + "8 for band 8kHz\n");
    EXPECT_ABORT(AmrCodecConfig::AmrRatePreferenceComparator<BandTypeWb>()(static_cast<AmrRate>(9), AmrRate2),
                 kNoRank + "9 for band 16kHz\n");
    EXPECT_ABORT(withRates(BandTypeNb, {8, 7}).getPreferedAmrRate(), kNoRank + "8 for band 8kHz\n");
}

}  // namespace
