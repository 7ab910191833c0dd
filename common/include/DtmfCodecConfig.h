// The negotiated configuration of the DTMF telephone-event payload carried beside the
// voice codec. It adds no fields: it fixes the codec id, supplies defaults and accepts
// both bands.
//
//   DtmfCodecConfig dtmf;          // band 1 (16 kHz), payload type 99, 20/240 ms
//   dtmf.setPayloadType(101);
//   stream.addUplinkCodec(dtmf);   // the stream keeps its own copy
#ifndef TESSEL_RVA_DTMF_CODEC_CONFIG_H
#define TESSEL_RVA_DTMF_CODEC_CONFIG_H

#include "CodecConfig.h"
#include "MediaTypes.h"
#include "RvaExport.h"

namespace tessel {
namespace rva {

class RVA_EXPORT DtmfCodecConfig : public CodecConfig {
public:
    static const BandType DEFAULT_BAND_TYPE;
    static const int DEFAULT_PAYLOAD_TYPE;
    static const unsigned int DEFAULT_PACKET_TIME;
    static const unsigned int DEFAULT_MAX_PACKET_TIME;

    DtmfCodecConfig();
    DtmfCodecConfig(const DtmfCodecConfig& other);
    DtmfCodecConfig& operator=(const DtmfCodecConfig& other);
    ~DtmfCodecConfig() override;

    // True for both valid bands, false for every other value.
    bool isSupportedBandType(BandType bandType) const override;
    CodecConfig* clone() const noexcept override;
};

}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_DTMF_CODEC_CONFIG_H
