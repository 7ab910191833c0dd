#include "StreamConfig.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <new>
#include <tuple>

#include "AmrCodecConfig.h"
#include "Counted.h"
#include "DtmfCodecConfig.h"
#include "ExpectAbort.h"

// This test program's own operator new, which the library binds to as well: it counts
// every allocation and can be told to fail at its Nth call from now, so that a failure can
// be placed inside any allocation a library call makes.
static long allocationCount = 0;
static long failingAllocation = 0;  // the value of allocationCount that fails; 0: none

// Every replaceable form of the plain and array operators, so that each block is taken
// from malloc() and returned to free() whatever form releases it. None is inlined: a tool
// that replaces them in turn (valgrind) must see every call.
#define RVA_REPLACED __attribute__((noinline))
RVA_REPLACED void* operator new(std::size_t size) {
    void* block = ++allocationCount == failingAllocation ? nullptr : std::malloc(size == 0 ? 1 : size);
    return block != nullptr ? block : throw std::bad_alloc();
}
RVA_REPLACED void* operator new[](std::size_t size) { return ::operator new(size); }
RVA_REPLACED void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size + 1); }
RVA_REPLACED void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size + 1); }
RVA_REPLACED void operator delete(void* block) noexcept { std::free(block); }
RVA_REPLACED void operator delete[](void* block) noexcept { std::free(block); }
RVA_REPLACED void operator delete(void* block, std::size_t) noexcept { std::free(block); }
RVA_REPLACED void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
RVA_REPLACED void operator delete(void* block, const std::nothrow_t&) noexcept { std::free(block); }
RVA_REPLACED void operator delete[](void* block, const std::nothrow_t&) noexcept { std::free(block); }

