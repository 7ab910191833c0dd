#include "StreamConfig.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <typeinfo>
#include <utility>
#include <vector>

#include "AmrCodecConfig.h"
#include "Counted.h"
#include "DtmfCodecConfig.h"
#include "LogCapture.h"

namespace {

using namespace tessel::rva;
typedef rvatest::Counted<DtmfCodecConfig, CodecConfig> CountedCodec;

// `copy` is a distinct object of the same dynamic type that compares equal to `original`.
void expectClone(const CodecConfig* original, const CodecConfig* copy) {
    ASSERT_TRUE(copy != nullptr && copy != original && *copy == *original && typeid(*copy) == typeid(*original));
}

// The fields and codecs that sampleStream(field) sets otherwise than sampleStream() does.
enum { kPort = 1, kIp, kMute, kDir, kRtcp, kRtcpConfig, kUplink, kDownlink, kHold, kProfile, kPrimary, kSecondary };

// Every field away from its default; an AMR and a DTMF uplink codec, a counted DTMF downlink one.
StreamConfig sampleStream(int changed = 0) {
    StreamConfig stream;
    EXPECT_TRUE(stream.setRemoteRtpPort(changed == kPort ? 50002 : 50000).isSuccess() &&
                stream.setRemoteIp(changed == kIp ? "192.0.2.11" : "192.0.2.10").isSuccess());
    EXPECT_TRUE(stream.setDirection(changed == kDir ? StreamConfig::SendOnly : StreamConfig::ReceiveOnly).isSuccess());
    stream.muteUplink(changed != kMute);
    stream.setRtcp(changed == kRtcp);
    stream.setRtcpConfig(RtcpConfig(1, 2, 3, 4, changed != kRtcpConfig));
    stream.setHoldState(changed != kHold);
    stream.setRtpProfile(changed == kProfile ? RtpProfileAvp : RtpProfileAvpf);
    PdpContext pdp;
    pdp.primaryCID = changed == kPrimary ? 1 : 5;
    pdp.secondaryCID = changed == kSecondary ? 1 : 7;
    stream.setPdpContext(pdp);
    CountedCodec downlink;
    downlink.setPayloadType(changed == kDownlink ? 101 : 100);
    EXPECT_TRUE(stream.addUplinkCodec(AmrCodecConfig()).isSuccess() &&
                (changed == kUplink || stream.addUplinkCodec(DtmfCodecConfig()).isSuccess()) &&
                stream.addDownlinkCodec(downlink).isSuccess());
    return stream;
}

TEST(CodecConfigListTest, OwnsOnlyWhatItAcceptsAndDeletesEachCodecOnce) {
    StreamConfig::CodecConfigList list;
    StreamConfig::CodecConfigList copy;
    CountedCodec rival;
    rival.setPayloadType(97);
    CountedCodec* held = new CountedCodec(rival);
    ASSERT_TRUE(copy.add(new CountedCodec).isSuccess());
    std::vector<int> deleted = {CountedCodec::idOf(copy.get(0))};
    CountedCodec::deleted().clear();
    EXPECT_EQ("Invalid Param (Code 1002): Null pointer", list.add(nullptr).format());
    ASSERT_TRUE(list.add(new AmrCodecConfig).isSuccess() && list.add(held).isSuccess());
    EXPECT_EQ("Invalid Param (Code 1002): A codec with the same payload type 97 is already present",
              list.add(&rival).format());
    // Identity is tested before the payload type, and not only at the first element.
    EXPECT_EQ("Invalid Param (Code 1002): Already present", list.add(held).format());

    copy.cloneContentFrom(list);
    copy.cloneContentFrom(copy);
    EXPECT_EQ(deleted, CountedCodec::deleted());  // the old content only, once
    for (size_t i = 0; i < 2; ++i) {
        expectClone(list.get(i), copy.get(i));
    }
    deleted.insert(deleted.end(), {held->mId, CountedCodec::idOf(copy.get(1))});
    list.clear();
    copy.clear();
    copy.clear();
    EXPECT_EQ(deleted, CountedCodec::deleted());
}

TEST(StreamConfigTest, CopiesAndAssignmentCloneEveryCodec) {
    const StreamConfig source = sampleStream();
    StreamConfig copied(source);
    StreamConfig assigned;
    ASSERT_TRUE(assigned.addDownlinkCodec(CountedCodec()).isSuccess());
    const int oldId = CountedCodec::lastId();
    assigned = source;
    EXPECT_EQ(1, CountedCodec::deletionsOf(oldId));

    const CodecConfig* held[] = {assigned.getUplinkCodec(0), assigned.getDownlinkCodec(0)};
    assigned = *&assigned;
    EXPECT_TRUE(held[0] == assigned.getUplinkCodec(0) && held[1] == assigned.getDownlinkCodec(0));

    for (StreamConfig* copy : {&copied, &assigned}) {
        EXPECT_EQ(source.toString(), copy->toString());
        expectClone(source.getUplinkCodec(0), copy->getUplinkCodec(0));
        expectClone(source.getDownlinkCodec(0), copy->getDownlinkCodec(0));
        copy->clearUplinkCodecs();
        copy->clearDownlinkCodecs();
    }
    EXPECT_EQ(sampleStream().toString(), source.toString());
}

TEST(StreamConfigTest, CheckWantsACodecPerActiveDirectionThenChecksEveryCodecUplinkFirst) {
    const std::string noUp = "Invalid Configuration (Code 1003): Uplink is active and no uplink codec supplied";
    const std::string noDown = "Invalid Configuration (Code 1003): Downlink is active and no downlink codec supplied";
    const DtmfCodecConfig valid;
    const AmrCodecConfig bad;
    DtmfCodecConfig zeroPacketTime;
    zeroPacketTime.setPacketTime(0);
    const std::tuple<StreamConfig::Direction, const CodecConfig*, const CodecConfig*, std::string> rows[] = {
        {StreamConfig::SendOnly, nullptr, nullptr, noUp},
        {StreamConfig::SendOnly, &valid, nullptr, "Success"},
        {StreamConfig::ReceiveOnly, nullptr, nullptr, noDown},
        {StreamConfig::ReceiveOnly, nullptr, &valid, "Success"},
        {StreamConfig::FullDuplex, nullptr, &bad, noUp},
        {StreamConfig::FullDuplex, &valid, nullptr, noDown},
        {StreamConfig::Inactive, nullptr, nullptr, "Success"},
        {StreamConfig::Inactive, &bad, &zeroPacketTime,
         "Invalid Configuration (Code 1003): Invalid Configuration (Code 1003): Amr rate list is empty."},
    };
    for (const auto& [direction, uplink, downlink, expected] : rows) {
        StreamConfig stream;
        ASSERT_TRUE(stream.setDirection(direction).isSuccess() &&
                    (uplink == nullptr || stream.addUplinkCodec(*uplink).isSuccess()) &&
                    (downlink == nullptr || stream.addDownlinkCodec(*downlink).isSuccess()));
        EXPECT_EQ(expected, stream.check().format()) << "direction " << direction << " " << uplink << " " << downlink;
    }
}

TEST(StreamConfigTest, RefusedSettersAndCodecsLeaveTheStreamUnchanged) {
    StreamConfig stream = sampleStream();
    const std::string invalid = "Invalid Param (Code 1002): ";
    EXPECT_EQ(invalid + "Invalid direction : -1", stream.setDirection(StreamConfig::Direction(-1)).format());
    EXPECT_EQ(invalid + "Invalid direction : 4", stream.setDirection(StreamConfig::Direction(4)).format());
    EXPECT_EQ(invalid + "Invalid socket port: 1023", stream.setRemoteRtpPort(1023).format());
    EXPECT_EQ(invalid + "Invalid socket port: 65536", stream.setRemoteRtpPort(65536).format());
    EXPECT_EQ(invalid + "Invalid internet address : 10.0.0", stream.setRemoteIp("10.0.0").format());
    EXPECT_EQ(invalid + "Invalid internet address : ", stream.setRemoteIp("").format());
    const CountedCodec mine;
    EXPECT_EQ(invalid + "A codec with the same payload type 99 is already present",
              stream.addUplinkCodec(mine).format());
    EXPECT_EQ(1, CountedCodec::deletionsOf(CountedCodec::lastId()));  // the refused clone
    EXPECT_EQ(sampleStream().toString(), stream.toString());

    EXPECT_EQ("Success", stream.addDownlinkCodec(mine).format());
    stream.clearUplinkCodecs();
    ASSERT_EQ("Success", stream.addUplinkCodec(mine).format());
    expectClone(&mine, stream.getUplinkCodec(0));
    EXPECT_TRUE(stream.setRemoteRtpPort(65535).isSuccess() && stream.setRemoteIp("::1").isSuccess());
    EXPECT_EQ(-1, stream.getRemoteRtcpPort());
}

TEST(StreamConfigTest, DefaultsToFullDuplexToTheLoopbackWithRtcpOn) {
    const StreamConfig stream;
    EXPECT_EQ(49151, stream.getRemoteRtcpPort());
    EXPECT_EQ(std::string("  Remote: 127.0.0.1:49150\n  Mute: 0\n  Direction : Full duplex (3)\n  RtcpEnabled: 1\n"
                          "  RtcpConfig: AS=64 RS=800 RR=0 interval=5000  ReducedSizeMode=0\n  IsHeld: 0\n"
                          "  RtpProfile: 3551\n  PdpContext: primaryCID=1 secondaryCID=1\n"),
              stream.toString());
}

// Stream equality is exact: each codec field counts, packet times, rates in order and
// mode-change settings included, and so do the order and the class of the codecs. The
// codecs' own narrower comparison and its rate warnings take no part: nothing is logged.
TEST(StreamConfigTest, EqualityComparesEveryCodecFieldInOrderAndLogsNothing) {
    const std::pair<const char*, void (*)(AmrCodecConfig&)> changes[] = {
        {"nothing", [](AmrCodecConfig&) {}},
        {"band", [](AmrCodecConfig& a) { a.setBandType(BandTypeNb); }},
        {"payload type", [](AmrCodecConfig& a) { a.setPayloadType(96); }},
        {"packet time", [](AmrCodecConfig& a) { a.setPacketTime(40); }},
        {"max packet time", [](AmrCodecConfig& a) { a.setMaxPacketTime(120); }},
        {"octet align", [](AmrCodecConfig& a) { a.setOctetAlignMode(true); }},
        {"dtx", [](AmrCodecConfig& a) { a.setDTXMode(false); }},
        {"redundancy", [](AmrCodecConfig& a) { a.setRdcyMode(true); }},
        {"max redundancy", [](AmrCodecConfig& a) { a.setMaxRdcy(2); }},
        {"crc", [](AmrCodecConfig& a) { a.setCrcMode(true); }},
        {"robust sorting", [](AmrCodecConfig& a) { a.setRobustSortingMode(true); }},
        {"interleaving", [](AmrCodecConfig& a) { a.setInterleavingMode(true); }},
        {"mode change neighbor", [](AmrCodecConfig& a) { a.setModeChangeNeighbor(true); }},
        {"mode change period", [](AmrCodecConfig& a) { a.setModeChangePeriod(ModeChangePeriodTwoFrames); }},
        {"rate order",
         [](AmrCodecConfig& a) { a.clearAmrRateVector(), a.addAmrRate(AmrRate2), a.addAmrRate(AmrRate1); }},
        {"one rate more", [](AmrCodecConfig& a) { a.addAmrRate(AmrRate7); }},
    };
    const auto uplinkOf = [](const CodecConfig& first, const CodecConfig& second) {
        StreamConfig stream;
        EXPECT_TRUE(stream.addUplinkCodec(first).isSuccess() && stream.addUplinkCodec(second).isSuccess());
        return stream;
    };
    AmrCodecConfig amr;
    amr.addAmrRate(AmrRate1);
    amr.addAmrRate(AmrRate2);
    const DtmfCodecConfig dtmf;
    const StreamConfig stream = uplinkOf(amr, dtmf);
    rvatest::AndroidLogCapture android;
    rvatest::StderrCapture stderrCapture;
    for (const auto& [name, change] : changes) {
        SCOPED_TRACE(name);
        AmrCodecConfig changed = amr;
        change(changed);
        const bool same = std::string(name) == "nothing";
        EXPECT_EQ(same, stream == uplinkOf(changed, dtmf));
        EXPECT_EQ(!same, uplinkOf(changed, dtmf) != stream);
    }
    EXPECT_FALSE(stream == uplinkOf(dtmf, amr));
    EXPECT_FALSE(stream == uplinkOf(amr, CountedCodec()));  // same fields, another class
    EXPECT_EQ("", stderrCapture.text());
    EXPECT_TRUE(android.all().empty());
}

TEST(StreamConfigTest, EveryFieldIsPrintedAndTakesPartInEquality) {
    const StreamConfig stream = sampleStream();
    for (int changed = 0; changed <= kSecondary; ++changed) {
        EXPECT_EQ(changed == 0, stream == sampleStream(changed)) << "field " << changed;
    }
    EXPECT_EQ(std::string("  Remote: 192.0.2.10:50000\n"
                          "  Mute: 1\n"
                          "  Direction : Receive only (2)\n"
                          "  RtcpEnabled: 0\n"
                          "  RtcpConfig: AS=4 RS=3 RR=2 interval=1  ReducedSizeMode=1\n"
                          "  IsHeld: 1\n"
                          "  RtpProfile: 4585\n"
                          "  PdpContext: primaryCID=5 secondaryCID=7\n"
                          "  Uplink codec 1/2\n") +
                  stream.getUplinkCodec(0)->toString() + "  Uplink codec 2/2\n" + stream.getUplinkCodec(1)->toString() +
                  "  Downlink codec 1/1\n" + stream.getDownlinkCodec(0)->toString(),
              stream.toString());
}

}  // namespace
