#include "SdpText.h"

namespace tessel {
namespace rva {
namespace sdp {
namespace text {

bool equalsIgnoreCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (lower(a[i]) != lower(b[i])) {
            return false;
        }
    }
    return true;
}

std::string_view trimTrailingBlanks(std::string_view text) {
    std::size_t end = text.size();
    while (end > 0 && isBlank(text[end - 1])) {
        --end;
    }
    return text.substr(0, end);
}

std::string_view trimBlanks(std::string_view text) {
    std::size_t begin = 0;
    while (begin < text.size() && isBlank(text[begin])) {
        ++begin;
    }
    return trimTrailingBlanks(text.substr(begin));
}

std::string_view nextField(std::string_view text, std::size_t& position) {
    while (position < text.size() && isBlank(text[position])) {
        ++position;
    }
    const std::size_t begin = position;
    while (position < text.size() && !isBlank(text[position])) {
        ++position;
    }
    return text.substr(begin, position - begin);
}

bool parseNumber(std::string_view digits, std::uint32_t max, std::uint32_t& value) {
    if (digits.empty()) {
        return false;
    }
    std::uint64_t number = 0;
    for (const char c : digits) {
        if (!isDigit(c)) {
            return false;
        }
        number = number * 10 + static_cast<std::uint64_t>(c - '0');
        if (number > max) {
            return false;
        }
    }
    value = static_cast<std::uint32_t>(number);
    return true;
}

std::string quote(std::string_view text) {
    static const std::size_t kMaxQuoted = 80;
    static const char kHex[] = "0123456789abcdef";
    const bool cut = text.size() > kMaxQuoted;
    text = text.substr(0, kMaxQuoted);
    std::string quoted;
    quoted.reserve(text.size() + 8);
    quoted += '"';
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte >= 0x7f || c == '"' || c == '\\') {
            quoted += "\\x";
            quoted += kHex[byte >> 4];
            quoted += kHex[byte & 0xf];
        } else {
            quoted += c;
        }
    }
    quoted += cut ? "\"..." : "\"";
    return quoted;
}

}  // namespace text
}  // namespace sdp
}  // namespace rva
}  // namespace tessel
