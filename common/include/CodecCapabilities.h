// What the local media engine can do with one codec before any negotiation: codec, band,
// packet time, maximum packet time and channel count.
//
// Abstract base of AmrCodecCapabilities and DtmfCodecCapabilities; StreamCapabilities
// holds them through base pointers and copies them with clone(). Unlike CodecConfig there
// is no validating band setter and no consistency check.
//
//   DtmfCodecCapabilities dtmf;                // DTMF, 16 kHz, 20/240 ms, one channel
//   dtmf.setPacketTime(40);
//   CodecCapabilities* copy = dtmf.clone();   // owned by the caller
#ifndef TESSEL_RVA_CODEC_CAPABILITIES_H
#define TESSEL_RVA_CODEC_CAPABILITIES_H

#include <cstdint>

#include "MediaTypes.h"
#include "Result.h"
#include "RvaExport.h"

namespace tessel {
namespace rva {

class RVA_EXPORT CodecCapabilities {
public:
    enum ResultCode : std::int32_t { Success = 1000, UnknownError, InvalidParam, InvalidConfiguration };
    struct ResultTrait : utilities::result::ClassResultTrait<ResultCode> {};
    typedef utilities::result::Result<ResultTrait> Result;

    // Stores the values. An invalid codec id or band type is a fatal platform assertion
    // (tag "KARDU"); the counts are not checked.
    CodecCapabilities(CodecId codecId, BandType bandType, int packetTime, int maxPacketTime, int channelCount);
    CodecCapabilities(const CodecCapabilities& other);
    // Copies all five fields, the codec id included.
    CodecCapabilities& operator=(const CodecCapabilities& other);
    virtual ~CodecCapabilities();

    // All five fields; derived classes add their own.
    virtual bool operator==(const CodecCapabilities& other) const;
    // The negation of the left object's virtual operator==, so derived fields count too.
    bool operator!=(const CodecCapabilities& other) const { return !(*this == other); }

    // A new heap copy of the concrete object; the caller owns it. Noexcept in a derived
    // class too: memory exhaustion ends the process.
    virtual CodecCapabilities* clone() const noexcept = 0;

    CodecId getCodecId() const { return mCodecId; }
    BandType getBandType() const { return mBandType; }
    // The counts are kept in 32 bits and set and read as 64-bit values on every ABI (the
    // type of unsigned long on 64-bit ones): setters keep the low 32 bits, getters widen
    // with sign extension, so setPacketTime(8589934591) reads back as 18446744073709551615.
    std::uint64_t getPacketTime() const { return widen(mPacketTime); }
    std::uint64_t getMaxPacketTime() const { return widen(mMaxPacketTime); }
    std::uint64_t getChannelCount() const { return widen(mChannelCount); }

    // Stored as given, even an invalid band; only construction asserts the band.
    void setBandType(BandType bandType) { mBandType = bandType; }
    void setPacketTime(std::uint64_t packetTime) { mPacketTime = narrow(packetTime); }
    void setMaxPacketTime(std::uint64_t maxPacketTime) { mMaxPacketTime = narrow(maxPacketTime); }
    void setChannelCount(std::uint64_t channelCount) { mChannelCount = narrow(channelCount); }

private:
    static std::uint64_t widen(int value) { return static_cast<std::uint64_t>(static_cast<std::int64_t>(value)); }
    static int narrow(std::uint64_t value) { return static_cast<int>(static_cast<std::uint32_t>(value)); }

    CodecId mCodecId;
    BandType mBandType;
    int mPacketTime;
    int mMaxPacketTime;
    int mChannelCount;
};

}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_CODEC_CAPABILITIES_H
