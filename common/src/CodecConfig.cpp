#include <velmora/rune/CodecConfig.h>

#include "internal/Log.h"
#include "internal/Results.h"
#include "internal/Text.h"

namespace velmora {
namespace rune {

const char* CodecConfig::ResultTrait::toText(ResultCode code) {
    return resultCodeText(code);
}

CodecConfig::CodecConfig(CodecId codecId, BandType bandType, int payloadType, unsigned packetTime,
                         unsigned maxPacketTime)
    : mCodecId(codecId),
      mBandType(bandType),
      mPayloadType(payloadType),
      mPacketTime(packetTime),
      mMaxPacketTime(maxPacketTime) {
    VELMORA_PLATFORM_ASSERT(isCodecIdValid(mCodecId));
    VELMORA_PLATFORM_ASSERT(isBandTypeValid(mBandType));
}

CodecConfig::CodecConfig(const CodecConfig& other) = default;

CodecConfig& CodecConfig::operator=(const CodecConfig& other) {
    copyFrom(other);
    return *this;
}

CodecConfig::~CodecConfig() = default;

void CodecConfig::copyFrom(const CodecConfig& other) {
    mCodecId = other.mCodecId;
    mBandType = other.mBandType;
    mPayloadType = other.mPayloadType;
    mPacketTime = other.mPacketTime;
    mMaxPacketTime = other.mMaxPacketTime;
}

CodecConfig::Result CodecConfig::setBandType(BandType bandType) {
    if (!isBandTypeValid(bandType) || !isSupportedBandType(bandType)) {
        return makeResult<ResultTrait>(InvalidParam,
                                       "Bad band type: ", static_cast<int32_t>(bandType));
    }
    mBandType = bandType;
    return successResult<ResultTrait>();
}

CodecConfig::Result CodecConfig::check() const {
    Result result = successResult<ResultTrait>();
    // Fixed failures are built once and copied, without a stream per call. These copies also
    // keep Result's copy constructor out of line on armhf, where the library exports it.
    if (mPacketTime == 0) {
        static const Result noPacketTime =
            makeResult<ResultTrait>(InvalidConfiguration, "Packet time must be greater than 0");
        result &= noPacketTime;
    }
    if (mMaxPacketTime == 0) {
        static const Result noMaxPacketTime =
            makeResult<ResultTrait>(InvalidConfiguration, "Max packet time must be greater than 0");
        result &= noMaxPacketTime;
    }
    if (mPacketTime > mMaxPacketTime) {
        result &= makeResult<ResultTrait>(InvalidConfiguration, "Packet time '", mPacketTime,
                                          "' must be lesser or equal than max packet time '",
                                          mMaxPacketTime, "'");
    }
    return result;
}

bool CodecConfig::operator==(const CodecConfig& other) const {
    return mCodecId == other.mCodecId && mBandType == other.mBandType &&
           mPayloadType == other.mPayloadType;
}

std::string CodecConfig::toString() const {
    std::string text;
    text.reserve(kCodecConfigTextSize);
    appendCodecConfigText(text, *this);
    return text;
}

void appendCodecConfigText(std::string& text, const CodecConfig& codec) {
    appendLiteral(text, "    Codec: ");
    text += getCodecIdDescription(codec.getCodecId());
    appendLiteral(text, " (");
    appendNumber(text, codec.getCodecId());
    appendLiteral(text, ")\n    BandType: ");
    text += getBandTypeDescription(codec.getBandType());
    appendLiteral(text, " (");
    appendNumber(text, codec.getBandType());
    appendLiteral(text, ")\n");
    appendLine(text, "    PayloadType: ", codec.getPayloadType());
    appendLine(text, "    PacketTime: ", codec.getPacketTime());
    appendLine(text, "    MaxPacketTime: ", codec.getMaxPacketTime());
}

void CodecConfig::checkCodecId(CodecId candidateCodecId, CodecId requiredCodecId) {
    VELMORA_ASSERT(candidateCodecId == requiredCodecId,
                   "Expecting codec " << getCodecIdDescription(candidateCodecId) << " instead of "
                                      << getCodecIdDescription(requiredCodecId));
}

}  // namespace rune
}  // namespace velmora
