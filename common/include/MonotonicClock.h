// Monotonic millisecond time, for measuring intervals (never wall-clock time).
//
//   const std::int64_t start = common::MonotonicClock::getTime();
//   ...
//   const std::int64_t elapsedMs = common::MonotonicClock::getTime() - start;
#ifndef TESSEL_RVA_MONOTONIC_CLOCK_H
#define TESSEL_RVA_MONOTONIC_CLOCK_H

#include <cstdint>

#include "RvaExport.h"

namespace tessel {
namespace rva {
namespace common {

class RVA_EXPORT MonotonicClock {
public:
    // Milliseconds of the system's monotonic clock; successive readings never decrease.
    // A clock that cannot be read is a broken platform: the failure is logged as a fatal
    // assertion (tag "TESSEL", with errno and its description) and the process aborts.
    static std::int64_t getTime() noexcept;
};

}  // namespace common
}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_MONOTONIC_CLOCK_H
