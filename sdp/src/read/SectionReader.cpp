#include "read/SectionReader.h"

#include <velmora/rune/Utils.h>

#include "amr/AmrFmtp.h"
#include "read/RemoteAddress.h"
#include "syntax/SdpLine.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <optional>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

const uint32_t kNarrowBandClock = 8000;
const uint32_t kWideBandClock = 16000;
// An index entry: the format's place in the m= line plus one; the scan starts with every entry
// unlisted, so reading the payload types fills nothing first.
const uint8_t kUnlisted = 0;

// The usual spellings, found whole by one comparison of a known length; the others are read
// piece by piece.
bool classifyUsual(RemoteFormat& format) {
    const std::string_view encoding = format.encoding;
    const auto is = [encoding](const auto& spelling) {
        return std::memcmp(encoding.data(), spelling, sizeof(spelling) - 1) == 0;
    };
    RemoteFormat::Kind kind = RemoteFormat::Amr;
    BandType band = BandTypeNb;
    switch (encoding.size()) {
        case 8:
            if (!is("AMR/8000")) {
                return false;
            }
            break;
        case 10:
            if (!is("AMR/8000/1")) {
                return false;
            }
            break;
        case 12:
            if (!is("AMR-WB/16000")) {
                return false;
            }
            band = BandTypeWb;
            break;
        case 14:
            if (!is("AMR-WB/16000/1")) {
                return false;
            }
            band = BandTypeWb;
            break;
        case 20:
            if (!is("telephone-event/8000")) {
                return false;
            }
            kind = RemoteFormat::TelephoneEvent;
            break;
        case 21:
            if (!is("telephone-event/16000")) {
                return false;
            }
            kind = RemoteFormat::TelephoneEvent;
            band = BandTypeWb;
            break;
        default:
            return false;
    }
    format.kind = kind;
    format.band = band;
    return true;
}

// The payload type that text starts with, ended by a blank or by the text's end; false for any
// other start.
bool leadingPayloadType(std::string_view text, uint32_t& payloadType, size_t& digits) {
    return leadingNumber(text, kMaxPayloadType, payloadType, digits) &&
           (digits == text.size() || isBlank(text[digits]));
}

// "name/clock[/channels]": AMR/8000, AMR-WB/16000, telephone-event/8000 or /16000, one channel.
void classify(RemoteFormat& format) {
    if (classifyUsual(format)) {
        return;
    }
    const std::string_view encoding = format.encoding;
    const size_t slash = encoding.find('/');
    if (slash == std::string_view::npos) {
        return;
    }
    const std::string_view name = encoding.substr(0, slash);
    std::string_view rest = encoding.substr(slash + 1);
    uint32_t clock;
    size_t digits;
    if (!leadingNumber(rest, std::numeric_limits<uint32_t>::max(), clock, digits)) {
        return;
    }
    rest.remove_prefix(digits);
    uint32_t channels;
    if (!rest.empty() &&
        (rest[0] != '/' ||
         !leadingNumber(rest.substr(1), std::numeric_limits<uint32_t>::max(), channels, digits) ||
         digits + 1 != rest.size() || channels != 1)) {
        return;
    }
    if (clock == kNarrowBandClock && equalsIgnoreCase(name, "AMR")) {
        format.kind = RemoteFormat::Amr;
        format.band = BandTypeNb;
    } else if (clock == kWideBandClock && equalsIgnoreCase(name, "AMR-WB")) {
        format.kind = RemoteFormat::Amr;
        format.band = BandTypeWb;
    } else if ((clock == kNarrowBandClock || clock == kWideBandClock) &&
               equalsIgnoreCase(name, "telephone-event")) {
        format.kind = RemoteFormat::TelephoneEvent;
        format.band = clock == kNarrowBandClock ? BandTypeNb : BandTypeWb;
    }
}

