#include "AudioSection.h"

#include <velmora/rune/Utils.h>

#include "syntax/SdpLine.h"

#include <algorithm>
#include <limits>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

const uint32_t kNarrowBandClock = 8000;
const uint32_t kWideBandClock = 16000;
const uint8_t kUnlisted = 0xFF;

// "name/clock[/channels]": AMR/8000, AMR-WB/16000, telephone-event/8000 or /16000, one channel.
void classify(RemoteFormat& format) {
    PieceCursor parts(format.encoding, '/');
    std::string_view name;
    std::string_view clockText;
    std::string_view channelsText;
    std::string_view extra;
    parts.next(name);
    const bool hasClock = parts.next(clockText);
    const bool hasChannels = parts.next(channelsText);
    uint64_t clock;
    uint64_t channels = 1;
    if (!hasClock || parts.next(extra) ||
        !parseDecimal(clockText, std::numeric_limits<uint32_t>::max(), clock) ||
        (hasChannels &&
         !parseDecimal(channelsText, std::numeric_limits<uint32_t>::max(), channels)) ||
        channels != 1) {
        return;
    }
    if (equalsIgnoreCase(name, "AMR") && clock == kNarrowBandClock) {
        format.kind = RemoteFormat::Amr;
        format.band = BandTypeNb;
    } else if (equalsIgnoreCase(name, "AMR-WB") && clock == kWideBandClock) {
        format.kind = RemoteFormat::Amr;
        format.band = BandTypeWb;
    } else if (equalsIgnoreCase(name, "telephone-event") &&
               (clock == kNarrowBandClock || clock == kWideBandClock)) {
        format.kind = RemoteFormat::TelephoneEvent;
        format.band = clock == kNarrowBandClock ? BandTypeNb : BandTypeWb;
    }
}

StreamConfig::Result readPayloadTypes(const MediaSection& section, RemoteMedia& remote,
                                      std::array<uint8_t, kMaxPayloadType + 1>& index) {
    index.fill(kUnlisted);
    std::string_view tokens = section.formats;
    size_t count = 0;
    for (std::string_view rest = tokens; !nextField(rest).empty();) {
        ++count;
    }
    // At most one of each payload type: the room is bounded whatever the line's length.
    remote.formats.reserve(std::min<size_t>(count, kMaxPayloadType + 1));
    for (std::string_view token = nextField(tokens); !token.empty(); token = nextField(tokens)) {
        uint64_t payloadType;
        if (!parseDecimal(token, kMaxPayloadType, payloadType)) {
            return refusalAt(section.mediaLine, StreamConfig::InvalidParam,
                             "Bad payload type: ", token);
        }
        // The model would refuse the second codec too, but would not release it.
        if (index[payloadType] != kUnlisted) {
            return refusalAt(section.mediaLine, StreamConfig::InvalidParam,
                             "A codec with the same payload type ", payloadType,
                             " is already present");
        }
        index[payloadType] = static_cast<uint8_t>(remote.formats.size());
        remote.formats.emplace_back();
        remote.formats.back().payloadType = static_cast<int>(payloadType);
    }
    return StreamConfig::Result::success();
}

// The format an a=rtpmap or a=fmtp value is about, and what follows its payload type. Blanks
// after the colon are tolerated; a payload type that cannot be read, or that the m= line does
// not list, leaves the line out.
RemoteFormat* formatOf(std::string_view value, RemoteMedia& remote,
                       const std::array<uint8_t, kMaxPayloadType + 1>& index,
                       std::string_view& rest) {
    value = trim(value);
    const std::string_view digits = leadingDigits(value);
    uint64_t payloadType;
    if ((digits.size() < value.size() && !isBlank(value[digits.size()])) ||
        !parseDecimal(digits, kMaxPayloadType, payloadType) || index[payloadType] == kUnlisted) {
        return nullptr;
    }
    rest = trim(value.substr(digits.size()));
    return &remote.formats[index[payloadType]];
}

