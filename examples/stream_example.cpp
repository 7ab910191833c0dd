// Describes one AMR-WB call stream the way a call-control layer does, validates it and
// prints it, then shows what a refused setter and a failing check look like.
#include <cstdio>
#include <string>

#include "AmrCodecConfig.h"
#include "DtmfCodecConfig.h"
#include "MediaTypes.h"
#include "Result.h"
#include "StreamConfig.h"

using tessel::rva::AmrCodecConfig;
using tessel::rva::AmrRate;
using tessel::rva::DtmfCodecConfig;
using tessel::rva::StreamConfig;

namespace {

template <typename R>
void show(const char* what, const R& result) {
    std::printf("%-40s -> %s\n", what, result.format().c_str());
}

}  // namespace

int main() {
    // The stream: remote end, RTP profile and direction as negotiated.
    StreamConfig stream;
    show("setRemoteIp(\"192.0.2.10\")", stream.setRemoteIp("192.0.2.10"));
    show("setRemoteRtpPort(50000)", stream.setRemoteRtpPort(50000));
    show("setDirection(FullDuplex)", stream.setDirection(StreamConfig::FullDuplex));

    // The voice codec: AMR-WB with four rates, octet-aligned.
    AmrCodecConfig amr;
    show("amr.setBandType(BandTypeWb)", amr.setBandType(tessel::rva::BandTypeWb));
    for (AmrRate rate : {tessel::rva::AmrRate8, tessel::rva::AmrRate2, tessel::rva::AmrRate1, tessel::rva::AmrRate0}) {
        amr.addAmrRate(rate);
    }
    amr.setOctetAlignMode(true);
    amr.setPayloadType(97);

    // Telephone events beside it.
    DtmfCodecConfig dtmf;
    dtmf.setPayloadType(101);

    // The stream keeps its own copies; amr and dtmf stay ours.
    show("addUplinkCodec(amr)", stream.addUplinkCodec(amr));
    show("addUplinkCodec(dtmf)", stream.addUplinkCodec(dtmf));
    show("addDownlinkCodec(amr)", stream.addDownlinkCodec(amr));
    show("addDownlinkCodec(dtmf)", stream.addDownlinkCodec(dtmf));

    show("check()", stream.check());
    std::printf("\nStream (RTCP port %d):\n%s\n", stream.getRemoteRtcpPort(), stream.toString().c_str());
    std::printf("Preferred AMR-WB rate: %d\n\n", static_cast<int>(amr.getPreferedAmrRate()));

    // What a caller sees when something is wrong.
    std::printf("Refused input and failing checks:\n");
    show("setRemoteRtpPort(80)", stream.setRemoteRtpPort(80));
    show("setRemoteIp(\"sip.example.org\")", stream.setRemoteIp("sip.example.org"));
    show("addUplinkCodec(dtmf) again", stream.addUplinkCodec(dtmf));

    StreamConfig broken(stream);
    AmrCodecConfig noRates;
    noRates.setPayloadType(96);
    broken.clearUplinkCodecs();
    broken.addUplinkCodec(noRates);
    show("check() with an AMR codec without rates", broken.check());

    dtmf.setPacketTime(0);
    dtmf.setMaxPacketTime(0);
    show("dtmf.check() with packet times 0", dtmf.check());
    return 0;
}