// Leaves refusal as it is on success. index starts unlisted throughout.
void readPayloadTypes(const MediaSection& section, RemoteMedia& remote,
                      std::array<uint8_t, kMaxPayloadType + 1>& index,
                      StreamConfig::Result& refusal) {
    // At most one of each payload type: the list is bounded whatever the line's length.
    std::array<uint8_t, kMaxPayloadType + 1> listed;
    size_t count = 0;
    // Each token is read once, digit by digit; only a bad one is read again, whole, to be named.
    std::string_view tokens = section.formats;
    for (tokens = trimStart(tokens); !tokens.empty(); tokens = trimStart(tokens)) {
        uint32_t payloadType;
        size_t digits;
        if (!leadingPayloadType(tokens, payloadType, digits)) {
            refusal = refusalAt(section.mediaLine, StreamConfig::InvalidParam,
                                "Bad payload type: ", nextField(tokens));
            return;
        }
        tokens.remove_prefix(digits);
        // The model would refuse the second codec too, but would not release it.
        if (index[payloadType] != kUnlisted) {
            refusal = refusalAt(section.mediaLine, StreamConfig::InvalidParam,
                                "A codec with the same payload type ", payloadType,
                                " is already present");
            return;
        }
        index[payloadType] = static_cast<uint8_t>(count + 1);
        listed[count++] = static_cast<uint8_t>(payloadType);
    }
    remote.formats.reset(count);
    for (size_t i = 0; i < count; ++i) {
        remote.formats.add().payloadType = listed[i];
    }
}

// The format an a=rtpmap or a=fmtp value is about, and what follows its payload type. Blanks
// after the colon are tolerated; a payload type that cannot be read, or that the m= line does
// not list, leaves the line out. Inline: most a= lines of an audio section come here.
inline RemoteFormat* formatOf(std::string_view value, RemoteMedia& remote,
                              const std::array<uint8_t, kMaxPayloadType + 1>& index,
                              std::string_view& rest) {
    value = trimStart(value);
    uint32_t payloadType;
    size_t digits;
    if (!leadingPayloadType(value, payloadType, digits) || index[payloadType] == kUnlisted) {
        return nullptr;
    }
    value.remove_prefix(digits);
    rest = trim(value);
    return &remote.formats[index[payloadType] - 1U];
}

// False with the refusal in refusal.
bool readFormats(RemoteMedia& remote, StreamConfig::Result& refusal) {
    for (RemoteFormat& format : remote.formats) {
        if (format.encoding.data() != nullptr) {
            classify(format);
        }
        if (format.kind == RemoteFormat::Amr && format.fmtp.exists() &&
            !readAmrParameters(format.fmtpText, format.fmtp, format.band, format.amr, refusal)) {
            return false;
        }
    }
    return true;
}

// Reads the first qualifying section as the syntax check walks the description; remembers the
// first active audio section, whose refusal explains why none qualifies.
class ChosenSectionReader final : public LineObserver {
  public:
    explicit ChosenSectionReader(RemoteMedia& out) : mScan(out) {}

    void sessionLine(const Line& line, const LineValues& values) override {
        takeSessionLine(mSession, line, values);
    }
    bool mediaLine(const MediaSection& section) override;
    void sectionLine(const Line& line, const LineValues& values) override {
        mScan.take(line, values);
    }

    StreamConfig::Result finish(const Description& description, SectionRule rule, RemoteMedia& out);

  private:
    SectionScan mScan;
    SharedLines mSession;
    bool mChosen = false;
    std::optional<unsigned> mFirstActive;
};

bool ChosenSectionReader::mediaLine(const MediaSection& section) {
    if (!mFirstActive && section.isActiveAudio()) {
        mFirstActive = section.index;
    }
    if (mChosen || !qualifies(section)) {
        return false;
    }
    mChosen = true;
    mScan.start(section);
    return mScan.scanning();
}

