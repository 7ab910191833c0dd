#include "DtmfCodecConfig.h"

namespace tessel {
namespace rva {

const BandType DtmfCodecConfig::DEFAULT_BAND_TYPE = BandTypeWb;
const int DtmfCodecConfig::DEFAULT_PAYLOAD_TYPE = 99;
const unsigned int DtmfCodecConfig::DEFAULT_PACKET_TIME = 20;
const unsigned int DtmfCodecConfig::DEFAULT_MAX_PACKET_TIME = 240;

DtmfCodecConfig::DtmfCodecConfig()
    : CodecConfig(CodecIdDtmf, DEFAULT_BAND_TYPE, DEFAULT_PAYLOAD_TYPE, DEFAULT_PACKET_TIME, DEFAULT_MAX_PACKET_TIME) {}

DtmfCodecConfig::DtmfCodecConfig(const DtmfCodecConfig& other) = default;

DtmfCodecConfig& DtmfCodecConfig::operator=(const DtmfCodecConfig& other) = default;

DtmfCodecConfig::~DtmfCodecConfig() = default;

bool DtmfCodecConfig::isSupportedBandType(BandType bandType) const { return isBandTypeValid(bandType); }

CodecConfig* DtmfCodecConfig::clone() const noexcept {
    // NOLINTNEXTLINE(bugprone-unhandled-exception-at-new): exhaustion ends the process
    return new DtmfCodecConfig(*this);
}

}  // namespace rva
}  // namespace tessel
