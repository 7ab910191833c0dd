// What the media engine can offer for one RTP stream: the codec capabilities it supports
// (in order of preference), the RTP profiles it supports and its RTCP capabilities.
//
// Owns deep copies of the codec capabilities given to it, so callers may pass
// temporaries; copying a StreamCapabilities clones every codec capability.
//
//   StreamCapabilities caps;
//   caps.addCodecCapabilities(AmrCodecCapabilities());
//   caps.addCodecCapabilities(DtmfCodecCapabilities());
//   caps.addRtpProfile(RtpProfileAvp);
#ifndef TESSEL_RVA_STREAM_CAPABILITIES_H
#define TESSEL_RVA_STREAM_CAPABILITIES_H

#include <cstddef>
#include <memory>
#include <set>
#include <vector>

#include "CodecCapabilities.h"
#include "MediaTypes.h"
#include "RtcpConfig.h"
#include "RvaExport.h"

namespace tessel {
namespace rva {

class RVA_EXPORT StreamCapabilities {
public:
    // No codec capabilities, default RtcpConfig, no profiles.
    StreamCapabilities();
    StreamCapabilities(const StreamCapabilities& other) noexcept;
    // Does nothing when `other` is this object; otherwise copyFrom(other).
    StreamCapabilities& operator=(const StreamCapabilities& other) noexcept;
    // Deletes every codec capability held.
    virtual ~StreamCapabilities();

    // Copies RTCP capabilities and profiles, deletes this object's codec capabilities and
    // clones `other`'s in order. Unlike operator=, it does not guard against `other` being
    // this object: then the codec list ends empty (profiles and RTCP values survive).
    void copyFrom(const StreamCapabilities& other) noexcept;

    // RTCP capabilities, then profiles, then codec capabilities in order, each compared
    // with its own (virtual) comparison, so AMR fields count.
    bool operator==(const StreamCapabilities& other) const;
    bool operator!=(const StreamCapabilities& other) const { return !(*this == other); }

    std::size_t getCodecCapabilityCount() const { return mCodecCapabilities.size(); }
    // The element at `index`, still owned by this object; null past the end. Invalid after
    // clearCodecCapabilities(), copyFrom(), assignment or destruction.
    const CodecCapabilities* getCodecCapabilities(std::size_t index) const;
    // Appends a clone of `caps`; adding the same capabilities twice holds two copies.
    void addCodecCapabilities(const CodecCapabilities& caps) noexcept;
    // Deletes every codec capability, in order, and empties the list.
    void clearCodecCapabilities();

    const RtcpConfig& getRTCPcaps() const { return mRtcpCaps; }
    // Copies the whole value of `caps`; `caps` is only read.
    void setRtcpCaps(RtcpConfig& caps) { mRtcpCaps = caps; }

    // Ascending numeric order.
    const std::set<RtpProfile>& getSupportedRtpProfiles() const { return mRtpProfiles; }
    // A profile already present is ignored; any value is accepted.
    void addRtpProfile(RtpProfile profile) noexcept { mRtpProfiles.insert(profile); }

private:
    std::vector<std::unique_ptr<CodecCapabilities>> mCodecCapabilities;
    RtcpConfig mRtcpCaps;
    std::set<RtpProfile> mRtpProfiles;
};

}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_STREAM_CAPABILITIES_H
