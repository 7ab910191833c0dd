// The benchmark binary defines the C allocation functions. A definition in the executable
// takes precedence over the C library's for every shared object of the process (the
// dynamic linker binds to the first definition it finds, and glibc supports replacing its
// malloc this way), so each call is counted and then served by glibc's own allocator
// through its __libc_* entry points. free() is defined as well: glibc requires malloc,
// calloc, realloc and free to be replaced together.
#include "AllocationCount.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <new>

extern "C" {
void* __libc_malloc(std::size_t size) noexcept;
void* __libc_calloc(std::size_t count, std::size_t size) noexcept;
void* __libc_realloc(void* block, std::size_t size) noexcept;
void* __libc_memalign(std::size_t alignment, std::size_t size) noexcept;
void __libc_free(void* block) noexcept;
}

namespace {
std::size_t gAllocations = 0;

bool isPowerOfTwo(std::size_t value) { return value != 0 && (value & (value - 1)) == 0; }
}  // namespace

std::size_t bench::allocationCount() { return gAllocations; }

bool bench::allocationsCounted() {
    // Called through volatile pointers so that the compiler can neither elide nor inline
    // them: each call must reach the replaced malloc from inside a shared library.
    void* (*volatile allocate)(std::size_t) = static_cast<void* (*)(std::size_t)>(&::operator new);
    char* (*volatile duplicate)(const char*) = &strdup;
    const std::size_t before = gAllocations;
    void* fromNew = allocate(24);
    char* fromLibc = duplicate("counted");
    const std::size_t made = gAllocations - before;
    ::operator delete(fromNew);
    free(fromLibc);
    return made == 2;
}

extern "C" {

void* malloc(std::size_t size) noexcept {
    ++gAllocations;
    return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) noexcept {
    ++gAllocations;
    return __libc_calloc(count, size);
}

void* realloc(void* block, std::size_t size) noexcept {
    ++gAllocations;
    return __libc_realloc(block, size);
}

void free(void* block) noexcept { __libc_free(block); }

int posix_memalign(void** out, std::size_t alignment, std::size_t size) noexcept {
    if (!isPowerOfTwo(alignment) || alignment % sizeof(void*) != 0) {
        return EINVAL;
    }
    ++gAllocations;
    void* block = __libc_memalign(alignment, size);
    if (block == nullptr) {
        return ENOMEM;
    }
    *out = block;
    return 0;
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    if (!isPowerOfTwo(alignment)) {
        errno = EINVAL;
        return nullptr;
    }
    ++gAllocations;
    return __libc_memalign(alignment, size);
}

void* memalign(std::size_t alignment, std::size_t size) noexcept {
    ++gAllocations;
    return __libc_memalign(alignment, size);
}

}  // extern "C"
