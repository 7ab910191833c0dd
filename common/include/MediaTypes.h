// The media vocabulary shared by every record: codec identifiers, audio bands and their
// sampling rates, AMR rates, AMR mode-change settings and RTP profiles.
//
// All enumerations are 32-bit signed values; their validity tests compare as unsigned,
// so a negative value is always invalid. Descriptions are static strings.
//
//   if (!isBandTypeValid(band)) { ... }
//   getBandTypeDescription(BandTypeWb);      // "16kHz"
//   getSamplingRateBandType(16000);          // BandTypeWb
#ifndef TESSEL_RVA_MEDIA_TYPES_H
#define TESSEL_RVA_MEDIA_TYPES_H

#include <cstdint>

#include "RvaExport.h"

namespace tessel {
namespace rva {

enum CodecId : std::int32_t { CodecIdAmr = 0, CodecIdDtmf = 1 };

// Audio band: 8 kHz (narrow) or 16 kHz (wide).
enum BandType : std::int32_t { BandTypeNb = 0, BandTypeWb = 1 };

// AMR codec mode index. In narrow band 0..7 are the AMR modes 4.75 to 12.2 kbit/s; in
// wide band 0..8 are the AMR-WB modes 6.60 to 23.85 kbit/s. 8 exists only in wide band.
enum AmrRate : std::int32_t {
    AmrRate0 = 0,
    AmrRate1 = 1,
    AmrRate2 = 2,
    AmrRate3 = 3,
    AmrRate4 = 4,
    AmrRate5 = 5,
    AmrRate6 = 6,
    AmrRate7 = 7,
    AmrRate8 = 8
};

// AMR mode-change period: changes at any frame boundary, or only every second frame.
enum ModeChangePeriod : std::int32_t { ModeChangePeriodAny = 0, ModeChangePeriodTwoFrames = 1 };

// AMR mode-change capability: whether the sender can restrict mode changes to every
// second frame.
enum ModeChangeCapability : std::int32_t { ModeChangeCapabilityAny = 0, ModeChangeCapabilityTwoFrames = 1 };

// RTP profile, numbered after the document that defines it. There is no validity test.
enum RtpProfile : std::int32_t { RtpProfileAvp = 3551, RtpProfileAvpf = 4585 };

// True exactly for CodecIdAmr and CodecIdDtmf.
RVA_EXPORT bool isCodecIdValid(CodecId codecId);
// "AMR", "DTMF", or "Unknown codec" for any other value.
RVA_EXPORT const char* getCodecIdDescription(CodecId codecId);

// True exactly for BandTypeNb and BandTypeWb.
RVA_EXPORT bool isBandTypeValid(BandType bandType);
// "8kHz", "16kHz", or "Uknown band type" (so spelled in every log) for any other value.
RVA_EXPORT const char* getBandTypeDescription(BandType bandType);
// 8000 or 16000 Hz; 0 for an unknown band.
RVA_EXPORT std::uint32_t getBandTypeSamplingRate(BandType bandType);
// The band of exactly 8000 or 16000 Hz; -10 (an invalid band) for every other rate.
RVA_EXPORT BandType getSamplingRateBandType(std::uint32_t samplingRate);

// True exactly for 0..8.
RVA_EXPORT bool isAmrRateValid(AmrRate rate);
// True exactly for 0 and 1.
RVA_EXPORT bool isModeChangePeriodValid(ModeChangePeriod period);
// True exactly for 0 and 1.
RVA_EXPORT bool isModeChangeCapabilityValid(ModeChangeCapability capability);

// Display names of the bands, published for callers; the library does not read them.
struct RVA_EXPORT BandTypeConverter {
    static const char mNb[12];  // "Narrow Band"
    static const char mWb[10];  // "Wide Band"
};

// Display names of the RTP profiles, published for callers; the library does not read them.
struct RVA_EXPORT RtpProfileConverter {
    static const char mAvp[4];   // "AVP"
    static const char mAvpf[5];  // "AVPF"
};

}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_MEDIA_TYPES_H
