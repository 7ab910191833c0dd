#include "CodecConfig.h"

#include "GenericLog.h"
#include "PlatformAssert.h"
#include "TextStream.h"

namespace tessel {
namespace rva {

CodecConfig::CodecConfig(CodecId codecId, BandType bandType, int payloadType, unsigned int packetTime,
                         unsigned int maxPacketTime)
    : mCodecId(codecId),
      mBandType(bandType),
      mPayloadType(payloadType),
      mPacketTime(packetTime),
      mMaxPacketTime(maxPacketTime) {
    RVA_PLATFORM_ASSERT(isCodecIdValid(mCodecId));
    RVA_PLATFORM_ASSERT(isBandTypeValid(mBandType));
}

CodecConfig::CodecConfig(const CodecConfig& other) { copyFrom(other); }

CodecConfig& CodecConfig::operator=(const CodecConfig& other) {
    copyFrom(other);
    return *this;
}

CodecConfig::~CodecConfig() = default;

void CodecConfig::copyFrom(const CodecConfig& other) {
    mCodecId = other.mCodecId;
    mBandType = other.mBandType;
    mPayloadType = other.mPayloadType;
    mPacketTime = other.mPacketTime;
    mMaxPacketTime = other.mMaxPacketTime;
}

CodecConfig::Result CodecConfig::setBandType(BandType bandType) noexcept {
    if (isBandTypeValid(bandType) && isSupportedBandType(bandType)) {
        mBandType = bandType;
        return Result::success();
    }
    return Result(InvalidParam) << "Bad band type: " << bandType;
}

CodecConfig::Result CodecConfig::check() const noexcept {
    Result result = Result::success();
    if (getPacketTime() == 0) {
        result &= Result(InvalidConfiguration) << "Packet time must be greater than 0";
    }
    if (getMaxPacketTime() == 0) {
        result &= Result(InvalidConfiguration) << "Max packet time must be greater than 0";
    }
    if (getPacketTime() > getMaxPacketTime()) {
        result &= Result(InvalidConfiguration)
                  << "Packet time '" << getPacketTime() << "' must be lesser or equal than max packet time '"
                  << getMaxPacketTime() << "'";
    }
    return result;
}

bool CodecConfig::operator==(const CodecConfig& other) const noexcept {
    return mCodecId == other.mCodecId && mBandType == other.mBandType && mPayloadType == other.mPayloadType;
}

std::string CodecConfig::toString() const noexcept {
    TextStream text;
    text << "    Codec: " << getCodecIdDescription(mCodecId) << " (" << mCodecId << ")" << std::endl;
    text << "    BandType: " << getBandTypeDescription(mBandType) << " (" << mBandType << ")" << std::endl;
    text << "    PayloadType: " << mPayloadType << std::endl;
    text << "    PacketTime: " << mPacketTime << std::endl;
    text << "    MaxPacketTime: " << mMaxPacketTime << std::endl;
    return text.str();
}

void CodecConfig::checkCodecId(CodecId requiredCodecId, CodecId candidateCodecId) noexcept {
    TESSEL_ASSERT(candidateCodecId == requiredCodecId, "Expecting codec " << getCodecIdDescription(requiredCodecId)
                                                                          << " instead of "
                                                                          << getCodecIdDescription(candidateCodecId));
}

}  // namespace rva
}  // namespace tessel
