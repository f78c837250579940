#include <velmora/rune/StreamConfig.h>

#include "internal/Log.h"
#include "internal/Results.h"

namespace velmora {
namespace rune {

namespace {

const size_t kInitialRoom = 8;

StreamConfig::Result refused(const char* message) {
    return makeResult<StreamConfig::ResultTrait>(StreamConfig::InvalidParam, message);
}

}  // namespace

StreamConfig::CodecConfigList::~CodecConfigList() {
    clear();
}

unsigned int StreamConfig::CodecConfigList::count() const {
    return static_cast<unsigned int>(mCodecs.size());
}

CodecConfig* StreamConfig::CodecConfigList::get(unsigned int index) const {
    return index < mCodecs.size() ? mCodecs[index] : nullptr;
}

StreamConfig::Result StreamConfig::CodecConfigList::add(CodecConfig* codec) {
    if (codec == nullptr) {
        return refused("Null pointer");
    }
    for (const CodecConfig* entry : mCodecs) {
        // Identity first, so that a codec added twice is reported as such.
        if (entry == codec) {
            return refused("Already present");
        }
        // A null entry can only come from a codec whose clone() failed; it has no payload type.
        if (entry != nullptr && entry->getPayloadType() == codec->getPayloadType()) {
            return makeResult<StreamConfig::ResultTrait>(
                StreamConfig::InvalidParam, "A codec with the same payload type ",
                codec->getPayloadType(), " is already present");
        }
    }
    // Streams hold a handful of codecs: one allocation instead of a regrowth per doubling.
    if (mCodecs.capacity() == 0) {
        mCodecs.reserve(kInitialRoom);
    }
    mCodecs.push_back(codec);
    return successResult<ResultTrait>();
}

void StreamConfig::CodecConfigList::clear() {
    for (CodecConfig* codec : mCodecs) {
        delete codec;
    }
    mCodecs.clear();
}

void StreamConfig::CodecConfigList::cloneContentFrom(const CodecConfigList& other) {
    if (&other == this) {
        return;
    }
    clear();
    mCodecs.reserve(other.mCodecs.size());
    // The source holds the list's invariants already: no payload type checks here.
    for (const CodecConfig* otherCodec : other.mCodecs) {
        VELMORA_PLATFORM_ASSERT(otherCodec != NULL);  // NOLINT(modernize-use-nullptr)
        mCodecs.push_back(otherCodec->clone());
    }
}

}  // namespace rune
}  // namespace velmora
