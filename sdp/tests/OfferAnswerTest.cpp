#include "OfferAnswer.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "AmrCodecCapabilities.h"
#include "AmrCodecConfig.h"
#include "DtmfCodecCapabilities.h"
#include "RtcpConfig.h"
#include "SdpTestHelpers.h"

namespace tessel::rva::sdp {
namespace {

const LocalEndpoint kLocal{"192.0.2.1", 49152};

// The engine's capability sets the tests negotiate with.
enum Profile { Default, Restricted, CrcCapable, NoModeChangeCapability, NeedsModeChangePeriod, AvpfOnly };

StreamCapabilities capabilities(Profile profile) {
    if (profile == Default) {
        return defaultCapabilities();
    }
    AmrCodecCapabilities amr;  // one band; telephone-event at its rate but for CrcCapable
    amr.setBandType(profile == AvpfOnly ? BandTypeWb : BandTypeNb);
    amr.setOctetAlignModeRequired(profile == Restricted);
    // Restricted holds modes 0..2, AvpfOnly lists every mode; both in descending order.
    for (int mode = 8; mode >= 0; --mode) {
        if (profile == AvpfOnly || (profile == Restricted && mode <= 2)) {
            amr.addSupportedAmrRate(static_cast<AmrRate>(mode));
        }
    }
    amr.setPacketTime(profile == Restricted ? 40 : 20);
    amr.setCrcModeSupport(profile == CrcCapable);
    amr.setModeChangeCapability(profile == NoModeChangeCapability ? ModeChangeCapabilityAny
                                                                  : ModeChangeCapabilityTwoFrames);
    amr.setModeChangePeriod(profile == NeedsModeChangePeriod ? ModeChangePeriodTwoFrames : ModeChangePeriodAny);
    amr.setModeChangeNeighborRequired(profile == NeedsModeChangePeriod);
    DtmfCodecCapabilities dtmf;
    dtmf.setBandType(amr.getBandType());
    StreamCapabilities caps;
    caps.addCodecCapabilities(amr);
    if (profile != CrcCapable) {
        caps.addCodecCapabilities(dtmf);
    }
    caps.addRtpProfile(profile == AvpfOnly ? RtpProfileAvpf : RtpProfileAvp);
    // Reduced-size RTCP asked for on both profiles, written only under RTP/AVPF.
    RtcpConfig rtcp(5000, 2000, 0, 41, profile == AvpfOnly || profile == Restricted);
    caps.setRtcpCaps(rtcp);
    return caps;
}

// The lines of a written section that start with one of `prefixes`, in order, each ended by "\n".
std::string linesOf(const MediaDescription& media, std::initializer_list<std::string> prefixes) {
    const std::string text = media.toString();
    std::string lines;
    for (std::size_t start = 0, end = 0; start < text.size(); start = end + 2) {
        end = text.find("\r\n", start);
        for (const std::string& prefix : prefixes) {
            lines += text.compare(start, prefix.size(), prefix) == 0 ? text.substr(start, end - start) + "\n" : "";
        }
    }
    return lines;
}

TEST(OfferAnswerTest, DefaultOfferIsTheTerminalProfile) {
    MediaDescription offer;
    ASSERT_TRUE(createOffer(defaultCapabilities(), kLocal, offer).isSuccess());
    EXPECT_EQ(
        "m=audio 49152 RTP/AVP 96 97 98 99 100 101\r\nc=IN IP4 192.0.2.1\r\nb=AS:41\r\nb=RS:0\r\nb=RR:2000\r\n"
        "a=rtpmap:96 AMR-WB/16000/1\r\na=fmtp:96 mode-change-capability=2; max-red=220\r\n"
        "a=rtpmap:97 AMR-WB/16000/1\r\na=fmtp:97 octet-align=1; mode-change-capability=2; max-red=220\r\n"
        "a=rtpmap:98 AMR/8000/1\r\na=fmtp:98 mode-change-capability=2; max-red=220\r\n"
        "a=rtpmap:99 AMR/8000/1\r\na=fmtp:99 octet-align=1; mode-change-capability=2; max-red=220\r\n"
        "a=rtpmap:100 telephone-event/16000\r\na=fmtp:100 0-15\r\na=rtpmap:101 telephone-event/8000\r\n"
        "a=fmtp:101 0-15\r\na=ptime:20\r\na=maxptime:240\r\na=sendrecv\r\n",
        offer.toString());
    EXPECT_EQ(RtcpConfig(5000, 2000, 0, 41, false), defaultCapabilities().getRTCPcaps());
}

TEST(OfferAnswerTest, OfferFollowsTheCapabilities) {
    const struct {
        Profile profile;
        int firstPayloadType;
        StreamConfig::Direction direction;
        const char* lines;  // m=, a=fmtp and the attributes after the formats
    } rows[] = {
        // Octet-align required: no bandwidth-efficient payload type; a mode-set of the
        // modes held; telephone-event only at the one voice clock rate.
        {Restricted, 96, StreamConfig::FullDuplex,
         "m=audio 49152 RTP/AVP 96 97\n"
         "a=fmtp:96 mode-set=0,1,2; octet-align=1; mode-change-capability=2; max-red=220\n"
         "a=fmtp:97 0-15\na=ptime:40\na=maxptime:240\na=sendrecv\n"},
        {NeedsModeChangePeriod, 125, StreamConfig::SendOnly,
         "m=audio 49152 RTP/AVP 125 126 127\n"
         "a=fmtp:125 mode-change-period=2; mode-change-capability=2; mode-change-neighbor=1; max-red=220\n"
         "a=fmtp:126 octet-align=1; mode-change-period=2; mode-change-capability=2; mode-change-neighbor=1; "
         "max-red=220\na=fmtp:127 0-15\na=ptime:20\na=maxptime:240\na=sendonly\n"},
        {AvpfOnly, 96, StreamConfig::Inactive,
         "m=audio 49152 RTP/AVPF 96 97 98\n"
         "a=fmtp:96 mode-change-capability=2; max-red=220\n"
         "a=fmtp:97 octet-align=1; mode-change-capability=2; max-red=220\n"
         "a=fmtp:98 0-15\na=ptime:20\na=maxptime:240\na=inactive\na=rtcp-rsize\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.lines);
        LocalEndpoint endpoint = kLocal;
        endpoint.firstPayloadType = row.firstPayloadType;
        endpoint.direction = row.direction;
        MediaDescription offer;
        ASSERT_TRUE(createOffer(capabilities(row.profile), endpoint, offer).isSuccess());
        EXPECT_EQ(row.lines, linesOf(offer, {"m=", "a=fmtp", "a=ptime", "a=maxptime", "a=s", "a=i", "a=rtcp"}));
    }
}

TEST(OfferAnswerTest, OfferRefusalsLeaveTheOfferUnchanged) {
    const struct {
        LocalEndpoint endpoint;
        bool withAmr;
        const char* message;
    } rows[] = {
        {{"host.example", 49152}, true, "Invalid internet address : \"host.example\""},
        {{std::string("192.0.2.1\0x", 11), 49152}, true, "Invalid internet address : \"192.0.2.1\\x00x\""},
        {{"192.0.2.1", 1023}, true, "Invalid socket port: 1023"},
        {{"2001:db8::1", 65536}, true, "Invalid socket port: 65536"},
        {{"192.0.2.1", 49152, static_cast<StreamConfig::Direction>(4)}, true, "Invalid direction : 4"},
        {{"192.0.2.1", 49152, StreamConfig::FullDuplex, 95}, true, "Invalid first payload type: 95"},
        {{"192.0.2.1", 49152, StreamConfig::FullDuplex, 128}, true, "Invalid first payload type: 128"},
        {{"192.0.2.1", 49152, StreamConfig::FullDuplex, 127}, true, "Payload types run past 127: 6 formats from 127"},
        {kLocal, false, "No AMR capability"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.message);
        MediaDescription offer;
        offer.setMediaLine("audio 9 RTP/AVP 0");
        const MediaDescription before = offer;
        const Result result =
            createOffer(row.withAmr ? defaultCapabilities() : StreamCapabilities(), row.endpoint, offer);
        EXPECT_EQ(std::string("Invalid Param (Code 1002): ") + row.message, result.format());
        EXPECT_EQ(before, offer);
    }
}

MediaDescription offerOf(Profile profile, StreamConfig::Direction direction = StreamConfig::FullDuplex) {
    LocalEndpoint endpoint = kLocal;
    endpoint.direction = direction;
    MediaDescription offer;
    EXPECT_TRUE(createOffer(capabilities(profile), endpoint, offer).isSuccess());
    return offer;
}

// Every refusal, answering an offer or reading the answer to ours, leaves `negotiated` as it
// was. Answering, every failure but 1002 writes an answer: the rejected-stream line unless
// the offer was answerable.
TEST(OfferAnswerTest, RefusalsLeaveTheStreamUnchanged) {
    const struct {
        const char* remote;  // after "m=": the offer we answer, or the answer to our offer
        ResultCode code;
        const char* message;
        const char* answer = nullptr;  // how our answer starts; none: the remote is an answer
        const char* session = "c=IN IP4 192.0.2.9\n";
        std::size_t index = 0;
        Profile ours = Default;  // the capabilities we answer with, or that made our offer
    } rows[] = {
        {"audio 5004 RTP/AVP 98\na=rtpmap:98 AMR/8000\n", InvalidParam, "media index 1 past the end",
         "m=audio 9 RTP/AVP 0\r\n", "c=IN IP4 192.0.2.9\n", 1},
        {"audio 0 RTP/SAVP 98 0\n", Rejected, "disabled", "m=audio 0 RTP/SAVP 98\r\n"},
        {"audio 5004 RTP/SAVP 98\na=rtpmap:98 AMR/8000\n", Rejected, "\"RTP/SAVP\"", "m=audio 0 RTP/SAVP 98\r\n"},
        {"audio 5004 RTP/AVP 0 101\na=rtpmap:101 telephone-event/8000\n", Rejected,
         "no AMR or AMR-WB payload type offered", "m=audio 0 RTP/AVP 0\r\n"},
        {"audio 5004 RTP/AVP 97 98\na=rtpmap:97 AMR/8000\na=fmtp:97 mode-set=8\na=rtpmap:98 AMR/8000\n"
         "a=fmtp:98 crc=1\n",
         Rejected,
         "payload type 97 (AMR/8000): a=fmtp refused: invalid value of fmtp parameter \"mode-set\": \"8\"; "
         "payload type 98 (AMR/8000): crc=1 not supported",
         "m=audio 0 RTP/AVP 97\r\n"},
        // A voice format found, but no usable remote address or port.
        {"audio 5004 RTP/AVP 98\na=rtpmap:98 AMR/8000\n", Malformed, "no c= line", "m=audio 0 RTP/AVP 98\r\n", ""},
        {"audio 5004/2 RTP/AVP 98\na=rtpmap:98 AMR/8000\n", Unsupported, "port count /2", "m=audio 0 RTP/AVP 98\r\n"},
        // The answer is written, the stream fails its check: the offerer wants 300 ms.
        {"audio 5004 RTP/AVP 98\na=rtpmap:98 AMR/8000\na=ptime:300\n", InvalidConfiguration, "Packet time '300'",
         "m=audio 49152 RTP/AVP 98\r\n"},
        // Answers to our offer.
        {"audio 0 RTP/AVP 96\n", Rejected, "disabled"},
        {"audio 6000 RTP/AVP 96\na=rtpmap:96 AMR-WB/16000\n", Malformed, "no c= line", nullptr, ""},
        {"audio 6000 RTP/AVPF 96\na=rtpmap:96 AMR-WB/16000\n", Unsupported, "\"RTP/AVPF\" differs"},
        {"audio 6000 RTP/AVP 96 100\na=rtpmap:96 AMR-WB/16000\na=rtpmap:100 telephone-event/8000\n", Unsupported,
         "payload type \"100\" was not offered with that meaning"},
        {"audio 6000 RTP/AVP 96 102\na=rtpmap:96 AMR-WB/16000\n", Unsupported, "\"102\" was not offered"},
        {"audio 6000 RTP/AVP 96\na=rtpmap:96 AMR/8000\n", Unsupported, "payload type \"96\" was not"},
        {"audio 6000 RTP/AVP 100\na=rtpmap:100 telephone-event/16000\n", Rejected, "no AMR"},
        {"audio 6000 RTP/AVP 96\na=rtpmap:96 AMR-WB/16000\na=fmtp:96 octet-align=1\n", Unsupported,
         "payload type 96: octet-align differs"},
        {"audio 6000 RTP/AVP 97\na=rtpmap:97 AMR-WB/16000\na=fmtp:97 octet-align=1; crc=1\n", Unsupported,
         "payload type 97: crc differs"},
        {"audio 6000 RTP/AVP 97\na=rtpmap:97 AMR-WB/16000\na=fmtp:97 octet-align=1; mode-set=0,9\n", Unsupported,
         "payload type 97: invalid value of fmtp parameter \"mode-set\""},
        {"audio 6000 RTP/AVP 96\na=rtpmap:96 AMR/8000\na=fmtp:96 octet-align=1; mode-set=0,1\n", Unsupported,
         "payload type 96: mode-set differs", nullptr, "c=IN IP4 192.0.2.9\n", 0, Restricted},
    };
    StreamConfig before;
    before.setRemoteRtpPort(50000);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.remote);
        MediaDescription answer;
        answer.setMediaLine("audio 9 RTP/AVP 0");
        StreamConfig negotiated(before);
        const SessionDescription description = described(row.remote, row.session);
        const Result result =
            row.answer ? createAnswer(capabilities(row.ours), kLocal, description, row.index, answer, negotiated)
                       : applyAnswer(offerOf(row.ours), description, row.index, negotiated);
        EXPECT_EQ(row.code, result.getCode());
        EXPECT_NE(std::string::npos, result.format().find(row.message)) << result.format();
        if (row.answer) {
            EXPECT_EQ(0u, answer.toString().find(row.answer)) << answer.toString();
        }
        EXPECT_EQ(before.toString(), negotiated.toString());
    }
}

// RFC 3264 section 6.1: the direction we answer to each offered one, and the stream we run;
// reading the answer to our offer, the stream runs at most what the offer allowed, with a
// note when the answer grants more.
TEST(OfferAnswerTest, Directions) {
    using S = StreamConfig;
    const struct {
        S::Direction ours;  // the direction we want, or the one we offered
        const char* lines;  // the remote section's lines after its a=rtpmap
        S::Direction negotiated;
        bool rtcp;
        std::size_t notes;
        const char* answered = nullptr;  // our answer's direction; none: the remote is an answer
        const char* session = "c=IN IP4 192.0.2.9\n";
    } rows[] = {
        {S::FullDuplex, "", S::FullDuplex, true, 1, "sendrecv"},
        {S::ReceiveOnly, "", S::ReceiveOnly, true, 1, "recvonly"},
        {S::FullDuplex, "a=sendonly\n", S::ReceiveOnly, true, 1, "recvonly"},
        {S::SendOnly, "a=sendonly\n", S::Inactive, true, 1, "inactive"},
        {S::FullDuplex, "a=recvonly\n", S::SendOnly, true, 1, "sendonly"},
        {S::ReceiveOnly, "a=recvonly\n", S::Inactive, true, 1, "inactive"},
        {S::FullDuplex, "a=inactive\n", S::Inactive, true, 1, "inactive"},
        {S::FullDuplex, "", S::ReceiveOnly, true, 1, "recvonly", "c=IN IP4 192.0.2.9\na=sendonly\n"},
        // Hold by a null address: answered by the attribute, but nothing is sent.
        {S::FullDuplex, "", S::ReceiveOnly, false, 1, "sendrecv", "c=IN IP4 0.0.0.0\n"},
        // The answer to our offer: a note where it grants more than the offer allowed.
        {S::FullDuplex, "", S::FullDuplex, true, 0},
        {S::SendOnly, "a=recvonly\n", S::SendOnly, true, 0},
        {S::SendOnly, "a=sendrecv\n", S::SendOnly, true, 1},
        {S::ReceiveOnly, "", S::ReceiveOnly, true, 1},
        {S::FullDuplex, "c=IN IP4 0.0.0.0\n", S::ReceiveOnly, false, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.session) + row.lines + (row.answered ? row.answered : "(answer)"));
        LocalEndpoint endpoint = kLocal;
        endpoint.direction = row.ours;
        MediaDescription answer;
        StreamConfig negotiated;
        std::vector<std::string> notes;
        const SessionDescription description =
            described("audio 5004 RTP/AVP 98\na=rtpmap:98 amr/8000\n" + std::string(row.lines), row.session);
        ASSERT_TRUE((row.answered
                         ? createAnswer(capabilities(CrcCapable), endpoint, description, 0, answer, negotiated, &notes)
                         : applyAnswer(offerOf(Default, row.ours), description, 0, negotiated, &notes))
                        .isSuccess());
        EXPECT_EQ(row.negotiated, negotiated.getDirection());
        EXPECT_EQ(row.rtcp, negotiated.isRtcpEnabled());
        ASSERT_EQ(row.notes, notes.size());
        if (row.answered) {
            EXPECT_EQ("telephone-event: no DTMF capability at 8000 Hz", notes[0]);
            const std::string text = answer.toString();
            EXPECT_EQ(std::string("a=") + row.answered + "\r\n", text.substr(text.rfind("a=")));
        }
    }
}

