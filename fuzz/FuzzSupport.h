// Helpers shared by the fuzz targets: a reader that turns the input bytes into values,
// a hard failure for broken invariants, and a quiet Android log.
#ifndef RVA_FUZZ_SUPPORT_H
#define RVA_FUZZ_SUPPORT_H

#include <android/log.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

// Reports the broken invariant with its source line and aborts, so that libFuzzer (or
// the replay driver, gdb, valgrind) stops right here.
#define FUZZ_CHECK(cond)                                                                      \
    do {                                                                                      \
        if (!(cond)) {                                                                        \
            std::fprintf(stderr, "%s:%d: invariant failed: %s\n", __FILE__, __LINE__, #cond); \
            std::abort();                                                                     \
        }                                                                                     \
    } while (0)

namespace rvafuzz {

// Consumes the input from the front; once it is exhausted every value reads as zero.
class ByteReader {
public:
    ByteReader(const std::uint8_t* data, std::size_t size) : mData(data), mSize(size) {}

    bool empty() const { return mSize == 0; }

    std::uint8_t byte() {
        if (mSize == 0) {
            return 0;
        }
        --mSize;
        return *mData++;
    }

    bool flag() { return (byte() & 1) != 0; }

    // Little-endian; short inputs are zero-filled.
    template <typename T>
    T value() {
        std::uint64_t bits = 0;
        for (std::size_t i = 0; i < sizeof(T); ++i) {
            bits |= static_cast<std::uint64_t>(byte()) << (8 * i);
        }
        T result;
        std::memcpy(&result, &bits, sizeof(T));
        return result;
    }

    // A text of up to `maxLength` bytes, its length given by the first byte.
    std::string text(std::size_t maxLength) {
        std::size_t length = byte();
        if (length > maxLength) {
            length = maxLength;
        }
        if (length > mSize) {
            length = mSize;
        }
        std::string result(reinterpret_cast<const char*>(mData), length);
        mData += length;
        mSize -= length;
        return result;
    }

private:
    const std::uint8_t* mData;
    std::size_t mSize;
};

// Drops the Android log records below Fatal (the library mirrors every record on standard
// error anyway); fatal ones, written just before an assertion aborts, still reach stderr.
inline void quietAndroidLog() {
    __android_log_set_logger([](const __android_logger_data* data, const char* message) {
        if (data->priority >= ANDROID_LOG_FATAL) {
            __android_log_stderr_logger(data, message);
        }
    });
}

}  // namespace rvafuzz

#endif  // RVA_FUZZ_SUPPORT_H
