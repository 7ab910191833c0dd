#include "StreamConfig.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <typeinfo>
#include <vector>

#include "AmrCodecConfig.h"
#include "DtmfCodecConfig.h"
#include "PdpContext.h"
#include "RtcpConfig.h"

namespace {

using tessel::rva::AmrCodecConfig;
using tessel::rva::AmrRate0;
using tessel::rva::AmrRate2;
using tessel::rva::BandTypeNb;
using tessel::rva::CodecConfig;
using tessel::rva::DtmfCodecConfig;
using tessel::rva::PdpContext;
using tessel::rva::RtcpConfig;
using tessel::rva::RtpProfileAvpf;
using tessel::rva::StreamConfig;

// A DTMF configuration that logs its deletion, so that a test can prove an owner deletes
// each codec exactly once and in which order. Every object, clones included, gets a fresh id.
class CountedCodec : public DtmfCodecConfig {
public:
    explicit CountedCodec(int payloadType) : mId(++lastId) { setPayloadType(payloadType); }
    CountedCodec(const CountedCodec& other) : DtmfCodecConfig(other), mId(++lastId) {}
    ~CountedCodec() override { deleted.push_back(mId); }
    CodecConfig* clone() const override { return new CountedCodec(*this); }
    static long deletionsOf(int id) { return std::count(deleted.begin(), deleted.end(), id); }

