// Outcome of a validating operation: a numeric code plus human-readable text.
//
// Nothing in the library throws. A setter that refuses its argument, a check() of a
// whole record and the clock's error path all return a Result by value. The Trait
// decides which numbers are codes, which one means success and how each is described.
// The operations that allocate are noexcept: memory exhaustion ends the process.
//
//   Result<CodecConfig::ResultTrait> r = Result<CodecConfig::ResultTrait>::success();
//   r &= Result<CodecConfig::ResultTrait>(CodecConfig::InvalidConfiguration) << "first";
//   r &= Result<CodecConfig::ResultTrait>(CodecConfig::InvalidConfiguration) << "second";
//   r.format();  // "Invalid Configuration (Code 1003): first && Invalid Configuration (Code 1003): second"
#ifndef TESSEL_UTILITIES_RESULT_H
#define TESSEL_UTILITIES_RESULT_H

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <ios>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "RvaExport.h"

namespace tessel {
namespace utilities {
namespace result {

// C library error numbers: 0 is success, anything else is described by strerror().
struct RVA_EXPORT ErrnoTrait {
    typedef int Code;
    static constexpr Code SuccessCode = 0;
    static std::string describe(Code code) noexcept { return code == SuccessCode ? "Success" : std::strerror(code); }
};

// The trait shape shared by the library's record classes: codes numbered from 1000
// (Success, UnknownError, InvalidParam, InvalidConfiguration). A class derives its
// nested ResultTrait from this with its own ResultCode enumeration.
template <typename CodeEnum>
struct ClassResultTrait {
    typedef CodeEnum Code;
    static constexpr Code SuccessCode = static_cast<Code>(1000);
    static const char* describe(Code code) {
        switch (static_cast<std::int32_t>(code)) {
            case 1000: return "Success";
            case 1001: return "Unknown error";
            case 1002: return "Invalid Param";
            case 1003: return "Invalid Configuration";
            default: return "Invalid error (Unreachable)";
        }
    }
};

template <typename Trait>
class RVA_EXPORT Result {
public:
    typedef typename Trait::Code Code;

    // A result with the given code and no text; the start of a message chain.
    Result(Code code) noexcept : mCode(code) {}  // NOLINT(google-explicit-constructor): codes convert on purpose
    Result(const Result& other) noexcept
        : mCode(other.mCode), mMessage(other.mMessage), mChained(other.mChained), mContext(other.mContext) {}
    Result(Result&& other) noexcept = default;
    Result& operator=(const Result& other) noexcept {
        mCode = other.mCode;
        mMessage = other.mMessage;
        mChained = other.mChained;
        mContext = other.mContext;
        return *this;
    }
    Result& operator=(Result&& other) noexcept = default;
    ~Result() = default;

    // The trait's shared success value (built on first use, never modified); callers copy it.
    static const Result& success() noexcept {
        static const Result instance(Trait::SuccessCode);
        return instance;
    }

    // Appends the text an output string stream produces for `value` to mMessage: a null
    // text appends nothing, nullptr appends "nullptr", an enumeration with its own
    // operator<< appends its text.
    template <typename T>
    Result& operator<<(const T& value) noexcept {
        Append<T>::run(*this, value);
        return *this;
    }

    // Folds `other` in. A success becomes `other`; a failure keeps its own code, message
    // and context, and a failing `other` is appended to mChained as " && " + other.format().
    Result& operator&=(Result other) noexcept {
        if (isSuccess()) {
            *this = std::move(other);
        } else if (!other.isSuccess()) {
            mChained += " && ";
            mChained += other.format();
        }
        return *this;
    }

    // "Success" for the success code whatever text is held; otherwise
    // "<description> (Code <n>)[: <message>[ ]{<context>}]<chained>".
    std::string format() const noexcept {
        if (isSuccess()) {
            return "Success";
        }
        const auto& description = Trait::describe(mCode);  // a static text, or strerror's copied
        const std::string_view descriptionText(description);
        char digits[24];
        const std::to_chars_result number =
            std::to_chars(digits, digits + sizeof digits, static_cast<long long>(mCode));
        const std::string_view code(digits, static_cast<std::size_t>(number.ptr - digits));
        const bool detailed = !mMessage.empty() || !mContext.empty();

        std::string text;
        text.reserve(descriptionText.size() + code.size() + 8 + mChained.size() +
                     (detailed ? mMessage.size() + mContext.size() + 5 : 0));
        text.append(descriptionText).append(" (Code ").append(code).append(1, ')');
        if (detailed) {
            text.append(": ").append(mMessage);
            if (!mContext.empty()) {
                if (!mMessage.empty()) {
                    text.append(1, ' ');
                }
                text.append(1, '{').append(mContext).append(1, '}');
            }
        }
        text.append(mChained);
        return text;
    }

    Code getCode() const { return mCode; }
    bool isSuccess() const { return mCode == Trait::SuccessCode; }
    // An extra detail that format() prints in braces after the message.
    void setContext(const std::string& context) noexcept { mContext = context; }

    // Appends the printed form of a value to a result's message.
    template <typename T>
    struct Append {
        static void run(Result& result, const T& value) noexcept;
    };

    Code mCode;
    std::string mMessage;
    std::string mChained;
    std::string mContext;
};

namespace detail {
// Whether `out << value` compiles for a T.
template <typename T, typename = void>
struct IsPrintable : std::false_type {};
template <typename T>
struct IsPrintable<T, std::void_t<decltype(std::declval<std::ostream&>() << std::declval<const T&>())>>
    : std::true_type {};
}  // namespace detail

// Text and integers, the common cases, are appended directly, as an output string stream
// prints them (strings as they are, a null text as nothing, integers in decimal);
// everything else goes through a string stream. A scoped enumeration, which a stream
// cannot print, appends its number.
template <typename Trait>
template <typename T>
void Result<Trait>::Append<T>::run(Result& result, const T& value) noexcept {
    if constexpr (std::is_same_v<T, std::string>) {
        result.mMessage += value;
    } else if constexpr (std::is_convertible_v<const T&, const char*> && !std::is_same_v<T, std::nullptr_t>) {
        const char* const text = value;
        if (text != nullptr) {
            result.mMessage += text;
        }
    } else if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool> && !std::is_same_v<T, char> &&
                         !std::is_same_v<T, signed char> && !std::is_same_v<T, unsigned char>) {
        result.mMessage += std::to_string(value);
    } else if constexpr (detail::IsPrintable<T>::value) {
        std::ostringstream stream;
        stream.exceptions(std::ios::badbit);  // an allocation failure must not pass for a bad stream
        stream << value;
        result.mMessage += stream.str();
    } else {
        static_assert(std::is_enum_v<T>, "Result appends what an output stream can print");
        result.mMessage += std::to_string(static_cast<std::underlying_type_t<T>>(value));
    }
}

}  // namespace result
}  // namespace utilities
}  // namespace tessel

#endif  // TESSEL_UTILITIES_RESULT_H
