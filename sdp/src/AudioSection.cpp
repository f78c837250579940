#include "AudioSection.h"

#include "Refusal.h"
#include "syntax/SdpLine.h"

#include <array>
#include <limits>
#include <string>
#include <utility>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

const uint64_t kMaxPayloadType = 127;
const uint32_t kNarrowBandClock = 8000;
const uint32_t kWideBandClock = 16000;

// An a=rtpmap or a=fmtp of one payload type: what follows the payload type.
struct FormatAttribute {
    const Line* line = nullptr;
    std::string_view text;
};

typedef std::array<FormatAttribute, kMaxPayloadType + 1> FormatAttributes;

// Blanks after the colon are tolerated; a payload type that cannot be read leaves the line out.
// The first line for a payload type counts.
FormatAttributes findFormatAttributes(const std::vector<Line>& lines, std::string_view wanted) {
    FormatAttributes found;
    for (const Line& line : lines) {
        std::string_view name;
        std::string_view value;
        if (line.type() != 'a') {
            continue;
        }
        Description::splitAttribute(line, name, value);
        if (name != wanted) {
            continue;
        }
        value = trim(value);
        const std::string_view digits = leadingDigits(value);
        uint64_t payloadType;
        if ((digits.size() < value.size() && !isBlank(value[digits.size()])) ||
            !parseDecimal(digits, kMaxPayloadType, payloadType)) {
            continue;
        }
        FormatAttribute& attribute = found[static_cast<size_t>(payloadType)];
        if (attribute.line == nullptr) {
            attribute.line = &line;
            attribute.text = trim(value.substr(digits.size()));
        }
    }
    return found;
}

// "name/clock[/channels]": AMR/8000, AMR-WB/16000, telephone-event/8000 or /16000, one channel.
void classify(RemoteFormat& format) {
    const std::vector<std::string_view> parts = split(format.encoding, '/');
    uint64_t clock;
    uint64_t channels = 1;
    if (parts.size() < 2 || parts.size() > 3 ||
        !parseDecimal(parts[1], std::numeric_limits<uint32_t>::max(), clock) ||
        (parts.size() == 3 &&
         !parseDecimal(parts[2], std::numeric_limits<uint32_t>::max(), channels)) ||
        channels != 1) {
        return;
    }
    if (equalsIgnoreCase(parts[0], "AMR") && clock == kNarrowBandClock) {
        format.kind = RemoteFormat::Amr;
        format.band = BandTypeNb;
    } else if (equalsIgnoreCase(parts[0], "AMR-WB") && clock == kWideBandClock) {
        format.kind = RemoteFormat::Amr;
        format.band = BandTypeWb;
    } else if (equalsIgnoreCase(parts[0], "telephone-event") &&
               (clock == kNarrowBandClock || clock == kWideBandClock)) {
        format.kind = RemoteFormat::TelephoneEvent;
        format.band = clock == kNarrowBandClock ? BandTypeNb : BandTypeWb;
    }
}

StreamConfig::Result readPayloadTypes(const Description::Media& media,
                                      std::vector<RemoteFormat>& formats) {
    std::array<bool, kMaxPayloadType + 1> listed{};
    for (std::string_view token : media.formats) {
        uint64_t payloadType;
        if (!parseDecimal(token, kMaxPayloadType, payloadType)) {
            return refusalAt(media.mediaLine, StreamConfig::InvalidParam,
                             "Bad payload type: ", token);
        }
        // The model would refuse the second codec too, but would not release it.
        if (listed[static_cast<size_t>(payloadType)]) {
            return refusalAt(media.mediaLine, StreamConfig::InvalidParam,
                             "A codec with the same payload type ", payloadType,
                             " is already present");
        }
        listed[static_cast<size_t>(payloadType)] = true;
        RemoteFormat format;
        format.payloadType = static_cast<int>(payloadType);
        formats.push_back(format);
    }
    return StreamConfig::Result::success();
}

const Line* findFirst(const std::vector<Line>& lines, char type) {
    for (const Line& line : lines) {
        if (line.type() == type) {
            return &line;
        }
    }
    return nullptr;
}

StreamConfig::Result readAddress(const Description& description, const Description::Media& media,
                                 StreamConfig& endpoint) {
    const Line* connection = findFirst(media.lines, 'c');
    if (connection == nullptr) {
        connection = findFirst(description.sessionLines(), 'c');
    }
    if (connection == nullptr) {
        return refusalAt(media.mediaLine, StreamConfig::InvalidConfiguration,
                         "No connection address");
    }
    std::string_view address;
    Description::parseConnection(connection->value(), address);
    const StreamConfig::Result result = endpoint.setRemoteIp(std::string(address));
    return result.isFailure() ? atLine(*connection, result) : result;
}

StreamConfig::Result readFormats(const Description::Media& media,
                                 std::vector<RemoteFormat>& formats) {
    const FormatAttributes rtpmaps = findFormatAttributes(media.lines, "rtpmap");
    const FormatAttributes fmtps = findFormatAttributes(media.lines, "fmtp");
    for (RemoteFormat& format : formats) {
        format.encoding = rtpmaps[format.payloadType].text;
        format.fmtp = fmtps[format.payloadType].line;
        if (rtpmaps[format.payloadType].line != nullptr) {
            classify(format);
        }
        if (format.kind == RemoteFormat::Amr && format.fmtp != nullptr) {
            StreamConfig::Result result =
                readAmrParameters(fmtps[format.payloadType].text, *format.fmtp, format.amr);
            if (result.isFailure()) {
                return result;
            }
        }
    }
    return StreamConfig::Result::success();
}

