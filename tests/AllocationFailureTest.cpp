// Memory exhaustion is not reported by the library: it ends the process. This test
// program's operator new can be told to fail at its Nth call from now; the library binds
// to it as well, so a failure can be placed inside any allocation a library call makes.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "AmrCodecConfig.h"
#include "DtmfCodecConfig.h"
#include "ExpectAbort.h"
#include "StreamConfig.h"

namespace {
long allocationCount = 0;
long failingAllocation = 0;  // the value of allocationCount that fails; 0: none
}  // namespace

// Every replaceable form of the plain and array operators, so that each block is taken
// from malloc() and returned to free() whatever form releases it. None is inlined: a tool
// that replaces them in turn (valgrind) must see every call.
#define RVA_REPLACED __attribute__((noinline))
RVA_REPLACED void* operator new(std::size_t size) {
    if (++allocationCount == failingAllocation) {
        throw std::bad_alloc();
    }
    void* block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}
RVA_REPLACED void* operator new[](std::size_t size) { return ::operator new(size); }
RVA_REPLACED void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return ::operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
RVA_REPLACED void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
    return ::operator new(size, tag);
}
RVA_REPLACED void operator delete(void* block) noexcept { std::free(block); }
RVA_REPLACED void operator delete[](void* block) noexcept { std::free(block); }
RVA_REPLACED void operator delete(void* block, std::size_t) noexcept { std::free(block); }
RVA_REPLACED void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
RVA_REPLACED void operator delete(void* block, const std::nothrow_t&) noexcept { std::free(block); }
RVA_REPLACED void operator delete[](void* block, const std::nothrow_t&) noexcept { std::free(block); }

namespace {

using namespace tessel::rva;

// Two codecs each way and an address too long to be stored inside the string object.
StreamConfig filledStream() {
    StreamConfig stream;
    AmrCodecConfig amr;
    amr.addAmrRate(AmrRate2);
    amr.addAmrRate(AmrRate0);
    EXPECT_TRUE(stream.setRemoteIp("2001:db8:1234:5678::10").isSuccess() && stream.addUplinkCodec(amr).isSuccess() &&
                stream.addUplinkCodec(DtmfCodecConfig()).isSuccess() && stream.addDownlinkCodec(amr).isSuccess() &&
                stream.addDownlinkCodec(DtmfCodecConfig()).isSuccess());
    return stream;
}

// The first, a middle and the last allocation of a copy, an assignment over a stream that
// already holds codecs, an addition and a text dump: each failure ends the process through
// std::terminate() and abort(), so no caller sees a half-copied stream or a leaked clone
// (a text dump does not come back truncated either).
TEST(StreamConfigDeathTest, AllocationFailureInsideAnOperationEndsTheProcess) {
    const struct {
        const char* name;
        void (*run)(StreamConfig& target, const StreamConfig& source);
    } operations[] = {
        {"copy", [](StreamConfig&, const StreamConfig& source) { StreamConfig copy(source); }},
        {"assignment", [](StreamConfig& target, const StreamConfig& source) { target = source; }},
        {"addUplinkCodec",
         [](StreamConfig&, const StreamConfig& source) { StreamConfig().addUplinkCodec(*source.getUplinkCodec(0)); }},
        {"toString", [](StreamConfig&, const StreamConfig& source) { static_cast<void>(source.toString()); }},
    };
    const StreamConfig source = filledStream();
    for (const auto& operation : operations) {
        StreamConfig target = filledStream();
        const long before = allocationCount;
        operation.run(target, source);
        const long count = allocationCount - before;
        ASSERT_GE(count, 3) << operation.name;
        for (const long nth : {1L, (count + 1) / 2, count}) {
            SCOPED_TRACE(std::string(operation.name) + ", allocation " + std::to_string(nth));
            target = filledStream();
            EXPECT_ABORT(
                {
                    failingAllocation = allocationCount + nth;
                    operation.run(target, source);
                },
                "terminat");  // std::terminate()'s own line, whichever standard library
        }
    }
}

}  // namespace
