#include "DtmfCodecCapabilities.h"

namespace tessel {
namespace rva {

DtmfCodecCapabilities::DtmfCodecCapabilities() : CodecCapabilities(CodecIdDtmf, BandTypeWb, 20, 240, 1) {}

DtmfCodecCapabilities::DtmfCodecCapabilities(const DtmfCodecCapabilities& other) = default;

DtmfCodecCapabilities& DtmfCodecCapabilities::operator=(const DtmfCodecCapabilities& other) = default;

DtmfCodecCapabilities::~DtmfCodecCapabilities() = default;

CodecCapabilities* DtmfCodecCapabilities::clone() const noexcept {
    // NOLINTNEXTLINE(bugprone-unhandled-exception-at-new): exhaustion ends the process
    return new DtmfCodecCapabilities(*this);
}

}  // namespace rva
}  // namespace tessel
