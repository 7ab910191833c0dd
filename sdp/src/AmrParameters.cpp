#include "AmrParameters.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "SdpText.h"

namespace tessel {
namespace rva {
namespace sdp {

namespace {

bool isNameCharacter(char c) { return text::isLetter(c) || text::isDigit(c) || c == '-' || c == '_' || c == '.'; }

// True when `text` from `position` reads "<blanks><name><blanks>=": the start of another
// parameter after a comma.
bool startsParameter(std::string_view text, std::size_t position) {
    while (position < text.size() && text::isBlank(text[position])) {
        ++position;
    }
    if (position == text.size() || !text::isLetter(text[position])) {
        return false;
    }
    while (position < text.size() && isNameCharacter(text[position])) {
        ++position;
    }
    while (position < text.size() && text::isBlank(text[position])) {
        ++position;
    }
    return position < text.size() && text[position] == '=';
}

// The end of the value that starts at `position`: a ';', a comma that starts another
// parameter, or the end of the text.
std::size_t valueEnd(std::string_view text, std::size_t position) {
    for (; position < text.size(); ++position) {
        if (text[position] == ';' || (text[position] == ',' && startsParameter(text, position + 1))) {
            return position;
        }
    }
    return position;
}

// One numeric parameter: its name and the range its value must lie in.
struct NumericParameter {
    const char* name;
    std::optional<int> AmrParameters::*field;
    std::uint32_t min;
    std::uint32_t max;
};

const NumericParameter kNumericParameters[] = {
    {"octet-align", &AmrParameters::octetAlign, 0, 1},
    {"mode-change-period", &AmrParameters::modeChangePeriod, 1, 2},
    {"mode-change-capability", &AmrParameters::modeChangeCapability, 1, 2},
    {"mode-change-neighbor", &AmrParameters::modeChangeNeighbor, 0, 1},
    {"crc", &AmrParameters::crc, 0, 1},
    {"robust-sorting", &AmrParameters::robustSorting, 0, 1},
    {"interleaving", &AmrParameters::interleaving, 1, 65535},
    {"max-red", &AmrParameters::maxRed, 0, 65535},
};

Result badValue(std::string_view name, std::string_view value) {
    Result result(Malformed);
    result << "invalid value of fmtp parameter " << text::quote(name) << ": " << text::quote(value);
    return result;
}

// Reads "m[,m]..." with modes 0..maxMode, commas with optional blanks around them.
bool readModes(std::string_view value, int maxMode, std::vector<int>& modes) {
    std::size_t position = 0;
    while (true) {
        const std::size_t comma = std::min(value.find(',', position), value.size());
        std::uint32_t mode = 0;
        if (!text::parseNumber(text::trimBlanks(value.substr(position, comma - position)),
                               static_cast<std::uint32_t>(maxMode), mode)) {
            return false;
        }
        if (std::find(modes.begin(), modes.end(), static_cast<int>(mode)) == modes.end()) {
            modes.push_back(static_cast<int>(mode));
        }
        if (comma == value.size()) {
            return true;
        }
        position = comma + 1;
    }
}

}  // namespace

Result AmrParameters::parse(const std::string& fmtp, BandType band, AmrParameters& out) noexcept {
    if (band != BandTypeNb && band != BandTypeWb) {
        return Result(InvalidParam) << "Invalid band: " << static_cast<int>(band);
    }
    const int maxMode = band == BandTypeWb ? 8 : 7;
    const std::string_view input(fmtp);
    AmrParameters parameters;
    std::size_t position = 0;
    while (position < input.size()) {
        const std::size_t end = valueEnd(input, position);
        const std::string_view item = text::trimBlanks(input.substr(position, end - position));
        position = end + 1;
        if (item.empty()) {
            continue;  // a trailing or doubled ';'
        }
        const std::size_t equals = item.find('=');
        if (equals == std::string_view::npos) {
            return Result(Malformed) << "fmtp parameter without '=': " << text::quote(item);
        }
        const std::string_view name = text::trimBlanks(item.substr(0, equals));
        const std::string_view value = text::trimBlanks(item.substr(equals + 1));
        if (text::equalsIgnoreCase(name, "mode-set")) {
            std::vector<int> modes;
            if (!readModes(value, maxMode, modes)) {
                return badValue(name, value);
            }
            if (!parameters.modeSet) {
                parameters.modeSet = std::move(modes);
            }
            continue;
        }
        for (const NumericParameter& known : kNumericParameters) {
            if (!text::equalsIgnoreCase(name, known.name)) {
                continue;
            }
            std::uint32_t number = 0;
            if (!text::parseNumber(value, known.max, number) || number < known.min) {
                return badValue(name, value);
            }
            std::optional<int>& field = parameters.*known.field;
            if (!field) {
                field = static_cast<int>(number);
            }
            break;
        }
    }
    out = std::move(parameters);
    return Result::success();
}

std::string AmrParameters::toString() const noexcept {
    std::string out;
    const auto separate = [&out] {
        if (!out.empty()) {
            out += "; ";
        }
    };
    if (modeSet) {
        out += "mode-set=";
        for (std::size_t i = 0; i < modeSet->size(); ++i) {
            if (i > 0) {
                out += ',';
            }
            out += std::to_string((*modeSet)[i]);
        }
    }
    for (const NumericParameter& known : kNumericParameters) {
        const std::optional<int>& field = this->*known.field;
        if (field) {
            separate();
            out += known.name;
            out += '=';
            out += std::to_string(*field);
        }
    }
    return out;
}

bool AmrParameters::isOctetAligned() const noexcept {
    return octetAlign.value_or(0) == 1 || crc.value_or(0) == 1 || robustSorting.value_or(0) == 1 ||
           interleaving.has_value();
}

bool AmrParameters::operator==(const AmrParameters& other) const noexcept {
    return modeSet == other.modeSet && octetAlign == other.octetAlign && modeChangePeriod == other.modeChangePeriod &&
           modeChangeCapability == other.modeChangeCapability && modeChangeNeighbor == other.modeChangeNeighbor &&
           crc == other.crc && robustSorting == other.robustSorting && interleaving == other.interleaving &&
           maxRed == other.maxRed;
}

}  // namespace sdp
}  // namespace rva
}  // namespace tessel
