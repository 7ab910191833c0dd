// Fuzz target for the validation of the remote end of a stream: the input is an address
// text (any bytes, NULs included) and the ports are read from its bytes.
//
// Checked: the address tests agree with inet_pton on the text up to its first NUL;
// isValidIpAddress is v4 || v6; StreamConfig::setRemoteIp stores an accepted text and
// refuses any other with 1002 "Invalid internet address : <text>", keeping the old one;
// the port rule is 1024..65535 and setRemoteRtpPort follows it.
#include <arpa/inet.h>
#include <netinet/in.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "FuzzSupport.h"
#include "StreamConfig.h"
#include "Utils.h"

using tessel::rva::StreamConfig;
using tessel::rva::Utils;

namespace {

bool platformAccepts(int family, const std::string& text) {
    unsigned char buffer[sizeof(in6_addr)];
    return inet_pton(family, text.c_str(), buffer) == 1;
}

void checkAddress(StreamConfig& stream, const std::string& text) {
    const bool v4 = Utils::isValidIpV4(text);
    const bool v6 = Utils::isValidIpV6(text);
    FUZZ_CHECK(v4 == platformAccepts(AF_INET, text));
    FUZZ_CHECK(v6 == platformAccepts(AF_INET6, text));
    FUZZ_CHECK(Utils::isValidIpAddress(text) == (v4 || v6));

    const std::string before = stream.getRemoteIp();
    const StreamConfig::Result result = stream.setRemoteIp(text);
    if (v4 || v6) {
        FUZZ_CHECK(result.getCode() == StreamConfig::Success);
        FUZZ_CHECK(result.format() == "Success");
        FUZZ_CHECK(stream.getRemoteIp() == text);
    } else {
        const std::string message = "Invalid internet address : " + text;
        FUZZ_CHECK(result.getCode() == StreamConfig::InvalidParam);
        FUZZ_CHECK(result.mMessage == message);
        FUZZ_CHECK(result.format() == "Invalid Param (Code 1002): " + message);
        FUZZ_CHECK(stream.getRemoteIp() == before);
    }
}

void checkPort(StreamConfig& stream, std::int32_t port) {
    const bool valid = port >= 1024 && port <= 65535;
    FUZZ_CHECK(Utils::isValidSocketPort(port) == valid);

    const int before = stream.getRemoteRtpPort();
    const StreamConfig::Result result = stream.setRemoteRtpPort(port);
    if (valid) {
        FUZZ_CHECK(result.getCode() == StreamConfig::Success);
        FUZZ_CHECK(stream.getRemoteRtpPort() == port);
        FUZZ_CHECK(stream.getRemoteRtcpPort() == (port < 65535 ? port + 1 : -1));
    } else {
        FUZZ_CHECK(result.getCode() == StreamConfig::InvalidParam);
        FUZZ_CHECK(result.mMessage == "Invalid socket port: " + std::to_string(port));
        FUZZ_CHECK(stream.getRemoteRtpPort() == before);
    }
}

// The decimal number at the start of `text`, when there is one that fits an int.
bool parsePort(const std::string& text, std::int32_t& port) {
    const char* begin = text.c_str();
    char* end = nullptr;
    const long long number = std::strtoll(begin, &end, 10);
    if (end == begin || number < INT32_MIN || number > INT32_MAX) {
        return false;
    }
    port = static_cast<std::int32_t>(number);
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    rvafuzz::quietAndroidLog();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    StreamConfig stream;

    checkAddress(stream, text);
    const std::string::size_type nul = text.find('\0');
    if (nul != std::string::npos) {
        checkAddress(stream, text.substr(0, nul));
        checkAddress(stream, text.substr(nul + 1));
    }

    // "host:port": the part before the last colon as an address, the rest as a port.
    const std::string::size_type colon = text.rfind(':');
    std::int32_t port = 0;
    if (colon != std::string::npos) {
        checkAddress(stream, text.substr(0, colon));
        if (parsePort(text.substr(colon + 1), port)) {
            checkPort(stream, port);
        }
    }
    if (parsePort(text, port)) {
        checkPort(stream, port);
    }

    // The first and the last four bytes as binary ports.
    rvafuzz::ByteReader head(data, size);
    checkPort(stream, head.value<std::int32_t>());
    if (size >= 4) {
        rvafuzz::ByteReader tail(data + size - 4, 4);
        checkPort(stream, tail.value<std::int32_t>());
    }
    return 0;
}
