// sofia-sip: sdp_parse() builds the session in a memory home of its own (the parser),
// sdp_parser_free() releases it.
#include <sofia-sip/sdp.h>

#include "PeerParsers.h"

namespace bench {
namespace {

bool parse(const std::string& text) {
    sdp_parser_t* parser = sdp_parse(nullptr, text.data(), static_cast<issize_t>(text.size()), 0);
    const bool accepted = sdp_session(parser) != nullptr;
    sdp_parser_free(parser);
    return accepted;
}

std::optional<Reading> read(const std::string& text) {
    sdp_parser_t* parser = sdp_parse(nullptr, text.data(), static_cast<issize_t>(text.size()), 0);
    const sdp_session_t* session = sdp_session(parser);
    if (session == nullptr || session->sdp_media == nullptr) {
        sdp_parser_free(parser);
        return std::nullopt;
    }
    Reading reading;
    for (const sdp_media_t* media = session->sdp_media; media != nullptr; media = media->m_next) {
        ++reading.mediaCount;
    }
    const sdp_media_t* media = session->sdp_media;
    reading.port = media->m_port;
    for (const sdp_rtpmap_t* map = media->m_rtpmaps; map != nullptr; map = map->rm_next) {
        ++reading.formatCount;
    }
    const sdp_connection_t* connection =
        media->m_connections != nullptr ? media->m_connections : session->sdp_connection;
    reading.address = connection != nullptr ? connection->c_address : "";
    static const char* const kModes[] = {"inactive", "sendonly", "recvonly", "sendrecv"};
    reading.direction = kModes[media->m_mode & 3];
    // The modifiers are not compared: this package reads b=AS as an unknown modifier
    // named "AS", and b=RS and b=RR as sdp_bw_as.
    for (const sdp_bandwidth_t* bandwidth = media->m_bandwidths; bandwidth != nullptr; bandwidth = bandwidth->b_next) {
        if (reading.bandwidthCount++ == 0) {
            reading.firstBandwidth = bandwidth->b_value;
        }
    }
    const sdp_attribute_t* maxptime = sdp_attribute_find(media->m_attributes, "maxptime");
    reading.maxptime = maxptime != nullptr && maxptime->a_value != nullptr ? maxptime->a_value : "";
    if (media->m_rtpmaps != nullptr && media->m_rtpmaps->rm_fmtp != nullptr) {
        reading.firstFmtp = media->m_rtpmaps->rm_fmtp;
    }
    sdp_parser_free(parser);
    return reading;
}

}  // namespace

const PeerParser kSofiaSip = {"sofia-sip", parse, read};

}  // namespace bench
