// oSIP: sdp_message_init() allocates an empty message, sdp_message_parse() fills it from a
// NUL-terminated text, sdp_message_free() releases it.
#include <osipparser2/sdp_message.h>

#include <cstdlib>

#include "PeerParsers.h"

namespace bench {
namespace {

bool parse(const std::string& text) {
    sdp_message_t* message = nullptr;
    if (sdp_message_init(&message) != 0) {
        return false;
    }
    const bool accepted = sdp_message_parse(message, text.c_str()) == 0;
    sdp_message_free(message);
    return accepted;
}

std::string orEmpty(const char* text) { return text != nullptr ? text : ""; }

std::optional<Reading> read(const std::string& text) {
    sdp_message_t* message = nullptr;
    if (sdp_message_init(&message) != 0) {
        return std::nullopt;
    }
    if (sdp_message_parse(message, text.c_str()) != 0 || sdp_message_endof_media(message, 0) != 0) {
        sdp_message_free(message);
        return std::nullopt;
    }
    Reading reading;
    while (sdp_message_endof_media(message, static_cast<int>(reading.mediaCount)) == 0) {
        ++reading.mediaCount;
    }
    reading.port = std::strtoul(orEmpty(sdp_message_m_port_get(message, 0)).c_str(), nullptr, 10);
    while (sdp_message_m_payload_get(message, 0, static_cast<int>(reading.formatCount)) != nullptr) {
        ++reading.formatCount;
    }
    const char* address = sdp_message_c_addr_get(message, 0, 0);
    reading.address = orEmpty(address != nullptr ? address : sdp_message_c_addr_get(message, -1, 0));
    reading.direction = "sendrecv";
    const std::string firstFormat = orEmpty(sdp_message_m_payload_get(message, 0, 0)) + " ";
    for (int i = 0; sdp_message_a_att_field_get(message, 0, i) != nullptr; ++i) {
        const std::string field = sdp_message_a_att_field_get(message, 0, i);
        const std::string value = orEmpty(sdp_message_a_att_value_get(message, 0, i));
        if (field == "sendrecv" || field == "sendonly" || field == "recvonly" || field == "inactive") {
            reading.direction = field;
        } else if (field == "maxptime") {
            reading.maxptime = value;
        } else if (field == "fmtp" && reading.firstFmtp.empty() &&
                   value.compare(0, firstFormat.size(), firstFormat) == 0) {
            reading.firstFmtp = value.substr(firstFormat.size());
        }
    }
    for (int i = 0; sdp_message_bandwidth_get(message, 0, i) != nullptr; ++i) {
        const sdp_bandwidth_t* bandwidth = sdp_message_bandwidth_get(message, 0, i);
        if (reading.bandwidthCount++ == 0) {
            reading.firstBandwidth = std::strtoul(orEmpty(bandwidth->b_bandwidth).c_str(), nullptr, 10);
        }
    }
    sdp_message_free(message);
    return reading;
}

}  // namespace

const PeerParser kOsip = {"oSIP", parse, read};

}  // namespace bench
