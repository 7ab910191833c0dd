// Memory exhaustion is not reported by the library: it ends the process. This test
// program's operator new can be told to fail at its Nth call from now; the library binds
// to it as well, so a failure can be placed inside any allocation a library call makes.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <new>
#include <ostream>
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
    void* block = ++allocationCount == failingAllocation ? nullptr : std::malloc(size == 0 ? 1 : size);
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

namespace {

using namespace tessel::rva;

// A value whose printed text is too long to be held inside a string object.
struct LongText {};
std::ostream& operator<<(std::ostream& out, LongText) { return out << std::string(100, 'x'); }

// The first, a middle and the last allocation of a copy, an assignment over a stream that
// already holds codecs, a text dump and a message being built: each failure ends the
// process through std::terminate() and abort(), so no caller sees a half-copied stream, a
// leaked clone or a truncated text.
TEST(StreamConfigDeathTest, AllocationFailureInsideAnOperationEndsTheProcess) {
    StreamConfig source;
    AmrCodecConfig amr;
    amr.addAmrRate(AmrRate2);
    ASSERT_TRUE(source.setRemoteIp("2001:db8:1234:5678::10").isSuccess() && source.addUplinkCodec(amr).isSuccess() &&
                source.addUplinkCodec(DtmfCodecConfig()).isSuccess() && source.addDownlinkCodec(amr).isSuccess());
    const std::function<void()> operations[] = {
        [&] {
            StreamConfig copy(source);
            copy = source;
        },
        [&] { static_cast<void>(source.toString()); },
        [] { static_cast<void>(StreamConfig::Result(StreamConfig::InvalidParam) << LongText()); },
    };
    for (const auto& operation : operations) {
        const long before = allocationCount;
        operation();
        const long count = allocationCount - before;
        for (const long nth : {1L, (count + 1) / 2, count}) {
            // std::terminate()'s own line, whichever standard library
            EXPECT_ABORT((failingAllocation = allocationCount + nth, operation()), "terminat")
                << nth << " of " << count;
        }
    }
}

// A list makes room for four codecs at its first addition: four codecs cost four clones
// and one block of storage.
TEST(StreamConfigTest, AListAllocatesRoomForFourCodecsAtOnce) {
    StreamConfig stream;
    DtmfCodecConfig dtmf;
    const long before = allocationCount;
    for (int payloadType : {96, 97, 98, 99}) {
        dtmf.setPayloadType(payloadType);
        ASSERT_TRUE(stream.addUplinkCodec(dtmf).isSuccess());
    }
    if (allocationCount == before) GTEST_SKIP() << "operator new is not this program's (valgrind replaces it)";
    EXPECT_EQ(5, allocationCount - before);
}

}  // namespace
