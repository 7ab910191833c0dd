// The SDP parsers a VoIP application would otherwise use, behind one small interface so
// that each lives in its own translation unit: their C headers declare clashing types
// (sdp_media_t, sdp_attribute_t...) and cannot share one.
#ifndef RVA_BENCH_PEER_PARSERS_H
#define RVA_BENCH_PEER_PARSERS_H

#include <cstddef>
#include <optional>
#include <string>

namespace bench {

// What a parser read from a description: enough to tell that two parsers read the same
// text alike. Everything is about the first media section.
struct Reading {
    std::size_t mediaCount = 0;
    unsigned long port = 0;
    std::size_t formatCount = 0;
    std::string address;               // of the media's c= line, else of the session's
    std::string direction;             // sendrecv, sendonly, recvonly or inactive; sendrecv when absent
    std::size_t bandwidthCount = 0;    // the media's b= lines
    unsigned long firstBandwidth = 0;  // the number of the first one
    std::string maxptime;              // the value of a=maxptime
    std::string firstFmtp;             // the a=fmtp parameters of the first format

    bool operator==(const Reading& other) const {
        return mediaCount == other.mediaCount && port == other.port && formatCount == other.formatCount &&
               address == other.address && direction == other.direction && bandwidthCount == other.bandwidthCount &&
               firstBandwidth == other.firstBandwidth && maxptime == other.maxptime && firstFmtp == other.firstFmtp;
    }
};

struct PeerParser {
    const char* name;
    // Parses `text` into the parser's own representation, then frees everything the parse
    // built: the whole cost of one parse. False when the parser refuses the text.
    bool (*parse)(const std::string& text);
    // Parses `text` and reports what was read; nothing when the parser refuses it.
    std::optional<Reading> (*read)(const std::string& text);
};

extern const PeerParser kSofiaSip;
extern const PeerParser kOsip;
extern const PeerParser kGstreamer;

// True when a GSlice block of GLib reaches malloc, so that the allocation count sees
// GStreamer's messages and arrays (see AllocationCount.cpp).
bool gsliceUsesMalloc();

}  // namespace bench

#endif  // RVA_BENCH_PEER_PARSERS_H