StreamConfig::Result ChosenSectionReader::finish(const Description& description, SectionRule rule,
                                                 RemoteMedia& out) {
    if (mChosen) {
        return mScan.finish(mSession, rule);
    }
    MediaSection section;
    if (mFirstActive && description.section(*mFirstActive, section)) {
        return readSection(description, section, out, rule);
    }
    return rule == SectionRule::Required ? noAudioStream() : successResult();
}

}  // namespace

void SharedLines::takeConnection(const Line& line, const LineValues& values) {
    if (!connection.exists()) {
        connection = line;
        address = values.address;
    }
}

void SharedLines::takeBandwidth(const LineValues& values) {
    const std::string_view modifier = values.modifier;
    std::optional<uint32_t>* target = modifier == "AS"   ? &as
                                      : modifier == "RS" ? &rs
                                      : modifier == "RR" ? &rr
                                                         : nullptr;
    if (target != nullptr && !*target) {
        *target = values.bandwidth;
    }
}

void SharedLines::takeDirection(std::string_view text) {
    if (direction) {
        return;
    }
    if (text == "sendrecv") {
        direction = StreamConfig::DirectionFullDuplex;
    } else if (text == "sendonly") {
        direction = StreamConfig::DirectionSendOnly;
    } else if (text == "recvonly") {
        direction = StreamConfig::DirectionReceiveOnly;
    } else if (text == "inactive") {
        direction = StreamConfig::DirectionInactive;
    }
}

// The session-level lines that sections inherit.
void takeSessionLine(SharedLines& session, const Line& line, const LineValues& values) {
    switch (line.type()) {
        case 'c':
            session.takeConnection(line, values);
            break;
        case 'b':
            session.takeBandwidth(values);
            break;
        case 'a':
            session.takeDirection(line.value());
            break;
        default:
            break;
    }
}

void SectionScan::start(const MediaSection& section) {
    mOut.section = section;
    mOut.connection = Line();
    mOut.address.clear();
    mOut.formats.reset(0);
    mOut.reducedSize = false;
    mOut.packetTime.reset();
    mOut.maxPacketTime.reset();
    mOut.firstPrecondition = Line();
    mOut.lastPrecondition = Line();
    readPayloadTypes(section, mOut, mIndex, mPayloadTypes);
}

void SectionScan::take(const Line& line, const LineValues& values) {
    switch (line.type()) {
        case 'c':
            mShared.takeConnection(line, values);
            break;
        case 'b':
            mShared.takeBandwidth(values);
            break;
        case 'a':
            takeAttribute(line);
            break;
        default:
            break;
    }
}

void SectionScan::takeAttribute(const Line& line) {
    const std::string_view text = line.value();
    if (text.empty()) {
        return;
    }
    std::string_view value;
    // The first letter tells most names apart; each name is then compared in place.
    switch (text[0]) {
        case 'r':
            if (Description::isAttribute(text, "rtpmap", value)) {
                takeRtpmap(value);
            } else if (Description::isAttribute(text, "rtcp-rsize", value)) {
                mOut.reducedSize = true;
            } else {
                mShared.takeDirection(text);
            }
            break;
        case 'f':
            if (Description::isAttribute(text, "fmtp", value)) {
                takeFmtp(line, value);
            }
            break;
        case 'p':
            if (Description::isAttribute(text, "ptime", value)) {
                takePacketTime(line, value, mOut.packetTime);
            }
            break;
        case 'm':
            if (Description::isAttribute(text, "maxptime", value)) {
                takePacketTime(line, value, mOut.maxPacketTime);
            }
            break;
        case 'c':
            if (Description::isAttribute(text, "curr", value) ||
                Description::isAttribute(text, "conf", value)) {
                mOut.takePreconditionLine(line);
            }
            break;
        case 'd':
            if (Description::isAttribute(text, "des", value)) {
                mOut.takePreconditionLine(line);
            }
            break;
        case 's':
        case 'i':
            mShared.takeDirection(text);
            break;
        default:
            break;
    }
}

