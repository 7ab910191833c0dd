// Cost of the record operations that call control runs on every call setup and
// renegotiation, in time and heap allocations, each next to a baseline that does the same
// work at the least cost: plain structs owning the same heap blocks, snprintf of the same
// text, a rank table, inet_pton alone. Every benchmark is registered twice, as "<op>/lib"
// and "<op>/base"; scripts/bench.sh turns the pairs into a table with their ratio. main()
// also registers the SDP parser benchmarks of SdpParseBench.cpp, so that one run measures
// everything; allocations are counted by AllocationCount.cpp.
//
// The typical stream: remote 192.0.2.10:50000, full duplex, default RTCP, and on each
// direction an AMR-WB configuration with four rates (payload type 97) plus DTMF (101).
#include <arpa/inet.h>
#include <unistd.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "AmrCodecConfig.h"
#include "BenchSupport.h"
#include "DtmfCodecConfig.h"
#include "StreamConfig.h"
#include "Utils.h"

namespace {

using namespace tessel::rva;

const char kRemoteIp[] = "192.0.2.10";
const char kRemoteIpV6[] = "2001:db8::10";
const int kRemotePort = 50000;
const AmrRate kWbRates[] = {AmrRate8, AmrRate2, AmrRate1, AmrRate0};

// ---- The library's records ---------------------------------------------------------------

StreamConfig buildStream() {
    StreamConfig stream;
    stream.setRemoteIp(kRemoteIp);
    stream.setRemoteRtpPort(kRemotePort);
    stream.setDirection(StreamConfig::FullDuplex);
    AmrCodecConfig amr;
    amr.setBandType(BandTypeWb);
    for (const AmrRate rate : kWbRates) {
        amr.addAmrRate(rate);
    }
    amr.setOctetAlignMode(true);
    amr.setPayloadType(97);
    DtmfCodecConfig dtmf;
    dtmf.setPayloadType(101);
    stream.addUplinkCodec(amr);
    stream.addUplinkCodec(dtmf);
    stream.addDownlinkCodec(amr);
    stream.addDownlinkCodec(dtmf);
    return stream;
}

AmrCodecConfig narrowBandAllRates() {
    AmrCodecConfig amr;
    amr.setBandType(BandTypeNb);
    for (int rate = AmrRate0; rate <= AmrRate7; ++rate) {
        amr.addAmrRate(static_cast<AmrRate>(rate));
    }
    return amr;
}

typedef CodecConfig::Result CodecResult;

std::string foldThreeFailures() {
    CodecResult result = CodecResult::success();
    result &= CodecResult(CodecConfig::InvalidConfiguration) << "Packet time must be greater than 0";
    result &= CodecResult(CodecConfig::InvalidConfiguration) << "Max packet time must be greater than 0";
    result &= CodecResult(CodecConfig::InvalidConfiguration)
              << "Packet time '" << 40u << "' must be lesser or equal than max packet time '" << 20u << "'";
    return result.format();
}

// ---- Baselines: the same data and work at the least cost -------------------------------

// Same fields and the same heap blocks (codecs owned by pointer, a rate vector each), but
// no virtual dispatch, no result objects and no streams.
struct PlainCodec {
    int codecId, band, payloadType;
    unsigned packetTime, maxPacketTime;
    bool octetAlign, dtx, rdcy;
    int maxRdcy;
    std::vector<int> rates;
    bool crc, robustSorting, interleaving, neighbor;
    int period;
};
typedef std::vector<std::unique_ptr<PlainCodec>> PlainList;

void cloneList(PlainList& to, const PlainList& from) {
    to.clear();
    to.reserve(from.size());
    for (const std::unique_ptr<PlainCodec>& codec : from) {
        to.push_back(std::make_unique<PlainCodec>(*codec));
    }
}

struct PlainStream {
    int port = 49150;
    std::string ip = "127.0.0.1";
    bool muted = false;
    int direction = 3;
    bool rtcpEnabled = true;
    unsigned interval = 5000, rr = 0, rs = 800, as = 64;
    bool reducedSize = false;
    PlainList up, down;
    bool held = false;
    int profile = 3551, primaryCid = 1, secondaryCid = 1;

