// The negotiated configuration of one codec on one direction of a stream: which codec,
// on which band, with which RTP payload type, packet time and maximum packet time.
//
// Abstract base of AmrCodecConfig and DtmfCodecConfig. Stream configurations hold codec
// configurations through base pointers and copy them with clone(). The virtual operations
// that can allocate are noexcept, in a derived class too: memory exhaustion ends the
// process instead of leaving a stream half-copied.
//
//   DtmfCodecConfig dtmf;
//   CodecConfig::Result r = dtmf.setBandType(BandTypeNb);   // 1002 "Bad band type: N" if refused
//   dtmf.setPacketTime(0);
//   dtmf.check().format();  // "Invalid Configuration (Code 1003): Packet time must be greater than 0"
#ifndef TESSEL_RVA_CODEC_CONFIG_H
#define TESSEL_RVA_CODEC_CONFIG_H

#include <cstdint>
#include <string>

#include "MediaTypes.h"
#include "Result.h"
#include "RvaExport.h"

namespace tessel {
namespace rva {

class RVA_EXPORT CodecConfig {
public:
    enum ResultCode : std::int32_t { Success = 1000, UnknownError, InvalidParam, InvalidConfiguration };
    struct ResultTrait : utilities::result::ClassResultTrait<ResultCode> {};
    typedef utilities::result::Result<ResultTrait> Result;

    // Stores the five values. An invalid codec id or band type is a fatal platform
    // assertion (tag "KARDU"); payload type and packet times are not checked here.
    CodecConfig(CodecId codecId, BandType bandType, int payloadType, unsigned int packetTime,
                unsigned int maxPacketTime);
    CodecConfig(const CodecConfig& other);
    // Copies all five fields, the codec id included; the dynamic type stays what it is.
    CodecConfig& operator=(const CodecConfig& other);
    virtual ~CodecConfig();

    // Whether the concrete codec accepts the band; asked by setBandType for valid bands only.
    virtual bool isSupportedBandType(BandType bandType) const = 0;

    // Packet-time rules, every failing one folded into one 1003 result, in this order:
    // "Packet time must be greater than 0", "Max packet time must be greater than 0",
    // "Packet time 'P' must be lesser or equal than max packet time 'M'".
    virtual Result check() const noexcept;

    // A new heap copy of the concrete object; the caller owns it.
    virtual CodecConfig* clone() const noexcept = 0;

    // Compares codec id, band type and payload type only. As opposed to a field-by-field
    // comparison, packet time and maximum packet time take no part, deliberately.
    virtual bool operator==(const CodecConfig& other) const noexcept;
    bool operator!=(const CodecConfig& other) const { return !(*this == other); }

    // Five lines "    Codec: ", "    BandType: ", "    PayloadType: ", "    PacketTime: ",
    // "    MaxPacketTime: ", each ended by a newline; no heading.
    virtual std::string toString() const noexcept;

    // Copies all five fields without any check.
    void copyFrom(const CodecConfig& other);

    CodecId getCodecId() const { return mCodecId; }
    BandType getBandType() const { return mBandType; }
    int getPayloadType() const { return mPayloadType; }
    unsigned int getPacketTime() const { return mPacketTime; }
    unsigned int getMaxPacketTime() const { return mMaxPacketTime; }

    // Plain stores; check() judges the packet times, the payload type is never validated.
    void setPayloadType(int payloadType) { mPayloadType = payloadType; }
    void setPacketTime(unsigned int packetTime) { mPacketTime = packetTime; }
    void setMaxPacketTime(unsigned int maxPacketTime) { mMaxPacketTime = maxPacketTime; }

    // Stores a valid band that the codec supports; otherwise returns 1002
    // "Bad band type: N" and keeps the old band.
    Result setBandType(BandType bandType) noexcept;

    // Fatal assertion (tag "TESSEL", "Expecting codec <required> instead of <candidate>")
    // unless the ids are equal; for callers that downcast a configuration.
    static void checkCodecId(CodecId requiredCodecId, CodecId candidateCodecId) noexcept;

private:
    CodecId mCodecId;
    BandType mBandType;
    int mPayloadType;
    unsigned int mPacketTime;
    unsigned int mMaxPacketTime;
};

}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_CODEC_CONFIG_H