// The voice format chosen and its answered a=fmtp (RFC 4867 section 8.3.1): the payload
// format echoed, the mode-set echoed or the payload type refused, the smaller max-red,
// telephone-event only at the voice clock rate and in one channel; reduced-size RTCP.
TEST(OfferAnswerTest, AnswerVoiceFormat) {
    const struct {
        Profile profile;
        const char* media;     // after "m=audio 5004 "
        const char* expected;  // the answer's m=, a=fmtp and a=rtcp lines, or the refusal's reason
    } rows[] = {
        {Default,
         "RTP/AVP 98 100 101\na=rtpmap:98 AMR/8000\na=rtpmap:100 telephone-event/16000\n"
         "a=rtpmap:101 telephone-event/8000\n",
         "m=audio 49152 RTP/AVP 98 101\na=fmtp:98 mode-change-capability=2; max-red=220\na=fmtp:101 0-15\n"},
        {Default,
         "RTP/AVP 96 100 101\na=rtpmap:96 AMR-WB/16000\na=rtpmap:100 telephone-event/16000/2\n"
         "a=rtpmap:101 telephone-event/16000\n",
         "m=audio 49152 RTP/AVP 96 101\na=fmtp:96 mode-change-capability=2; max-red=220\na=fmtp:101 0-15\n"},
        {Default,
         "RTP/AVP 98\na=rtpmap:98 AMR/8000\na=fmtp:98 mode-set=0,2,4,7; mode-change-period=2; "
         "mode-change-neighbor=1; max-red=0\n",
         "m=audio 49152 RTP/AVP 98\na=fmtp:98 mode-set=0,2,4,7; mode-change-capability=2; max-red=0\n"},
        {Default, "RTP/AVP 98\na=rtpmap:98 AMR/8000\na=fmtp:98 octet-align=0; channels=1; max-red=400\n",
         "m=audio 49152 RTP/AVP 98\na=fmtp:98 octet-align=0; mode-change-capability=2; max-red=220\n"},
        {Default,
         "RTP/AVP 97 98\na=rtpmap:97 AMR/8000/2\na=rtpmap:98 AMR/8000\na=fmtp:98 octet-align=1; robust-sorting=0\n",
         "m=audio 49152 RTP/AVP 98\na=fmtp:98 octet-align=1; mode-change-capability=2; robust-sorting=0; "
         "max-red=220\n"},
        {CrcCapable, "RTP/AVP 98\na=rtpmap:98 AMR/8000\na=fmtp:98 crc=1\n",
         "m=audio 49152 RTP/AVP 98\na=fmtp:98 mode-change-capability=2; crc=1; max-red=220\n"},
        {Restricted, "RTP/AVP 98 99\na=rtpmap:98 AMR/8000\na=rtpmap:99 AMR/8000\na=fmtp:99 octet-align=1\n",
         "m=audio 49152 RTP/AVP 99\n"
         "a=fmtp:99 mode-set=0,1,2; octet-align=1; mode-change-capability=2; max-red=220\n"},
        {Restricted, "RTP/AVP 98\na=rtpmap:98 AMR/8000\na=fmtp:98 mode-set=2,0; octet-align=1\n",
         "m=audio 49152 RTP/AVP 98\na=fmtp:98 mode-set=2,0; octet-align=1; mode-change-capability=2; max-red=220\n"},
        {Restricted, "RTP/AVP 98\na=rtpmap:98 AMR/8000\na=fmtp:98 mode-set=0,2,4; octet-align=1\n",
         "payload type 98 (AMR/8000): mode-set: mode 4 not supported"},
        {Restricted, "RTP/AVP 98\na=rtpmap:98 AMR/8000\n", "payload type 98 (AMR/8000): octet-align"},
        {Restricted, "RTP/AVP 96\na=rtpmap:96 AMR-WB/16000\na=fmtp:96 octet-align=1\n",
         "payload type 96 (AMR-WB/16000): no AMR capability of its band"},
        {NoModeChangeCapability, "RTP/AVP 98\na=rtpmap:98 AMR/8000\na=fmtp:98 mode-change-period=2\n",
         "payload type 98 (AMR/8000): mode-change-period=2"},
        {NeedsModeChangePeriod, "RTP/AVP 98\na=rtpmap:98 AMR/8000\n",
         "payload type 98 (AMR/8000): mode-change-capability"},
        // Either parameter says that the offerer can change modes every second frame only.
        {NeedsModeChangePeriod, "RTP/AVP 98\na=rtpmap:98 AMR/8000\na=fmtp:98 mode-change-capability=2\n",
         "m=audio 49152 RTP/AVP 98\na=fmtp:98 mode-change-period=2; mode-change-capability=2; "
         "mode-change-neighbor=1; max-red=220\n"},
        {NeedsModeChangePeriod, "RTP/AVP 99\na=rtpmap:99 AMR/8000\na=fmtp:99 mode-change-period=2\n",
         "m=audio 49152 RTP/AVP 99\na=fmtp:99 mode-change-period=2; mode-change-capability=2; "
         "mode-change-neighbor=1; max-red=220\n"},
        {AvpfOnly, "RTP/AVPF 96 100\na=rtpmap:96 AMR-WB/16000\na=rtpmap:100 telephone-event/16000\na=rtcp-rsize\n",
         "m=audio 49152 RTP/AVPF 96 100\na=fmtp:96 mode-change-capability=2; max-red=220\na=fmtp:100 0-15\n"
         "a=rtcp-rsize\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.media);
        MediaDescription answer;
        StreamConfig negotiated;
        const Result result = createAnswer(capabilities(row.profile), kLocal,
                                           described(std::string("audio 5004 ") + row.media), 0, answer, negotiated);
        if (result.isSuccess()) {
            EXPECT_EQ(row.expected, linesOf(answer, {"m=", "a=fmtp", "a=rtcp"}));
        } else {
            EXPECT_EQ(Rejected, result.getCode());
            EXPECT_NE(std::string::npos, result.format().find(row.expected)) << result.format();
        }
    }
}

// The uplink runs with what the offerer asked to receive, the downlink with what we asked.
TEST(OfferAnswerTest, AnswerNegotiatedStream) {
    MediaDescription answer;
    StreamConfig negotiated;
    std::vector<std::string> notes;
    const SessionDescription offer = described(
        "audio 5004 RTP/AVP x 0 96 100\nb=RR:1500\na=rtpmap:96 AMR-WB/16000\n"
        "a=fmtp:96 mode-set=0,2,8; mode-change-period=2; mode-change-neighbor=1; max-red=100\n"
        "a=rtpmap:100 telephone-event/16000\na=ptime:40\na=maxptime:80\na=rtcp:5004\n");
    ASSERT_TRUE(createAnswer(defaultCapabilities(), kLocal, offer, 0, answer, negotiated, &notes).isSuccess());
    EXPECT_EQ((std::vector<std::string>{"format \"x\": not an RTP payload type",
                                        "payload type 0 (PCMU/8000): not a supported encoding",
                                        "a=rtcp:5004: an RTCP port other than the RTP port + 1 cannot be held"}),
              notes);
    EXPECT_EQ(
        "m=audio 49152 RTP/AVP 96 100\r\nc=IN IP4 192.0.2.1\r\nb=AS:41\r\nb=RS:0\r\nb=RR:2000\r\n"
        "a=rtpmap:96 AMR-WB/16000/1\r\na=fmtp:96 mode-set=0,2,8; mode-change-capability=2; max-red=100\r\n"
        "a=rtpmap:100 telephone-event/16000\r\na=fmtp:100 0-15\r\na=ptime:20\r\na=maxptime:240\r\n"
        "a=sendrecv\r\n",
        answer.toString());
    EXPECT_EQ("192.0.2.9", negotiated.getRemoteIp());
    EXPECT_EQ(5004, negotiated.getRemoteRtpPort());
    EXPECT_EQ(RtpProfileAvp, negotiated.getRtpProfile());
    EXPECT_EQ(RtcpConfig(5000, 1500, 0, 41, false), negotiated.getRtcpConfig());
    EXPECT_EQ("AMR 16kHz pt96 40/80 be rates 0 2 8 crc0 rs0 il0 mcn1 mcp1 red1/100 dtx1\nDTMF 16kHz pt100 40/80\n",
              codecs(negotiated, true));
    EXPECT_EQ("AMR 16kHz pt96 20/240 be rates 0 2 8 crc0 rs0 il0 mcn0 mcp0 red1/100 dtx1\nDTMF 16kHz pt100 20/240\n",
              codecs(negotiated, false));
}

// Rates, packet times and RTCP come from the answer where it gives them, else from our offer.
TEST(OfferAnswerTest, ApplyAnswerFallsBackOnTheOffer) {
    const struct {
        Profile offered;
        const char* answer;
        RtcpConfig rtcp;
        const char* uplink;
        const char* downlink;
    } rows[] = {
        {Default,
         "96 100\na=rtpmap:96 AMR-WB/16000/1\na=fmtp:96 mode-set=0,1,2; mode-change-period=2; max-red=0\n"
         "a=rtpmap:100 telephone-event/16000\nb=RR:1500\na=ptime:40\n",
         RtcpConfig(5000, 1500, 0, 41, false),
         "AMR 16kHz pt96 40/240 be rates 0 1 2 crc0 rs0 il0 mcn0 mcp1 red0/0 dtx1\nDTMF 16kHz pt100 40/240\n",
         "AMR 16kHz pt96 20/240 be rates 0 1 2 crc0 rs0 il0 mcn0 mcp0 red0/0 dtx1\nDTMF 16kHz pt100 20/240\n"},
        {Default, "98\na=rtpmap:98 AMR/8000/1\n", RtcpConfig(5000, 2000, 0, 41, false),
         "AMR 8kHz pt98 20/240 be rates 0 1 2 3 4 5 6 7 crc0 rs0 il0 mcn0 mcp0 red0/1 dtx1\n",
         "AMR 8kHz pt98 20/240 be rates 0 1 2 3 4 5 6 7 crc0 rs0 il0 mcn0 mcp0 red0/1 dtx1\n"},
        {Restricted,
         "96 97\na=rtpmap:96 AMR/8000/1\na=fmtp:96 octet-align=1; max-red=220\nb=AS:30\n"
         "a=rtpmap:97 telephone-event/8000\na=ptime:30\n",
         RtcpConfig(5000, 2000, 0, 30, false),
         "AMR 8kHz pt96 30/240 oa rates 0 1 2 crc0 rs0 il0 mcn0 mcp0 red1/220 dtx1\nDTMF 8kHz pt97 30/240\n",
         "AMR 8kHz pt96 40/240 oa rates 0 1 2 crc0 rs0 il0 mcn0 mcp0 red1/220 dtx1\nDTMF 8kHz pt97 40/240\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.answer);
        StreamConfig negotiated;
        ASSERT_TRUE(
            applyAnswer(offerOf(row.offered), described(std::string("audio 6000 RTP/AVP ") + row.answer), 0, negotiated)
                .isSuccess());
        EXPECT_EQ(row.rtcp, negotiated.getRtcpConfig());
        EXPECT_EQ(row.uplink, codecs(negotiated, true));
        EXPECT_EQ(row.downlink, codecs(negotiated, false));
    }
    // Reduced-size RTCP only when our offer asked for it.
    const char* const kAnswer = "audio 6000 RTP/AVPF 96\na=rtpmap:96 AMR-WB/16000/1\na=rtcp-rsize\n";
    StreamConfig negotiated;
    ASSERT_TRUE(applyAnswer(offerOf(AvpfOnly), described(kAnswer), 0, negotiated).isSuccess());
    EXPECT_TRUE(negotiated.getRtcpConfig().isReducedSizeMode());
    const MediaDescription unasked = described("audio 49152 RTP/AVPF 96\na=rtpmap:96 AMR-WB/16000/1\n").media(0);
    ASSERT_TRUE(applyAnswer(unasked, described(kAnswer), 0, negotiated).isSuccess());
    EXPECT_FALSE(negotiated.getRtcpConfig().isReducedSizeMode());
}

// Two ends with different capabilities agree on the stream: our offer, their answer,
// our reading of it.
TEST(OfferAnswerTest, RoundTripBetweenDifferentCapabilities) {
    MediaDescription offer, answer;
    StreamConfig theirs, ours;
    ASSERT_TRUE(createOffer(capabilities(Restricted), kLocal, offer).isSuccess());
    const LocalEndpoint them{"2001:db8::2", 30000};
    ASSERT_TRUE(createAnswer(defaultCapabilities(), them, parsed(offer.toString()), 0, answer, theirs).isSuccess());
    ASSERT_TRUE(applyAnswer(offer, parsed(answer.toString()), 0, ours).isSuccess());
    EXPECT_EQ("2001:db8::2", ours.getRemoteIp());
    EXPECT_EQ(30000, ours.getRemoteRtpPort());
    EXPECT_EQ("AMR 8kHz pt96 20/240 oa rates 0 1 2 crc0 rs0 il0 mcn0 mcp0 red1/220 dtx1\nDTMF 8kHz pt97 20/240\n",
              codecs(ours, true));
    EXPECT_EQ(codecs(ours, true), codecs(theirs, false));
    EXPECT_EQ(codecs(ours, false), codecs(theirs, true));
}

}  // namespace
}  // namespace tessel::rva::sdp