    const int mId;
    static inline int lastId = 0;            // the latest object's id, a clone made by the library included
    static inline std::vector<int> deleted;  // ids in order of deletion
};

int idOf(const CodecConfig* codec) {
    const CountedCodec* counted = dynamic_cast<const CountedCodec*>(codec);
    return counted != nullptr ? counted->mId : 0;
}

AmrCodecConfig amrWithRates(int payloadType) {
    AmrCodecConfig amr;
    amr.setPayloadType(payloadType);
    EXPECT_TRUE(amr.addAmrRate(AmrRate2).isSuccess());
    EXPECT_TRUE(amr.addAmrRate(AmrRate0).isSuccess());
    return amr;
}

DtmfCodecConfig dtmf(int payloadType) {
    DtmfCodecConfig config;
    config.setPayloadType(payloadType);
    return config;
}

PdpContext pdpContext(int primaryCID, int secondaryCID) {
    PdpContext pdp;
    pdp.primaryCID = primaryCID;
    pdp.secondaryCID = secondaryCID;
    return pdp;
}

constexpr bool kUplink = true;
constexpr bool kDownlink = false;

// Replaces the uplink or downlink codecs with clones of `codecs`, in order.
template <typename... Codecs>
void setCodecs(StreamConfig& stream, bool uplink, const Codecs&... codecs) {
    uplink ? stream.clearUplinkCodecs() : stream.clearDownlinkCodecs();
    EXPECT_TRUE(((uplink ? stream.addUplinkCodec(codecs) : stream.addDownlinkCodec(codecs)).isSuccess() && ...));
}

// Not all defaults: remote end, mute and PDP contexts changed; an AMR (rates 2 0) and a
// DTMF uplink codec, one narrow-band DTMF downlink codec.
StreamConfig sampleStream() {
    StreamConfig stream;
    EXPECT_TRUE(stream.setRemoteIp("192.0.2.10").isSuccess());
    EXPECT_TRUE(stream.setRemoteRtpPort(50000).isSuccess());
    stream.muteUplink(true);
    stream.setPdpContext(pdpContext(5, 7));
    setCodecs(stream, kUplink, amrWithRates(98), dtmf(101));
    DtmfCodecConfig narrow;
    EXPECT_TRUE(narrow.setBandType(BandTypeNb).isSuccess());
    setCodecs(stream, kDownlink, narrow);
    return stream;
}

// Same text, and every codec of `copy` is its own object, equal to and of the same
// dynamic type as the original's.
void expectDeepCopy(const StreamConfig& original, const StreamConfig& copy) {
    EXPECT_EQ(original.toString(), copy.toString());
    ASSERT_EQ(original.getUplinkCodecCount(), copy.getUplinkCodecCount());
    ASSERT_EQ(original.getDownlinkCodecCount(), copy.getDownlinkCodecCount());
    for (const auto get : {&StreamConfig::getUplinkCodec, &StreamConfig::getDownlinkCodec}) {
        for (size_t i = 0; (original.*get)(i) != nullptr; ++i) {
            const CodecConfig* mine = (original.*get)(i);
            const CodecConfig* theirs = (copy.*get)(i);
            ASSERT_NE(nullptr, theirs);
            EXPECT_NE(mine, theirs);
            EXPECT_TRUE(*mine == *theirs);
            EXPECT_STREQ(typeid(*mine).name(), typeid(*theirs).name());
        }
    }
}

const char kNoUplink[] = "Invalid Configuration (Code 1003): Uplink is active and no uplink codec supplied";
const char kNoDownlink[] = "Invalid Configuration (Code 1003): Downlink is active and no downlink codec supplied";
const char kNoRates[] = "Invalid Configuration (Code 1003): Invalid Configuration (Code 1003): Amr rate list is empty.";

// ---- CodecConfigList --------------------------------------------------------------------

TEST(CodecConfigListTest, AddRefusesNullTheSameObjectAndADuplicatePayloadType) {
    StreamConfig::CodecConfigList list;
    EXPECT_EQ(nullptr, list.get(0));
    EXPECT_EQ("Invalid Param (Code 1002): Null pointer", list.add(nullptr).format());

    CountedCodec* first = new CountedCodec(97);
    ASSERT_EQ("Success", list.add(first).format());
    EXPECT_EQ(nullptr, list.get(list.count()));

    CountedCodec* rival = new CountedCodec(97);
    EXPECT_EQ("Invalid Param (Code 1002): A codec with the same payload type 97 is already present",
              list.add(rival).format());
    EXPECT_EQ(1U, list.count());
    EXPECT_EQ(first, list.get(0));
    EXPECT_EQ(0, CountedCodec::deletionsOf(rival->mId));
    delete rival;  // refused, so still ours

    CountedCodec* second = new CountedCodec(98);
    ASSERT_EQ("Success", list.add(second).format());
    // Identity is tested before the payload type at every element, not only the first.
    EXPECT_EQ("Invalid Param (Code 1002): Already present", list.add(second).format());
    EXPECT_EQ("Invalid Param (Code 1002): Already present", list.add(first).format());
    EXPECT_EQ(2U, list.count());
    EXPECT_EQ(second, list.get(1));
    EXPECT_EQ(0, CountedCodec::deletionsOf(first->mId));
    EXPECT_EQ(0, CountedCodec::deletionsOf(second->mId));
}

TEST(CodecConfigListTest, CloneContentFromCopiesDeeplyAndDeletesTheOldContents) {
    int sourceId = 0;
    int cloneId = 0;
    int oldIds[2] = {};
    {
        StreamConfig::CodecConfigList source;
        ASSERT_TRUE(source.add(new AmrCodecConfig(amrWithRates(98))).isSuccess());
        ASSERT_TRUE(source.add(new DtmfCodecConfig(dtmf(99))).isSuccess());
        CountedCodec* counted = new CountedCodec(100);
        sourceId = counted->mId;
        ASSERT_TRUE(source.add(counted).isSuccess());

        StreamConfig::CodecConfigList target;
        for (int i = 0; i < 2; ++i) {
            CountedCodec* old = new CountedCodec(98 + i);
            oldIds[i] = old->mId;
            ASSERT_TRUE(target.add(old).isSuccess());
        }

        target.cloneContentFrom(source);
        EXPECT_EQ(1, CountedCodec::deletionsOf(oldIds[0]));
        EXPECT_EQ(1, CountedCodec::deletionsOf(oldIds[1]));
        EXPECT_EQ(0, CountedCodec::deletionsOf(sourceId));
        ASSERT_EQ(3U, target.count());
        for (size_t i = 0; i < 3; ++i) {
            SCOPED_TRACE(i);
            EXPECT_NE(source.get(i), target.get(i));
            EXPECT_TRUE(*source.get(i) == *target.get(i));
            EXPECT_STREQ(typeid(*source.get(i)).name(), typeid(*target.get(i)).name());
        }
        cloneId = idOf(target.get(2));
        EXPECT_NE(sourceId, cloneId);

        // Copying a list onto itself keeps every object.
        const CodecConfig* before[] = {target.get(0), target.get(1), target.get(2)};
        target.cloneContentFrom(target);
        ASSERT_EQ(3U, target.count());
        for (size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(before[i], target.get(i));
        }
        EXPECT_EQ(0, CountedCodec::deletionsOf(cloneId));
    }
    // Each list deleted what it owned, once.
    EXPECT_EQ(1, CountedCodec::deletionsOf(oldIds[0]));
    EXPECT_EQ(1, CountedCodec::deletionsOf(oldIds[1]));
    EXPECT_EQ(1, CountedCodec::deletionsOf(sourceId));
    EXPECT_EQ(1, CountedCodec::deletionsOf(cloneId));
}

TEST(CodecConfigListTest, ClearDeletesEachCodecOnceInListOrder) {
    std::vector<int> ids;
    {
        StreamConfig::CodecConfigList list;
        list.clear();  // nothing to delete
        for (int payloadType : {100, 101, 102}) {
            CountedCodec* codec = new CountedCodec(payloadType);
            ids.push_back(codec->mId);
            ASSERT_TRUE(list.add(codec).isSuccess());
        }
        CountedCodec::deleted.clear();
        list.clear();
        EXPECT_EQ(0U, list.count());
        EXPECT_EQ(nullptr, list.get(0));
        EXPECT_EQ(ids, CountedCodec::deleted);
        // The payload types are free again.
        CountedCodec* again = new CountedCodec(100);
        ids.push_back(again->mId);
        EXPECT_TRUE(list.add(again).isSuccess());
    }
    EXPECT_EQ(ids, CountedCodec::deleted);
}

// ---- PdpContext -------------------------------------------------------------------------

TEST(PdpContextTest, DefaultsToOneAndOneAndComparesBothFields) {
    const PdpContext defaults;
    EXPECT_TRUE(defaults.primaryCID == 1 && defaults.secondaryCID == 1);
    EXPECT_TRUE(defaults == pdpContext(1, 1));
    for (const PdpContext& other : {pdpContext(2, 1), pdpContext(1, 2)}) {
        EXPECT_FALSE(defaults == other);
        EXPECT_TRUE(defaults != other);
    }
    EXPECT_FALSE(pdpContext(1, 2) == pdpContext(2, 1));
}

// ---- StreamConfig -----------------------------------------------------------------------

TEST(StreamConfigTest, DefaultsDescribeAFullDuplexStreamWithoutCodecs) {
    const StreamConfig stream;
    EXPECT_EQ(49150, stream.getRemoteRtpPort());
    EXPECT_EQ(49151, stream.getRemoteRtcpPort());
    EXPECT_EQ("127.0.0.1", stream.getRemoteIp());
    EXPECT_EQ(StreamConfig::FullDuplex, stream.getDirection());
    EXPECT_FALSE(stream.isUplinkMuted());
    EXPECT_TRUE(stream.isRtcpEnabled());
    EXPECT_FALSE(stream.isHeld());
    EXPECT_EQ(3551, stream.getRtpProfile());
    EXPECT_TRUE(stream.getPdpContext() == PdpContext());
    EXPECT_TRUE(stream.getRtcpConfig() == RtcpConfig(5000, 0, 800, 64, false));
    EXPECT_EQ(0U, stream.getUplinkCodecCount());
    EXPECT_EQ(0U, stream.getDownlinkCodecCount());
    EXPECT_EQ(kNoUplink, stream.check().format());
}

TEST(StreamConfigTest, CheckWantsACodecPerActiveDirectionAndChecksEveryCodec) {
    enum Codecs { None, Valid, NoRates };
    const struct {
        const char* name;
        StreamConfig::Direction direction;
        Codecs uplink;
        Codecs downlink;
        const char* expected;
    } rows[] = {
        {"send only without codecs", StreamConfig::SendOnly, None, None, kNoUplink},
        {"send only with an uplink codec", StreamConfig::SendOnly, Valid, None, "Success"},
        {"receive only with a downlink codec", StreamConfig::ReceiveOnly, None, Valid, "Success"},
        {"receive only with an uplink codec", StreamConfig::ReceiveOnly, Valid, None, kNoDownlink},
        {"full duplex without codecs", StreamConfig::FullDuplex, None, None, kNoUplink},
        {"full duplex with uplink only", StreamConfig::FullDuplex, Valid, None, kNoDownlink},
        {"full duplex with both", StreamConfig::FullDuplex, Valid, Valid, "Success"},
        {"inactive without codecs", StreamConfig::Inactive, None, None, "Success"},
        {"inactive with a bad downlink codec", StreamConfig::Inactive, None, NoRates, kNoRates},
        {"send only with a bad downlink codec", StreamConfig::SendOnly, Valid, NoRates, kNoRates},
        {"receive only with a bad uplink codec", StreamConfig::ReceiveOnly, NoRates, Valid, kNoRates},
    };
    const AmrCodecConfig valid = amrWithRates(98);
    const AmrCodecConfig noRates;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        StreamConfig stream;
        ASSERT_TRUE(stream.setDirection(row.direction).isSuccess());
        if (row.uplink != None) {
            ASSERT_TRUE(stream.addUplinkCodec(row.uplink == Valid ? valid : noRates).isSuccess());
        }
        if (row.downlink != None) {
            ASSERT_TRUE(stream.addDownlinkCodec(row.downlink == Valid ? valid : noRates).isSuccess());
        }
        EXPECT_EQ(row.expected, stream.check().format());
    }
}

