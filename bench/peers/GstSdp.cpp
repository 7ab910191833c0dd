// GStreamer: gst_sdp_message_parse_buffer() fills a message initialised by
// gst_sdp_message_init(); gst_sdp_message_uninit() releases what it holds. The message
// itself is on the stack, the cheapest way the API allows.
#include <gst/sdp/gstsdpmessage.h>

#include <cstring>

#include "AllocationCount.h"
#include "PeerParsers.h"

namespace bench {
namespace {

bool parse(const std::string& text) {
    GstSDPMessage message;
    std::memset(&message, 0, sizeof message);  // init expects zeroed memory
    gst_sdp_message_init(&message);
    const bool accepted = gst_sdp_message_parse_buffer(reinterpret_cast<const guint8*>(text.data()),
                                                       static_cast<guint>(text.size()), &message) == GST_SDP_OK;
    gst_sdp_message_uninit(&message);
    return accepted;
}

std::string orEmpty(const char* text) { return text != nullptr ? text : ""; }

std::optional<Reading> read(const std::string& text) {
    GstSDPMessage message;
    std::memset(&message, 0, sizeof message);
    gst_sdp_message_init(&message);
    if (gst_sdp_message_parse_buffer(reinterpret_cast<const guint8*>(text.data()), static_cast<guint>(text.size()),
                                     &message) != GST_SDP_OK ||
        gst_sdp_message_medias_len(&message) == 0) {
        gst_sdp_message_uninit(&message);
        return std::nullopt;
    }
    Reading reading;
    reading.mediaCount = gst_sdp_message_medias_len(&message);
    const GstSDPMedia* media = gst_sdp_message_get_media(&message, 0);
    reading.port = gst_sdp_media_get_port(media);
    reading.formatCount = gst_sdp_media_formats_len(media);
    reading.address = gst_sdp_media_connections_len(media) > 0
                          ? orEmpty(gst_sdp_media_get_connection(media, 0)->address)
                          : orEmpty(gst_sdp_message_get_connection(&message)->address);
    reading.direction = "sendrecv";
    const std::string firstFormat = orEmpty(gst_sdp_media_get_format(media, 0)) + " ";
    for (guint i = 0; i < gst_sdp_media_attributes_len(media); ++i) {
        const GstSDPAttribute* attribute = gst_sdp_media_get_attribute(media, i);
        const std::string key = orEmpty(attribute->key);
        const std::string value = orEmpty(attribute->value);
        if (key == "sendrecv" || key == "sendonly" || key == "recvonly" || key == "inactive") {
            reading.direction = key;
        } else if (key == "maxptime") {
            reading.maxptime = value;
        } else if (key == "fmtp" && reading.firstFmtp.empty() &&
                   value.compare(0, firstFormat.size(), firstFormat) == 0) {
            reading.firstFmtp = value.substr(firstFormat.size());
        }
    }
    reading.bandwidthCount = gst_sdp_media_bandwidths_len(media);
    if (reading.bandwidthCount > 0) {
        reading.firstBandwidth = gst_sdp_media_get_bandwidth(media, 0)->bandwidth;
    }
    gst_sdp_message_uninit(&message);
    return reading;
}

}  // namespace

const PeerParser kGstreamer = {"GStreamer", parse, read};

bool gsliceUsesMalloc() {
    const std::size_t before = allocationCount();
    void* block = g_slice_alloc(48);
    const bool counted = allocationCount() != before;
    g_slice_free1(48, block);
    return counted;
}

}  // namespace bench
