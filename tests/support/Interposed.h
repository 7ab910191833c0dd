// Stand-ins for the C library's clock_gettime and inet_pton in the test program; the
// library's calls resolve to them too. clock_gettime fails with `clockError` when it is
// not 0 and reads `clock` when it is set; inet_pton notes the family of every call. Both
// pass through to the real function otherwise. Included by
// one test file only.
#ifndef TESSEL_RVA_TESTS_INTERPOSED_H
#define TESSEL_RVA_TESTS_INTERPOSED_H

#include <dlfcn.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <vector>

namespace rvatest {
struct Interposed {
    static inline int clockError = 0;
    static inline const timespec* clock = nullptr;
    static inline std::vector<int> families;
};
}  // namespace rvatest

extern "C" int clock_gettime(clockid_t clock, struct timespec* time) noexcept {
    if (rvatest::Interposed::clockError != 0) {
        errno = rvatest::Interposed::clockError;
        return -1;
    }
    return rvatest::Interposed::clock != nullptr ? (*time = *rvatest::Interposed::clock, 0)
                                                 : static_cast<int>(syscall(SYS_clock_gettime, clock, time));
}

extern "C" int inet_pton(int family, const char* text, void* address) noexcept {
    rvatest::Interposed::families.push_back(family);
    return reinterpret_cast<int (*)(int, const char*, void*)>(dlsym(RTLD_NEXT, "inet_pton"))(family, text, address);
}

#endif  // TESSEL_RVA_TESTS_INTERPOSED_H