void SectionScan::takeRtpmap(std::string_view value) {
    std::string_view rest;
    RemoteFormat* format = formatOf(value, mOut, mIndex, rest);
    if (format != nullptr && format->encoding.data() == nullptr) {
        format->encoding = rest;
    }
}

void SectionScan::takeFmtp(const Line& line, std::string_view value) {
    std::string_view rest;
    RemoteFormat* format = formatOf(value, mOut, mIndex, rest);
    if (format != nullptr && !format->fmtp.exists()) {
        format->fmtp = line;
        format->fmtpText = rest;
    }
}

void SectionScan::takePacketTime(const Line& line, std::string_view value,
                                 std::optional<uint32_t>& target) {
    uint64_t milliseconds;
    // No packet can last 0 ms.
    if (!parseDecimal(value, std::numeric_limits<uint32_t>::max(), milliseconds) ||
        milliseconds == 0) {
        if (!mBadPacketTime.exists()) {
            mBadPacketTime = line;
            mBadPacketTimeValue = value;
        }
    } else if (!target) {
        target = static_cast<uint32_t>(milliseconds);
    }
}

StreamConfig::Result SectionScan::finish(const SharedLines& session, SectionRule rule) {
    // Every way out returns this one result, built in place: success costs no copy.
    StreamConfig::Result result = successResult();
    const MediaSection& section = mOut.section;
    if (!Utils::isValidSocketPort(section.port)) {
        StreamConfig probe;
        result = atLine(section.mediaLine, probe.setRemoteRtpPort(section.port));
        return result;
    }
    mOut.port = section.port;
    if (!isSupportedTransport(section.protocol)) {
        result = refusalAt(section.mediaLine, StreamConfig::InvalidParam,
                           "Unsupported transport: ", section.protocol);
        return result;
    }
    mOut.profile = section.protocol == "RTP/AVPF" ? RtpProfileAvpf : RtpProfileAvp;
    if (mPayloadTypes.isFailure()) {
        result = mPayloadTypes;
        return result;
    }
    const SharedLines& connection = mShared.connection.exists() ? mShared : session;
    mOut.connection = connection.connection;
    if (!mOut.connection.exists() && rule == SectionRule::Required) {
        result = noConnectionAddress(section);
        return result;
    }
    if (mOut.connection.exists() && !checkAddress(mOut, connection.address, result)) {
        return result;
    }
    if (!readFormats(mOut, result)) {
        return result;
    }
    if (mBadPacketTime.exists()) {
        result = refusalAt(mBadPacketTime, StreamConfig::InvalidParam,
                           "Bad packet time: ", mBadPacketTimeValue);
        return result;
    }
    mOut.direction =
        mShared.direction.value_or(session.direction.value_or(StreamConfig::DirectionFullDuplex));
    mOut.as = mShared.as ? mShared.as : session.as;
    mOut.rs = mShared.rs ? mShared.rs : session.rs;
    mOut.rr = mShared.rr ? mShared.rr : session.rr;
    return result;
}

StreamConfig::Result readSection(const Description& description, const MediaSection& section,
                                 RemoteMedia& out, SectionRule rule) {
    SectionScan scan(out);
    scan.start(section);
    LineCursor lines = section.lines();
    Line line;
    while (scan.scanning() && lines.next(line)) {
        LineValues values;
        Description::readValues(line, values);
        scan.take(line, values);
    }
    SharedLines session;
    lines = description.sessionLines();
    while (lines.next(line)) {
        LineValues values;
        Description::readValues(line, values);
        takeSessionLine(session, line, values);
    }
    return scan.finish(session, rule);
}

StreamConfig::Result readDescription(std::string_view text, Description& parsed, RemoteMedia& out,
                                     SectionRule rule) {
    ChosenSectionReader reader(out);
    StreamConfig::Result result = Description::parse(text, parsed, &reader);
    return result.isFailure() ? result : reader.finish(parsed, rule, out);
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

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
