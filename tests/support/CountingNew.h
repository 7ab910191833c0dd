// This test program's own operator new, which the library binds to as well: it counts
// every allocation and can be told to fail at its Nth call from now, so that a failure can
// be placed inside any allocation a library call makes. Included by one test file only.
#ifndef TESSEL_RVA_TESTS_COUNTING_NEW_H
#define TESSEL_RVA_TESTS_COUNTING_NEW_H

#include <cstdlib>
#include <new>

namespace rvatest {
inline long allocationCount = 0;
inline long failingAllocation = 0;  // the value of allocationCount that fails; 0: none
}  // namespace rvatest

// Every replaceable form of the plain and array operators, so that each block is taken
// from malloc() and returned to free() whatever form releases it. None is inlined: a tool
// that replaces them in turn (valgrind) must see every call.
#define RVA_REPLACED __attribute__((noinline))
RVA_REPLACED void* operator new(std::size_t size) {
    void* block = ++rvatest::allocationCount == rvatest::failingAllocation ? nullptr : std::malloc(size == 0 ? 1 : size);
    return block != nullptr ? block : throw std::bad_alloc();
}
RVA_REPLACED void* operator new[](std::size_t size) { return ::operator new(size); }
RVA_REPLACED void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size + 1); }
RVA_REPLACED void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size + 1); }
RVA_REPLACED void operator delete(void* block) noexcept { std::free(block); }
RVA_REPLACED void operator delete[](void* block) noexcept { std::free(block); }
RVA_REPLACED void operator delete(void* block, std::size_t) noexcept { std::free(block); }
RVA_REPLACED void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
RVA_REPLACED void operator delete(void* block, const std::nothrow_t&) noexcept { std::free(block); }
RVA_REPLACED void operator delete[](void* block, const std::nothrow_t&) noexcept { std::free(block); }

#endif  // TESSEL_RVA_TESTS_COUNTING_NEW_H
