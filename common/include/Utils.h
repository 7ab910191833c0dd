// Validation of the remote end of a stream: IP address texts and socket ports.
//
// All operations are static, pure and reentrant; they never fail.
//
//   Utils::isValidIpAddress("192.168.0.1");  // true
//   Utils::isValidIpAddress("10.0.0.1:5060"); // false: no port, no host names, no brackets
//   Utils::isValidSocketPort(1023);           // false: privileged range
#ifndef TESSEL_RVA_UTILS_H
#define TESSEL_RVA_UTILS_H

#include <string>

#include "RvaExport.h"

namespace tessel {
namespace rva {

class RVA_EXPORT Utils {
public:
    // True exactly for 1024..65535 (privileged ports, 0 and negative values are refused).
    static bool isValidSocketPort(int port);
    // True when the platform's inet_pton accepts the text as an IPv4 address. The text is
    // read up to its first NUL character.
    static bool isValidIpV4(const std::string& address);
    // True when the platform's inet_pton accepts the text as an IPv6 address.
    static bool isValidIpV6(const std::string& address);
    // isValidIpV4, and only when that is false, isValidIpV6.
    static bool isValidIpAddress(const std::string& address);
};

}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_UTILS_H
