#include "AmrCodecCapabilities.h"

#include <algorithm>

#include "Polymorphic.h"

namespace tessel {
namespace rva {

AmrCodecCapabilities::AmrCodecCapabilities()
    : CodecCapabilities(CodecIdAmr, BandTypeWb, 20, 240, 1),
      mOctetAlignModeRequired(false),
      mDtxModeSupported(true),
      mRdcyModeSupported(true),
      mMaxSupportedRdcy(220),
      mRateAdaptationModeSupported(false),
      mModeChangePeriod(ModeChangePeriodAny),
      mModeChangeCapability(ModeChangeCapabilityTwoFrames),
      mModeChangeNeighborRequired(false),
      mCrcModeSupported(false),
      mRobustSortingModeSupported(false),
      mInterleavingModeSupported(false) {}

AmrCodecCapabilities::AmrCodecCapabilities(const AmrCodecCapabilities& other) noexcept : CodecCapabilities(other) {
    copyFrom(other);
}

AmrCodecCapabilities& AmrCodecCapabilities::operator=(const AmrCodecCapabilities& other) noexcept {
    CodecCapabilities::operator=(other);
    copyFrom(other);
    return *this;
}

AmrCodecCapabilities::~AmrCodecCapabilities() = default;

void AmrCodecCapabilities::copyFrom(const AmrCodecCapabilities& other) noexcept {
    mOctetAlignModeRequired = other.mOctetAlignModeRequired;
    mDtxModeSupported = other.mDtxModeSupported;
    mRdcyModeSupported = other.mRdcyModeSupported;
    mMaxSupportedRdcy = other.mMaxSupportedRdcy;
    mSupportedAmrRates = other.mSupportedAmrRates;
    mRateAdaptationModeSupported = other.mRateAdaptationModeSupported;
    mModeChangePeriod = other.mModeChangePeriod;
    mModeChangeCapability = other.mModeChangeCapability;
    mModeChangeNeighborRequired = other.mModeChangeNeighborRequired;
    mCrcModeSupported = other.mCrcModeSupported;
    mRobustSortingModeSupported = other.mRobustSortingModeSupported;
    mInterleavingModeSupported = other.mInterleavingModeSupported;
}

CodecCapabilities* AmrCodecCapabilities::clone() const noexcept {
    // NOLINTNEXTLINE(bugprone-unhandled-exception-at-new): exhaustion ends the process
    return new AmrCodecCapabilities(*this);
}

bool AmrCodecCapabilities::operator==(const CodecCapabilities& other) const {
    // Equal codec ids mean AMR capabilities, unless a base assignment rewrote the id of
    // another codec's object; such an object is never equal to this one.
    if (!CodecCapabilities::operator==(other)) {
        return false;
    }
    const AmrCodecCapabilities* const amrOther = asDerived<AmrCodecCapabilities>(other);
    if (amrOther == nullptr) {
        return false;
    }
    const AmrCodecCapabilities& amr = *amrOther;
    return mOctetAlignModeRequired == amr.mOctetAlignModeRequired && mDtxModeSupported == amr.mDtxModeSupported &&
           mRdcyModeSupported == amr.mRdcyModeSupported && mMaxSupportedRdcy == amr.mMaxSupportedRdcy &&
           mSupportedAmrRates == amr.mSupportedAmrRates &&
           mRateAdaptationModeSupported == amr.mRateAdaptationModeSupported &&
           mModeChangePeriod == amr.mModeChangePeriod && mModeChangeCapability == amr.mModeChangeCapability &&
           mModeChangeNeighborRequired == amr.mModeChangeNeighborRequired &&
           mCrcModeSupported == amr.mCrcModeSupported &&
           mRobustSortingModeSupported == amr.mRobustSortingModeSupported &&
           mInterleavingModeSupported == amr.mInterleavingModeSupported;
}

AmrCodecCapabilities::Result AmrCodecCapabilities::setModeChangePeriod(ModeChangePeriod period) noexcept {
    if (!isModeChangePeriodValid(period)) {
        return Result(InvalidParam) << "Bad mode change period: " << period;
    }
    mModeChangePeriod = period;
    return Result::success();
}

AmrCodecCapabilities::Result AmrCodecCapabilities::setModeChangeCapability(ModeChangeCapability capability) noexcept {
    if (!isModeChangeCapabilityValid(capability)) {
        return Result(InvalidParam) << "Bad mode change capability: " << capability;
    }
    mModeChangeCapability = capability;
    return Result::success();
}

AmrCodecCapabilities::Result AmrCodecCapabilities::addSupportedAmrRate(AmrRate rate) noexcept {
    if (!isAmrRateValid(rate)) {
        return Result(InvalidParam) << "Bad amr rate: " << rate;
    }
    if (std::find(mSupportedAmrRates.begin(), mSupportedAmrRates.end(), rate) == mSupportedAmrRates.end()) {
        mSupportedAmrRates.push_back(rate);
    }
    return Result::success();
}

AmrRate AmrCodecCapabilities::getSupportedAmrRate(std::size_t index) const {
    return index < mSupportedAmrRates.size() ? mSupportedAmrRates[index] : static_cast<AmrRate>(-1);
}

}  // namespace rva
}  // namespace tessel