    PlainStream() = default;
    PlainStream(const PlainStream& other) { *this = other; }
    PlainStream& operator=(const PlainStream& other) {
        port = other.port, ip = other.ip, muted = other.muted, direction = other.direction;
        rtcpEnabled = other.rtcpEnabled, interval = other.interval, rr = other.rr, rs = other.rs, as = other.as;
        reducedSize = other.reducedSize, held = other.held, profile = other.profile;
        primaryCid = other.primaryCid, secondaryCid = other.secondaryCid;
        cloneList(up, other.up);
        cloneList(down, other.down);
        return *this;
    }
};

PlainStream buildPlain() {
    PlainStream stream;
    in_addr address;
    if (inet_pton(AF_INET, kRemoteIp, &address) == 1) {
        stream.ip = kRemoteIp;
    }
    stream.port = kRemotePort;
    PlainCodec amr{0, 1, 97, 20, 240, true, true, false, 1, {}, false, false, false, false, 0};
    amr.rates.reserve(4);
    for (const AmrRate rate : kWbRates) {
        amr.rates.push_back(rate);
    }
    const PlainCodec dtmf{1, 1, 101, 20, 240, false, false, false, 0, {}, false, false, false, false, 0};
    for (PlainList* list : {&stream.up, &stream.down}) {
        list->reserve(2);
        list->push_back(std::make_unique<PlainCodec>(amr));
        list->push_back(std::make_unique<PlainCodec>(dtmf));
    }
    return stream;
}

// The packet-time rules and the AMR rate rules, answering a code only.
int plainCheck(const PlainStream& stream) {
    if (((stream.direction & 1) && stream.up.empty()) || ((stream.direction & 2) && stream.down.empty())) {
        return 1003;
    }
    for (const PlainList* list : {&stream.up, &stream.down}) {
        for (const std::unique_ptr<PlainCodec>& codec : *list) {
            if (codec->packetTime == 0 || codec->maxPacketTime == 0 || codec->packetTime > codec->maxPacketTime) {
                return 1003;
            }
            if (codec->codecId == 0 && codec->rates.empty()) {
                return 1003;
            }
            for (const int rate : codec->rates) {
                if (static_cast<unsigned>(rate) > 8 || (rate == 8 && codec->band == 0)) {
                    return 1003;
                }
            }
        }
    }
    return 1000;
}

bool plainEqual(const PlainCodec& a, const PlainCodec& b) {
    if (a.codecId != b.codecId || a.band != b.band || a.payloadType != b.payloadType) {
        return false;
    }
    const bool equal = a.octetAlign == b.octetAlign && a.dtx == b.dtx && a.rdcy == b.rdcy && a.maxRdcy == b.maxRdcy &&
                       a.crc == b.crc && a.robustSorting == b.robustSorting && a.interleaving == b.interleaving;
    return equal && a.rates == b.rates;
}

int printCodec(char* out, size_t size, const PlainCodec& c) {
    int n = std::snprintf(out, size,
                          "    Codec: %s (%d)\n    BandType: %s (%d)\n    PayloadType: %d\n"
                          "    PacketTime: %u\n    MaxPacketTime: %u\n",
                          c.codecId == 0 ? "AMR" : "DTMF", c.codecId, c.band == 0 ? "8kHz" : "16kHz", c.band,
                          c.payloadType, c.packetTime, c.maxPacketTime);
    if (c.codecId != 0) {
        return n;
    }
    n += std::snprintf(out + n, size - n,
                       "    OctetAlignEnabled: %d\n    DtxModeEnabled: %d\n    RdcyEnabled: %d\n"
                       "    MaxRdcy: %d\n    RateCount: %zu\n    Rates: ",
                       c.octetAlign, c.dtx, c.rdcy, c.maxRdcy, c.rates.size());
    for (const int rate : c.rates) {
        n += std::snprintf(out + n, size - n, "%d ", rate);
    }
    n += std::snprintf(out + n, size - n,
                       "\n    CrcEnabled: %d\n    RobustSortingEnabled: %d\n    InterleavingEnabled: %d\n"
                       "    ModeChangeNeighborEnabled: %d\n    ModeChangePeriod: %d\n",
                       c.crc, c.robustSorting, c.interleaving, c.neighbor, c.period);
    return n;
}

// The text of StreamConfig::toString() in one buffer, then one string.
std::string plainToString(const PlainStream& s) {
    static const char* const kDirections[] = {"Inactive", "Send only", "Receive only", "Full duplex"};
    char text[4096];
    int n = std::snprintf(text, sizeof text,
                          "  Remote: %s:%d\n  Mute: %d\n  Direction : %s (%d)\n  RtcpEnabled: %d\n"
                          "  RtcpConfig: AS=%u RS=%u RR=%u interval=%u  ReducedSizeMode=%d\n  IsHeld: %d\n"
                          "  RtpProfile: %d\n  PdpContext: primaryCID=%d secondaryCID=%d\n",
                          s.ip.c_str(), s.port, s.muted, kDirections[s.direction & 3], s.direction, s.rtcpEnabled, s.as,
                          s.rs, s.rr, s.interval, s.reducedSize, s.held, s.profile, s.primaryCid, s.secondaryCid);
    for (const auto& [heading, list] : {std::make_pair("Uplink", &s.up), std::make_pair("Downlink", &s.down)}) {
        for (size_t i = 0; i < list->size(); ++i) {
            n += std::snprintf(text + n, sizeof text - n, "  %s codec %zu/%zu\n", heading, i + 1, list->size());
            n += printCodec(text + n, sizeof text - n, *(*list)[i]);
        }
    }
    return std::string(text, n);
}

// The preferred rate from a rank table indexed by rate.
AmrRate plainPreferredRate(const std::vector<AmrRate>& rates, BandType band) {
    static const unsigned char kNarrow[9] = {3, 4, 2, 5, 1, 6, 7, 0, 255};
    static const unsigned char kWide[9] = {2, 1, 0, 3, 4, 5, 6, 7, 8};
    if (rates.empty()) {
        return static_cast<AmrRate>(0xFFFFFFFF);
    }
    const unsigned char* rank = band == BandTypeNb ? kNarrow : kWide;
    AmrRate best = rates[0];
    for (const AmrRate rate : rates) {
        best = rank[rate] < rank[best] ? rate : best;
    }
    return best;
}

// inet_pton alone, into a buffer large enough for either family.
bool pton(int family, const std::string& text) {
    in6_addr address;
    return inet_pton(family, text.c_str(), &address) == 1;
}

std::string plainFoldThreeFailures() {
    char text[512];
    const int n =
        std::snprintf(text, sizeof text,
                      "%s (Code %d): %s && %s (Code %d): %s && %s (Code %d): Packet time '%u' must be "
                      "lesser or equal than max packet time '%u'",
                      "Invalid Configuration", 1003, "Packet time must be greater than 0", "Invalid Configuration",
                      1003, "Max packet time must be greater than 0", "Invalid Configuration", 1003, 40u, 20u);
    return std::string(text, n);
}

// ---- Registration --------------------------------------------------------------------

using bench::keep;

template <typename Lib, typename Base>
void measure(const std::string& name, Lib lib, Base base) {
    bench::add(name, "lib", lib);
    bench::add(name, "base", base);
}

}  // namespace

