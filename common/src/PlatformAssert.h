// Internal: the platform assertion used for broken construction invariants.
#ifndef TESSEL_RVA_PLATFORM_ASSERT_H
#define TESSEL_RVA_PLATFORM_ASSERT_H

#include <android/log.h>

// When `cond` is false, hands its text to the Android log's assertion with tag "KARDU"
// and no message format; the Android log library logs it and aborts the process.
#define RVA_PLATFORM_ASSERT(cond)                          \
    do {                                                   \
        if (!(cond)) {                                     \
            __android_log_assert(#cond, "KARDU", nullptr); \
        }                                                  \
    } while (0)

#endif  // TESSEL_RVA_PLATFORM_ASSERT_H
