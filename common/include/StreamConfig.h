// One RTP audio stream as the media engine is to run it: the remote end (address and RTP
// port; the RTCP port follows), direction, uplink mute, hold, RTCP switch and parameters,
// RTP profile, packet-data context, and the ordered uplink and downlink codec lists.
//
// A value type: copies are deep (every codec is cloned, none is ever shared). Setters
// that can receive bad input refuse it with code 1002 and keep the old value; check()
// validates the whole stream before use and reports 1003.
//
//   StreamConfig stream;
//   stream.setRemoteIp("192.0.2.10");
//   stream.setRemoteRtpPort(50000);
//   AmrCodecConfig amr;
//   amr.addAmrRate(AmrRate2);
//   stream.addUplinkCodec(amr);            // the stream keeps its own copy
//   stream.addDownlinkCodec(amr);
//   StreamConfig::Result r = stream.check();
#ifndef TESSEL_RVA_STREAM_CONFIG_H
#define TESSEL_RVA_STREAM_CONFIG_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "CodecConfig.h"
#include "MediaTypes.h"
#include "PdpContext.h"
#include "Result.h"
#include "RtcpConfig.h"
#include "RvaExport.h"

namespace tessel {
namespace rva {

class RVA_EXPORT StreamConfig {
public:
    enum ResultCode : std::int32_t { Success = 1000, UnknownError, InvalidParam, InvalidConfiguration };
    struct ResultTrait : utilities::result::ClassResultTrait<ResultCode> {};
    typedef utilities::result::Result<ResultTrait> Result;

    // Which way media flows: bit 0 is the uplink (sending), bit 1 the downlink (receiving).
    enum Direction : std::int32_t { Inactive = 0, SendOnly = 1, ReceiveOnly = 2, FullDuplex = 3 };

    // The owning, ordered codec list of one direction. Insertion order is the order of
    // preference. Not copyable: a deep copy is made with cloneContentFrom().
    class RVA_EXPORT CodecConfigList {
    public:
        CodecConfigList();
        CodecConfigList(const CodecConfigList&) = delete;
        CodecConfigList& operator=(const CodecConfigList&) = delete;
        // Deletes every codec held.
        ~CodecConfigList();

        std::size_t count() const { return mCodecs.size(); }
        // The codec at `index`, still owned by the list; null past the end.
        const CodecConfig* get(std::size_t index) const;
        // Takes ownership of `codec` on success only. Refused with 1002, the list unchanged
        // and `codec` still the caller's: "Null pointer", "Already present" (the same
        // object), "A codec with the same payload type N is already present".
        Result add(CodecConfig* codec) noexcept;
        // Deletes every codec, in order, and empties the list.
        void clear();
        // Replaces the contents with clones of `other`'s codecs, in order; does nothing
        // when `other` is this list.
        void cloneContentFrom(const CodecConfigList& other) noexcept;

    private:
        std::vector<std::unique_ptr<CodecConfig>> mCodecs;
    };

    static const int DEFAULT_REMOTE_RTP_PORT;
    static const char* const DEFAULT_REMOTE_IP;
    static const bool DEFAULT_MUTED;
    static const Direction DEFAULT_ACTIVE_DIRECTION;
    static const bool DEFAULT_RTCP_ENABLED;
    static const bool DEFAULT_IS_HELD;
    static const RtpProfile DEFAULT_RTP_PROFILE;

    // Full duplex to 127.0.0.1:49150, RTCP on with the default RtcpConfig, not muted, not
    // held, profile 3551, PDP contexts 1 and 1, no codecs.
    StreamConfig() noexcept;
    StreamConfig(const StreamConfig& other) noexcept;
    // Deep copy; safe for self-assignment.
    StreamConfig& operator=(const StreamConfig& other) noexcept;
    virtual ~StreamConfig();

    // Copies every field and clones both codec lists (this object's old codecs are
    // deleted). No validation.
    void copyFrom(const StreamConfig& other) noexcept;

    // Exact, and silent: every field, and the codec lists element by element in order,
    // two codecs matching only when they are of the same class with every field equal
    // (packet times, AMR rates in order and mode-change settings included). As opposed to
    // the codecs' own operator==, which leaves packet times and the AMR mode-change
    // settings out and only logs a warning about differing AMR rates, nothing is left out
    // and nothing is logged: call control asks this whether a renegotiated stream changed.
    bool operator==(const StreamConfig& other) const noexcept;
    bool operator!=(const StreamConfig& other) const noexcept { return !(*this == other); }

