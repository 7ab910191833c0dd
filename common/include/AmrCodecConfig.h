// The negotiated configuration of one AMR or AMR-WB codec: the generic codec settings plus
// the AMR payload-format options and the ordered list of rates the stream may use.
//
//   AmrCodecConfig amr;                      // wide band, payload type 98, 20/240 ms
//   amr.addAmrRate(AmrRate8);
//   amr.addAmrRate(AmrRate2);
//   if (amr.check().isSuccess()) {
//       AmrRate preferred = amr.getPreferedAmrRate();   // AmrRate2 (12.65 kbit/s)
//   }
#ifndef TESSEL_RVA_AMR_CODEC_CONFIG_H
#define TESSEL_RVA_AMR_CODEC_CONFIG_H

#include <map>
#include <string>
#include <vector>

#include "CodecConfig.h"
#include "MediaTypes.h"
#include "RvaExport.h"

namespace tessel {
namespace rva {

class RVA_EXPORT AmrCodecConfig : public CodecConfig {
public:
    // Preference order of the rates of one band; a lower rank is more preferred. Narrow
    // band prefers 7, 4, 2, 0 (12.2 kbit/s down) then 1, 3, 5, 6; wide band prefers
    // 2, 1, 0 (12.65 kbit/s down) then 3..8. Only bands 0 and 1 exist.
    template <BandType Band>
    class RVA_EXPORT AmrRatePreferenceComparator {
    public:
        AmrRatePreferenceComparator() noexcept { initRatesRanks(); }

        // Fills mRatesRanks with the band's table.
        void initRatesRanks() noexcept;

        // True when `lhs` is more preferred than `rhs`. A rate without a rank in the band
        // (8 in narrow band) is a fatal assertion: "Invalid AMR mode:8 for band 8kHz".
        bool operator()(const AmrRate& lhs, const AmrRate& rhs) const noexcept;

        std::map<AmrRate, unsigned int> mRatesRanks;
    };

    static const ModeChangePeriod DEFAULT_MODE_CHANGE_PERIOD;
    static const bool DEFAULT_MODE_CHANGE_NEIGHBOR_ENABLED;
    static const bool DEFAULT_INTERLEAVING_ENABLED;
    static const bool DEFAULT_ROBUST_SORTING_ENABLED;
    static const bool DEFAULT_CRC_ENABLED;
    static const int DEFAULT_MAX_RDCY;
    static const bool DEFAULT_RDCY_ENABLED;
    static const bool DEFAULT_DTX_MODE_ENABLED;
    static const bool DEFAULT_OCTET_ALIGN_ENABLED;
    static const unsigned int DEFAULT_MAX_PACKET_TIME;
    static const unsigned int DEFAULT_PACKET_TIME;
    static const int DEFAULT_PAYLOAD_TYPE;
    static const BandType DEFAULT_BAND_TYPE;

    AmrCodecConfig();
    AmrCodecConfig(const AmrCodecConfig& other) noexcept;
    AmrCodecConfig& operator=(const AmrCodecConfig& other) noexcept;
    ~AmrCodecConfig() override;

    // Copies the AMR fields only; the generic codec fields are left as they are.
    void copyFrom(const AmrCodecConfig& other) noexcept;

    bool isSupportedBandType(BandType bandType) const override;
    // The generic packet-time rules first (their result returned as it stands on
    // failure); then 1003 "Amr rate list is empty." or 1003 "Invalid rate: N" for the
    // first rate the band does not have (8 in narrow band).
    Result check() const noexcept override;
    CodecConfig* clone() const noexcept override;
    // Codec id, band type, payload type and the payload-format options; packet times and
    // the two mode-change fields take no part. Differing rate lists do not make the
    // configurations unequal: they only log three warnings (tag "ORVA").
    bool operator==(const CodecConfig& other) const noexcept override;
    // The generic five lines followed by eleven AMR lines.
    std::string toString() const noexcept override;

    void setOctetAlignMode(bool enabled) { mOctetAlignEnabled = enabled; }
    bool isOctetAlignModeEnabled() const { return mOctetAlignEnabled; }
    void setDTXMode(bool enabled) { mDtxModeEnabled = enabled; }
    bool isDTXModeEnabled() const { return mDtxModeEnabled; }
    void setRdcyMode(bool enabled) { mRdcyEnabled = enabled; }
    bool isRdcyModeEnabled() const { return mRdcyEnabled; }
    void setMaxRdcy(int maxRdcy) { mMaxRdcy = maxRdcy; }
    int getMaxRdcy() const { return mMaxRdcy; }
    void setCrcMode(bool enabled) { mCrcEnabled = enabled; }
    bool isCrcModeEnabled() const { return mCrcEnabled; }
    void setRobustSortingMode(bool enabled) { mRobustSortingEnabled = enabled; }
    bool isRobustSortingModeEnabled() const { return mRobustSortingEnabled; }
    void setInterleavingMode(bool enabled) { mInterleavingEnabled = enabled; }
    bool isInterleavingModeEnabled() const { return mInterleavingEnabled; }
    void setModeChangeNeighbor(bool enabled) { mModeChangeNeighborEnabled = enabled; }
    bool isModeChangeNeighborEnabled() const { return mModeChangeNeighborEnabled; }
    // Stored as given; never validated.
    void setModeChangePeriod(ModeChangePeriod period) { mModeChangePeriod = period; }
    ModeChangePeriod getModeChangePeriod() const { return mModeChangePeriod; }

    // Appends a rate in 0..8; a rate already in the list is accepted and not repeated.
    // Any other value returns 1002 "Bad amr rate: N" and leaves the list unchanged. The
    // band is not consulted: check() refuses 8 in narrow band.
    Result addAmrRate(AmrRate rate) noexcept;
    bool containAmrRate(AmrRate rate) const;
    unsigned long getAmrRateCount() const { return mAmrRates.size(); }
    // The rate at `index` in insertion order, or 0xFFFFFFFF past the end.
    AmrRate getAmrRate(unsigned long index) const;
    const std::vector<AmrRate>& getSupportedAmrRates() const { return mAmrRates; }
    void clearAmrRateVector() { mAmrRates.clear(); }
    // The most preferred rate of the band (narrow band for band 0, wide band otherwise),
    // or 0xFFFFFFFF for an empty list. Rate 8 in a narrow-band list of two or more rates
    // is a fatal assertion: call check() first.
    AmrRate getPreferedAmrRate() const noexcept;

private:
    bool mOctetAlignEnabled;
    bool mDtxModeEnabled;
    bool mRdcyEnabled;
    int mMaxRdcy;
    std::vector<AmrRate> mAmrRates;
    bool mCrcEnabled;
    bool mRobustSortingEnabled;
    bool mInterleavingEnabled;
    bool mModeChangeNeighborEnabled;
    ModeChangePeriod mModeChangePeriod;
};

extern template class AmrCodecConfig::AmrRatePreferenceComparator<BandTypeNb>;
extern template class AmrCodecConfig::AmrRatePreferenceComparator<BandTypeWb>;

}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_AMR_CODEC_CONFIG_H