int main(int argc, char** argv) {
    // GLib 2.74 serves GSlice blocks (GStreamer's SDP messages and arrays among them) from
    // caches of its own that malloc never sees; since GLib 2.76 they are plain malloc
    // blocks. The choice is read when GLib starts, before main(), so the binary restarts
    // itself with the variable that gives the newer behaviour.
    const char* slice = std::getenv("G_SLICE");
    if (slice == nullptr || std::strcmp(slice, "always-malloc") != 0) {
        setenv("G_SLICE", "always-malloc", 1);
        execv("/proc/self/exe", argv);
        std::perror("restarting with G_SLICE=always-malloc");
        return 1;
    }
    if (!bench::allocationsCounted()) {
        std::fprintf(stderr, "The allocation count misses allocations made inside shared libraries\n");
        return 1;
    }

    static const StreamConfig stream = buildStream();
    static StreamConfig target = buildStream();
    static const PlainStream plain = buildPlain();
    static PlainStream plainTarget = buildPlain();
    static AmrCodecConfig amrA = narrowBandAllRates(), amrB = narrowBandAllRates();
    // clang-format off
    static PlainCodec plainA{0, 0, 98, 20, 240, false, true, false, 1, {0, 1, 2, 3, 4, 5, 6, 7},
                             false, false, false, false, 0};
    // clang-format on
    static PlainCodec plainB = plainA;
    static const std::string ipV4 = kRemoteIp, ipV6 = kRemoteIpV6;

    // Each baseline must produce what the library produces, or its figure means nothing.
    const bool same = stream.check().isSuccess() && plainCheck(plain) == 1000 &&
                      stream.toString() == plainToString(plain) && amrA == amrB && plainEqual(plainA, plainB) &&
                      amrA.getPreferedAmrRate() == plainPreferredRate(amrA.getSupportedAmrRates(), BandTypeNb) &&
                      foldThreeFailures() == plainFoldThreeFailures() && Utils::isValidIpAddress(ipV6);
    if (!same) {
        std::fprintf(stderr, "A baseline does not produce what the library produces\n");
        return 1;
    }

    // clang-format off
    measure("StreamConfig build+fill", [] { keep(buildStream()); }, [] { keep(buildPlain()); });
    measure("StreamConfig::check (valid)", [] { keep(stream.check()); }, [] { keep(plainCheck(plain)); });
    measure("StreamConfig copy", [] { StreamConfig c(stream); keep(c); }, [] { PlainStream c(plain); keep(c); });
    measure("StreamConfig assign", [] { keep(target = stream); }, [] { keep(plainTarget = plain); });
    measure("StreamConfig::toString", [] { keep(stream.toString()); }, [] { keep(plainToString(plain)); });
    measure("AmrCodecConfig::operator==",
            [] { keep(amrA); keep(static_cast<const CodecConfig&>(amrA) == amrB); },
            [] { keep(plainA); keep(plainEqual(plainA, plainB)); });
    measure("AmrCodecConfig::getPreferedAmrRate (8 NB)", [] { keep(amrA.getPreferedAmrRate()); },
            [] { keep(amrA); keep(plainPreferredRate(amrA.getSupportedAmrRates(), BandTypeNb)); });
    measure("Utils::isValidIpAddress (IPv4)", [] { keep(Utils::isValidIpAddress(ipV4)); },
            [] { keep(pton(AF_INET, ipV4)); });
    measure("Utils::isValidIpAddress (IPv6)", [] { keep(Utils::isValidIpAddress(ipV6)); },
            [] { keep(pton(AF_INET6, ipV6)); });
    measure("Result copy of success() + destroy", [] { keep(CodecResult(CodecResult::success())); },
            [] { int code = 1000; keep(code); });
    measure("Result fold 3 failures+format", [] { keep(foldThreeFailures()); }, [] { keep(plainFoldThreeFailures()); });
    // clang-format on
    if (!bench::registerSdpBenchmarks()) {
        return 1;
    }

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
