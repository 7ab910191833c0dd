#include "AmrCodecConfig.h"

#include <algorithm>
#include <set>

#include "GenericLog.h"
#include "Polymorphic.h"
#include "TextStream.h"

namespace tessel {
namespace rva {

namespace {

const AmrRate kAbsentRate = static_cast<AmrRate>(0xFFFFFFFF);
const std::size_t kValidRateCount = AmrRate8 + 1;

// Rates in order of preference, most preferred first.
const AmrRate kNarrowBandPreference[] = {AmrRate7, AmrRate4, AmrRate2, AmrRate0,
                                         AmrRate1, AmrRate3, AmrRate5, AmrRate6};
const AmrRate kWideBandPreference[] = {AmrRate2, AmrRate1, AmrRate0, AmrRate3, AmrRate4,
                                       AmrRate5, AmrRate6, AmrRate7, AmrRate8};

template <std::size_t N>
void fillRanks(std::map<AmrRate, unsigned int>& ranks, const AmrRate (&preference)[N]) {
    ranks.clear();
    for (unsigned int rank = 0; rank < N; ++rank) {
        ranks[preference[rank]] = rank;
    }
}

// Prints each rate followed by one blank.
void printRates(std::ostream& out, const std::vector<AmrRate>& rates) {
    for (const AmrRate rate : rates) {
        out << rate << ' ';
    }
}

template <BandType Band>
AmrRate preferredRate(const std::vector<AmrRate>& rates) {
    const AmrCodecConfig::AmrRatePreferenceComparator<Band> comparator;
    const std::set<AmrRate, AmrCodecConfig::AmrRatePreferenceComparator<Band>> ordered(rates.begin(), rates.end(),
                                                                                       comparator);
    return *ordered.begin();
}

}  // namespace

template <BandType Band>
void AmrCodecConfig::AmrRatePreferenceComparator<Band>::initRatesRanks() noexcept {
    static_assert(Band == BandTypeNb || Band == BandTypeWb, "only narrow and wide band have a preference order");
    if constexpr (Band == BandTypeNb) {
        fillRanks(mRatesRanks, kNarrowBandPreference);
    } else {
        fillRanks(mRatesRanks, kWideBandPreference);
    }
}

template <BandType Band>
bool AmrCodecConfig::AmrRatePreferenceComparator<Band>::operator()(const AmrRate& lhs,
                                                                   const AmrRate& rhs) const noexcept {
    std::map<AmrRate, unsigned int>::const_iterator it = mRatesRanks.find(lhs);
    TESSEL_ASSERT(it != mRatesRanks.end(), "Invalid AMR mode:" << lhs << " for band " << getBandTypeDescription(Band));
    const unsigned int lhsRank = it->second;
    it = mRatesRanks.find(rhs);
    TESSEL_ASSERT(it != mRatesRanks.end(), "Invalid AMR mode:" << rhs << " for band " << getBandTypeDescription(Band));
    return lhsRank < it->second;
}

template class AmrCodecConfig::AmrRatePreferenceComparator<BandTypeNb>;
template class AmrCodecConfig::AmrRatePreferenceComparator<BandTypeWb>;

const ModeChangePeriod AmrCodecConfig::DEFAULT_MODE_CHANGE_PERIOD = ModeChangePeriodAny;
const bool AmrCodecConfig::DEFAULT_MODE_CHANGE_NEIGHBOR_ENABLED = false;
const bool AmrCodecConfig::DEFAULT_INTERLEAVING_ENABLED = false;
const bool AmrCodecConfig::DEFAULT_ROBUST_SORTING_ENABLED = false;
const bool AmrCodecConfig::DEFAULT_CRC_ENABLED = false;
const int AmrCodecConfig::DEFAULT_MAX_RDCY = 1;
const bool AmrCodecConfig::DEFAULT_RDCY_ENABLED = false;
const bool AmrCodecConfig::DEFAULT_DTX_MODE_ENABLED = true;
const bool AmrCodecConfig::DEFAULT_OCTET_ALIGN_ENABLED = false;
const unsigned int AmrCodecConfig::DEFAULT_MAX_PACKET_TIME = 240;
const unsigned int AmrCodecConfig::DEFAULT_PACKET_TIME = 20;
const int AmrCodecConfig::DEFAULT_PAYLOAD_TYPE = 98;
const BandType AmrCodecConfig::DEFAULT_BAND_TYPE = BandTypeWb;

AmrCodecConfig::AmrCodecConfig()
    : CodecConfig(CodecIdAmr, DEFAULT_BAND_TYPE, DEFAULT_PAYLOAD_TYPE, DEFAULT_PACKET_TIME, DEFAULT_MAX_PACKET_TIME),
      mOctetAlignEnabled(DEFAULT_OCTET_ALIGN_ENABLED),
      mDtxModeEnabled(DEFAULT_DTX_MODE_ENABLED),
      mRdcyEnabled(DEFAULT_RDCY_ENABLED),
      mMaxRdcy(DEFAULT_MAX_RDCY),
      mCrcEnabled(DEFAULT_CRC_ENABLED),
      mRobustSortingEnabled(DEFAULT_ROBUST_SORTING_ENABLED),
      mInterleavingEnabled(DEFAULT_INTERLEAVING_ENABLED),
      mModeChangeNeighborEnabled(DEFAULT_MODE_CHANGE_NEIGHBOR_ENABLED),
      mModeChangePeriod(DEFAULT_MODE_CHANGE_PERIOD) {}

AmrCodecConfig::AmrCodecConfig(const AmrCodecConfig& other) noexcept : CodecConfig(other) { copyFrom(other); }

AmrCodecConfig& AmrCodecConfig::operator=(const AmrCodecConfig& other) noexcept {
    CodecConfig::operator=(other);
    copyFrom(other);
    return *this;
}

AmrCodecConfig::~AmrCodecConfig() = default;

void AmrCodecConfig::copyFrom(const AmrCodecConfig& other) noexcept {
    mOctetAlignEnabled = other.mOctetAlignEnabled;
    mDtxModeEnabled = other.mDtxModeEnabled;
    mRdcyEnabled = other.mRdcyEnabled;
    mMaxRdcy = other.mMaxRdcy;
    mAmrRates = other.mAmrRates;
    mCrcEnabled = other.mCrcEnabled;
    mRobustSortingEnabled = other.mRobustSortingEnabled;
    mInterleavingEnabled = other.mInterleavingEnabled;
    mModeChangeNeighborEnabled = other.mModeChangeNeighborEnabled;
    mModeChangePeriod = other.mModeChangePeriod;
}

CodecConfig* AmrCodecConfig::clone() const noexcept {
    // NOLINTNEXTLINE(bugprone-unhandled-exception-at-new): exhaustion ends the process
    return new AmrCodecConfig(*this);
}

bool AmrCodecConfig::isSupportedBandType(BandType bandType) const { return isBandTypeValid(bandType); }

AmrCodecConfig::Result AmrCodecConfig::addAmrRate(AmrRate rate) noexcept {
    if (!isAmrRateValid(rate)) {
        return Result(InvalidParam) << "Bad amr rate: " << rate;
    }
    if (!containAmrRate(rate)) {
        // Duplicates are refused, so the list never holds more than the nine valid rates:
        // the first addition makes room for all of them and later ones never reallocate.
        if (mAmrRates.capacity() == 0) {
            mAmrRates.reserve(kValidRateCount);
        }
        mAmrRates.push_back(rate);
    }
    return Result::success();
}

bool AmrCodecConfig::containAmrRate(AmrRate rate) const {
    return std::find(mAmrRates.begin(), mAmrRates.end(), rate) != mAmrRates.end();
}

AmrRate AmrCodecConfig::getAmrRate(unsigned long index) const {
    return index < mAmrRates.size() ? mAmrRates[index] : kAbsentRate;
}

AmrRate AmrCodecConfig::getPreferedAmrRate() const noexcept {
    if (mAmrRates.empty()) {
        return kAbsentRate;
    }
    return getBandType() == BandTypeNb ? preferredRate<BandTypeNb>(mAmrRates) : preferredRate<BandTypeWb>(mAmrRates);
}

AmrCodecConfig::Result AmrCodecConfig::check() const noexcept {
    // Every path returns this one named result, so that the base's result is built in the
    // caller's return slot and never moved.
    Result result = CodecConfig::check();
    if (!result.isSuccess()) {
        return result;
    }
    if (mAmrRates.empty()) {
        result = Result(InvalidConfiguration) << "Amr rate list is empty.";
        return result;
    }
    for (unsigned long index = 0; index < mAmrRates.size(); ++index) {
        const AmrRate rate = mAmrRates[index];
        if (!isAmrRateValid(rate) || (rate == AmrRate8 && getBandType() == BandTypeNb)) {
            result = Result(InvalidConfiguration) << "Invalid rate: " << rate;
            return result;
        }
    }
    return result;
}

bool AmrCodecConfig::operator==(const CodecConfig& other) const noexcept {
    if (!CodecConfig::operator==(other)) {
        return false;
    }
    // Equal codec ids mean an AMR configuration, unless a base assignment rewrote the id
    // of another codec's object; such an object is never equal to this one.
    const AmrCodecConfig* const amrOther = asDerived<AmrCodecConfig>(other);
    if (amrOther == nullptr) {
        return false;
    }
    const AmrCodecConfig& amr = *amrOther;
    const bool equal = mOctetAlignEnabled == amr.mOctetAlignEnabled && mDtxModeEnabled == amr.mDtxModeEnabled &&
                       mRdcyEnabled == amr.mRdcyEnabled && mMaxRdcy == amr.mMaxRdcy && mCrcEnabled == amr.mCrcEnabled &&
                       mRobustSortingEnabled == amr.mRobustSortingEnabled &&
                       mInterleavingEnabled == amr.mInterleavingEnabled;
    if (mAmrRates != amr.mAmrRates) {
        typedef utilities::Logger::Stream<utilities::details::Level::Warning> Warning;
        Warning("ORVA") << "Input AMR rates do not match; You may experience some wrong behaviour";
        {
            Warning expected("ORVA");
            expected << "Expected rates are: ";
            printRates(expected.stream(), mAmrRates);
        }
        Warning input("ORVA");
        input << "Input rates are: ";
        printRates(input.stream(), amr.mAmrRates);
    }
    return equal;
}

std::string AmrCodecConfig::toString() const noexcept {
    TextStream text;
    text << CodecConfig::toString();
    text << "    OctetAlignEnabled: " << mOctetAlignEnabled << std::endl;
    text << "    DtxModeEnabled: " << mDtxModeEnabled << std::endl;
    text << "    RdcyEnabled: " << mRdcyEnabled << std::endl;
    text << "    MaxRdcy: " << mMaxRdcy << std::endl;
    text << "    RateCount: " << mAmrRates.size() << std::endl;
    text << "    Rates: ";
    printRates(text, mAmrRates);
    text << std::endl;
    text << "    CrcEnabled: " << mCrcEnabled << std::endl;
    text << "    RobustSortingEnabled: " << mRobustSortingEnabled << std::endl;
    text << "    InterleavingEnabled: " << mInterleavingEnabled << std::endl;
    text << "    ModeChangeNeighborEnabled: " << mModeChangeNeighborEnabled << std::endl;
    text << "    ModeChangePeriod: " << mModeChangePeriod << std::endl;
    return text.str();
}

}  // namespace rva
}  // namespace tessel
