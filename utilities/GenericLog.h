// The library's logger: one call reaches every sink of a compile-time list of log traits.
//
// The library writes text only for a warning about a questionable but accepted input
// (tag "ORVA") and for a failed internal assertion just before the process aborts (tag
// "TESSEL"). Each record goes first to the Android log, then to standard error as
// "<letter>/<tag> <text>".
//
//   Logger::Stream<details::Level::Warning>("ORVA") << "Expected rates are: " << 7 << ' ';
//   TESSEL_ASSERT(index < count, "Index " << index << " out of " << count);
#ifndef TESSEL_UTILITIES_GENERIC_LOG_H
#define TESSEL_UTILITIES_GENERIC_LOG_H

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <ios>
#include <sstream>
#include <string>

#include "RvaExport.h"

namespace tessel {
namespace utilities {

namespace details {
// Log levels. Only these two are used; logging at Fatal does not itself stop the process.
struct Level {
    enum Enum { Fatal = 33, Warning = 35 };
};

// Android log priority of a level: 7 (fatal) for Fatal, 5 (warning) for Warning.
constexpr int androidPriority(Level::Enum level) { return level == Level::Fatal ? 7 : 5; }
// Letter that prefixes a standard-error line: "F" or "W".
constexpr const char* levelLetter(Level::Enum level) { return level == Level::Fatal ? "F" : "W"; }

// Hands one record to the Android log library (__android_log_vprint).
RVA_EXPORT void androidLogVPrint(int priority, const char* tag, const char* format, va_list args);
}  // namespace details

namespace detail {
// Terminator of a TypeList.
struct TypeNull {};
}  // namespace detail

// Compile-time list of log traits: TypeList<Trait, TypeList<Trait, detail::TypeNull>>.
template <typename Head, typename Tail>
struct TypeList {
    typedef Head HeadType;
    typedef Tail TailType;
};

// Writes one record to the Android log. The flag is false in every use.
template <bool Unused>
struct AndroidLogTrait {
    template <details::Level::Enum L>
    static void valog(const char* tag, const char* format, va_list args) {
        details::androidLogVPrint(details::androidPriority(L), tag, format, args);
    }
};

// Writes one line to standard error: "<letter>/<tag> " + formatted text + newline.
struct StdIoLogTrait {
    template <details::Level::Enum L>
    static void valog(const char* tag, const char* format, va_list args) {
        std::fprintf(stderr, "%s/%s ", details::levelLetter(L), tag);
        std::vfprintf(stderr, format, args);
        std::fputc('\n', stderr);
    }
};

template <typename List>
class GenericLog;

template <>
class GenericLog<detail::TypeNull> {
public:
    template <details::Level::Enum L>
    static void valog(const char* /*tag*/, const char* /*format*/, va_list /*args*/) {}
};

template <typename Head, typename Tail>
class GenericLog<TypeList<Head, Tail>> {
public:
    // Formats once per trait; the rest of the list gets its own copy of the arguments and
    // writes before the head trait, so the Android record precedes the standard-error line.
    template <details::Level::Enum L>
    static void valog(const char* tag, const char* format, va_list args) {
        va_list copy;
        va_copy(copy, args);
        GenericLog<Tail>::template valog<L>(tag, format, copy);
        va_end(copy);
        Head::template valog<L>(tag, format, args);
    }

    // A message under construction, emitted when the stream is destroyed. The text is
    // always passed as the argument of "%s", so '%' in it is printed literally; an empty
    // stream emits nothing. The tag must outlive the stream (string literals do).
    template <details::Level::Enum L>
    class Stream {
    public:
        // A failed allocation while the text is built is let through (to the noexcept
        // operation that logs), not swallowed as a bad stream that logs a truncated line.
        explicit Stream(const char* tag) noexcept : mTag(tag) { mStream.exceptions(std::ios::badbit); }
        Stream(const Stream&) = delete;
        Stream& operator=(const Stream&) = delete;
        ~Stream() {
            const std::string text = mStream.str();
            if (!text.empty()) {
                log("%s", text.c_str());
            }
        }

        // Formats with the stream's tag and level, immediately.
        void log(const char* format, ...) __attribute__((format(printf, 2, 3))) {
            va_list args;
            va_start(args, format);
            GenericLog::template valog<L>(mTag, format, args);
            va_end(args);
        }

        template <typename T>
        Stream& operator<<(const T& value) noexcept {
            mStream << value;
            return *this;
        }

        std::ostream& stream() { return mStream; }

    private:
        std::ostringstream mStream;
        const char* mTag;
    };
};

// The library's logger: Android log first, then standard error.
typedef GenericLog<TypeList<StdIoLogTrait, TypeList<AndroidLogTrait<false>, detail::TypeNull>>> Logger;

}  // namespace utilities
}  // namespace tessel

// Fatal assertion: when `cond` is false, logs one line at level Fatal with tag "TESSEL",
// "<file>:<line>: Assertion <cond> failed: <message>", then calls abort(). `message` is
// a chain of stream insertions: TESSEL_ASSERT(p != NULL, "Codec " << i << " is null").
#define TESSEL_ASSERT(cond, message)                                                                                \
    do {                                                                                                            \
        if (!(cond)) {                                                                                              \
            {                                                                                                       \
                ::tessel::utilities::Logger::Stream<::tessel::utilities::details::Level::Fatal> tesselAssertStream( \
                    "TESSEL");                                                                                      \
                tesselAssertStream << __FILE__ << ":" << __LINE__ << ": Assertion " #cond                           \
                                   << " failed: " << message; /* NOLINT(bugprone-macro-parentheses) */              \
            }                                                                                                       \
            ::abort();                                                                                              \
        }                                                                                                           \
    } while (0)

#endif  // TESSEL_UTILITIES_GENERIC_LOG_H