namespace tessel::rva::tests {

typedef rvatest::Counted<DtmfCodecConfig, CodecConfig> CountedCodec;

// A codec class of the caller's own, whose objects each equal themselves alone.
struct SelfOnlyCodec : DtmfCodecConfig {
    bool operator==(const CodecConfig& other) const noexcept override { return &other == this; }
    CodecConfig* clone() const noexcept override { return new SelfOnlyCodec(*this); }
};

// The fields and codecs that sampleStream(field) sets otherwise than sampleStream() does.
enum { kPort = 1, kIp, kMute, kDir, kRtcp, kRtcpConfig, kUplink, kDownlink, kHold, kProfile, kPrimary, kSecondary };

// Every field away from its default; an AMR and a DTMF uplink codec, a counted DTMF downlink one.
StreamConfig sampleStream(int changed = 0) {
    StreamConfig stream;
    EXPECT_TRUE(stream.setRemoteRtpPort(changed == kPort ? 50002 : 50000).isSuccess() &&
                stream.setRemoteIp(changed == kIp ? "192.0.2.11" : "192.0.2.10").isSuccess() &&
                stream.setDirection(changed == kDir ? StreamConfig::SendOnly : StreamConfig::ReceiveOnly).isSuccess());
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

// Copies hold clones of every codec and print alike; every field takes part in equality.
TEST(StreamConfigTest, CopiesCloneEveryCodecAndEveryFieldIsPrintedAndCountsInEquality) {
    const StreamConfig source = sampleStream();
    StreamConfig copied(source), assigned;
    ASSERT_TRUE(assigned.addDownlinkCodec(CountedCodec()).isSuccess());
    const int oldId = CountedCodec::lastId;
    assigned = source;
    EXPECT_EQ(1, std::count(CountedCodec::deleted.begin(), CountedCodec::deleted.end(), oldId));
    const CodecConfig* held = assigned.getDownlinkCodec(0);
    assigned = *&assigned;
    EXPECT_EQ(held, assigned.getDownlinkCodec(0));
    for (StreamConfig* copy : {&copied, &assigned}) {
        EXPECT_EQ(source.toString(), copy->toString());
        rvatest::expectClone(source.getUplinkCodec(0), copy->getUplinkCodec(0));
        rvatest::expectClone(source.getDownlinkCodec(0), copy->getDownlinkCodec(0));
    }
    for (int changed = 0; changed <= kSecondary; ++changed)
        EXPECT_EQ(changed == 0, source == sampleStream(changed)) << changed;
    EXPECT_TRUE(source.isUplinkMuted() && !source.isRtcpEnabled() && source.getRtpProfile() == RtpProfileAvpf);
    EXPECT_EQ(std::string("  Remote: 192.0.2.10:50000\n  Mute: 1\n  Direction : Receive only (2)\n  RtcpEnabled: 0\n"
                          "  RtcpConfig: AS=4 RS=3 RR=2 interval=1  ReducedSizeMode=1\n  IsHeld: 1\n"
                          "  RtpProfile: 4585\n  PdpContext: primaryCID=5 secondaryCID=7\n  Uplink codec 1/2\n") +
                  source.getUplinkCodec(0)->toString() + "  Uplink codec 2/2\n" + source.getUplinkCodec(1)->toString() +
                  "  Downlink codec 1/1\n" + source.getDownlinkCodec(0)->toString(),
              source.toString());
    // The order and the class of the codecs count too, and a caller's own codec class is
    // asked its own equality.
    const auto uplinkOf = [](const CodecConfig& first, const CodecConfig& second) {
        StreamConfig stream;
        EXPECT_TRUE(stream.addUplinkCodec(first).isSuccess() && stream.addUplinkCodec(second).isSuccess());
        return stream;
    };
    const StreamConfig amrDtmf = uplinkOf(AmrCodecConfig(), DtmfCodecConfig());
    EXPECT_FALSE(amrDtmf == uplinkOf(DtmfCodecConfig(), AmrCodecConfig()));
    EXPECT_FALSE(amrDtmf == uplinkOf(AmrCodecConfig(), CountedCodec()));  // same fields, another class
    const StreamConfig own = uplinkOf(AmrCodecConfig(), SelfOnlyCodec());
    EXPECT_TRUE(own == own && !(own == uplinkOf(AmrCodecConfig(), SelfOnlyCodec())));
}

// A codec is wanted in each active direction; then the first failing codec is reported,
// uplink before downlink, whatever the direction.
TEST(StreamConfigTest, CheckWantsACodecPerActiveDirectionThenReportsTheFirstFailingCodec) {
    const std::string noUp = "Invalid Configuration (Code 1003): Uplink is active and no uplink codec supplied";
    const std::string noDown = "Invalid Configuration (Code 1003): Downlink is active and no downlink codec supplied";
    const std::string bad = "Invalid Configuration (Code 1003): Invalid Configuration (Code 1003): ";
    const DtmfCodecConfig valid;
    const AmrCodecConfig noRates;
    DtmfCodecConfig noPacketTime;
    noPacketTime.setPacketTime(0);
    noPacketTime.setPayloadType(100);
    typedef std::vector<const CodecConfig*> Codecs;
    const std::tuple<StreamConfig::Direction, Codecs, Codecs, std::string> rows[] = {
        // uplink, downlink, result
        {StreamConfig::SendOnly, {}, {}, noUp},
        {StreamConfig::SendOnly, {&valid}, {}, "Success"},
        {StreamConfig::ReceiveOnly, {}, {}, noDown},
        {StreamConfig::ReceiveOnly, {}, {&valid}, "Success"},
        {StreamConfig::FullDuplex, {}, {&noRates}, noUp},
        {StreamConfig::FullDuplex, {&valid}, {}, noDown},
        {StreamConfig::Inactive, {}, {}, "Success"},
        {StreamConfig::Inactive, {&valid, &noRates, &noPacketTime}, {&noPacketTime}, bad + "Amr rate list is empty."},
        {StreamConfig::FullDuplex, {&valid}, {&noPacketTime, &noRates}, bad + "Packet time must be greater than 0"},
    };
    for (const auto& [direction, uplink, downlink, expected] : rows) {
        StreamConfig stream;
        ASSERT_TRUE(stream.setDirection(direction).isSuccess());
        for (const CodecConfig* codec : uplink) ASSERT_TRUE(stream.addUplinkCodec(*codec).isSuccess());
        for (const CodecConfig* codec : downlink) ASSERT_TRUE(stream.addDownlinkCodec(*codec).isSuccess());
        EXPECT_EQ(expected, stream.check().format()) << "direction " << direction << ", uplink " << uplink.size();
    }
}

TEST(StreamConfigTest, DefaultsAndRefusedSettersOrCodecsLeaveTheStreamUnchanged) {
    EXPECT_EQ(std::string("  Remote: 127.0.0.1:49150\n  Mute: 0\n  Direction : Full duplex (3)\n  RtcpEnabled: 1\n"
                          "  RtcpConfig: AS=64 RS=800 RR=0 interval=5000  ReducedSizeMode=0\n  IsHeld: 0\n"
                          "  RtpProfile: 3551\n  PdpContext: primaryCID=1 secondaryCID=1\n"),
              StreamConfig().toString());
    EXPECT_EQ(49151, StreamConfig().getRemoteRtcpPort());
    StreamConfig stream = sampleStream();
    const std::string invalid = "Invalid Param (Code 1002): ";
    EXPECT_EQ(invalid + "Invalid direction : 4", stream.setDirection(StreamConfig::Direction(4)).format());
    EXPECT_EQ(invalid + "Invalid socket port: 1023", stream.setRemoteRtpPort(1023).format());
    EXPECT_EQ(invalid + "Invalid internet address : 10.0.0", stream.setRemoteIp("10.0.0").format());
    const CountedCodec mine;
    EXPECT_EQ(invalid + "A codec with the same payload type 99 is already present",
              stream.addUplinkCodec(mine).format());
    // The refused clone is deleted, once.
    EXPECT_EQ(1, std::count(CountedCodec::deleted.begin(), CountedCodec::deleted.end(), CountedCodec::lastId));
    EXPECT_EQ(sampleStream().toString(), stream.toString());
    EXPECT_TRUE(stream.setRemoteRtpPort(65535).isSuccess() && stream.setRemoteIp("::1").isSuccess());
    EXPECT_EQ(-1, stream.getRemoteRtcpPort());
}

// A value whose printed text is too long to be held inside a string object.
struct LongText {};
std::ostream& operator<<(std::ostream& out, LongText) { return out << std::string(100, 'x'); }

// The first, a middle and the last allocation of a copy, an assignment over a stream that
// already holds codecs, a text dump and a message being built: each failure ends the
// process through std::terminate() and abort(), so no caller sees a half-copied stream, a
// leaked clone or a truncated text.
TEST(StreamConfigDeathTest, AllocationFailureInsideAnOperationEndsTheProcess) {
    StreamConfig source;
    AmrCodecConfig amr;
    amr.addAmrRate(AmrRate2);
    ASSERT_TRUE(source.setRemoteIp("2001:db8:1234:5678::10").isSuccess() && source.addUplinkCodec(amr).isSuccess() &&
                source.addUplinkCodec(DtmfCodecConfig()).isSuccess() && source.addDownlinkCodec(amr).isSuccess());
    const std::function<void()> operations[] = {
        [&] { StreamConfig{source} = source; },  // a copy, then an assignment over its codecs
        [&] { static_cast<void>(source.toString()); },
        [] { static_cast<void>(StreamConfig::Result(StreamConfig::InvalidParam) << LongText()); },
    };
    for (const auto& operation : operations) {
        const long before = allocationCount;
        operation();
        const long count = allocationCount - before;
        for (const long nth : {1L, (count + 1) / 2, count}) {
            // std::terminate()'s own line, whichever standard library
            EXPECT_ABORT((failingAllocation = allocationCount + nth, operation()), "terminat")
                << nth << " of " << count;
        }
    }
}

// A list makes room for four codecs at its first addition: four codecs cost four clones
// and one block of storage.
TEST(StreamConfigTest, AListAllocatesRoomForFourCodecsAtOnce) {
    StreamConfig stream;
    DtmfCodecConfig dtmf;
    const long before = allocationCount;
    for (int payloadType : {96, 97, 98, 99}) {
        dtmf.setPayloadType(payloadType);
        ASSERT_TRUE(stream.addUplinkCodec(dtmf).isSuccess());
    }
    if (allocationCount == before) GTEST_SKIP() << "operator new is not this program's (valgrind replaces it)";
    EXPECT_EQ(5, allocationCount - before);
}

}  // namespace tessel::rva::tests