    int getRemoteRtpPort() const { return mRemoteRtpPort; }
    // Stores a port in 1024..65535; otherwise 1002 "Invalid socket port: N".
    Result setRemoteRtpPort(int port) noexcept;
    // The RTP port plus one, or -1 when that is not a valid port (RTP port 65535).
    int getRemoteRtcpPort() const;

    std::string getRemoteIp() const noexcept { return mRemoteIp; }
    // Stores an IPv4 or IPv6 address text; otherwise 1002 "Invalid internet address : <text>".
    Result setRemoteIp(const std::string& ip) noexcept;

    bool isUplinkMuted() const { return mUplinkMuted; }
    void muteUplink(bool muted) { mUplinkMuted = muted; }

    Direction getDirection() const { return mDirection; }
    // Stores a direction in 0..3; otherwise 1002 "Invalid direction : N".
    Result setDirection(Direction direction) noexcept;
    bool isDirectionValid(Direction direction) const;
    // Send only or full duplex.
    bool hasUplink() const;
    // Receive only or full duplex.
    bool hasDownlink() const;

    void setRtcp(bool enabled) { mRtcpEnabled = enabled; }
    bool isRtcpEnabled() const { return mRtcpEnabled; }
    void setRtcpConfig(const RtcpConfig& rtcpConfig) { mRtcpConfig = rtcpConfig; }
    const RtcpConfig& getRtcpConfig() const { return mRtcpConfig; }

    // Stored as given; profiles have no validity test.
    void setRtpProfile(RtpProfile profile) { mRtpProfile = profile; }
    RtpProfile getRtpProfile() const { return mRtpProfile; }

    void setHoldState(bool held) { mIsHeld = held; }
    bool isHeld() const { return mIsHeld; }

    void setPdpContext(const PdpContext& pdpContext) { mPdpContext = pdpContext; }
    PdpContext getPdpContext() const { return mPdpContext; }

    // Adds a clone of `codec`; the caller keeps its own object. Refused like
    // CodecConfigList::add (a duplicate payload type gives 1002), the clone then deleted.
    Result addUplinkCodec(const CodecConfig& codec) noexcept;
    Result addDownlinkCodec(const CodecConfig& codec) noexcept;
    std::size_t getUplinkCodecCount() const { return mUplinkCodecs.count(); }
    std::size_t getDownlinkCodecCount() const { return mDownlinkCodecs.count(); }
    // Null past the end; the stream keeps ownership.
    const CodecConfig* getUplinkCodec(std::size_t index) const { return mUplinkCodecs.get(index); }
    const CodecConfig* getDownlinkCodec(std::size_t index) const { return mDownlinkCodecs.get(index); }
    void clearUplinkCodecs() { mUplinkCodecs.clear(); }
    void clearDownlinkCodecs() { mDownlinkCodecs.clear(); }

    // First failure only, in this order, code 1003: "Uplink is active and no uplink codec
    // supplied", "Downlink is active and no downlink codec supplied", then each uplink
    // codec's check() and each downlink codec's check() (whatever the direction), a
    // failing codec's formatted result becoming the message.
    Result check() const noexcept;
    // Checks each codec in order; the first failure is returned with code 1003 and the
    // codec result's format() as its message.
    static Result checkCodecs(const CodecConfigList& list) noexcept;

    // Labelled lines with two leading blanks, then each codec under a heading
    // "  Uplink codec i/n" or "  Downlink codec i/n" followed by its own text.
    std::string toString() const noexcept;

private:
    Result addCodec(CodecConfigList& list, const CodecConfig& codec) noexcept;

    int mRemoteRtpPort;
    std::string mRemoteIp;
    bool mUplinkMuted;
    Direction mDirection;
    bool mRtcpEnabled;
    RtcpConfig mRtcpConfig;
    CodecConfigList mUplinkCodecs;
    CodecConfigList mDownlinkCodecs;
    bool mIsHeld;
    RtpProfile mRtpProfile;
    PdpContext mPdpContext;
};

}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_STREAM_CONFIG_H