StreamConfig::Result readPacketTimes(const Description::Media& media, RemoteMedia& remote) {
    for (const Line& line : media.lines) {
        std::string_view name;
        std::string_view value;
        if (line.type() != 'a') {
            continue;
        }
        Description::splitAttribute(line, name, value);
        std::optional<uint32_t>* target = name == "ptime"      ? &remote.packetTime
                                          : name == "maxptime" ? &remote.maxPacketTime
                                                               : nullptr;
        if (target == nullptr) {
            continue;
        }
        uint64_t milliseconds;
        if (!parseDecimal(value, std::numeric_limits<uint32_t>::max(), milliseconds)) {
            return refusalAt(line, StreamConfig::InvalidParam, "Bad packet time: ", value);
        }
        if (!*target) {
            *target = static_cast<uint32_t>(milliseconds);
        }
    }
    return StreamConfig::Result::success();
}

bool findDirection(const std::vector<Line>& lines, StreamConfig::Direction& direction) {
    for (const Line& line : lines) {
        if (line.type() != 'a') {
            continue;
        }
        const std::string_view value = line.value();
        if (value == "sendrecv") {
            direction = StreamConfig::DirectionFullDuplex;
        } else if (value == "sendonly") {
            direction = StreamConfig::DirectionSendOnly;
        } else if (value == "recvonly") {
            direction = StreamConfig::DirectionReceiveOnly;
        } else if (value == "inactive") {
            direction = StreamConfig::DirectionInactive;
        } else {
            continue;
        }
        return true;
    }
    return false;
}

std::optional<uint32_t> findBandwidth(const std::vector<Line>& lines, std::string_view wanted) {
    for (const Line& line : lines) {
        std::string_view modifier;
        uint32_t bandwidth;
        if (line.type() == 'b' && Description::parseBandwidth(line.value(), modifier, bandwidth) &&
            modifier == wanted) {
            return bandwidth;
        }
    }
    return std::nullopt;
}

// Per modifier: a media-level b=AS does not hide a session-level b=RR.
std::optional<uint32_t> findBandwidth(const Description& description,
                                      const Description::Media& media, std::string_view wanted) {
    const std::optional<uint32_t> bandwidth = findBandwidth(media.lines, wanted);
    return bandwidth ? bandwidth : findBandwidth(description.sessionLines(), wanted);
}

bool hasAttribute(const std::vector<Line>& lines, std::string_view wanted) {
    for (const Line& line : lines) {
        std::string_view name;
        std::string_view value;
        if (line.type() == 'a') {
            Description::splitAttribute(line, name, value);
            if (name == wanted) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace

StreamConfig::Result readRemoteMedia(const Description& description, StreamConfig& endpoint,
                                     RemoteMedia& out) {
    const Description::Media* media = description.firstActiveAudio();
    if (media == nullptr) {
        return refusal(StreamConfig::InvalidConfiguration, "No audio stream");
    }
    RemoteMedia remote;
    remote.media = media;
    StreamConfig::Result result = endpoint.setRemoteRtpPort(media->port);
    if (result.isFailure()) {
        return atLine(media->mediaLine, result);
    }
    if (media->protocol == "RTP/AVP") {
        remote.profile = RtpProfileAvp;
    } else if (media->protocol == "RTP/AVPF") {
        remote.profile = RtpProfileAvpf;
    } else {
        return refusalAt(media->mediaLine, StreamConfig::InvalidParam,
                         "Unsupported transport: ", media->protocol);
    }
    result = readPayloadTypes(*media, remote.formats);
    if (result.isSuccess()) {
        result = readAddress(description, *media, endpoint);
    }
    if (result.isSuccess()) {
        result = readFormats(*media, remote.formats);
    }
    if (result.isSuccess()) {
        result = readPacketTimes(*media, remote);
    }
    if (result.isFailure()) {
        return result;
    }
    if (!findDirection(media->lines, remote.direction)) {
        findDirection(description.sessionLines(), remote.direction);
    }
    remote.as = findBandwidth(description, *media, "AS");
    remote.rs = findBandwidth(description, *media, "RS");
    remote.rr = findBandwidth(description, *media, "RR");
    remote.reducedSize = hasAttribute(media->lines, "rtcp-rsize");
    out = std::move(remote);
    return result;
}

StreamConfig::Result readRemoteMedia(const std::string& text, Description& parsed,
                                     StreamConfig& endpoint, RemoteMedia& out) {
    StreamConfig::Result result = Description::parse(text, parsed);
    if (result.isFailure()) {
        return result;
    }
    return readRemoteMedia(parsed, endpoint, out);
}

StreamConfig::Direction mirror(StreamConfig::Direction direction) {
    switch (direction) {
        case StreamConfig::DirectionSendOnly:
            return StreamConfig::DirectionReceiveOnly;
        case StreamConfig::DirectionReceiveOnly:
            return StreamConfig::DirectionSendOnly;
        default:
            return direction;
    }
}

void placeCodec(const CodecConfig& codec, StreamConfig& stream) {
    // The reader refused repeated payload types, so the lists accept every codec.
    if (stream.hasUplink()) {
        (void)stream.addUplinkCodec(codec);
    }
    if (stream.hasDownlink() || !stream.hasUplink()) {
        (void)stream.addDownlinkCodec(codec);
    }
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
