#include "AmrCodecConfig.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "DtmfCodecConfig.h"
#include "LogCapture.h"

namespace {

using tessel::rva::AmrCodecConfig;
using tessel::rva::AmrRate;
using tessel::rva::BandType;
using tessel::rva::BandTypeNb;
using tessel::rva::BandTypeWb;
using tessel::rva::CodecConfig;
using tessel::rva::DtmfCodecConfig;
using tessel::rva::ModeChangePeriodTwoFrames;

typedef AmrCodecConfig::AmrRatePreferenceComparator<BandTypeNb> NarrowBandComparator;
typedef AmrCodecConfig::AmrRatePreferenceComparator<BandTypeWb> WideBandComparator;

const std::uint32_t kAbsentRate = 0xFFFFFFFFU;

std::vector<AmrRate> rates(const std::vector<int>& values) {
    std::vector<AmrRate> result;
    for (const int value : values) {
        result.push_back(static_cast<AmrRate>(value));
    }
    return result;
}

// A configuration on `band` holding `values`, each accepted by addAmrRate.
AmrCodecConfig withRates(BandType band, const std::vector<int>& values) {
    AmrCodecConfig config;
    EXPECT_TRUE(config.setBandType(band).isSuccess());
    for (const AmrRate rate : rates(values)) {
        EXPECT_TRUE(config.addAmrRate(rate).isSuccess());
    }
    return config;
}

// Every pair of rates compares as their positions in `order`; a rate is never before itself.
template <typename Comparator>
void expectPreferenceOrder(const std::vector<AmrRate>& order) {
    const Comparator comparator;
    for (size_t i = 0; i < order.size(); ++i) {
        for (size_t j = 0; j < order.size(); ++j) {
            SCOPED_TRACE(std::to_string(order.size()) + " rates: " + std::to_string(order[i]) + " vs " +
                         std::to_string(order[j]));
            EXPECT_EQ(i < j, comparator(order[i], order[j]));
        }
    }
}

TEST(AmrCodecConfigTest, ComparatorRanksEveryRateOfTheBand) {
    expectPreferenceOrder<NarrowBandComparator>(rates({7, 4, 2, 0, 1, 3, 5, 6}));
    expectPreferenceOrder<WideBandComparator>(rates({2, 1, 0, 3, 4, 5, 6, 7, 8}));
}

TEST(AmrCodecConfigTest, CheckReportsTheFirstFailingRuleOnly) {
    const struct {
        const char* name;
        BandType band;
        std::vector<int> rates;
        unsigned int packetTime;
        const char* expected;
    } rows[] = {
        {"no rates", BandTypeWb, {}, 20, "Invalid Configuration (Code 1003): Amr rate list is empty."},
        {"base failure first", BandTypeWb, {}, 0,
         "Invalid Configuration (Code 1003): Packet time must be greater than 0"},
        {"base failure hides rate 8", BandTypeNb, {8}, 300,
         "Invalid Configuration (Code 1003): Packet time '300' must be lesser or equal than max packet time '240'"},
        {"8 alone in narrow band", BandTypeNb, {8}, 20, "Invalid Configuration (Code 1003): Invalid rate: 8"},
        {"only the first bad rate", BandTypeNb, {0, 8, 7}, 20, "Invalid Configuration (Code 1003): Invalid rate: 8"},
        {"8 in wide band", BandTypeWb, {0, 8, 7}, 20, "Success"},
        {"narrow band rates", BandTypeNb, {0, 1, 2, 3, 4, 5, 6, 7}, 20, "Success"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        AmrCodecConfig config = withRates(row.band, row.rates);
        config.setPacketTime(row.packetTime);
        EXPECT_EQ(row.expected, config.check().format());
    }
}

TEST(AmrCodecConfigTest, AddAmrRateKeepsEachValidRateOnceAndRefusesOthers) {
    AmrCodecConfig config = withRates(BandTypeNb, {3});
    EXPECT_EQ("Invalid Param (Code 1002): Bad amr rate: 9", config.addAmrRate(static_cast<AmrRate>(9)).format());
    EXPECT_EQ("Invalid Param (Code 1002): Bad amr rate: -1", config.addAmrRate(static_cast<AmrRate>(-1)).format());
    EXPECT_EQ("Success", config.addAmrRate(static_cast<AmrRate>(3)).format());
    EXPECT_EQ("Success", config.addAmrRate(static_cast<AmrRate>(8)).format());  // the band is not consulted
    EXPECT_EQ(rates({3, 8}), config.getSupportedAmrRates());

    EXPECT_EQ(kAbsentRate, static_cast<std::uint32_t>(config.getAmrRate(config.getAmrRateCount())));
    config.clearAmrRateVector();
    EXPECT_EQ(kAbsentRate, static_cast<std::uint32_t>(config.getAmrRate(0)));
    EXPECT_EQ(kAbsentRate, static_cast<std::uint32_t>(config.getPreferedAmrRate()));
}

TEST(AmrCodecConfigTest, PreferedRateFollowsTheRankingOfTheBand) {
    const struct {
        BandType band;
        std::vector<int> rates;
        int expected;
    } rows[] = {
        {BandTypeNb, {0, 2, 4, 7}, 7}, {BandTypeNb, {5, 6}, 5}, {BandTypeNb, {6, 7}, 7}, {BandTypeNb, {8}, 8},
        {BandTypeWb, {0, 1, 2, 8}, 2}, {BandTypeWb, {8, 3}, 3}, {BandTypeWb, {8, 7}, 7}, {BandTypeWb, {7}, 7},
    };
    for (const auto& row : rows) {
        AmrCodecConfig config = withRates(row.band, row.rates);
        SCOPED_TRACE(config.toString());
        EXPECT_EQ(row.expected, config.getPreferedAmrRate());
    }
}

// Every field differs from its default; the generic part comes from a DTMF configuration.
AmrCodecConfig unusualConfig() {
    DtmfCodecConfig dtmf;
    EXPECT_TRUE(dtmf.setBandType(BandTypeNb).isSuccess());
    dtmf.setPayloadType(101);
    dtmf.setPacketTime(30);
    dtmf.setMaxPacketTime(60);
    AmrCodecConfig config = withRates(BandTypeWb, {7, 2});
    static_cast<CodecConfig&>(config) = dtmf;
    config.setOctetAlignMode(true);
    config.setDTXMode(false);
    config.setRdcyMode(true);
    config.setMaxRdcy(3);
    config.setCrcMode(true);
    config.setRobustSortingMode(true);
    config.setInterleavingMode(true);
    config.setModeChangeNeighbor(true);
    config.setModeChangePeriod(ModeChangePeriodTwoFrames);
    return config;
}

TEST(AmrCodecConfigTest, CopiesAndClonesHoldEveryFieldAndAreIndependent) {
    const AmrCodecConfig source = unusualConfig();
    const std::string text = source.toString();
    ASSERT_NE(std::string::npos, text.find("    Codec: DTMF (1)\n"));

    const AmrCodecConfig copy(source);
    EXPECT_EQ(text, copy.toString());

    AmrCodecConfig assigned = withRates(BandTypeWb, {0, 1, 3, 4});
    assigned = source;
    EXPECT_EQ(text, assigned.toString());
    const AmrCodecConfig& alias = assigned;
    assigned = alias;
    EXPECT_EQ(text, assigned.toString());

    std::unique_ptr<CodecConfig> clone(source.clone());
    ASSERT_NE(&source, clone.get());
    AmrCodecConfig* amrClone = dynamic_cast<AmrCodecConfig*>(clone.get());
    ASSERT_NE(nullptr, amrClone);
    EXPECT_EQ(text, clone->toString());
    EXPECT_TRUE(*clone == source);

    amrClone->addAmrRate(static_cast<AmrRate>(0));
    amrClone->setOctetAlignMode(false);
    amrClone->setPayloadType(102);
    EXPECT_EQ(text, source.toString());
}

// A DTMF object given the AMR codec id, band and payload type through the base
// assignment is never read as an AMR configuration; a derived AMR one compares both ways.
TEST(AmrCodecConfigTest, EqualityNeverReadsAnotherCodecTypeAsAmr) {
    struct DerivedAmr : AmrCodecConfig {
        CodecConfig* clone() const override { return new DerivedAmr(*this); }
    };
    const AmrCodecConfig amr = withRates(BandTypeWb, {2});
    DerivedAmr derived;
    derived.addAmrRate(static_cast<AmrRate>(2));
    EXPECT_TRUE(amr == derived);
    EXPECT_TRUE(derived == amr);

    DtmfCodecConfig relabelled;
    static_cast<CodecConfig&>(relabelled) = amr;
    EXPECT_EQ(tessel::rva::CodecIdAmr, relabelled.getCodecId());
    EXPECT_FALSE(amr == relabelled);
}

void reverseRates(AmrCodecConfig& config) {
    const std::vector<AmrRate> held = config.getSupportedAmrRates();
    config.clearAmrRateVector();
    for (auto rate = held.rbegin(); rate != held.rend(); ++rate) {
        config.addAmrRate(*rate);
    }
}

TEST(AmrCodecConfigTest, EqualityComparesOneFieldAtATimeWithoutLogging) {
    typedef void (*Change)(AmrCodecConfig&);
    const struct {
        const char* name;
        Change change;
        bool equal;
    } rows[] = {
        {"octet align", [](AmrCodecConfig& c) { c.setOctetAlignMode(true); }, false},
        {"dtx", [](AmrCodecConfig& c) { c.setDTXMode(false); }, false},
        {"rdcy", [](AmrCodecConfig& c) { c.setRdcyMode(true); }, false},
        {"max rdcy", [](AmrCodecConfig& c) { c.setMaxRdcy(2); }, false},
        {"crc", [](AmrCodecConfig& c) { c.setCrcMode(true); }, false},
        {"robust sorting", [](AmrCodecConfig& c) { c.setRobustSortingMode(true); }, false},
        {"interleaving", [](AmrCodecConfig& c) { c.setInterleavingMode(true); }, false},
        // Unequal before the rates are looked at, so their different order is not logged.
        {"payload type", [](AmrCodecConfig& c) { c.setPayloadType(99); reverseRates(c); }, false},
        {"band type", [](AmrCodecConfig& c) { c.setBandType(BandTypeNb); reverseRates(c); }, false},
        {"mode change neighbor", [](AmrCodecConfig& c) { c.setModeChangeNeighbor(true); }, true},
        {"mode change period", [](AmrCodecConfig& c) { c.setModeChangePeriod(ModeChangePeriodTwoFrames); }, true},
        {"packet time", [](AmrCodecConfig& c) { c.setPacketTime(40); }, true},
        {"max packet time", [](AmrCodecConfig& c) { c.setMaxPacketTime(60); }, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const AmrCodecConfig reference = withRates(BandTypeWb, {2, 0});
        AmrCodecConfig changed(reference);
        row.change(changed);

        rvatest::AndroidLogCapture android;
        rvatest::StderrCapture stderrCapture;
        EXPECT_EQ(row.equal, reference == changed);
        EXPECT_EQ(row.equal, changed == reference);
        EXPECT_EQ(!row.equal, reference != changed);
        EXPECT_EQ("", stderrCapture.text());
        EXPECT_TRUE(android.all().empty());
    }
}

TEST(AmrCodecConfigTest, DifferentRateListsWarnInOrderWhateverTheOtherFieldsFound) {
    const AmrCodecConfig expected = withRates(BandTypeWb, {0, 2});
    AmrCodecConfig otherCrc = withRates(BandTypeWb, {2, 0});
    otherCrc.setCrcMode(true);
    const struct {
        const char* name;
        AmrCodecConfig input;
        bool equal;
    } rows[] = {{"rates only", withRates(BandTypeWb, {2, 0}), true}, {"rates and crc", otherCrc, false}};
    const std::string lines[] = {
        "Input AMR rates do not match; You may experience some wrong behaviour",
        "Expected rates are: 0 2 ",
        "Input rates are: 2 0 ",
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        rvatest::AndroidLogCapture android;
        rvatest::StderrCapture stderrCapture;
        EXPECT_EQ(row.equal, expected == row.input);
        EXPECT_EQ(
            "W/ORVA Input AMR rates do not match; You may experience some wrong behaviour\n"
            "W/ORVA Expected rates are: 0 2 \n"
            "W/ORVA Input rates are: 2 0 \n",
            stderrCapture.text());

        ASSERT_EQ(3U, android.all().size());
        long stderrBytes = 0;
        for (size_t i = 0; i < 3; ++i) {
            SCOPED_TRACE(lines[i]);
            const rvatest::AndroidRecord& record = android.all()[i];
            EXPECT_EQ(5, record.priority);
            EXPECT_EQ("ORVA", record.tag);
            EXPECT_EQ(lines[i], record.message);
            EXPECT_EQ(stderrBytes, record.stderrBytesBefore);  // written before its own stderr line
            stderrBytes += static_cast<long>(std::string("W/ORVA \n").size() + lines[i].size());
        }
    }
}

TEST(AmrCodecConfigTest, SetBandTypeRefusesBandsBeyondWideBand) {
    AmrCodecConfig config;
    EXPECT_EQ("Invalid Param (Code 1002): Bad band type: 2", config.setBandType(static_cast<BandType>(2)).format());
    EXPECT_EQ(BandTypeWb, config.getBandType());
}

TEST(AmrCodecConfigTest, ToStringAppendsElevenAmrLinesToTheGenericFive) {
    EXPECT_EQ(
        "    Codec: AMR (0)\n"
        "    BandType: 16kHz (1)\n"
        "    PayloadType: 98\n"
        "    PacketTime: 20\n"
        "    MaxPacketTime: 240\n"
        "    OctetAlignEnabled: 0\n"
        "    DtxModeEnabled: 1\n"
        "    RdcyEnabled: 0\n"
        "    MaxRdcy: 1\n"
        "    RateCount: 2\n"
        "    Rates: 7 2 \n"
        "    CrcEnabled: 0\n"
        "    RobustSortingEnabled: 0\n"
        "    InterleavingEnabled: 0\n"
        "    ModeChangeNeighborEnabled: 0\n"
        "    ModeChangePeriod: 0\n",
        withRates(BandTypeWb, {7, 2}).toString());
}

const std::string kRankAssertion =
    "F/TESSEL common/src/AmrCodecConfig\\.cpp:[0-9]+: Assertion it != mRatesRanks\\.end\\(\\) failed: ";

TEST(AmrCodecConfigDeathTest, ComparatorAbortsOnARateWithoutRankAsEitherOperand) {
    const std::string narrow = kRankAssertion + "Invalid AMR mode:8 for band 8kHz\n";
    EXPECT_DEATH(NarrowBandComparator()(static_cast<AmrRate>(8), static_cast<AmrRate>(7)), narrow);
    EXPECT_DEATH(NarrowBandComparator()(static_cast<AmrRate>(7), static_cast<AmrRate>(8)), narrow);
    EXPECT_DEATH(WideBandComparator()(static_cast<AmrRate>(9), static_cast<AmrRate>(2)),
                 kRankAssertion + "Invalid AMR mode:9 for band 16kHz\n");
    EXPECT_DEATH(WideBandComparator()(static_cast<AmrRate>(2), static_cast<AmrRate>(-1)),
                 kRankAssertion + "Invalid AMR mode:-1 for band 16kHz\n");
}

TEST(AmrCodecConfigDeathTest, PreferedRateAbortsOnRate8AmongNarrowBandRates) {
    const AmrCodecConfig config = withRates(BandTypeNb, {8, 7});
    EXPECT_DEATH(config.getPreferedAmrRate(), kRankAssertion + "Invalid AMR mode:8 for band 8kHz\n");
}

}  // namespace
