// SessionDescription::parse next to the SDP parsers a VoIP application would otherwise
// use, on the same texts (SdpTexts.h). Each operation is registered once per parser as
// "SDP parse: <text>/<parser>"; scripts/bench.sh prints every parser's time and
// allocations with the ratio rvasdp / peer. Every side pays for what it builds and frees
// it: rvasdp constructs, fills and destroys a SessionDescription; each peer parses into
// its own representation and releases it (PeerParsers.h).
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "BenchSupport.h"
#include "SdpTexts.h"
#include "OfferAnswer.h"
#include "SessionDescription.h"
#include "StreamConfig.h"
#include "StreamMapping.h"
#include "peers/PeerParsers.h"

namespace bench {
namespace {

using tessel::rva::StreamCapabilities;
using tessel::rva::StreamConfig;
using tessel::rva::sdp::LocalEndpoint;
using tessel::rva::sdp::MediaDescription;
using tessel::rva::sdp::SessionDescription;
using tessel::rva::sdp::createAnswer;
using tessel::rva::sdp::defaultCapabilities;
using tessel::rva::sdp::toStreamConfig;

struct Text {
    const char* name;
    std::string text;
};

// What rvasdp reads from `text`, in the terms of the peers' readings.
std::optional<Reading> readOurs(const std::string& text) {
    SessionDescription description;
    if (!SessionDescription::parse(text, description).isSuccess() || description.mediaCount() == 0) {
        return std::nullopt;
    }
    Reading reading;
    reading.mediaCount = description.mediaCount();
    const MediaDescription& media = description.media(0);
    reading.port = media.port();
    reading.formatCount = media.formats().size();
    const auto connection = media.connection() ? media.connection() : description.connection();
    reading.address = connection ? std::string(connection->address) : std::string();
    reading.direction = "sendrecv";
    for (const char* direction : {"sendonly", "recvonly", "inactive"}) {
        if (media.hasAttribute(direction)) {
            reading.direction = direction;
        }
    }
    for (std::size_t i = 0; i < media.lineCount(); ++i) {
        const std::string_view value = media.line(i).value;
        if (media.line(i).type == 'b' && reading.bandwidthCount++ == 0) {
            reading.firstBandwidth = std::strtoul(std::string(value.substr(value.find(':') + 1)).c_str(), nullptr, 10);
        }
    }
    reading.maxptime = media.attributeValue("maxptime");
    reading.firstFmtp = media.fmtp(std::atoi(media.formats().front().c_str()));
    return reading;
}

void print(const char* who, const Reading& r) {
    std::fprintf(stderr,
                 "  %-10s media %zu, port %lu, formats %zu, address %s, %s, %zu b= (first %lu), maxptime %s, "
                 "fmtp \"%s\"\n",
                 who, r.mediaCount, r.port, r.formatCount, r.address.c_str(), r.direction.c_str(), r.bandwidthCount,
                 r.firstBandwidth, r.maxptime.c_str(), r.firstFmtp.c_str());
}

}  // namespace

bool registerSdpBenchmarks() {
    if (!gsliceUsesMalloc()) {
        std::fprintf(stderr, "GLib's GSlice blocks do not reach malloc: run with G_SLICE=always-malloc\n");
        return false;
    }
    static const PeerParser* const kPeers[] = {&kSofiaSip, &kOsip, &kGstreamer};
    static const Text kTexts[] = {
        {"VoLTE offer", kVolteOffer},
        {"VoLTE answer", kVolteAnswer},
        {"hold re-offer, IPv6", kHoldReofferIpv6},
    };

    // Every parser must accept every text and read it alike, or the figures compare
    // different work.
    bool same = true;
    for (const Text& text : kTexts) {
        const std::optional<Reading> ours = readOurs(text.text);
        for (const PeerParser* peer : kPeers) {
            const std::optional<Reading> theirs = peer->read(text.text);
            if (!ours || !theirs || !(*ours == *theirs)) {
                std::fprintf(stderr, "%s reads the %s differently:\n", peer->name, text.name);
                if (ours) {
                    print("rvasdp", *ours);
                }
                if (theirs) {
                    print(peer->name, *theirs);
                }
                same = false;
            }
        }
    }
    if (!same) {
        return false;
    }

    for (const Text& text : kTexts) {
        const std::string operation = std::string("SDP parse: ") + text.name;
        const std::string* const input = &text.text;
        add(operation, "rvasdp", [input] {
            SessionDescription description;
            keep(SessionDescription::parse(*input, description));
            keep(description);
        });
        for (const PeerParser* peer : kPeers) {
            add(operation, peer->name, [peer, input] { keep(peer->parse(*input)); });
        }
    }
    // The library's whole job on a received offer: parse it, map it onto the stream to
    // run and check that stream, next to each peer's parse alone (none maps or checks).
    const std::string* const offer = &kTexts[0].text;
    const std::string mapped = "SDP parse + toStreamConfig + check(): VoLTE offer";
    add(mapped, "rvasdp", [offer] {
        SessionDescription description;
        keep(SessionDescription::parse(*offer, description));
        StreamConfig stream;
        keep(toStreamConfig(description, 0, stream));
        keep(stream.check());
    });
    for (const PeerParser* peer : kPeers) {
        add(mapped, std::string(peer->name) + " (parse only)", [peer, offer] { keep(peer->parse(*offer)); });
    }
    // Answering the parsed offer with the default capabilities: the answer section and the
    // negotiated stream. No peer negotiates AMR, so this row stands alone.
    static const SessionDescription parsedOffer = [] {
        SessionDescription description;
        SessionDescription::parse(kVolteOffer, description);
        return description;
    }();
    static const StreamCapabilities capabilities = defaultCapabilities();
    add("createAnswer: VoLTE offer", "rvasdp", [] {
        LocalEndpoint endpoint;
        endpoint.address = "198.51.100.7";
        endpoint.rtpPort = 50000;
        MediaDescription answer;
        StreamConfig negotiated;
        keep(createAnswer(capabilities, endpoint, parsedOffer, 0, answer, negotiated));
        keep(answer);
        keep(negotiated);
    });
    return true;
}

}  // namespace bench
