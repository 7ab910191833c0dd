#include "MonotonicClock.h"

#include <cerrno>
#include <ctime>

#include "GenericLog.h"
#include "Result.h"

namespace tessel {
namespace rva {
namespace common {

std::int64_t MonotonicClock::getTime() noexcept {
    timespec now;
    const int result = clock_gettime(CLOCK_MONOTONIC, &now);
    if (result != 0) {
        const int error = errno;
        const utilities::result::Result<utilities::result::ErrnoTrait> errorResult(error);
        TESSEL_ASSERT(result == 0, "clock_gettime failed " << error << " " << errorResult.format());
    }
    return static_cast<std::int64_t>(now.tv_sec) * 1000 + static_cast<std::int64_t>(now.tv_nsec) / 1000000;
}

}  // namespace common
}  // namespace rva
}  // namespace tessel