bool readDirection(std::string_view value, std::optional<StreamConfig::Direction>& direction) {
    if (value == "sendrecv") {
        direction = StreamConfig::DirectionFullDuplex;
    } else if (value == "sendonly") {
        direction = StreamConfig::DirectionSendOnly;
    } else if (value == "recvonly") {
        direction = StreamConfig::DirectionReceiveOnly;
    } else if (value == "inactive") {
        direction = StreamConfig::DirectionInactive;
    } else {
        return false;
    }
    return true;
}

// The lines that may come from either level; the first one of each counts.
struct SharedLines {
    Line connection;
    std::optional<StreamConfig::Direction> direction;
    std::optional<uint32_t> as;
    std::optional<uint32_t> rs;
    std::optional<uint32_t> rr;

    // True when line is one of them.
    bool take(const Line& line);
};

bool SharedLines::take(const Line& line) {
    switch (line.type()) {
        case 'c':
            if (!connection.exists()) {
                connection = line;
            }
            return true;
        case 'b': {
            std::string_view modifier;
            uint32_t bandwidth;
            Description::parseBandwidth(line.value(), modifier, bandwidth);
            std::optional<uint32_t>* target = modifier == "AS"   ? &as
                                              : modifier == "RS" ? &rs
                                              : modifier == "RR" ? &rr
                                                                 : nullptr;
            if (target != nullptr && !*target) {
                *target = bandwidth;
            }
            return true;
        }
        case 'a':
            return !direction && readDirection(line.value(), direction);
        default:
            return false;
    }
}

// What the media lines hold besides the shared ones.
struct MediaLines {
    SharedLines shared;
    // The first a=ptime or a=maxptime whose value is not a number.
    Line badPacketTime;
    std::string_view badPacketTimeValue;
};

// The one walk over the section's lines.
void scanSection(const MediaSection& section, RemoteMedia& remote,
                 const std::array<uint8_t, kMaxPayloadType + 1>& index, MediaLines& found) {
    LineCursor lines = section.lines();
    Line line;
    while (lines.next(line)) {
        if (found.shared.take(line) || line.type() != 'a') {
            continue;
        }
        std::string_view name;
        std::string_view value;
        Description::splitAttribute(line, name, value);
        std::string_view rest;
        if (name == "rtpmap" || name == "fmtp") {
            RemoteFormat* format = formatOf(value, remote, index, rest);
            if (format == nullptr) {
                continue;
            }
            if (name == "fmtp") {
                if (!format->fmtp.exists()) {
                    format->fmtp = line;
                    format->fmtpText = rest;
                }
            } else if (format->encoding.data() == nullptr) {
                format->encoding = rest;
            }
        } else if (name == "ptime" || name == "maxptime") {
            std::optional<uint32_t>& target =
                name == "ptime" ? remote.packetTime : remote.maxPacketTime;
            uint64_t milliseconds;
            if (!parseDecimal(value, std::numeric_limits<uint32_t>::max(), milliseconds)) {
                if (!found.badPacketTime.exists()) {
                    found.badPacketTime = line;
                    found.badPacketTimeValue = value;
                }
            } else if (!target) {
                target = static_cast<uint32_t>(milliseconds);
            }
        } else if (name == "rtcp-rsize") {
            remote.reducedSize = true;
        }
    }
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Letters, digits, '-' and '.', with a letter among them: a name to resolve, not an address.
bool isDomainName(std::string_view address) {
    bool letter = false;
    for (char c : address) {
        if (isLetter(c)) {
            letter = true;
        } else if (!(c >= '0' && c <= '9') && c != '-' && c != '.') {
            return false;
        }
    }
    return letter;
}

StreamConfig::Result readAddress(const Line& connection, RemoteMedia& remote) {
    std::string_view address;
    Description::parseConnection(connection.value(), address);
    remote.address.assign(address.data(), address.size());
    if (Utils::isValidIpAddress(remote.address)) {
        return StreamConfig::Result::success();
    }
    if (isDomainName(address)) {
        return refusalAt(connection, StreamConfig::InvalidConfiguration,
                         "Connection address is a domain name");
    }
    // The model's own words.
    StreamConfig probe;
    return atLine(connection, probe.setRemoteIp(remote.address));
}

StreamConfig::Result readFormats(RemoteMedia& remote) {
    for (RemoteFormat& format : remote.formats) {
        if (format.encoding.data() != nullptr) {
            classify(format);
        }
        if (format.kind == RemoteFormat::Amr && format.fmtp.exists()) {
            StreamConfig::Result result =
                readAmrParameters(format.fmtpText, format.fmtp, format.band, format.amr);
            if (result.isFailure()) {
                return result;
            }
        }
    }
    return StreamConfig::Result::success();
}

}  // namespace

