// What the local AMR implementation can do, offered before a configuration is
// negotiated: supported rates, payload-format options, DTX, redundancy, rate adaptation
// and mode-change behaviour. Codec id AMR, 16 kHz, 20/240 ms, one channel.
//
//   AmrCodecCapabilities amr;              // DTX and redundancy (up to 220) supported
//   amr.addSupportedAmrRate(AmrRate2);
//   amr.setModeChangePeriod(static_cast<ModeChangePeriod>(2));  // 1002, period unchanged
#ifndef TESSEL_RVA_AMR_CODEC_CAPABILITIES_H
#define TESSEL_RVA_AMR_CODEC_CAPABILITIES_H

#include <cstddef>
#include <vector>

#include "CodecCapabilities.h"
#include "MediaTypes.h"
#include "RvaExport.h"

namespace tessel {
namespace rva {

class RVA_EXPORT AmrCodecCapabilities : public CodecCapabilities {
public:
    AmrCodecCapabilities();
    AmrCodecCapabilities(const AmrCodecCapabilities& other) noexcept;
    AmrCodecCapabilities& operator=(const AmrCodecCapabilities& other) noexcept;
    ~AmrCodecCapabilities() override;

    // Copies the AMR fields only; the generic fields are left as they are.
    void copyFrom(const AmrCodecCapabilities& other) noexcept;

    // The generic fields and every AMR field, the stored maximum redundancy even when
    // redundancy is off, and the rate lists in order ({a, b} differs from {b, a}).
    bool operator==(const CodecCapabilities& other) const override;
    CodecCapabilities* clone() const noexcept override;

    void setOctetAlignModeRequired(bool required) { mOctetAlignModeRequired = required; }
    bool isOctetAlignModeRequired() const { return mOctetAlignModeRequired; }
    void setDTXModeSupport(bool supported) { mDtxModeSupported = supported; }
    bool isDTXModeSupported() const { return mDtxModeSupported; }
    void setRdcyModeSupport(bool supported) { mRdcyModeSupported = supported; }
    bool isRdcyModeSupported() const { return mRdcyModeSupported; }
    void setMaxSupportedRdcy(int maxRdcy) { mMaxSupportedRdcy = maxRdcy; }
    // -1 while redundancy is not supported, whatever is stored; otherwise the stored value.
    int getMaxSupportedRdcy() const { return mRdcyModeSupported ? mMaxSupportedRdcy : -1; }
    void setRateAdaptationModeSupport(bool supported) { mRateAdaptationModeSupported = supported; }
    bool isRateAdaptationModeSupported() const { return mRateAdaptationModeSupported; }
    void setModeChangeNeighborRequired(bool required) { mModeChangeNeighborRequired = required; }
    bool isModeChangeNeighborRequired() const { return mModeChangeNeighborRequired; }
    void setCrcModeSupport(bool supported) { mCrcModeSupported = supported; }
    bool isCrcModeSupported() const { return mCrcModeSupported; }
    void setRobustSortingModeSupport(bool supported) { mRobustSortingModeSupported = supported; }
    bool isRobustSortingModeSupported() const { return mRobustSortingModeSupported; }
    void setInterleavingModeSupport(bool supported) { mInterleavingModeSupported = supported; }
    bool isInterleavingModeSupported() const { return mInterleavingModeSupported; }

    // Stores 0 or 1; otherwise 1002 "Bad mode change period: N", the period unchanged.
    Result setModeChangePeriod(ModeChangePeriod period) noexcept;
    ModeChangePeriod getModeChangePeriod() const { return mModeChangePeriod; }
    // Stores 0 or 1; otherwise 1002 "Bad mode change capability: N", unchanged.
    Result setModeChangeCapability(ModeChangeCapability capability) noexcept;
    ModeChangeCapability getModeChangeCapability() const { return mModeChangeCapability; }

    // Appends a rate in 0..8 (a rate already present stays where it is, success either
    // way); any other value returns 1002 "Bad amr rate: N" and leaves the list unchanged.
    Result addSupportedAmrRate(AmrRate rate) noexcept;
    std::size_t getSupportedAmrRateCount() const { return mSupportedAmrRates.size(); }
    // The rate at `index` in insertion order, or -1 past the end.
    AmrRate getSupportedAmrRate(std::size_t index) const;
    void clearSupportedAmrRateVector() { mSupportedAmrRates.clear(); }

private:
    bool mOctetAlignModeRequired;
    bool mDtxModeSupported;
    bool mRdcyModeSupported;
    int mMaxSupportedRdcy;
    std::vector<AmrRate> mSupportedAmrRates;
    bool mRateAdaptationModeSupported;
    ModeChangePeriod mModeChangePeriod;
    ModeChangeCapability mModeChangeCapability;
    bool mModeChangeNeighborRequired;
    bool mCrcModeSupported;
    bool mRobustSortingModeSupported;
    bool mInterleavingModeSupported;
};

}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_AMR_CODEC_CAPABILITIES_H
