#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/Utils.h>

#include "internal/Log.h"
#include "internal/Results.h"
#include "internal/Text.h"

#include <cstddef>
#include <string>
#include <type_traits>
#include <typeinfo>

namespace velmora {
namespace rune {

const char* const StreamConfig::DEFAULT_REMOTE_IP = "127.0.0.1";
const int StreamConfig::DEFAULT_REMOTE_RTP_PORT = 49150;
const StreamConfig::Direction StreamConfig::DEFAULT_ACTIVE_DIRECTION =
    StreamConfig::DirectionFullDuplex;
const bool StreamConfig::DEFAULT_RTCP_ENABLED = true;
const bool StreamConfig::DEFAULT_IS_HELD = false;
const bool StreamConfig::DEFAULT_MUTED = false;
const RtpProfile StreamConfig::DEFAULT_RTP_PROFILE = RtpProfileAvp;

namespace {

typedef StreamConfig::ResultTrait Trait;

// Room for the stream's own lines, and for each codec with its counter line.
constexpr std::size_t kStreamTextSize = 256;
constexpr std::size_t kCodecTextSize = kAmrCodecConfigTextSize + 32;

// Null for a value outside the enumeration.
const char* directionText(StreamConfig::Direction direction) {
    switch (direction) {
        case StreamConfig::DirectionInactive:
            return "Inactive";
        case StreamConfig::DirectionSendOnly:
            return "Send only";
        case StreamConfig::DirectionReceiveOnly:
            return "Receive only";
        case StreamConfig::DirectionFullDuplex:
            return "Full duplex";
    }
    return nullptr;
}

// The library's own codecs write into the stream's text; any other codec prints itself.
void appendCodecText(std::string& text, const CodecConfig& codec) {
    const std::type_info& type = typeid(codec);
    if (type == typeid(AmrCodecConfig)) {
        appendAmrCodecConfigText(text, static_cast<const AmrCodecConfig&>(codec));
    } else if (type == typeid(DtmfCodecConfig)) {
        static_assert(std::is_same_v<decltype(&DtmfCodecConfig::toString),
                                     std::string (CodecConfig::*)() const>,
                      "DTMF prints the base's lines only");
        appendCodecConfigText(text, codec);
    } else {
        text += codec.toString();
    }
}

template <std::size_t Size>
void appendCodecs(std::string& text, const char (&heading)[Size],
                  const StreamConfig::CodecConfigList& codecs) {
    const unsigned int count = codecs.count();
    for (unsigned int index = 0; index < count; ++index) {
        const CodecConfig* codec = codecs.get(index);
        if (codec == nullptr) {
            break;
        }
        appendLiteral(text, heading);
        appendNumber(text, index + 1);
        text += '/';
        appendNumber(text, count);
        text += '\n';
        appendCodecText(text, *codec);
    }
}

}  // namespace

const char* StreamConfig::ResultTrait::toText(ResultCode code) {
    return resultCodeText(code);
}

StreamConfig::StreamConfig()
    : mRemoteRtpPort(DEFAULT_REMOTE_RTP_PORT),
      mRemoteIp(DEFAULT_REMOTE_IP),
      mUplinkMuted(DEFAULT_MUTED),
      mDirection(DEFAULT_ACTIVE_DIRECTION),
      mRtcpEnabled(DEFAULT_RTCP_ENABLED),
      mIsHeld(DEFAULT_IS_HELD),
      mRtpProfile(DEFAULT_RTP_PROFILE) {}

StreamConfig::StreamConfig(const StreamConfig& other) : StreamConfig() {
    copyFrom(other);
}

StreamConfig& StreamConfig::operator=(const StreamConfig& other) {
    copyFrom(other);
    return *this;
}

StreamConfig::~StreamConfig() = default;

void StreamConfig::copyFrom(const StreamConfig& other) {
    mRemoteRtpPort = other.mRemoteRtpPort;
    if (&other != this) {
        mRemoteIp = other.mRemoteIp;
    }
    mUplinkMuted = other.mUplinkMuted;
    mDirection = other.mDirection;
    mRtcpEnabled = other.mRtcpEnabled;
    mRtcpConfig = other.mRtcpConfig;
    mIsHeld = other.mIsHeld;
    mRtpProfile = other.mRtpProfile;
    mPdpContext = other.mPdpContext;
    // Each does nothing on a copy onto itself.
    mUplinkCodecs.cloneContentFrom(other.mUplinkCodecs);
    mDownlinkCodecs.cloneContentFrom(other.mDownlinkCodecs);
}

int StreamConfig::getRemoteRtcpPort() const {
    const int port = mRemoteRtpPort + 1;
    return Utils::isValidSocketPort(port) ? port : -1;
}

bool StreamConfig::hasUplink() const {
    return mDirection == DirectionSendOnly || mDirection == DirectionFullDuplex;
}

bool StreamConfig::hasDownlink() const {
    return mDirection == DirectionReceiveOnly || mDirection == DirectionFullDuplex;
}

bool StreamConfig::isDirectionValid(Direction direction) const {
    return static_cast<uint32_t>(direction) < 4u;
}

StreamConfig::Result StreamConfig::setDirection(Direction direction) {
    if (!isDirectionValid(direction)) {
        return makeResult<Trait>(InvalidParam, "Invalid direction : ", direction);
    }
    mDirection = direction;
    return successResult<Trait>();
}

StreamConfig::Result StreamConfig::setRemoteRtpPort(int port) {
    if (!Utils::isValidSocketPort(port)) {
        return makeResult<Trait>(InvalidParam, "Invalid socket port: ", port);
    }
    mRemoteRtpPort = port;
    // The trait's shared success value: using it keeps it exported, as the library's ABI has it.
    return Result::success();
}

StreamConfig::Result StreamConfig::setRemoteIp(const std::string& address) {
    if (!Utils::isValidIpAddress(address)) {
        return makeResult<Trait>(InvalidParam, "Invalid internet address : ", address);
    }
    mRemoteIp = address;
    return successResult<Trait>();
}

// The clone is not released when the list refuses it (see the header).
StreamConfig::Result StreamConfig::addUplinkCodec(const CodecConfig& codec) {
    return mUplinkCodecs.add(codec.clone());
}

StreamConfig::Result StreamConfig::addDownlinkCodec(const CodecConfig& codec) {
    return mDownlinkCodecs.add(codec.clone());
}

StreamConfig::Result StreamConfig::check() const {
    // Fixed failures are built once and copied, without a stream per call. These copies also
    // keep Result's copy constructor out of line on armhf, where the library exports it.
    if (hasUplink() && mUplinkCodecs.count() == 0) {
        static const Result noUplinkCodec = makeResult<Trait>(
            InvalidConfiguration, "Uplink is active and no uplink codec supplied");
        return noUplinkCodec;
    }
    if (hasDownlink() && mDownlinkCodecs.count() == 0) {
        static const Result noDownlinkCodec = makeResult<Trait>(
            InvalidConfiguration, "Downlink is active and no downlink codec supplied");
        return noDownlinkCodec;
    }
    Result uplink = checkCodecs(mUplinkCodecs);
    if (uplink.isFailure()) {
        return uplink;
    }
    return checkCodecs(mDownlinkCodecs);
}

StreamConfig::Result StreamConfig::checkCodecs(const CodecConfigList& codecs) {
    const unsigned int count = codecs.count();
    for (unsigned int index = 0; index < count; ++index) {
        const CodecConfig* config = codecs.get(index);
        VELMORA_ASSERT(config != NULL, "Codec is null");  // NOLINT(modernize-use-nullptr)
        const CodecConfig::Result codecResult = config->check();
        if (codecResult.isFailure()) {
            // The codec's own text, whole, says what is wrong with it.
            Result result = makeResult<Trait>(InvalidConfiguration);
            result.mContext = codecResult.format();
            return result;
        }
    }
    return successResult<Trait>();
}

std::string StreamConfig::toString() const {
    std::string text;
    text.reserve(kStreamTextSize +
                 kCodecTextSize * (mUplinkCodecs.count() + mDownlinkCodecs.count()));
    appendLiteral(text, "  Remote: ");
    text += mRemoteIp;
    text += ':';
    appendNumber(text, mRemoteRtpPort);
    text += '\n';
    appendLine(text, "  Mute: ", mUplinkMuted);
    appendLiteral(text, "  Direction : ");
    if (const char* name = directionText(mDirection)) {
        text += name;
    } else {
        appendLiteral(text, "Unknown direction (");
        appendNumber(text, mDirection);
        text += ')';
    }
    appendLiteral(text, " (");
    appendNumber(text, mDirection);
    appendLiteral(text, ")\n");
    appendLine(text, "  RtcpEnabled: ", mRtcpEnabled);
    appendLiteral(text, "  RtcpConfig: AS=");
    appendNumber(text, mRtcpConfig.getAs());
    appendLiteral(text, " RS=");
    appendNumber(text, mRtcpConfig.getRs());
    appendLiteral(text, " RR=");
    appendNumber(text, mRtcpConfig.getRr());
    appendLiteral(text, " interval=");
    appendNumber(text, mRtcpConfig.getInterval());
    appendLine(text, "  ReducedSizeMode=", mRtcpConfig.isReducedSizeMode());
    appendLine(text, "  IsHeld: ", mIsHeld);
    appendLine(text, "  RtpProfile: ", mRtpProfile);
    appendLiteral(text, "  PdpContext: primaryCID=");
    appendNumber(text, mPdpContext.primaryCID);
    appendLine(text, " secondaryCID=", mPdpContext.secondaryCID);
    appendCodecs(text, "  Uplink codec ", mUplinkCodecs);
    appendCodecs(text, "  Downlink codec ", mDownlinkCodecs);
    return text;
}

}  // namespace rune
}  // namespace velmora
