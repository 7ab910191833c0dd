// Fuzz target for the record classes. The input is a sequence of operations (one byte
// picks the operation, the next bytes are its arguments) on a stream configuration, two
// AMR and one DTMF codec configuration, and a stream capability set with AMR and DTMF
// codec capabilities.
//
// Checked: validating setters return 1000 or 1002, and a refusal carries the documented
// message and changes nothing; check() returns 1000 or 1003 exactly as the documented
// rules say; copies compare equal, print the same text and share no codec object;
// self-assignment changes nothing; the preferred AMR rate follows the band's ranking;
// AMR equality covers exactly the documented fields.
#include <cstdint>
#include <memory>
#include <string>
#include <typeinfo>

#include "AmrCodecCapabilities.h"
#include "AmrCodecConfig.h"
#include "DtmfCodecCapabilities.h"
#include "DtmfCodecConfig.h"
#include "FuzzSupport.h"
#include "StreamCapabilities.h"
#include "StreamConfig.h"
#include "Utils.h"

using namespace tessel::rva;
using rvafuzz::ByteReader;

namespace {

struct State {
    StreamConfig stream;
    AmrCodecConfig amr;
    AmrCodecConfig peer;  // a second AMR configuration to compare with
    DtmfCodecConfig dtmf;
    StreamCapabilities caps;
    AmrCodecCapabilities amrCaps;
    DtmfCodecCapabilities dtmfCaps;
};

// Mostly small values and boundaries, sometimes any 32 bits.
std::int32_t integer(ByteReader& in) {
    static const std::int32_t kBoundaries[] = {-1, 0,    1,    2,     3,     4,     8,         9,
                                               98, 1023, 1024, 49150, 65535, 65536, INT32_MIN, INT32_MAX};
    const std::uint8_t selector = in.byte();
    if (selector < 0x80) {
        return static_cast<std::int32_t>(selector % 12) - 2;
    }
    return selector < 0xC0 ? kBoundaries[selector % 16] : in.value<std::int32_t>();
}

template <typename T>
T& alias(T& object) {  // self-assignment without a compiler warning
    return object;
}

std::string snapshot(const StreamConfig& stream) { return stream.toString(); }
std::string snapshot(const CodecConfig& codec) { return codec.toString(); }
AmrCodecCapabilities snapshot(const AmrCodecCapabilities& caps) { return caps; }

// A validating setter: success, or 1002 with `refusal` and the object unchanged.
template <typename Object, typename Call>
void checkSetter(const Object& object, bool accepted, const std::string& refusal, Call call) {
    const auto before = snapshot(object);
    const auto result = call();
    if (accepted) {
        FUZZ_CHECK(result.getCode() == 1000 && result.format() == "Success");
    } else {
        FUZZ_CHECK(result.getCode() == 1002 && result.mMessage == refusal && snapshot(object) == before);
    }
}

// check() of a codec: the packet-time rules, then for AMR a non-empty rate list without 8
// in narrow band. Only then is the preferred rate asked for: the list's best-ranked rate.
void checkCodec(const CodecConfig& codec) {
    bool valid =
        codec.getPacketTime() > 0 && codec.getMaxPacketTime() > 0 && codec.getPacketTime() <= codec.getMaxPacketTime();
    const AmrCodecConfig* amr = dynamic_cast<const AmrCodecConfig*>(&codec);
    if (amr != nullptr) {
        valid =
            valid && amr->getAmrRateCount() > 0 && !(amr->getBandType() == BandTypeNb && amr->containAmrRate(AmrRate8));
        FUZZ_CHECK(amr->getAmrRate(amr->getAmrRateCount()) == static_cast<AmrRate>(0xFFFFFFFF));
    }
    const CodecConfig::Result result = codec.check();
    FUZZ_CHECK((result.getCode() == 1000 || result.getCode() == 1003) && result.isSuccess() == valid);
    if (amr != nullptr && valid) {
        static const signed char kNarrow[] = {7, 4, 2, 0, 1, 3, 5, 6, -1}, kWide[] = {2, 1, 0, 3, 4, 5, 6, 7, 8, -1};
        const signed char* best = amr->getBandType() == BandTypeNb ? kNarrow : kWide;
        while (*best >= 0 && !amr->containAmrRate(static_cast<AmrRate>(*best))) {
            ++best;
        }
        FUZZ_CHECK(amr->getPreferedAmrRate() == *best);
    }
}

// The documented AMR equality: codec id, band, payload type and seven AMR options.
bool amrEqual(const AmrCodecConfig& a, const AmrCodecConfig& b) {
    return a.getCodecId() == b.getCodecId() && a.getBandType() == b.getBandType() &&
           a.getPayloadType() == b.getPayloadType() && a.isOctetAlignModeEnabled() == b.isOctetAlignModeEnabled() &&
           a.isDTXModeEnabled() == b.isDTXModeEnabled() && a.isRdcyModeEnabled() == b.isRdcyModeEnabled() &&
           a.getMaxRdcy() == b.getMaxRdcy() && a.isCrcModeEnabled() == b.isCrcModeEnabled() &&
           a.isRobustSortingModeEnabled() == b.isRobustSortingModeEnabled() &&
           a.isInterleavingModeEnabled() == b.isInterleavingModeEnabled();
}

void checkCodecCopy(const CodecConfig& original, const CodecConfig& copy) {
    FUZZ_CHECK(&original != &copy && typeid(original) == typeid(copy));
    FUZZ_CHECK(original == copy && copy == original && !(original != copy));
    FUZZ_CHECK(original.toString() == copy.toString());
    if (const AmrCodecConfig* amr = dynamic_cast<const AmrCodecConfig*>(&original)) {
        FUZZ_CHECK(amr->getSupportedAmrRates() == dynamic_cast<const AmrCodecConfig&>(copy).getSupportedAmrRates());
    }
}

// Codec `i` of the uplink list followed by the downlink list; null past the end.
const CodecConfig* codecAt(const StreamConfig& stream, std::size_t i) {
    const std::size_t up = stream.getUplinkCodecCount();
    return i < up ? stream.getUplinkCodec(i) : stream.getDownlinkCodec(i - up);
}

void checkStreamCopy(const StreamConfig& original, const StreamConfig& copy) {
    FUZZ_CHECK(original == copy && copy == original && !(original != copy));
    FUZZ_CHECK(original.toString() == copy.toString());
    FUZZ_CHECK(original.getUplinkCodecCount() == copy.getUplinkCodecCount());
    FUZZ_CHECK(original.getDownlinkCodecCount() == copy.getDownlinkCodecCount());
    for (std::size_t i = 0; codecAt(original, i) != nullptr; ++i) {
        checkCodecCopy(*codecAt(original, i), *codecAt(copy, i));
    }
}

void checkCapsCopy(const StreamCapabilities& original, const StreamCapabilities& copy) {
    FUZZ_CHECK(original == copy && copy == original && !(original != copy));
    FUZZ_CHECK(original.getRTCPcaps() == copy.getRTCPcaps());
    FUZZ_CHECK(original.getSupportedRtpProfiles() == copy.getSupportedRtpProfiles());
    FUZZ_CHECK(original.getCodecCapabilityCount() == copy.getCodecCapabilityCount());
    for (std::size_t i = 0; i < original.getCodecCapabilityCount(); ++i) {
        const CodecCapabilities* mine = original.getCodecCapabilities(i);
        const CodecCapabilities* theirs = copy.getCodecCapabilities(i);
        FUZZ_CHECK(mine != nullptr && theirs != nullptr && mine != theirs && typeid(*mine) == typeid(*theirs));
        FUZZ_CHECK(*mine == *theirs && *theirs == *mine);
    }
}

// The message of the stream's check(): the first failing rule, or the first failing
// codec's formatted result; empty for success.
std::string expectedStreamProblem(const StreamConfig& stream) {
    if (stream.hasUplink() && stream.getUplinkCodecCount() == 0) {
        return "Uplink is active and no uplink codec supplied";
    }
    if (stream.hasDownlink() && stream.getDownlinkCodecCount() == 0) {
        return "Downlink is active and no downlink codec supplied";
    }
    for (std::size_t i = 0; codecAt(stream, i) != nullptr; ++i) {
        checkCodec(*codecAt(stream, i));
        if (!codecAt(stream, i)->check().isSuccess()) {
            return codecAt(stream, i)->check().format();
        }
    }
    return "";
}

// Derived queries agree with the stored values, which the setters keep valid.
void checkQueries(const StreamConfig& stream) {
    const int direction = stream.getDirection();
    const int port = stream.getRemoteRtpPort();
    FUZZ_CHECK(stream.isDirectionValid(stream.getDirection()));
    FUZZ_CHECK(stream.hasUplink() == (direction == 1 || direction == 3));
    FUZZ_CHECK(stream.hasDownlink() == (direction == 2 || direction == 3));
    FUZZ_CHECK(Utils::isValidSocketPort(port) && Utils::isValidIpAddress(stream.getRemoteIp()));
    FUZZ_CHECK(stream.getRemoteRtcpPort() == (port < 65535 ? port + 1 : -1));
    FUZZ_CHECK(stream.getUplinkCodec(stream.getUplinkCodecCount()) == nullptr);
    FUZZ_CHECK(stream.getDownlinkCodec(stream.getDownlinkCodecCount()) == nullptr);
}

void addCodec(StreamConfig& stream, bool downlink, const CodecConfig& codec) {
    const std::size_t count = downlink ? stream.getDownlinkCodecCount() : stream.getUplinkCodecCount();
    bool accepted = true;
    for (std::size_t i = 0; i < count; ++i) {
        const CodecConfig* held = downlink ? stream.getDownlinkCodec(i) : stream.getUplinkCodec(i);
        accepted = accepted && held->getPayloadType() != codec.getPayloadType();
    }
    checkSetter(stream, accepted,
                "A codec with the same payload type " + std::to_string(codec.getPayloadType()) + " is already present",
                [&] { return downlink ? stream.addDownlinkCodec(codec) : stream.addUplinkCodec(codec); });
    if (accepted) {
        checkCodecCopy(codec, *(downlink ? stream.getDownlinkCodec(count) : stream.getUplinkCodec(count)));
    }
}

std::string remoteIp(ByteReader& in) {
    static const char* const kTexts[] = {"192.168.0.1", "::1", "10.0.0.1:5060", "", "fe80::1:2", "host", "1.2.3"};
    const std::uint8_t selector = in.byte();
    if (selector == 0xFF) {
        return std::string("10.1.2.3\0tail", 13);
    }
    return selector < 0x80 ? std::string(kTexts[selector % 7]) : in.text(64);
}

void streamOperation(State& s, ByteReader& in) {
    StreamConfig& stream = s.stream;
    const std::int32_t value = integer(in);
    switch (in.byte() % 9) {
        case 0:
            checkSetter(stream, value >= 1024 && value <= 65535, "Invalid socket port: " + std::to_string(value),
                        [&] { return stream.setRemoteRtpPort(value); });
            FUZZ_CHECK(stream.getRemoteRtpPort() == value || !Utils::isValidSocketPort(value));
            break;
        case 1:
            checkSetter(stream, value >= 0 && value <= 3, "Invalid direction : " + std::to_string(value),
                        [&] { return stream.setDirection(static_cast<StreamConfig::Direction>(value)); });
            FUZZ_CHECK(stream.getDirection() == value || value < 0 || value > 3);
            break;
        case 2: {
            const std::string ip = remoteIp(in);
            checkSetter(stream, Utils::isValidIpAddress(ip), "Invalid internet address : " + ip,
                        [&] { return stream.setRemoteIp(ip); });
            FUZZ_CHECK(stream.getRemoteIp() == ip || !Utils::isValidIpAddress(ip));
            break;
        }
        case 3: {  // the plain setters
            const std::int32_t rr = integer(in), rs = integer(in), as = integer(in);
            const RtcpConfig rtcp(value, rr, rs, as, (value & 8) != 0);
            PdpContext pdp;
            pdp.primaryCID = value, pdp.secondaryCID = rr;
            stream.muteUplink(value & 1), stream.setRtcp(value & 2), stream.setHoldState(value & 4);
            stream.setRtpProfile(static_cast<RtpProfile>(pdp.secondaryCID));
            stream.setPdpContext(pdp), stream.setRtcpConfig(rtcp);
            FUZZ_CHECK(stream.getRtcpConfig() == rtcp && stream.getPdpContext() == pdp &&
                       stream.isHeld() == ((value & 4) != 0));
            break;
        }
        case 4: {
            const CodecConfig& codec = value & 2 ? static_cast<const CodecConfig&>(s.dtmf) : value & 4 ? s.peer : s.amr;
            addCodec(stream, value & 1, codec);
            break;
        }
        case 5: (value & 1) ? stream.clearDownlinkCodecs() : stream.clearUplinkCodecs(); break;
        case 6: {
            const std::string problem = expectedStreamProblem(stream);
            const StreamConfig::Result result = stream.check();
            FUZZ_CHECK(result.getCode() == (problem.empty() ? 1000 : 1003) && result.mMessage == problem);
            break;
        }
        case 7: {  // copy construction and assignment give independent deep copies
            const std::string before = stream.toString();
            StreamConfig copy(stream);
            checkStreamCopy(stream, copy);
            StreamConfig assigned;
            assigned.addUplinkCodec(s.dtmf);
            assigned = copy;
            checkStreamCopy(copy, assigned);
            copy.clearUplinkCodecs(), copy.clearDownlinkCodecs();
            FUZZ_CHECK((copy == stream) == (codecAt(stream, 0) == nullptr));
            stream = assigned;
            checkStreamCopy(assigned, stream);
            FUZZ_CHECK(stream.toString() == before);
            break;
        }
        default: {  // self-assignment and self copyFrom change nothing
            const StreamConfig before(stream);
            stream = alias(stream);
            stream.copyFrom(alias(stream));
            checkStreamCopy(before, stream);
        }
    }
    checkQueries(stream);
}

void codecOperation(State& s, ByteReader& in) {
    const std::int32_t value = integer(in);
    const bool on = (value & 1) != 0;
    AmrCodecConfig& amr = in.flag() ? s.peer : s.amr;
    CodecConfig& codec = in.flag() ? static_cast<CodecConfig&>(s.dtmf) : amr;
    switch (in.byte() % 20) {
        case 0: amr.setOctetAlignMode(on); break;
        case 1: amr.setDTXMode(on); break;
        case 2: amr.setRdcyMode(on); break;
        case 3: amr.setMaxRdcy(value); break;
        case 4: amr.setCrcMode(on); break;
        case 5: amr.setRobustSortingMode(on); break;
        case 6: amr.setInterleavingMode(on); break;
        case 7: amr.setModeChangeNeighbor(on); break;
        case 8: amr.setModeChangePeriod(static_cast<ModeChangePeriod>(value)); break;
        case 9: codec.setPayloadType(value); break;
        case 10: codec.setPacketTime(value); break;
        case 11: codec.setMaxPacketTime(value); break;
        case 12:
            checkSetter(codec, value == 0 || value == 1, "Bad band type: " + std::to_string(value),
                        [&] { return codec.setBandType(static_cast<BandType>(value)); });
            FUZZ_CHECK(codec.getBandType() == value || value < 0 || value > 1);
            break;
        case 13: {  // a rate in 0..8 is added once
            const std::size_t count = amr.getAmrRateCount() + !amr.containAmrRate(static_cast<AmrRate>(value));
            checkSetter(amr, value >= 0 && value <= 8, "Bad amr rate: " + std::to_string(value),
                        [&] { return amr.addAmrRate(static_cast<AmrRate>(value)); });
            FUZZ_CHECK(value < 0 || value > 8 || amr.getAmrRateCount() == count);
            break;
        }
        case 14: amr.clearAmrRateVector(); break;
        case 15: checkCodec(s.amr), checkCodec(s.peer), checkCodec(s.dtmf); break;
        case 16: {  // copies, clones, assignments and self-assignments
            const AmrCodecConfig amrCopy(amr);
            const DtmfCodecConfig dtmfCopy(s.dtmf);
            const std::unique_ptr<CodecConfig> amrClone(amr.clone()), dtmfClone(s.dtmf.clone());
            amr = alias(amr);
            amr.copyFrom(alias(amr));
            s.dtmf = alias(s.dtmf);
            checkCodecCopy(amr, amrCopy), checkCodecCopy(amr, *amrClone);
            checkCodecCopy(s.dtmf, dtmfCopy), checkCodecCopy(s.dtmf, *dtmfClone);
            if (on) {
                s.peer = s.amr;
                checkCodecCopy(s.amr, s.peer);
            }
            break;
        }
        case 17: {  // copyFrom takes the AMR options only, the generic part stays
            const std::string base = s.peer.CodecConfig::toString();
            s.peer.copyFrom(s.amr);
            const std::string amrOptions = s.amr.toString().substr(s.amr.CodecConfig::toString().size());
            FUZZ_CHECK(s.peer.toString() == base + amrOptions);
            FUZZ_CHECK(s.peer.getSupportedAmrRates() == s.amr.getSupportedAmrRates());
            break;
        }
        case 18:  // logs the three rate-list warnings when the lists differ, by design
            FUZZ_CHECK(!(s.amr == static_cast<const CodecConfig&>(s.dtmf)));  // another class is never equal
            FUZZ_CHECK((s.amr == s.peer) == amrEqual(s.amr, s.peer) && (s.peer == s.amr) == amrEqual(s.amr, s.peer));
            break;
        default: {  // base-part assignment across codecs copies the codec id too
            const CodecConfig& source = on ? static_cast<const CodecConfig&>(s.dtmf) : s.amr;
            codec = source;
            FUZZ_CHECK(codec.getCodecId() == source.getCodecId());
            FUZZ_CHECK(codec.CodecConfig::toString() == source.CodecConfig::toString());
        }
    }
}

void capsOperation(State& s, ByteReader& in) {
    const std::int32_t value = integer(in);
    const bool on = (value & 1) != 0;
    AmrCodecCapabilities& amr = s.amrCaps;
    CodecCapabilities& codec = in.flag() ? static_cast<CodecCapabilities&>(s.dtmfCaps) : amr;
    // Counts keep their low 32 bits and read back sign-extended.
    const std::uint64_t count = (static_cast<std::uint64_t>(integer(in)) << 32) | static_cast<std::uint32_t>(value);
    const std::uint64_t widened = static_cast<std::uint64_t>(static_cast<std::int64_t>(value));
    switch (in.byte() % 24) {
        case 0: amr.setOctetAlignModeRequired(on); break;
        case 1: amr.setDTXModeSupport(on); break;
        case 2: amr.setRdcyModeSupport(on); break;
        case 3: amr.setMaxSupportedRdcy(value); break;
        case 4: amr.setRateAdaptationModeSupport(on); break;
        case 5: amr.setModeChangeNeighborRequired(on); break;
        case 6: amr.setCrcModeSupport(on); break;
        case 7: amr.setRobustSortingModeSupport(on); break;
        case 8: amr.setInterleavingModeSupport(on); break;
        case 9:
            checkSetter(amr, value == 0 || value == 1, "Bad mode change period: " + std::to_string(value),
                        [&] { return amr.setModeChangePeriod(static_cast<ModeChangePeriod>(value)); });
            break;
        case 10:
            checkSetter(amr, value == 0 || value == 1, "Bad mode change capability: " + std::to_string(value),
                        [&] { return amr.setModeChangeCapability(static_cast<ModeChangeCapability>(value)); });
            break;
        case 11:
            checkSetter(amr, value >= 0 && value <= 8, "Bad amr rate: " + std::to_string(value),
                        [&] { return amr.addSupportedAmrRate(static_cast<AmrRate>(value)); });
            break;
        case 12: amr.clearSupportedAmrRateVector(); break;
        case 13:
            codec.setPacketTime(count);
            FUZZ_CHECK(codec.getPacketTime() == widened);
            break;
        case 14:
            codec.setMaxPacketTime(count);
            FUZZ_CHECK(codec.getMaxPacketTime() == widened);
            break;
        case 15:
            codec.setChannelCount(count);
            FUZZ_CHECK(codec.getChannelCount() == widened);
            break;
        case 16: codec.setBandType(static_cast<BandType>(value)); break;  // stored as given
        case 17: {
            const StreamCapabilities before(s.caps);
            s.caps.addCodecCapabilities(codec);
            const CodecCapabilities* added = s.caps.getCodecCapabilities(s.caps.getCodecCapabilityCount() - 1);
            FUZZ_CHECK(added != &codec && typeid(*added) == typeid(codec) && *added == codec && before != s.caps);
            break;
        }
        case 18:
            s.caps.clearCodecCapabilities();
            FUZZ_CHECK(s.caps.getCodecCapabilities(0) == nullptr);
            break;
        case 19: {
            const StreamCapabilities before(s.caps);
            s.caps.addRtpProfile(static_cast<RtpProfile>(value));
            FUZZ_CHECK((before == s.caps) ==
                       (before.getSupportedRtpProfiles().count(static_cast<RtpProfile>(value)) == 1));
            break;
        }
        case 20: {
            const std::int32_t rr = integer(in), rs = integer(in), as = integer(in);
            RtcpConfig rtcp(value, rr, rs, as, on);
            s.caps.setRtcpCaps(rtcp);
            FUZZ_CHECK(s.caps.getRTCPcaps() == rtcp);
            break;
        }
        case 21: {  // copies, assignment and self-assignment
            const StreamCapabilities copy(s.caps);
            StreamCapabilities assigned;
            assigned.addCodecCapabilities(s.dtmfCaps);
            assigned = copy;
            s.caps = alias(s.caps);
            checkCapsCopy(s.caps, copy), checkCapsCopy(copy, assigned);
            const AmrCodecCapabilities amrCopy(amr);
            const std::unique_ptr<CodecCapabilities> amrClone(amr.clone());
            AmrCodecCapabilities amrAssigned;
            DtmfCodecCapabilities dtmfAssigned;
            amrAssigned = amr, dtmfAssigned = s.dtmfCaps;
            amr = alias(amr), s.dtmfCaps = alias(s.dtmfCaps);
            FUZZ_CHECK(amrCopy == amr && *amrClone == amr && amr == *amrClone && amrAssigned == amr);
            FUZZ_CHECK(dtmfAssigned == s.dtmfCaps && s.dtmfCaps == dtmfAssigned);
            break;
        }
        case 22: {  // base-part assignment across codecs copies the codec id too
            const CodecCapabilities& source = on ? static_cast<const CodecCapabilities&>(s.dtmfCaps) : amr;
            codec = source;
            FUZZ_CHECK(codec.getCodecId() == source.getCodecId() && codec.CodecCapabilities::operator==(source));
            FUZZ_CHECK(!(amr == s.dtmfCaps));  // another class is never equal
            break;
        }
        default: {  // copyFrom itself empties the codec list and keeps the rest
            const StreamCapabilities before(s.caps);
            s.caps.copyFrom(alias(s.caps));
            FUZZ_CHECK(s.caps.getCodecCapabilityCount() == 0 && s.caps.getRTCPcaps() == before.getRTCPcaps());
            FUZZ_CHECK(s.caps.getSupportedRtpProfiles() == before.getSupportedRtpProfiles());
        }
    }
    FUZZ_CHECK(amr.isRdcyModeSupported() || amr.getMaxSupportedRdcy() == -1);
    FUZZ_CHECK(amr.getSupportedAmrRate(amr.getSupportedAmrRateCount()) == -1);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    rvafuzz::quietAndroidLog();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ByteReader in(data, size);
    State state;
    for (unsigned steps = 0; steps < 512 && !in.empty(); ++steps) {
        switch (in.byte() % 3) {
            case 0: streamOperation(state, in); break;
            case 1: codecOperation(state, in); break;
            default: capsOperation(state, in);
        }
    }
    const StreamConfig copy(state.stream);
    checkStreamCopy(state.stream, copy);
    return 0;
}
