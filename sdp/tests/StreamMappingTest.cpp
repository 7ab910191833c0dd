#include "StreamMapping.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "AmrCodecConfig.h"
#include "RtcpConfig.h"
#include "SdpTestHelpers.h"

namespace tessel::rva::sdp {
namespace {

const char kAmrWb[] = "a=rtpmap:96 AMR-WB/16000/1\n";

// Where the remote end is, which way media flows and the RTCP parameters: media lines
// over session lines, each bandwidth type on its own.
TEST(StreamMappingTest, RemoteEndDirectionAndRtcp) {
    using S = StreamConfig;
    const RtcpConfig kDefault;
    const struct {
        const char* media;  // after "m=audio 49170 "
        const char* address;
        S::Direction direction;
        RtcpConfig rtcp;
        bool enabled;
        const char* session = "c=IN IP4 192.0.2.9\n";
    } rows[] = {
        {"RTP/AVP 96\n", "192.0.2.9", S::FullDuplex, kDefault, true},
        {"RTP/AVP 96\nc=IN IP6 2001:db8::5\n", "2001:db8::5", S::FullDuplex, kDefault, true},
        {"RTP/AVP 96\na=sendonly\n", "192.0.2.9", S::ReceiveOnly, kDefault, true},
        {"RTP/AVP 96\na=RecvOnly\nb=RS:0\n", "192.0.2.9", S::SendOnly, RtcpConfig(5000, 0, 0, 64, false), true},
        {"RTP/AVP 96\na=inactive\nb=RR:0\nb=RS:1\n", "192.0.2.9", S::Inactive, RtcpConfig(5000, 0, 1, 64, false), true},
        {"RTP/AVP 96\n", "192.0.2.1", S::SendOnly, kDefault, true, "c=IN IP4 192.0.2.1\na=recvonly\n"},
        {"RTP/AVP 96\na=sendrecv\nb=RS:500\nb=as:41\n", "192.0.2.1", S::FullDuplex,
         RtcpConfig(5000, 300, 500, 41, false), true, "c=IN IP4 192.0.2.1\na=sendonly\nb=AS:64\nb=RS:100\nb=RR:300\n"},
        {"RTP/AVP 96\nb=RS:0\nb=RR:0\n", "192.0.2.9", S::FullDuplex, RtcpConfig(5000, 0, 0, 64, false), false},
        {"RTP/AVP 96\nb=RR:0\n", "192.0.2.1", S::FullDuplex, RtcpConfig(5000, 0, 0, 64, false), false,
         "c=IN IP4 192.0.2.1\nb=RS:0\n"},
        // Reduced-size RTCP needs RTP/AVPF.
        {"RTP/AVPF 96\na=rtcp-rsize\n", "192.0.2.9", S::FullDuplex, RtcpConfig(5000, 0, 800, 64, true), true},
        {"RTP/AVP 96\na=rtcp-rsize\n", "192.0.2.9", S::FullDuplex, kDefault, true},
        // A null address: nothing is sent, neither RTP nor RTCP, whatever the attribute says.
        {"RTP/AVP 96\n", "0.0.0.0", S::ReceiveOnly, kDefault, false, "c=IN IP4 0.0.0.0\n"},
        {"RTP/AVP 96\nc=IN IP6 ::\na=recvonly\n", "::", S::Inactive, kDefault, false, ""},
        {"RTP/AVP 96\nc=IN IP6 0:0::0\na=sendonly\n", "0:0::0", S::ReceiveOnly, kDefault, false, ""},
        {"RTP/AVP 96\nc=IN IP6 ::1\n", "::1", S::FullDuplex, kDefault, true, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.session) + "|" + row.media);
        StreamConfig stream;
        const SessionDescription remote = described(std::string("audio 49170 ") + row.media + kAmrWb, row.session);
        ASSERT_EQ(Success, toStreamConfig(remote, 0, stream).getCode());
        EXPECT_EQ(row.address, stream.getRemoteIp());
        EXPECT_EQ(49170, stream.getRemoteRtpPort());
        EXPECT_EQ(row.direction, stream.getDirection());
        EXPECT_EQ(row.rtcp, stream.getRtcpConfig());
        EXPECT_EQ(row.enabled, stream.isRtcpEnabled());
    }
}

TEST(StreamMappingTest, CodecsAndTheirAmrFields) {
    const struct {
        const char* formats;
        const char* lines;
        const char* codecs;
    } rows[] = {
        {"96", "a=rtpmap:96 AMR-WB/16000/1\n",
         "AMR 16kHz pt96 20/240 be rates 0 1 2 3 4 5 6 7 8 crc0 rs0 il0 mcn0 mcp0 red0/1 dtx1\n"},
        {"97", "a=rtpmap:97 amr/8000\na=fmtp:97 mode-set=7,0,4; mode-change-period=2; mode-change-neighbor=1\n",
         "AMR 8kHz pt97 20/240 be rates 7 0 4 crc0 rs0 il0 mcn1 mcp1 red0/1 dtx1\n"},
        {"97", "a=rtpmap:97 AMR/8000\na=fmtp:97 octet-align=1; max-red=220; mode-change-capability=2\n",
         "AMR 8kHz pt97 20/240 oa rates 0 1 2 3 4 5 6 7 crc0 rs0 il0 mcn0 mcp0 red1/220 dtx1\n"},
        // crc, robust-sorting and interleaving imply octet-aligned operation.
        {"97", "a=rtpmap:97 AMR/8000\na=fmtp:97 crc=1; max-red=0\n",
         "AMR 8kHz pt97 20/240 oa rates 0 1 2 3 4 5 6 7 crc1 rs0 il0 mcn0 mcp0 red0/0 dtx1\n"},
        {"97", "a=rtpmap:97 AMR/8000\na=fmtp:97 robust-sorting=1\n",
         "AMR 8kHz pt97 20/240 oa rates 0 1 2 3 4 5 6 7 crc0 rs1 il0 mcn0 mcp0 red0/1 dtx1\n"},
        {"97", "a=rtpmap:97 AMR/8000\na=fmtp:97 interleaving=4; crc=0; mode-change-period=1\n",
         "AMR 8kHz pt97 20/240 oa rates 0 1 2 3 4 5 6 7 crc0 rs0 il1 mcn0 mcp0 red0/1 dtx1\n"},
        // m= order is kept; telephone-event takes the band of its clock rate; a=ptime and
        // a=maxptime apply to every codec.
        {"101 96 100",
         "a=rtpmap:96 AMR-WB/16000\na=rtpmap:101 telephone-event/8000\n"
         "a=rtpmap:100 telephone-event/16000\na=ptime:40\na=maxptime: 80\n",
         "DTMF 8kHz pt101 40/80\n"
         "AMR 16kHz pt96 40/80 be rates 0 1 2 3 4 5 6 7 8 crc0 rs0 il0 mcn0 mcp0 red0/1 dtx1\n"
         "DTMF 16kHz pt100 40/80\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.lines);
        StreamConfig stream;
        const SessionDescription remote =
            described(std::string("audio 49170 RTP/AVP ") + row.formats + "\n" + row.lines);
        ASSERT_EQ(Success, toStreamConfig(remote, 0, stream).getCode());
        EXPECT_EQ(row.codecs, codecs(stream, true));
        EXPECT_EQ(row.codecs, codecs(stream, false));
    }
}

// Every format and attribute left out is named, once, in order; the rest still maps.
TEST(StreamMappingTest, NotesNameWhatIsSkippedAndWhy) {
    const SessionDescription remote = described(
        "audio 49170 RTP/AVP 0 8 10 13 17 18 99 96 x 97 98 102 103 104 105 96\n"
        "a=rtpmap:96 AMR-WB/16000\na=rtpmap:97 EVS/16000\na=rtpmap:98 AMR/16000\n"
        "a=rtpmap:102 AMR-WB/16000/2\na=rtpmap:103 telephone-event/48000\n"
        "a=rtpmap:104 AMR/8000\na=fmtp:104 mode-set=2,8\na=rtpmap:105 AMR/8000\na=fmtp:105 mode-set=7\n"
        "a=sendonly\na=sendrecv\na=rtcp-rsize\na=rtcp:49171 IN IP4 192.0.2.2\na=rtcp-mux\n"
        "a=ptime:20.5\x01\n");
    StreamConfig stream;
    std::vector<std::string> notes{"kept"};
    ASSERT_EQ(Success, toStreamConfig(remote, 0, stream, &notes).getCode());
    EXPECT_EQ((std::vector<std::string>{
                  "kept",
                  "a=sendrecv after a=sendonly: the first direction attribute counts",
                  "a=rtcp-rsize: reduced-size RTCP needs RTP/AVPF, ignored on RTP/AVP",
                  "a=rtcp:49171 IN IP4 192.0.2.2: an RTCP address other than the RTP address cannot be held",
                  "a=rtcp-mux: RTP and RTCP on one port cannot be held",
                  "a=ptime:\"20.5\\x01\": not a whole number of milliseconds, ignored",
                  "payload type 0 (PCMU/8000): not a supported encoding",
                  "payload type 8 (PCMA/8000): not a supported encoding",
                  "payload type 10 (L16/44100/2): not a supported encoding",
                  "payload type 13 (CN/8000): not a supported encoding",
                  "payload type 17 (DVI4/22050): not a supported encoding",
                  "payload type 18 (G729/8000): not a supported encoding",
                  "payload type 99: no a=rtpmap",
                  "format \"x\": not an RTP payload type",
                  "payload type 97 (EVS/16000): not a supported encoding",
                  "payload type 98 (AMR/16000): AMR runs at 8000 Hz",
                  "payload type 102 (AMR-WB/16000/2): only one channel is supported",
                  "payload type 103 (telephone-event/48000): telephone-event goes with AMR at 8000 Hz or AMR-WB at "
                  "16000 Hz only",
                  "payload type 104 (AMR/8000): a=fmtp refused: invalid value of fmtp parameter \"mode-set\": \"2,8\"",
                  "payload type 96: listed twice, the first place counts",
              }),
              notes);
    EXPECT_EQ(StreamConfig::ReceiveOnly, stream.getDirection());
    EXPECT_EQ(
        "AMR 16kHz pt96 20/240 be rates 0 1 2 3 4 5 6 7 8 crc0 rs0 il0 mcn0 mcp0 red0/1 dtx1\n"
        "AMR 8kHz pt105 20/240 be rates 7 crc0 rs0 il0 mcn0 mcp0 red0/1 dtx1\n",
        codecs(stream, true));
}

// Each refusal has its code and reason, and leaves the caller's stream as it was.
TEST(StreamMappingTest, RefusalsLeaveTheStreamUnchanged) {
    using namespace std::string_literals;
    const struct {
        std::string media;  // after "m="
        const char* result;
        std::size_t index = 0;
        const char* session = "c=IN IP4 192.0.2.9\n";
    } rows[] = {
        {"audio 49170 RTP/AVP 96\n",
         "Invalid Param (Code 1002): media index 1 past the end: the description has 1 media section(s)", 1},
        {"video 49170 RTP/AVP 96\n", "Invalid Param (Code 1002): media section 0 is \"video\", not audio"},
        // The first failure decides: a disabled stream whatever its protocol and address.
        {"audio 0 RTP/SAVP 96\n", "Rejected (Code 1006): stream disabled (port 0)", 0, ""},
        {"audio 49170/2 RTP/AVP 96\n", "Unsupported (Code 1005): port count /2: one RTP port per stream only"},
        {"audio 49170 RTP/SAVP 96\n",
         "Unsupported (Code 1005): protocol \"RTP/SAVP\": only RTP/AVP and RTP/AVPF can be held"},
        {"audio 49170 RTP/AVP 0\n",
         "Malformed description (Code 1004): no c= line in the media section nor at session level", 0, ""},
        {"audio 49170 RTP/AVP 96\nc=IN IP4 media.example.com\n",
         "Unsupported (Code 1005): address \"media.example.com\" is not an IPv4 address"},
        // Address checks stop at a NUL byte: what follows it must not slip through.
        {"audio 49170 RTP/AVP 96\nc=IN IP4 192.0.2.1\0:1\n"s,
         "Unsupported (Code 1005): address \"192.0.2.1\\x00:1\" is not an IPv4 address"},
        {"audio 49170 RTP/AVP 96\nc=IN IP6 192.0.2.1\n",
         "Unsupported (Code 1005): address \"192.0.2.1\" is not an IPv6 address"},
        {"audio 1023 RTP/AVP 96\n", "Unsupported (Code 1005): port 1023 out of range 1024..65535"},
        {"audio 49170 RTP/AVP 0 101\na=rtpmap:101 telephone-event/8000\n",
         "Unsupported (Code 1005): no AMR or AMR-WB format"},
    };
    StreamConfig before;
    before.setRemoteRtpPort(50000);
    before.setRtcp(false);
    AmrCodecConfig amr;
    amr.addAmrRate(AmrRate2);
    before.addUplinkCodec(amr);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.media);
        StreamConfig stream(before);
        std::vector<std::string> notes;
        EXPECT_EQ(row.result, toStreamConfig(described(row.media, row.session), row.index, stream, &notes).format());
        EXPECT_EQ(before.toString(), stream.toString());
    }
}

// A stream that fails its check is handed back filled, so that it can be logged. The
// description is a bare section: no session line at all, not even v=.
TEST(StreamMappingTest, FailedCheckReturnsTheFilledStream) {
    StreamConfig stream;
    const SessionDescription remote =
        parsed("m=audio 49170 RTP/AVP 96\nc=IN IP4 192.0.2.1\na=rtpmap:96 AMR-WB/16000\na=ptime:60\na=maxptime:40\n");
    EXPECT_EQ(
        "Invalid Configuration (Code 1003): Invalid Configuration (Code 1003): Invalid Configuration (Code "
        "1003): Packet time '60' must be lesser or equal than max packet time '40'",
        toStreamConfig(remote, 0, stream).format());
    EXPECT_EQ(49170, stream.getRemoteRtpPort());
    EXPECT_EQ("AMR 16kHz pt96 60/40 be rates 0 1 2 3 4 5 6 7 8 crc0 rs0 il0 mcn0 mcp0 red0/1 dtx1\n",
              codecs(stream, false));
}

}  // namespace
}  // namespace tessel::rva::sdp
