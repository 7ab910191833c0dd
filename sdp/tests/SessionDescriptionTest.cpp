#include "SessionDescription.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>
#include <utility>

#include "SdpTestHelpers.h"

// Counts the blocks this program allocates; the library binds to this operator new too.
// Not inlined, so that the compiler does not pair a malloc() it sees with another delete.
static long allocations = 0;
__attribute__((noinline)) void* operator new(std::size_t size) {
    ++allocations;
    if (void* block = std::malloc(size == 0 ? 1 : size)) {
        return block;
    }
    throw std::bad_alloc();
}
__attribute__((noinline)) void operator delete(void* block) noexcept { std::free(block); }
__attribute__((noinline)) void operator delete(void* block, std::size_t) noexcept { std::free(block); }

namespace tessel::rva::sdp {
namespace {

// Line ends of both kinds, blank and empty lines, trailing blanks, c= after t=, b= after
// a=, unknown letters and mixed-case names: all read, and written back in RFC 4566 order.
TEST(SessionDescriptionTest, ReadsRealWorldTextAndWritesItInOrder) {
    const SessionDescription description = parsed(
        "\nv=0\r\no=- 1 2 IN IP4 192.0.2.1\ns=-  \t\r\nt=0 0\r\n\r\n  \n"
        "a=SendOnly\nk=prompt\nz=0 0\nc=IN IP4 192.0.2.1\nx=kept\n"
        "m=audio   49170/2  RTP/AVPF 96\t127 \r\n"
        "a=rtpmap:96 AMR-WB/16000/1\nA=ignored-letter-case\na=RTPMAP:127 telephone-event/16000\n"
        "a=rtpmap:96 AMR/8000\na=FMTP:96  mode-set=0,2\na=fmtp:96 octet-align=1\n"
        "b=RR:2000\nc=IN IP6 2001:db8::1\na=ptime: 20\nb=as:41\ny=other\n"
        "m=audio 0 RTP/AVP 0");

    EXPECT_TRUE(description.hasAttribute("sendonly"));
    EXPECT_EQ("192.0.2.1", description.connection()->address);
    ASSERT_EQ(2u, description.mediaCount());
    const MediaDescription& audio = description.media(0);
    EXPECT_EQ("AMR-WB", audio.rtpmap(96)->encoding);  // the first rtpmap of a type counts
    EXPECT_EQ(16000u, audio.rtpmap(127)->clockRate);
    EXPECT_EQ(0u, audio.rtpmap(127)->channels);
    EXPECT_FALSE(audio.rtpmap(0));
    EXPECT_EQ("mode-set=0,2", audio.fmtp(96));  // and so does the first fmtp
    EXPECT_EQ("", audio.fmtp(127));
    EXPECT_EQ(" 20", audio.attributeValue("PTIME"));
    EXPECT_EQ("", audio.attributeValue("sendonly"));
    EXPECT_FALSE(audio.hasAttribute("sendonly"));
    EXPECT_FALSE(audio.hasAttribute("ptimes"));
    EXPECT_EQ("IP6", audio.connection()->addressType);
    EXPECT_EQ(41u, *audio.bandwidth("AS"));
    EXPECT_EQ(2000u, *audio.bandwidth("rr"));
    EXPECT_FALSE(audio.bandwidth("RS"));
    EXPECT_EQ(0u, description.media(7).formats().size());

    const std::string written =
        "v=0\r\no=- 1 2 IN IP4 192.0.2.1\r\ns=-\r\nc=IN IP4 192.0.2.1\r\nt=0 0\r\nz=0 0\r\nk=prompt\r\nx=kept\r\n"
        "a=SendOnly\r\nm=audio 49170/2 RTP/AVPF 96 127\r\nc=IN IP6 2001:db8::1\r\nb=RR:2000\r\nb=as:41\r\n"
        "A=ignored-letter-case\r\ny=other\r\na=rtpmap:96 AMR-WB/16000/1\r\na=RTPMAP:127 telephone-event/16000\r\n"
        "a=rtpmap:96 AMR/8000\r\na=FMTP:96  mode-set=0,2\r\na=fmtp:96 octet-align=1\r\na=ptime: 20\r\n"
        "m=audio 0 RTP/AVP 0\r\n";
    EXPECT_EQ(written, description.toString());
    const SessionDescription again = parsed(written);
    EXPECT_EQ(description, again);
    EXPECT_EQ(written, again.toString());
}

// Each refusal is 1004 naming and quoting the line, and the output keeps what it held.
TEST(SessionDescriptionTest, RefusesMalformedTextNamingTheLine) {
    const std::string longLine = "a=" + std::string(4095, 'x');
    std::string manyMedia = "v=0\n";
    for (int i = 0; i < 65; ++i) manyMedia += "m=audio 9 RTP/AVP 0\n";
    std::string manyFormats = "m=audio 9 RTP/AVP";
    for (int i = 0; i < 129; ++i) manyFormats += " 0";
    // A refusal of line 1 that quotes the whole line.
    const auto line1 = [](const std::string& line, const std::string& reason) {
        return std::pair<std::string, std::string>(line, "line 1: " + reason + ": \"" + line + "\"");
    };
    const std::string badM = "bad m= line: expected \"<media> <port>[/<count>] <protocol> <format>...\"";
    const std::string badC = "bad c= line: expected \"IN IP4|IP6 <address>\"";
    const std::string badB = "bad b= line: expected \"<type>:<number>\" with an unsigned 32-bit number";
    const std::string badRtpmap = "bad a=rtpmap: expected \"<pt> <encoding>/<clock>[/<channels>]\" with pt 0..127";
    const std::pair<std::string, std::string> cases[] = {
        {"", "empty description"},
        {"\r\n  \n", "empty description"},
        {std::string(65537, '\n'), "description over 65536 bytes"},
        {"v=0\n\nhello\n", "line 3: not a line of the form <letter>=<value>: \"hello\""},
        {"v=0\n1=one\n", "line 2: not a line of the form <letter>=<value>: \"1=one\""},
        {"v=0\r\nm=audio 65536 RTP/AVP 0\r\n", "line 2: port out of range 0..65535: \"m=audio 65536 RTP/AVP 0\""},
        line1("m=audio 99999999999999999999 RTP/AVP 0", "port out of range 0..65535"),
        line1("m=audio -1 RTP/AVP 0", "port out of range 0..65535"),
        line1("m=audio 9 RTP/AVP", "no format"),
        line1("m=audio 9/x RTP/AVP 0", badM),
        line1("m=audio", badM),
        line1("c=IN IP4", badC),
        line1("c=IN IP5 192.0.2.1", badC),
        line1("c=IN IP4 192.0.2.1 x", badC),
        line1("b=AS:4294967296", badB),
        line1("b=:5", badB),
        line1("b=AS", badB),
        line1("a=", "attribute without a name"),
        line1("a=:x", "attribute without a name"),
        line1("a=rtpmap:128 AMR/8000", badRtpmap),
        line1("a=rtpmap:96 AMR", badRtpmap),
        line1("a=rtpmap:96 AMR/8000/x", badRtpmap),
        line1("a=fmtp:x mode-set=0", "bad a=fmtp: expected \"<pt> <parameters>\" with pt 0..127"),
        {"v=0\n" + longLine + "\r\n", "line 2: line over 4096 bytes: \"" + longLine.substr(0, 80) + "\"..."},
        {manyMedia, "line 66: more than 64 media sections: \"m=audio 9 RTP/AVP 0\""},
        {manyFormats, "line 1: more than 128 formats: \"" + manyFormats.substr(0, 80) + "\"..."},
        {"\x01x=\"\\\xff", "line 1: not a line of the form <letter>=<value>: \"\\x01x=\\x22\\x5c\\xff\""},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.first.substr(0, 100));
        SessionDescription description = parsed("v=0\nm=audio 9 RTP/AVP 0\n");
        const SessionDescription before = description;
        const Result result = SessionDescription::parse(row.first, description);
        EXPECT_EQ(Malformed, result.getCode());
        EXPECT_EQ("Malformed description (Code 1004): " + row.second, result.format());
        EXPECT_EQ(before, description);
    }
}

// The limits themselves are accepted.
TEST(SessionDescriptionTest, AcceptsTextAtEachLimit) {
    std::string text = "v=0\r\na=" + std::string(4094, 'x') + "\r\nm=audio 9 RTP/AVP";
    for (int i = 0; i < 128 + 63; ++i) text += i < 128 ? " 0" : "\r\nm=audio 9 RTP/AVP 0";
    text.append(65536 - text.size() - 1, '\n').append(1, ' ');  // 65536 bytes in all
    const SessionDescription description = parsed(text);
    EXPECT_EQ(64u, description.mediaCount());
    EXPECT_EQ(128u, description.media(0).formats().size());
    EXPECT_EQ(4094u, description.line(1).value.size());
}

// Equality follows the written text: lines of different letters may be read in another
// order, lines of one letter may not.
TEST(SessionDescriptionTest, EqualityFollowsTheWrittenOrder) {
    const SessionDescription reference = parsed("m=audio 9 RTP/AVP 0\nb=AS:1\na=x\na=y\nq=1\nw=2\n");
    EXPECT_EQ(reference, parsed("m=audio 9 RTP/AVP 0\na=x\nq=1\nb=AS:1\na=y\nw=2\n"));
    EXPECT_NE(reference, parsed("m=audio 9 RTP/AVP 0\nb=AS:1\na=y\na=x\nq=1\nw=2\n"));
    EXPECT_NE(reference, parsed("m=audio 9 RTP/AVP 0\nb=AS:1\na=x\na=y\nw=2\nq=1\n"));
    EXPECT_NE(reference, parsed("m=audio 9 RTP/AVP 0\nb=AS:1\na=x\na=y\nq=1\n"));
    EXPECT_NE(reference, parsed("m=audio 9 RTP/AVP 8\nb=AS:1\na=x\na=y\nq=1\nw=2\n"));
    EXPECT_NE(reference, parsed("m=audio 9/1 RTP/AVP 0\nb=AS:1\na=x\na=y\nq=1\nw=2\n"));
    EXPECT_NE(reference, parsed("v=0\nm=audio 9 RTP/AVP 0\nb=AS:1\na=x\na=y\nq=1\nw=2\n"));
    EXPECT_NE(reference, parsed("m=audio 9 RTP/AVP 0\nb=AS:1\na=x\na=y\nq=1\nw=2\nm=audio 9 RTP/AVP 0\n"));
}

// A section built by a caller holds only what the parser would accept; a copy is its own.
TEST(SessionDescriptionTest, BuildsSectionsThatParseBack) {
    MediaDescription audio;
    EXPECT_TRUE(audio.setMediaLine("audio 49152 RTP/AVP 96 100").isSuccess());
    EXPECT_TRUE(audio.addLine('c', "IN IP4 192.0.2.1").isSuccess());
    EXPECT_TRUE(audio.addLine('a', "rtpmap:96 AMR-WB/16000/1").isSuccess());
    EXPECT_TRUE(audio.addLine('a', "sendrecv  ").isSuccess());
    const MediaDescription before = audio;

    const struct {
        char type;
        std::string value;
        std::string message;
    } refused[] = {
        {'m', "audio 9 RTP/AVP 0", "not a line of the form <letter>=<value>: \"m=audio 9 RTP/AVP 0\""},
        {'1', "x", "not a line of the form <letter>=<value>: \"1=x\""},
        {'a', "x\r\ny", "value holds a line end: \"a=x\\x0d\\x0ay\""},
        {'a', std::string(4095, 'x'), "line over 4096 bytes: \"a=" + std::string(78, 'x') + "\"..."},
        {'c', "IN IP4", "bad c= line: expected \"IN IP4|IP6 <address>\": \"c=IN IP4\""},
        {'a', "fmtp:300 x", "bad a=fmtp: expected \"<pt> <parameters>\" with pt 0..127: \"a=fmtp:300 x\""},
    };
    for (const auto& row : refused) {
        SCOPED_TRACE(row.value.substr(0, 40));
        const Result result = audio.addLine(row.type, row.value);
        EXPECT_EQ("Invalid Param (Code 1002): " + row.message, result.format());
        EXPECT_EQ(before, audio);
    }
    EXPECT_EQ("Invalid Param (Code 1002): no format: \"m=audio 9 RTP/AVP\"",
              audio.setMediaLine("audio 9 RTP/AVP").format());
    EXPECT_EQ(before, audio);

    SessionDescription session;
    EXPECT_EQ("Invalid Param (Code 1002): media section without a format",
              session.addMedia(MediaDescription()).format());
    EXPECT_TRUE(session.addMedia(audio).isSuccess());
    MediaDescription copy = audio;
    EXPECT_TRUE(copy.addLine('a', "ptime:20").isSuccess());
    EXPECT_NE(copy, audio);
    const std::string text =
        "m=audio 49152 RTP/AVP 96 100\r\nc=IN IP4 192.0.2.1\r\na=rtpmap:96 AMR-WB/16000/1\r\na=sendrecv\r\n";
    EXPECT_EQ(text, session.toString());
    EXPECT_EQ(session, parsed(text));
    for (std::size_t count = 1; count < 64; ++count) EXPECT_TRUE(session.addMedia(audio).isSuccess());
    EXPECT_EQ("Invalid Param (Code 1002): more than 64 media sections", session.addMedia(audio).format());
}

// Reading sizes the storage of each level before filling it, and writing a description or
// a section alone sizes its text first: the blocks allocated do not depend on how many
// lines a level has.
TEST(SessionDescriptionTest, AllocationsDoNotGrowWithTheLines) {
    const auto allocationsFor = [](int lines) {
        std::string level;
        for (int i = 0; i < lines; ++i) level += "a=attribute:" + std::to_string(i) + " value\n";
        const std::string text = "v=0\n" + level + "m=audio 9 RTP/AVP 0\n" + level + "m=audio 9 RTP/AVP 0\n" + level;
        SessionDescription description;
        const long before = allocations;
        EXPECT_TRUE(SessionDescription::parse(text, description).isSuccess());
        const std::string written = description.toString() + description.media(1).toString();
        return allocations - before;
    };
    EXPECT_EQ(allocationsFor(2), allocationsFor(300));
}

}  // namespace
}  // namespace tessel::rva::sdp
