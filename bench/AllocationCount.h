// Heap allocations of the whole process, counted by the benchmark binary's own malloc.
#ifndef RVA_BENCH_ALLOCATION_COUNT_H
#define RVA_BENCH_ALLOCATION_COUNT_H

#include <cstddef>

namespace bench {

// Calls made so far to malloc, calloc, realloc, posix_memalign, aligned_alloc and memalign,
// from any code of the process: the program, the libraries under test, the peer parsers,
// GLib, and operator new (which calls malloc). Not thread-safe: the benchmarks run on one
// thread.
std::size_t allocationCount();

// True when an allocation made inside a shared library, by operator new (libstdc++) and
// by strdup (libc), is counted exactly once.
bool allocationsCounted();

}  // namespace bench

#endif  // RVA_BENCH_ALLOCATION_COUNT_H
