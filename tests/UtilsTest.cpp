#include "Utils.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <tuple>
#include <vector>

static std::vector<int> inetPtonFamilies;  // the family of every inet_pton call

// The library's calls resolve to this one too.
extern "C" int inet_pton(int family, const char* text, void* address) noexcept {
    inetPtonFamilies.push_back(family);
    return reinterpret_cast<int (*)(int, const char*, void*)>(dlsym(RTLD_NEXT, "inet_pton"))(family, text, address);
}

namespace tessel::rva::tests {

// Ports 1024 to 65535; an IPv4 text is never tried as IPv6; a text is read up to its first NUL.
TEST(UtilsTest, AcceptsUnprivilegedPortsAndNumericAddressesOnly) {
    for (const int port : {-1, 0, 1023, 1024, 65535, 65536})
        EXPECT_EQ(port >= 1024 && port <= 65535, Utils::isValidSocketPort(port)) << port;
    const std::tuple<std::string, bool, bool> rows[] = {{"192.168.0.1", true, false},
                                                        {"::ffff:10.0.0.1", false, true},
                                                        {"10.0.0.1:5060", false, false},
                                                        {std::string("10.0.0.1\0garbage", 16), true, false}};
    for (const auto& [text, v4, v6] : rows) {
        SCOPED_TRACE(text);
        EXPECT_EQ(v4, Utils::isValidIpV4(text));
        EXPECT_EQ(v6, Utils::isValidIpV6(text));
        inetPtonFamilies.clear();
        EXPECT_EQ(v4 || v6, Utils::isValidIpAddress(text));
        EXPECT_EQ(v4 ? 1U : 2U, inetPtonFamilies.size());
    }
}

}  // namespace tessel::rva::tests
