#include "MediaTypes.h"

namespace tessel {
namespace rva {

namespace {
// Unsigned comparison, so that every negative value is out of range.
bool atMost(std::int32_t value, std::uint32_t highest) { return static_cast<std::uint32_t>(value) <= highest; }
}  // namespace

const char BandTypeConverter::mNb[12] = "Narrow Band";
const char BandTypeConverter::mWb[10] = "Wide Band";
const char RtpProfileConverter::mAvp[4] = "AVP";
const char RtpProfileConverter::mAvpf[5] = "AVPF";

bool isCodecIdValid(CodecId codecId) { return atMost(codecId, 1); }

const char* getCodecIdDescription(CodecId codecId) {
    if (codecId == CodecIdAmr) {
        return "AMR";
    }
    if (codecId == CodecIdDtmf) {
        return "DTMF";
    }
    return "Unknown codec";
}

bool isBandTypeValid(BandType bandType) { return atMost(bandType, 1); }

const char* getBandTypeDescription(BandType bandType) {
    if (bandType == BandTypeNb) {
        return "8kHz";
    }
    if (bandType == BandTypeWb) {
        return "16kHz";
    }
    return "Uknown band type";
}

std::uint32_t getBandTypeSamplingRate(BandType bandType) {
    if (bandType == BandTypeNb) {
        return 8000;
    }
    if (bandType == BandTypeWb) {
        return 16000;
    }
    return 0;
}

BandType getSamplingRateBandType(std::uint32_t samplingRate) {
    if (samplingRate == 8000) {
        return BandTypeNb;
    }
    if (samplingRate == 16000) {
        return BandTypeWb;
    }
    return static_cast<BandType>(-10);
}

bool isAmrRateValid(AmrRate rate) { return atMost(rate, 8); }

bool isModeChangePeriodValid(ModeChangePeriod period) { return atMost(period, 1); }

bool isModeChangeCapabilityValid(ModeChangeCapability capability) { return atMost(capability, 1); }

}  // namespace rva
}  // namespace tessel
