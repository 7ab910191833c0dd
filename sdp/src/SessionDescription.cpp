#include "SessionDescription.h"

#include <array>
#include <cstdint>
#include <cstring>

#include "LineGrammar.h"
#include "SdpText.h"

namespace tessel {
namespace rva {
namespace sdp {

namespace {

// The letters of the session level in the order they are written (RFC 4566 section 5).
const char kSessionOrder[] = "vosiuepcbtrzka";

// Lines and bytes of each level of a text: the session level, then each media section.
// Counted before reading so that each level's storage is allocated once. The line ends
// found on the way are kept for the reader (up to kKeptEnds lines; a description has far
// fewer), so that it does not search for them again.
struct LevelSizes {
    struct Size {
        std::size_t lines = 0;
        std::size_t bytes = 0;
    };
    static const std::size_t kKeptEnds = 128;
    std::array<Size, SessionDescription::MAX_MEDIA + 1> levels;
    std::size_t mediaCount = 0;
    std::array<std::uint32_t, kKeptEnds> ends;  // the first keptEnds are set
    std::size_t keptEnds = 0;

    explicit LevelSizes(std::string_view text) {
        std::size_t level = 0;
        std::size_t position = 0;
        while (position < text.size()) {
            const void* found = std::memchr(text.data() + position, '\n', text.size() - position);
            const std::size_t end =
                found != nullptr ? static_cast<std::size_t>(static_cast<const char*>(found) - text.data()) : text.size();
            if (keptEnds < kKeptEnds) {
                ends[keptEnds++] = static_cast<std::uint32_t>(end);  // the text is at most 65536 bytes
            }
            if (end - position >= 2 && text[position] == 'm' && text[position + 1] == '=') {
                if (mediaCount == SessionDescription::MAX_MEDIA) {
                    return;  // the reader refuses the text at this line
                }
                level = ++mediaCount;
            } else {
                ++levels[level].lines;
                levels[level].bytes += end - position;
            }
            position = end + 1;
        }
    }

    // The offset of the '\n' ending line `index` (from 0), which starts at `position`; the
    // size of the text when that line has none.
    std::size_t lineEnd(std::string_view text, std::size_t index, std::size_t position) const {
        if (index < keptEnds) {
            return ends[index];
        }
        const void* found = std::memchr(text.data() + position, '\n', text.size() - position);
        return found != nullptr ? static_cast<std::size_t>(static_cast<const char*>(found) - text.data()) : text.size();
    }
};

Result fail(std::size_t number, const char* reason, std::string_view line) {
    Result result(Malformed);
    result << "line " << number << ": " << reason << ": " << text::quote(line);
    return result;
}

}  // namespace

SessionDescription::SessionDescription() noexcept = default;
SessionDescription::SessionDescription(const SessionDescription& other) noexcept = default;
SessionDescription::SessionDescription(SessionDescription&& other) noexcept = default;
SessionDescription& SessionDescription::operator=(const SessionDescription& other) noexcept = default;
SessionDescription& SessionDescription::operator=(SessionDescription&& other) noexcept = default;
SessionDescription::~SessionDescription() = default;

Result SessionDescription::read(std::string_view text, SessionDescription& description) {
    const LevelSizes sizes(text);
    description.reserveLines(sizes.levels[0].lines, sizes.levels[0].bytes);
    std::vector<MediaDescription>& media = description.mMedia;
    media.reserve(sizes.mediaCount);
    SdpSection* level = &description;
    grammar::MediaLine mediaLine;
    bool anyLine = false;

    std::size_t position = 0;
    std::size_t number = 0;
    while (position < text.size()) {
        const std::size_t end = sizes.lineEnd(text, number, position);
        std::string_view raw = text.substr(position, end - position);
        position = end + 1;
        ++number;
        if (!raw.empty() && raw.back() == '\r') {
            raw.remove_suffix(1);
        }
        if (raw.size() > MAX_LINE_BYTES) {
            return fail(number, "line over 4096 bytes", raw);
        }
        const std::string_view line = !raw.empty() && text::isBlank(raw.back()) ? text::trimTrailingBlanks(raw) : raw;
        if (line.empty()) {
            continue;
        }
        anyLine = true;
        if (line.size() < 2 || line[1] != '=') {
            return fail(number, "not a line of the form <letter>=<value>", raw);
        }
        const char type = line[0];
        const std::string_view value = line.substr(2);
        const char* reason = nullptr;
        if (type == 'm') {
            if (media.size() == MAX_MEDIA) {
                return fail(number, "more than 64 media sections", raw);
            }
            reason = grammar::readMediaLine(value, mediaLine);
            if (reason == nullptr) {
                media.emplace_back();
                media.back().assign(mediaLine);
                const LevelSizes::Size& size = sizes.levels[media.size()];
                media.back().reserveLines(size.lines, size.bytes);
                level = &media.back();
            }
        } else {
            reason = grammar::checkLine(type, value);
            if (reason == nullptr) {
                level->appendChecked(type, value);
            }
        }
        if (reason != nullptr) {
            return fail(number, reason, raw);
        }
    }
    if (!anyLine) {
        return Result(Malformed) << "empty description";
    }
    return Result::success();
}

Result SessionDescription::parse(const std::string& text, SessionDescription& out) noexcept {
    if (text.size() > MAX_TEXT_BYTES) {
        return Result(Malformed) << "description over 65536 bytes";
    }
    SessionDescription description;
    Result result = read(text, description);
    if (result.isSuccess()) {
        out = std::move(description);
    }
    return result;
}

const MediaDescription& SessionDescription::media(std::size_t index) const noexcept {
    static const MediaDescription kNone;
    return index < mMedia.size() ? mMedia[index] : kNone;
}

Result SessionDescription::addMedia(const MediaDescription& media) noexcept {
    if (media.formats().empty()) {
        return Result(InvalidParam) << "media section without a format";
    }
    if (mMedia.size() == MAX_MEDIA) {
        return Result(InvalidParam) << "more than 64 media sections";
    }
    mMedia.push_back(media);
    return Result::success();
}

std::string SessionDescription::toString() const noexcept {
    std::string out;
    out.reserve(textSize() + lineCount() * 4);
    writeLines(out, kSessionOrder);
    for (const MediaDescription& media : mMedia) {
        media.writeTo(out);
    }
    return out;
}

bool SessionDescription::operator==(const SessionDescription& other) const noexcept {
    return equalLines(other, kSessionOrder) && mMedia == other.mMedia;
}

}  // namespace sdp
}  // namespace rva
}  // namespace tessel