const RemoteFormat* RemoteMedia::find(int payloadType) const {
    for (const RemoteFormat& format : *this) {
        if (format.payloadType == payloadType) {
            return &format;
        }
    }
    return nullptr;
}

bool isSupportedTransport(std::string_view protocol) {
    return protocol == "RTP/AVP" || protocol == "RTP/AVPF";
}

bool qualifies(const MediaSection& section) {
    return section.isActiveAudio() && isSupportedTransport(section.protocol);
}

StreamConfig::Result readSection(const Description& description, const MediaSection& section,
                                 RemoteMedia& out, ConnectionRule rule) {
    out.section = section;
    out.address.clear();
    out.formats.clear();
    out.reducedSize = false;
    out.packetTime.reset();
    out.maxPacketTime.reset();
    if (!Utils::isValidSocketPort(section.port)) {
        StreamConfig probe;
        return atLine(section.mediaLine, probe.setRemoteRtpPort(section.port));
    }
    out.port = section.port;
    if (!isSupportedTransport(section.protocol)) {
        return refusalAt(section.mediaLine, StreamConfig::InvalidParam,
                         "Unsupported transport: ", section.protocol);
    }
    out.profile = section.protocol == "RTP/AVPF" ? RtpProfileAvpf : RtpProfileAvp;
    std::array<uint8_t, kMaxPayloadType + 1> index;
    StreamConfig::Result result = readPayloadTypes(section, out, index);
    if (result.isFailure()) {
        return result;
    }
    MediaLines found;
    scanSection(section, out, index, found);
    // Session-level lines fill in per kind what the section does not say.
    SharedLines session;
    LineCursor lines = description.sessionLines();
    Line line;
    while (lines.next(line)) {
        session.take(line);
    }
    out.connection =
        found.shared.connection.exists() ? found.shared.connection : session.connection;
    if (!out.connection.exists() && rule == ConnectionRule::Required) {
        return noConnectionAddress(section);
    }
    if (out.connection.exists()) {
        result = readAddress(out.connection, out);
    }
    if (result.isSuccess()) {
        result = readFormats(out);
    }
    if (result.isSuccess() && found.badPacketTime.exists()) {
        result = refusalAt(found.badPacketTime, StreamConfig::InvalidParam,
                           "Bad packet time: ", found.badPacketTimeValue);
    }
    if (result.isFailure()) {
        return result;
    }
    out.direction = found.shared.direction.value_or(
        session.direction.value_or(StreamConfig::DirectionFullDuplex));
    out.as = found.shared.as ? found.shared.as : session.as;
    out.rs = found.shared.rs ? found.shared.rs : session.rs;
    out.rr = found.shared.rr ? found.shared.rr : session.rr;
    return result;
}

bool findFirstActiveAudio(const Description& description, MediaSection& section) {
    SectionCursor sections = description.sections();
    while (sections.next(section)) {
        if (section.isActiveAudio()) {
            return true;
        }
    }
    return false;
}

StreamConfig::Result noAudioStream() {
    return makeResult<StreamConfig::ResultTrait>(StreamConfig::InvalidConfiguration,
                                                 "No audio stream");
}

StreamConfig::Result noConnectionAddress(const MediaSection& section) {
    return refusalAt(section.mediaLine, StreamConfig::InvalidConfiguration,
                     "No connection address");
}

bool findChosenSection(const Description& description, MediaSection& section) {
    SectionCursor sections = description.sections();
    while (sections.next(section)) {
        if (qualifies(section)) {
            return true;
        }
    }
    // Not one qualifies: the first active audio section's refusal explains why.
    return findFirstActiveAudio(description, section);
}

StreamConfig::Result readChosenSection(const Description& description, RemoteMedia& out) {
    MediaSection section;
    return findChosenSection(description, section) ? readSection(description, section, out)
                                                   : noAudioStream();
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
