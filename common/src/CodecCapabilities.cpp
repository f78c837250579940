#include <velmora/rune/CodecCapabilities.h>

#include "internal/Log.h"
#include "internal/Results.h"

namespace velmora {
namespace rune {

const char* CodecCapabilities::ResultTrait::toText(ResultCode code) {
    return resultCodeText(code);
}

CodecCapabilities::CodecCapabilities(CodecId codecId, BandType bandType, int packetTime,
                                     int maxPacketTime, int channelCount)
    : mCodecId(codecId),
      mBandType(bandType),
      mPacketTime(static_cast<unsigned>(packetTime)),
      mMaxPacketTime(static_cast<unsigned>(maxPacketTime)),
      mChannelCount(static_cast<unsigned>(channelCount)) {
    VELMORA_PLATFORM_ASSERT(isCodecIdValid(mCodecId));
    VELMORA_PLATFORM_ASSERT(isBandTypeValid(mBandType));
}

CodecCapabilities::~CodecCapabilities() = default;

bool CodecCapabilities::operator==(const CodecCapabilities& other) const {
    return mCodecId == other.mCodecId && mBandType == other.mBandType &&
           mPacketTime == other.mPacketTime && mMaxPacketTime == other.mMaxPacketTime &&
           mChannelCount == other.mChannelCount;
}

}  // namespace rune
}  // namespace velmora
