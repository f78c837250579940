#include <velmora/rune/StreamCapabilities.h>

#include "internal/Log.h"

namespace velmora {
namespace rune {

StreamCapabilities::StreamCapabilities() = default;

StreamCapabilities::StreamCapabilities(const StreamCapabilities& other) {
    copyFrom(other);
}

StreamCapabilities& StreamCapabilities::operator=(const StreamCapabilities& other) {
    copyFrom(other);
    return *this;
}

StreamCapabilities::~StreamCapabilities() {
    clearCodecCapabilities();
}

void StreamCapabilities::copyFrom(const StreamCapabilities& other) {
    // Clearing first would delete the very entries about to be cloned.
    if (&other == this) {
        return;
    }
    mRtcpCaps = other.mRtcpCaps;
    mSupportedRtpProfiles = other.mSupportedRtpProfiles;
    clearCodecCapabilities();
    // An iterator, since the assertion report names the entry "*it".
    // NOLINTNEXTLINE(modernize-loop-convert)
    for (auto it = other.mCodecCapabilities.begin(); it != other.mCodecCapabilities.end(); ++it) {
        VELMORA_ASSERT(*it != NULL, "CodecCapabilities is null");  // NOLINT(modernize-use-nullptr)
        mCodecCapabilities.push_back((*it)->clone());
    }
}

bool StreamCapabilities::operator==(const StreamCapabilities& other) const {
    if (mRtcpCaps != other.mRtcpCaps || mSupportedRtpProfiles != other.mSupportedRtpProfiles ||
        mCodecCapabilities.size() != other.mCodecCapabilities.size()) {
        return false;
    }
    for (size_t index = 0; index < mCodecCapabilities.size(); ++index) {
        if (*mCodecCapabilities[index] != *other.mCodecCapabilities[index]) {
            return false;
        }
    }
    return true;
}

unsigned int StreamCapabilities::getCodecCapabilityCount() const {
    return static_cast<unsigned int>(mCodecCapabilities.size());
}

CodecCapabilities* StreamCapabilities::getCodecCapabilities(unsigned int index) const {
    return index < mCodecCapabilities.size() ? mCodecCapabilities[index] : nullptr;
}

void StreamCapabilities::addCodecCapabilities(const CodecCapabilities& caps) {
    mCodecCapabilities.push_back(caps.clone());
}

void StreamCapabilities::clearCodecCapabilities() {
    for (CodecCapabilities* caps : mCodecCapabilities) {
        delete caps;
    }
    mCodecCapabilities.clear();
}

}  // namespace rune
}  // namespace velmora
