#include "SdpSection.h"

#include <cstring>
#include <limits>

#include "LineGrammar.h"
#include "SdpText.h"

namespace tessel {
namespace rva {
namespace sdp {

namespace {
const std::size_t kMaxLineBytes = 4096;
}  // namespace

SdpSection::SdpSection() noexcept = default;
SdpSection::SdpSection(const SdpSection& other) noexcept = default;
SdpSection::SdpSection(SdpSection&& other) noexcept = default;
SdpSection& SdpSection::operator=(const SdpSection& other) noexcept = default;
SdpSection& SdpSection::operator=(SdpSection&& other) noexcept = default;
SdpSection::~SdpSection() = default;

SdpSection::Line SdpSection::line(std::size_t index) const noexcept {
    const Entry& entry = mLines[index];
    return Line{entry.type, std::string_view(mText).substr(entry.offset, entry.length)};
}

std::optional<std::string_view> SdpSection::firstValue(char type) const noexcept {
    for (std::size_t i = 0; i < mLines.size(); ++i) {
        if (mLines[i].type == type) {
            return line(i).value;
        }
    }
    return std::nullopt;
}

bool SdpSection::hasAttribute(const std::string& name) const noexcept {
    for (std::size_t i = 0; i < mLines.size(); ++i) {
        std::string_view rest;
        if (mLines[i].type == 'a' && text::equalsIgnoreCase(grammar::attributeName(line(i).value, rest), name)) {
            return true;
        }
    }
    return false;
}

std::string SdpSection::attributeValue(const std::string& name) const noexcept {
    for (std::size_t i = 0; i < mLines.size(); ++i) {
        std::string_view rest;
        if (mLines[i].type == 'a' && text::equalsIgnoreCase(grammar::attributeName(line(i).value, rest), name)) {
            return std::string(rest);
        }
    }
    return {};
}

std::optional<SdpSection::Connection> SdpSection::connection() const noexcept {
    const std::optional<std::string_view> value = firstValue('c');
    if (!value) {
        return std::nullopt;
    }
    std::size_t position = 0;
    text::nextField(*value, position);  // "IN", checked when the line was taken
    Connection connection;
    connection.addressType = text::nextField(*value, position);
    connection.address = text::nextField(*value, position);
    return connection;
}

std::optional<std::uint32_t> SdpSection::bandwidth(std::string_view type) const noexcept {
    for (std::size_t i = 0; i < mLines.size(); ++i) {
        if (mLines[i].type != 'b') {
            continue;
        }
        const std::string_view value = line(i).value;
        const std::size_t colon = value.find(':');
        std::uint32_t number = 0;
        if (text::equalsIgnoreCase(value.substr(0, colon), type) &&
            text::parseNumber(value.substr(colon + 1), std::numeric_limits<std::uint32_t>::max(), number)) {
            return number;
        }
    }
    return std::nullopt;
}

Result SdpSection::addLine(char type, std::string_view value) noexcept {
    value = text::trimTrailingBlanks(value);
    const char* reason = nullptr;
    if (value.size() + 2 > kMaxLineBytes) {
        reason = "line over 4096 bytes";
    } else if (value.find_first_of("\r\n") != std::string_view::npos) {
        reason = "value holds a line end";
    } else if (mText.size() + value.size() > std::numeric_limits<std::uint32_t>::max()) {
        reason = "section too large";
    } else {
        reason = grammar::checkLine(type, value);
    }
    if (reason != nullptr) {
        Result result(InvalidParam);
        result << reason << ": " << text::quote(std::string(1, type) + "=" + std::string(value));
        return result;
    }
    appendChecked(type, value);
    return Result::success();
}

bool SdpSection::equalLines(const SdpSection& other, std::string_view order) const {
    if (mLines.size() != other.mLines.size()) {
        return false;
    }
    // Compares the lines that `wanted` selects, in the order held on each side.
    const auto equalWhere = [&](auto wanted) {
        std::size_t i = 0;
        std::size_t j = 0;
        while (true) {
            while (i < mLines.size() && !wanted(mLines[i].type)) {
                ++i;
            }
            while (j < other.mLines.size() && !wanted(other.mLines[j].type)) {
                ++j;
            }
            if (i == mLines.size() || j == other.mLines.size()) {
                return i == mLines.size() && j == other.mLines.size();
            }
            const Line mine = line(i++);
            const Line theirs = other.line(j++);
            if (mine.type != theirs.type || mine.value != theirs.value) {
                return false;
            }
        }
    };
    for (const char type : order) {
        if (!equalWhere([type](char candidate) { return candidate == type; })) {
            return false;
        }
    }
    return equalWhere([order](char candidate) { return order.find(candidate) == std::string_view::npos; });
}

void SdpSection::writeLines(std::string& out, std::string_view order) const {
    const auto writeLetter = [&](char type) {
        for (std::size_t i = 0; i < mLines.size(); ++i) {
            if (mLines[i].type == type) {
                out += type;
                out += '=';
                out.append(mText, mLines[i].offset, mLines[i].length);
                out += "\r\n";
            }
        }
    };
    for (const char type : order) {
        if (type == 'a') {
            for (std::size_t i = 0; i < mLines.size(); ++i) {
                const char other = mLines[i].type;
                if (order.find(other) == std::string_view::npos) {
                    out += other;
                    out += '=';
                    out.append(mText, mLines[i].offset, mLines[i].length);
                    out += "\r\n";
                }
            }
        }
        writeLetter(type);
    }
}

void SdpSection::appendChecked(char type, std::string_view value) {
    mLines.push_back(Entry{type, static_cast<std::uint32_t>(mText.size()), static_cast<std::uint32_t>(value.size())});
    mText.append(value);
}

std::optional<std::string_view> SdpSection::payloadAttribute(std::string_view name, int payloadType) const noexcept {
    for (std::size_t i = 0; i < mLines.size(); ++i) {
        if (mLines[i].type != 'a') {
            continue;
        }
        std::string_view rest;
        std::string_view parameters;
        std::uint32_t number = 0;
        if (text::equalsIgnoreCase(grammar::attributeName(line(i).value, rest), name) &&
            grammar::splitPayloadType(rest, number, parameters) && static_cast<int>(number) == payloadType) {
            return parameters;
        }
    }
    return std::nullopt;
}

void SdpSection::reserveLines(std::size_t lines, std::size_t bytes) {
    mLines.reserve(mLines.size() + lines);
    mText.reserve(mText.size() + bytes);
}

std::size_t SdpSection::textSize() const { return mText.size(); }

}  // namespace sdp
}  // namespace rva
}  // namespace tessel
