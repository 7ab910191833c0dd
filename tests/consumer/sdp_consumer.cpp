// A program outside the library, built against an installed copy of its SDP layer.
#include <cstdio>
#include <string>

#include "SessionDescription.h"
#include "StreamConfig.h"
#include "StreamMapping.h"

int main() {
    const std::string text =
        "m=audio 49152 RTP/AVP 96\r\nc=IN IP4 192.0.2.10\r\na=rtpmap:96 AMR-WB/16000/1\r\n";
    tessel::rva::sdp::SessionDescription remote;
    const tessel::rva::sdp::Result parsed = tessel::rva::sdp::SessionDescription::parse(text, remote);
    tessel::rva::StreamConfig stream;
    const tessel::rva::sdp::Result mapped = tessel::rva::sdp::toStreamConfig(remote, 0, stream);
    std::printf("%s / %s\n", parsed.format().c_str(), mapped.format().c_str());
    return mapped.isSuccess() && stream.getRemoteRtpPort() == 49152 ? 0 : 1;
}
