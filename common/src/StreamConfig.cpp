#include "StreamConfig.h"

#include <typeinfo>

#include "AmrCodecConfig.h"
#include "DtmfCodecConfig.h"
#include "GenericLog.h"
#include "PlatformAssert.h"
#include "Polymorphic.h"
#include "TextStream.h"
#include "Utils.h"

namespace tessel {
namespace rva {

namespace {

const std::size_t kInitialCodecCapacity = 4;

const char* directionDescription(StreamConfig::Direction direction) {
    switch (direction) {
        case StreamConfig::Inactive: return "Inactive";
        case StreamConfig::SendOnly: return "Send only";
        case StreamConfig::ReceiveOnly: return "Receive only";
        case StreamConfig::FullDuplex: return "Full duplex";
    }
    return nullptr;
}

void printCodecs(std::ostream& out, const char* heading, const StreamConfig::CodecConfigList& list) {
    for (std::size_t index = 0; index < list.count(); ++index) {
        const CodecConfig* codec = list.get(index);
        if (codec == nullptr) {
            break;
        }
        out << heading << index + 1 << "/" << list.count() << std::endl;
        out << codec->toString();
    }
}

bool sameAmrFields(const AmrCodecConfig& mine, const AmrCodecConfig& theirs) {
    return mine.isOctetAlignModeEnabled() == theirs.isOctetAlignModeEnabled() &&
           mine.isDTXModeEnabled() == theirs.isDTXModeEnabled() &&
           mine.isRdcyModeEnabled() == theirs.isRdcyModeEnabled() && mine.getMaxRdcy() == theirs.getMaxRdcy() &&
           mine.getSupportedAmrRates() == theirs.getSupportedAmrRates() &&
           mine.isCrcModeEnabled() == theirs.isCrcModeEnabled() &&
           mine.isRobustSortingModeEnabled() == theirs.isRobustSortingModeEnabled() &&
           mine.isInterleavingModeEnabled() == theirs.isInterleavingModeEnabled() &&
           mine.isModeChangeNeighborEnabled() == theirs.isModeChangeNeighborEnabled() &&
           mine.getModeChangePeriod() == theirs.getModeChangePeriod();
}

// The exact comparison of two codecs that stream equality needs: the same class, the five
// generic fields, and for AMR every AMR field with the rates in order. A class that the
// library does not define is also asked its own operator==. The codecs' own operator==
// is narrower on purpose and warns about AMR rates; it is not used for the library's
// classes, so nothing is logged.
bool sameCodec(const CodecConfig& mine, const CodecConfig& theirs) {
    const std::type_info& type = typeid(mine);
    if (type != typeid(theirs) || mine.getCodecId() != theirs.getCodecId() ||
        mine.getBandType() != theirs.getBandType() || mine.getPayloadType() != theirs.getPayloadType() ||
        mine.getPacketTime() != theirs.getPacketTime() || mine.getMaxPacketTime() != theirs.getMaxPacketTime()) {
        return false;
    }
    const AmrCodecConfig* const amr = asDerived<AmrCodecConfig>(mine);
    if (amr != nullptr && !sameAmrFields(*amr, *asDerived<AmrCodecConfig>(theirs))) {
        return false;
    }
    return type == typeid(AmrCodecConfig) || type == typeid(DtmfCodecConfig) || mine == theirs;
}

bool sameCodecs(const StreamConfig::CodecConfigList& mine, const StreamConfig::CodecConfigList& theirs) {
    if (mine.count() != theirs.count()) {
        return false;
    }
    for (std::size_t index = 0; index < mine.count(); ++index) {
        if (!sameCodec(*mine.get(index), *theirs.get(index))) {
            return false;
        }
    }
    return true;
}

}  // namespace

// ---- CodecConfigList ------------------------------------------------------------------

StreamConfig::CodecConfigList::CodecConfigList() = default;

StreamConfig::CodecConfigList::~CodecConfigList() { clear(); }

const CodecConfig* StreamConfig::CodecConfigList::get(std::size_t index) const {
    return index < mCodecs.size() ? mCodecs[index].get() : nullptr;
}

StreamConfig::Result StreamConfig::CodecConfigList::add(CodecConfig* codec) noexcept {
    if (codec == nullptr) {
        return Result(InvalidParam) << "Null pointer";
    }
    for (const std::unique_ptr<CodecConfig>& held : mCodecs) {
        if (held.get() == codec) {
            return Result(InvalidParam) << "Already present";
        }
        if (held->getPayloadType() == codec->getPayloadType()) {
            return Result(InvalidParam) << "A codec with the same payload type " << codec->getPayloadType()
                                        << " is already present";
        }
    }
    if (mCodecs.capacity() == 0) {
        // A direction usually carries a few codecs (voice, telephone events): room for
        // four at the first addition instead of growing one entry at a time.
        mCodecs.reserve(kInitialCodecCapacity);
    }
    mCodecs.emplace_back(codec);
    return Result::success();
}

void StreamConfig::CodecConfigList::clear() { deleteInOrder(mCodecs); }

void StreamConfig::CodecConfigList::cloneContentFrom(const CodecConfigList& other) noexcept {
    if (&other == this) {
        return;
    }
    clear();
    mCodecs.reserve(other.mCodecs.size());
    for (const std::unique_ptr<CodecConfig>& entry : other.mCodecs) {
        const CodecConfig* otherCodec = entry.get();
        RVA_PLATFORM_ASSERT(otherCodec != NULL);  // NOLINT(modernize-use-nullptr): the logged condition text
        mCodecs.emplace_back(otherCodec->clone());
    }
}

// ---- StreamConfig ---------------------------------------------------------------------

const int StreamConfig::DEFAULT_REMOTE_RTP_PORT = 49150;
const char* const StreamConfig::DEFAULT_REMOTE_IP = "127.0.0.1";
const bool StreamConfig::DEFAULT_MUTED = false;
const StreamConfig::Direction StreamConfig::DEFAULT_ACTIVE_DIRECTION = StreamConfig::FullDuplex;
const bool StreamConfig::DEFAULT_RTCP_ENABLED = true;
const bool StreamConfig::DEFAULT_IS_HELD = false;
const RtpProfile StreamConfig::DEFAULT_RTP_PROFILE = RtpProfileAvp;

StreamConfig::StreamConfig() noexcept
    : mRemoteRtpPort(DEFAULT_REMOTE_RTP_PORT),
      mRemoteIp(DEFAULT_REMOTE_IP),
      mUplinkMuted(DEFAULT_MUTED),
      mDirection(DEFAULT_ACTIVE_DIRECTION),
      mRtcpEnabled(DEFAULT_RTCP_ENABLED),
      mIsHeld(DEFAULT_IS_HELD),
      mRtpProfile(DEFAULT_RTP_PROFILE) {}

StreamConfig::StreamConfig(const StreamConfig& other) noexcept : StreamConfig() { copyFrom(other); }

StreamConfig& StreamConfig::operator=(const StreamConfig& other) noexcept {
    copyFrom(other);
    return *this;
}

StreamConfig::~StreamConfig() = default;

void StreamConfig::copyFrom(const StreamConfig& other) noexcept {
    mRemoteRtpPort = other.mRemoteRtpPort;
    if (&mRemoteIp != &other.mRemoteIp) {
        mRemoteIp = other.mRemoteIp;
    }
    mUplinkMuted = other.mUplinkMuted;
    mDirection = other.mDirection;
    mRtcpEnabled = other.mRtcpEnabled;
    mRtcpConfig = other.mRtcpConfig;
    mIsHeld = other.mIsHeld;
    mRtpProfile = other.mRtpProfile;
    mPdpContext = other.mPdpContext;
    mUplinkCodecs.cloneContentFrom(other.mUplinkCodecs);
    mDownlinkCodecs.cloneContentFrom(other.mDownlinkCodecs);
}

bool StreamConfig::operator==(const StreamConfig& other) const noexcept {
    return mRemoteRtpPort == other.mRemoteRtpPort && mRemoteIp == other.mRemoteIp &&
           mUplinkMuted == other.mUplinkMuted && mDirection == other.mDirection && mRtcpEnabled == other.mRtcpEnabled &&
           mRtcpConfig == other.mRtcpConfig && sameCodecs(mUplinkCodecs, other.mUplinkCodecs) &&
           sameCodecs(mDownlinkCodecs, other.mDownlinkCodecs) && mIsHeld == other.mIsHeld &&
           mRtpProfile == other.mRtpProfile && mPdpContext == other.mPdpContext;
}

StreamConfig::Result StreamConfig::setRemoteRtpPort(int port) noexcept {
    if (!Utils::isValidSocketPort(port)) {
        return Result(InvalidParam) << "Invalid socket port: " << port;
    }
    mRemoteRtpPort = port;
    return Result::success();
}

int StreamConfig::getRemoteRtcpPort() const {
    const int rtcpPort = mRemoteRtpPort + 1;
    return Utils::isValidSocketPort(rtcpPort) ? rtcpPort : -1;
}

StreamConfig::Result StreamConfig::setRemoteIp(const std::string& ip) noexcept {
    if (!Utils::isValidIpAddress(ip)) {
        return Result(InvalidParam) << "Invalid internet address : " << ip;
    }
    mRemoteIp = ip;
    return Result::success();
}

StreamConfig::Result StreamConfig::setDirection(Direction direction) noexcept {
    if (!isDirectionValid(direction)) {
        return Result(InvalidParam) << "Invalid direction : " << direction;
    }
    mDirection = direction;
    return Result::success();
}

bool StreamConfig::isDirectionValid(Direction direction) const {
    return static_cast<std::uint32_t>(direction) <= FullDuplex;
}

bool StreamConfig::hasUplink() const { return mDirection == SendOnly || mDirection == FullDuplex; }

bool StreamConfig::hasDownlink() const { return mDirection == ReceiveOnly || mDirection == FullDuplex; }

StreamConfig::Result StreamConfig::addCodec(CodecConfigList& list, const CodecConfig& codec) noexcept {
    std::unique_ptr<CodecConfig> copy(codec.clone());
    Result result = list.add(copy.get());
    if (result.isSuccess()) {
        static_cast<void>(copy.release());  // now owned by the list
    }
    return result;
}

StreamConfig::Result StreamConfig::addUplinkCodec(const CodecConfig& codec) noexcept {
    return addCodec(mUplinkCodecs, codec);
}

StreamConfig::Result StreamConfig::addDownlinkCodec(const CodecConfig& codec) noexcept {
    return addCodec(mDownlinkCodecs, codec);
}

StreamConfig::Result StreamConfig::check() const noexcept {
    if (hasUplink() && mUplinkCodecs.count() == 0) {
        return Result(InvalidConfiguration) << "Uplink is active and no uplink codec supplied";
    }
    if (hasDownlink() && mDownlinkCodecs.count() == 0) {
        return Result(InvalidConfiguration) << "Downlink is active and no downlink codec supplied";
    }
    Result result = checkCodecs(mUplinkCodecs);
    if (!result.isSuccess()) {
        return result;
    }
    return checkCodecs(mDownlinkCodecs);
}

StreamConfig::Result StreamConfig::checkCodecs(const CodecConfigList& list) noexcept {
    for (std::size_t index = 0; index < list.count(); ++index) {
        const CodecConfig* config = list.get(index);
        TESSEL_ASSERT(config != NULL, "Codec is null");  // NOLINT(modernize-use-nullptr): the logged condition text
        const CodecConfig::Result codecResult = config->check();
        if (!codecResult.isSuccess()) {
            return Result(InvalidConfiguration) << codecResult.format();
        }
    }
    return Result::success();
}

std::string StreamConfig::toString() const noexcept {
    TextStream text;
    text << "  Remote: " << mRemoteIp << ":" << mRemoteRtpPort << std::endl;
    text << "  Mute: " << mUplinkMuted << std::endl;
    text << "  Direction : ";
    if (const char* description = directionDescription(mDirection)) {
        text << description;
    } else {
        text << "Unknown direction (" << mDirection << ")";
    }
    text << " (" << mDirection << ")" << std::endl;
    text << "  RtcpEnabled: " << mRtcpEnabled << std::endl;
    text << "  RtcpConfig: AS=" << mRtcpConfig.getAs() << " RS=" << mRtcpConfig.getRs() << " RR=" << mRtcpConfig.getRr()
         << " interval=" << mRtcpConfig.getInterval() << "  ReducedSizeMode=" << mRtcpConfig.isReducedSizeMode()
         << std::endl;
    text << "  IsHeld: " << mIsHeld << std::endl;
    text << "  RtpProfile: " << mRtpProfile << std::endl;
    text << "  PdpContext: primaryCID=" << mPdpContext.primaryCID << " secondaryCID=" << mPdpContext.secondaryCID
         << std::endl;
    printCodecs(text, "  Uplink codec ", mUplinkCodecs);
    printCodecs(text, "  Downlink codec ", mDownlinkCodecs);
    return text.str();
}

}  // namespace rva
}  // namespace tessel
