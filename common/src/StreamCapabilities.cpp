#include "StreamCapabilities.h"

#include "GenericLog.h"
#include "Polymorphic.h"

namespace tessel {
namespace rva {

StreamCapabilities::StreamCapabilities() = default;

StreamCapabilities::StreamCapabilities(const StreamCapabilities& other) noexcept : StreamCapabilities() {
    copyFrom(other);
}

StreamCapabilities& StreamCapabilities::operator=(const StreamCapabilities& other) noexcept {
    if (&other != this) {
        copyFrom(other);
    }
    return *this;
}

StreamCapabilities::~StreamCapabilities() { clearCodecCapabilities(); }

void StreamCapabilities::copyFrom(const StreamCapabilities& other) noexcept {
    mRtcpCaps = other.mRtcpCaps;
    mRtpProfiles = other.mRtpProfiles;
    clearCodecCapabilities();
    mCodecCapabilities.reserve(other.mCodecCapabilities.size());
    for (std::vector<std::unique_ptr<CodecCapabilities>>::const_iterator it = other.mCodecCapabilities.begin();
         it != other.mCodecCapabilities.end(); ++it) {
        TESSEL_ASSERT(*it != NULL, "CodecCapabilities is null");  // NOLINT(modernize-use-nullptr): logged text
        mCodecCapabilities.emplace_back((*it)->clone());
    }
}

bool StreamCapabilities::operator==(const StreamCapabilities& other) const {
    if (mRtcpCaps != other.mRtcpCaps || mRtpProfiles != other.mRtpProfiles ||
        mCodecCapabilities.size() != other.mCodecCapabilities.size()) {
        return false;
    }
    for (std::size_t index = 0; index < mCodecCapabilities.size(); ++index) {
        if (*mCodecCapabilities[index] != *other.mCodecCapabilities[index]) {
            return false;
        }
    }
    return true;
}

const CodecCapabilities* StreamCapabilities::getCodecCapabilities(std::size_t index) const {
    return index < mCodecCapabilities.size() ? mCodecCapabilities[index].get() : nullptr;
}

void StreamCapabilities::addCodecCapabilities(const CodecCapabilities& caps) noexcept {
    mCodecCapabilities.emplace_back(caps.clone());
}

void StreamCapabilities::clearCodecCapabilities() { deleteInOrder(mCodecCapabilities); }

}  // namespace rva
}  // namespace tessel