TEST(StreamConfigTest, CheckReportsOnlyTheFirstFailingCodecUplinkFirst) {
    AmrCodecConfig noRates;
    noRates.setPayloadType(97);
    DtmfCodecConfig noPacketTimes = dtmf(99);
    noPacketTimes.setPacketTime(0);
    noPacketTimes.setMaxPacketTime(0);

    StreamConfig stream;
    setCodecs(stream, kUplink, amrWithRates(98), noRates, noPacketTimes);
    setCodecs(stream, kDownlink, amrWithRates(98), noPacketTimes, noRates);
    EXPECT_EQ(kNoRates, stream.check().format());

    // With the uplink repaired, the downlink's first bad codec is reported, its folded
    // failures carried along.
    setCodecs(stream, kUplink, amrWithRates(98));
    EXPECT_EQ(
        "Invalid Configuration (Code 1003): Invalid Configuration (Code 1003): Packet time must be greater than 0"
        " && Invalid Configuration (Code 1003): Max packet time must be greater than 0",
        stream.check().format());
}

TEST(StreamConfigTest, ValidatingSettersRefuseOutOfRangeValuesAndKeepTheOldOne) {
    StreamConfig stream;
    ASSERT_TRUE(stream.setDirection(StreamConfig::SendOnly).isSuccess());
    ASSERT_TRUE(stream.setRemoteRtpPort(50000).isSuccess());
    ASSERT_TRUE(stream.setRemoteIp("192.0.2.10").isSuccess());
    const std::string before = stream.toString();

    typedef StreamConfig::Result (*Call)(StreamConfig&);
    const struct {
        const char* expected;
        Call call;
    } rows[] = {
        {"Invalid Param (Code 1002): Invalid direction : -1",
         [](StreamConfig& s) { return s.setDirection(static_cast<StreamConfig::Direction>(-1)); }},
        {"Invalid Param (Code 1002): Invalid direction : 4",
         [](StreamConfig& s) { return s.setDirection(static_cast<StreamConfig::Direction>(4)); }},
        {"Invalid Param (Code 1002): Invalid direction : 7",
         [](StreamConfig& s) { return s.setDirection(static_cast<StreamConfig::Direction>(7)); }},
        {"Invalid Param (Code 1002): Invalid socket port: 1023",
         [](StreamConfig& s) { return s.setRemoteRtpPort(1023); }},
        {"Invalid Param (Code 1002): Invalid socket port: 65536",
         [](StreamConfig& s) { return s.setRemoteRtpPort(65536); }},
        {"Invalid Param (Code 1002): Invalid socket port: -1", [](StreamConfig& s) { return s.setRemoteRtpPort(-1); }},
        {"Invalid Param (Code 1002): Invalid internet address : 10.0.0",
         [](StreamConfig& s) { return s.setRemoteIp("10.0.0"); }},
        {"Invalid Param (Code 1002): Invalid internet address : ", [](StreamConfig& s) { return s.setRemoteIp(""); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.expected);
        EXPECT_EQ(row.expected, row.call(stream).format());
        EXPECT_EQ(before, stream.toString());
    }

    for (const auto direction : {StreamConfig::Inactive, StreamConfig::FullDuplex}) {
        EXPECT_EQ("Success", stream.setDirection(direction).format());
    }
    EXPECT_EQ("Success", stream.setRemoteRtpPort(1024).format());
    EXPECT_EQ(1025, stream.getRemoteRtcpPort());
    EXPECT_EQ("Success", stream.setRemoteRtpPort(65535).format());
    EXPECT_EQ(65535, stream.getRemoteRtpPort());
    EXPECT_EQ(-1, stream.getRemoteRtcpPort());
    EXPECT_EQ("Success", stream.setRemoteIp("::1").format());
    EXPECT_EQ("::1", stream.getRemoteIp());
}

TEST(StreamConfigTest, AddingACodecStoresAClone) {
    StreamConfig stream;
    AmrCodecConfig amr = amrWithRates(98);
    ASSERT_EQ("Success", stream.addUplinkCodec(amr).format());
    const AmrCodecConfig* stored = dynamic_cast<const AmrCodecConfig*>(stream.getUplinkCodec(0));
    ASSERT_NE(nullptr, stored);
    EXPECT_NE(&amr, stored);
    amr.setPayloadType(120);
    amr.setOctetAlignMode(true);
    amr.clearAmrRateVector();
    EXPECT_EQ(98, stored->getPayloadType());
    EXPECT_FALSE(stored->isOctetAlignModeEnabled());
    EXPECT_EQ(2UL, stored->getAmrRateCount());

    // Payload types are unique per list; the two lists are independent. The clone made
    // for a refused codec is deleted.
    const CountedCodec samePayload(98);
    EXPECT_EQ("Invalid Param (Code 1002): A codec with the same payload type 98 is already present",
              stream.addUplinkCodec(samePayload).format());
    EXPECT_NE(samePayload.mId, CountedCodec::lastId);
    EXPECT_EQ(1, CountedCodec::deletionsOf(CountedCodec::lastId));
    EXPECT_EQ(1U, stream.getUplinkCodecCount());
    EXPECT_EQ("Success", stream.addDownlinkCodec(samePayload).format());
    EXPECT_EQ(1U, stream.getDownlinkCodecCount());
    EXPECT_EQ(1U, stream.getUplinkCodecCount());
}

TEST(StreamConfigTest, CopiesAreDeep) {
    StreamConfig source = sampleStream();
    ASSERT_TRUE(source.setDirection(StreamConfig::ReceiveOnly).isSuccess());
    source.setRtcp(false);
    source.setRtcpConfig(RtcpConfig(1, 2, 3, 4, true));
    source.setHoldState(true);
    source.setRtpProfile(RtpProfileAvpf);
    const std::string sourceText = source.toString();

    StreamConfig copy(source);
    EXPECT_TRUE(copy == source);
    expectDeepCopy(source, copy);
    copy.clearUplinkCodecs();
    copy.clearDownlinkCodecs();
    EXPECT_EQ(sourceText, source.toString());

    // Assignment over a stream that has codecs deletes them and clones the source's.
    StreamConfig target;
    ASSERT_TRUE(target.addUplinkCodec(CountedCodec(96)).isSuccess());
    ASSERT_TRUE(target.addDownlinkCodec(CountedCodec(96)).isSuccess());
    const int oldUplink = idOf(target.getUplinkCodec(0));
    const int oldDownlink = idOf(target.getDownlinkCodec(0));
    target = source;
    EXPECT_EQ(1, CountedCodec::deletionsOf(oldUplink));
    EXPECT_EQ(1, CountedCodec::deletionsOf(oldDownlink));
    EXPECT_TRUE(target == source);
    expectDeepCopy(source, target);

    // Self-assignment keeps the very same codec objects and every field.
    const CodecConfig* codecs[] = {target.getUplinkCodec(0), target.getUplinkCodec(1), target.getDownlinkCodec(0)};
    StreamConfig& alias = target;
    target = alias;
    EXPECT_EQ(sourceText, target.toString());
    EXPECT_EQ(codecs[0], target.getUplinkCodec(0));
    EXPECT_EQ(codecs[1], target.getUplinkCodec(1));
    EXPECT_EQ(codecs[2], target.getDownlinkCodec(0));
}

TEST(StreamConfigTest, EveryFieldAndEveryCodecTakesPartInEquality) {
    typedef void (*Change)(StreamConfig&);
    const struct {
        const char* name;
        Change change;
    } rows[] = {
        {"remote port", [](StreamConfig& s) { ASSERT_TRUE(s.setRemoteRtpPort(50002).isSuccess()); }},
        {"remote ip", [](StreamConfig& s) { ASSERT_TRUE(s.setRemoteIp("192.0.2.11").isSuccess()); }},
        {"uplink mute", [](StreamConfig& s) { s.muteUplink(false); }},
        {"direction", [](StreamConfig& s) { ASSERT_TRUE(s.setDirection(StreamConfig::SendOnly).isSuccess()); }},
        {"rtcp enabled", [](StreamConfig& s) { s.setRtcp(false); }},
        {"rtcp config", [](StreamConfig& s) { s.setRtcpConfig(RtcpConfig(5000, 0, 800, 64, true)); }},
        {"uplink codec missing", [](StreamConfig& s) { setCodecs(s, kUplink, amrWithRates(98)); }},
        {"uplink codecs reordered", [](StreamConfig& s) { setCodecs(s, kUplink, dtmf(101), amrWithRates(98)); }},
        {"uplink payload type", [](StreamConfig& s) { setCodecs(s, kUplink, amrWithRates(98), dtmf(102)); }},
        {"downlink codec added", [](StreamConfig& s) { EXPECT_TRUE(s.addDownlinkCodec(dtmf(101)).isSuccess()); }},
        {"downlink band", [](StreamConfig& s) { setCodecs(s, kDownlink, dtmf(99)); }},
        {"hold", [](StreamConfig& s) { s.setHoldState(true); }},
        {"rtp profile", [](StreamConfig& s) { s.setRtpProfile(RtpProfileAvpf); }},
        {"primary context", [](StreamConfig& s) { s.setPdpContext(pdpContext(8, 7)); }},
        {"secondary context", [](StreamConfig& s) { s.setPdpContext(pdpContext(5, 8)); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const StreamConfig original = sampleStream();
        StreamConfig changed = sampleStream();
        ASSERT_TRUE(original == changed);
        row.change(changed);
        EXPECT_FALSE(original == changed);
        EXPECT_FALSE(changed == original);
        EXPECT_TRUE(original != changed);
    }

    // Codecs compare with their own comparison, which leaves packet times out.
    const StreamConfig original = sampleStream();
    StreamConfig changed = sampleStream();
    DtmfCodecConfig longerPackets;
    ASSERT_TRUE(longerPackets.setBandType(BandTypeNb).isSuccess());
    longerPackets.setPacketTime(40);
    setCodecs(changed, kDownlink, longerPackets);
    EXPECT_TRUE(original == changed);
}

TEST(StreamConfigTest, ToStringListsTheFieldsThenEachCodecUnderItsHeading) {
    EXPECT_EQ(
        "  Remote: 192.0.2.10:50000\n"
        "  Mute: 1\n"
        "  Direction : Full duplex (3)\n"
        "  RtcpEnabled: 1\n"
        "  RtcpConfig: AS=64 RS=800 RR=0 interval=5000  ReducedSizeMode=0\n"
        "  IsHeld: 0\n"
        "  RtpProfile: 3551\n"
        "  PdpContext: primaryCID=5 secondaryCID=7\n"
        "  Uplink codec 1/2\n"
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
        "    Rates: 2 0 \n"
        "    CrcEnabled: 0\n"
        "    RobustSortingEnabled: 0\n"
        "    InterleavingEnabled: 0\n"
        "    ModeChangeNeighborEnabled: 0\n"
        "    ModeChangePeriod: 0\n"
        "  Uplink codec 2/2\n"
        "    Codec: DTMF (1)\n"
        "    BandType: 16kHz (1)\n"
        "    PayloadType: 101\n"
        "    PacketTime: 20\n"
        "    MaxPacketTime: 240\n"
        "  Downlink codec 1/1\n"
        "    Codec: DTMF (1)\n"
        "    BandType: 8kHz (0)\n"
        "    PayloadType: 99\n"
        "    PacketTime: 20\n"
        "    MaxPacketTime: 240\n",
        sampleStream().toString());
}

}  // namespace
