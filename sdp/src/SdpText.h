// Small text tools shared by the SDP layer's readers and writers. Internal.
#ifndef TESSEL_RVA_SDP_SDP_TEXT_H
#define TESSEL_RVA_SDP_SDP_TEXT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tessel {
namespace rva {
namespace sdp {
namespace text {

inline bool isBlank(char c) { return c == ' ' || c == '\t'; }
inline bool isDigit(char c) { return c >= '0' && c <= '9'; }
inline bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
inline char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// ASCII case-insensitive equality.
bool equalsIgnoreCase(std::string_view a, std::string_view b);

// Drops blanks at both ends / at the end.
std::string_view trimBlanks(std::string_view text);
std::string_view trimTrailingBlanks(std::string_view text);

// The next blank-separated field of `text` from `position` (leading blanks skipped);
// empty at the end. `position` moves past the field.
std::string_view nextField(std::string_view text, std::size_t& position);

// Reads a non-empty run of decimal digits whose value is at most `max`; false on anything
// else (a sign, a blank, an overflow: numbers never wrap).
bool parseNumber(std::string_view digits, std::uint32_t max, std::uint32_t& value);

// `text` cut at 80 bytes and quoted, with control and non-ASCII bytes written \xNN, so
// that a hostile line cannot forge log lines.
std::string quote(std::string_view text);

}  // namespace text
}  // namespace sdp
}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_SDP_SDP_TEXT_H
