#include "Utils.h"

#include <arpa/inet.h>
#include <netinet/in.h>

namespace tessel {
namespace rva {

bool Utils::isValidSocketPort(int port) { return static_cast<unsigned int>(port) - 1024U <= 65535U - 1024U; }

bool Utils::isValidIpV4(const std::string& address) {
    in_addr converted;
    return inet_pton(AF_INET, address.c_str(), &converted) == 1;
}

bool Utils::isValidIpV6(const std::string& address) {
    in6_addr converted;
    return inet_pton(AF_INET6, address.c_str(), &converted) == 1;
}

bool Utils::isValidIpAddress(const std::string& address) { return isValidIpV4(address) || isValidIpV6(address); }

}  // namespace rva
}  // namespace tessel
