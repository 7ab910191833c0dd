// A program outside the library, built against an installed copy of it.
#include <cstdio>

#include "AmrCodecConfig.h"
#include "Result.h"
#include "StreamConfig.h"

int main() {
    tessel::rva::StreamConfig stream;
    tessel::rva::AmrCodecConfig amr;
    amr.addAmrRate(tessel::rva::AmrRate2);
    stream.addUplinkCodec(amr);
    stream.addDownlinkCodec(amr);
    const tessel::rva::StreamConfig::Result result = stream.check();
    const tessel::rva::StreamConfig::Result refused = stream.setRemoteRtpPort(80);
    std::printf("%s / %s\n", result.format().c_str(), refused.format().c_str());
    return result.isSuccess() && refused.getCode() == tessel::rva::StreamConfig::InvalidParam ? 0 : 1;
}
