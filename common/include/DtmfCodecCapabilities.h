// What the engine can do with DTMF telephone events: codec id DTMF, 16 kHz, packet time
// 20, maximum packet time 240, one channel. No fields of its own.
//
//   StreamCapabilities caps;
//   caps.addCodecCapabilities(DtmfCodecCapabilities());
#ifndef TESSEL_RVA_DTMF_CODEC_CAPABILITIES_H
#define TESSEL_RVA_DTMF_CODEC_CAPABILITIES_H

#include "CodecCapabilities.h"
#include "RvaExport.h"

namespace tessel {
namespace rva {

class RVA_EXPORT DtmfCodecCapabilities : public CodecCapabilities {
public:
    DtmfCodecCapabilities();
    DtmfCodecCapabilities(const DtmfCodecCapabilities& other);
    DtmfCodecCapabilities& operator=(const DtmfCodecCapabilities& other);
    ~DtmfCodecCapabilities() override;

    CodecCapabilities* clone() const noexcept override;
};

}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_DTMF_CODEC_CAPABILITIES_H
