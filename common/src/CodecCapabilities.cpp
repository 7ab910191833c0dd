#include "CodecCapabilities.h"

#include "PlatformAssert.h"

namespace tessel {
namespace rva {

CodecCapabilities::CodecCapabilities(CodecId codecId, BandType bandType, int packetTime, int maxPacketTime,
                                     int channelCount)
    : mCodecId(codecId),
      mBandType(bandType),
      mPacketTime(packetTime),
      mMaxPacketTime(maxPacketTime),
      mChannelCount(channelCount) {
    RVA_PLATFORM_ASSERT(isCodecIdValid(mCodecId));
    RVA_PLATFORM_ASSERT(isBandTypeValid(mBandType));
}

CodecCapabilities::CodecCapabilities(const CodecCapabilities& other) = default;

CodecCapabilities& CodecCapabilities::operator=(const CodecCapabilities& other) = default;

CodecCapabilities::~CodecCapabilities() = default;

bool CodecCapabilities::operator==(const CodecCapabilities& other) const {
    return mCodecId == other.mCodecId && mBandType == other.mBandType && mPacketTime == other.mPacketTime &&
           mMaxPacketTime == other.mMaxPacketTime && mChannelCount == other.mChannelCount;
}

}  // namespace rva
}  // namespace tessel
