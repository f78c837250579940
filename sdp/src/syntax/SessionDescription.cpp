#include "syntax/SessionDescription.h"

#include "internal/Results.h"
#include "syntax/SdpLine.h"

#include <limits>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// SIP stacks cap whole messages far below this.
const size_t kMaxDescriptionSize = 65536;

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// x=value, where no line of a description may hold a NUL (RFC 8866 section 5).
bool isWellFormed(std::string_view text) {
    return text.size() >= 2 && isLetter(text[0]) && text[1] == '=' &&
           text.find('\0') == std::string_view::npos;
}

StreamConfig::Result badLine(const Line& line, const char* message) {
    return refusalAt(line, StreamConfig::InvalidParam, message);
}

}  // namespace

StreamConfig::Result Description::parse(std::string_view text, Description& out) {
    if (text.size() > kMaxDescriptionSize) {
        return makeResult<StreamConfig::ResultTrait>(StreamConfig::InvalidParam,
                                                     "Description too long");
    }
    Description description;
    description.mText = text;
    description.mSession = text;
    LineCursor lines(text, 1);
    bool first = true;
    Line line;
    while (lines.next(line)) {
        if (first && line.text != "v=0") {
            return badLine(line, "Description must start with v=0");
        }
        first = false;
        if (!isWellFormed(line.text)) {
            return badLine(line, "Bad line");
        }
        std::string_view unused;
        uint32_t bandwidth;
        MediaSection media;
        switch (line.type()) {
            case 'm':
                if (!parseMedia(line, media)) {
                    return badLine(line, "Bad media line");
                }
                if (description.mFirstMediaNumber == 0) {
                    description.mFirstMediaNumber = line.number;
                    // The session part ends where the first m= line starts.
                    description.mSession = text.substr(0, line.text.data() - text.data());
                }
                break;
            case 'c':
                if (!parseConnection(line.value(), unused)) {
                    return badLine(line, "Bad connection line");
                }
                break;
            case 'b':
                if (!parseBandwidth(line.value(), unused, bandwidth)) {
                    return refusalAt(line, StreamConfig::InvalidParam,
                                     "Bad bandwidth value: ", line.value());
                }
                break;
            default:
                break;
        }
    }
    if (first) {
        // Nothing but empty lines: there is no line to name.
        return makeResult<StreamConfig::ResultTrait>(StreamConfig::InvalidParam,
                                                     "Description must start with v=0");
    }
    out = description;
    return StreamConfig::Result::success();
}

bool SectionCursor::next(MediaSection& section) {
    LineCursor lines(mRest, mNumber);
    Line line;
    // The description was parsed: the first line left is an m= line, and a valid one.
    if (!lines.next(line) || !Description::parseMedia(line, section)) {
        return false;
    }
    section.index = mIndex++;
    const size_t bodyStart = lines.offset();
    section.mBodyNumber = lines.nextNumber();
    for (;;) {
        const size_t offset = lines.offset();
        const unsigned number = lines.nextNumber();
        if (!lines.next(line)) {
            section.mBody = mRest.substr(bodyStart);
            mRest = std::string_view();
            return true;
        }
        if (line.type() == 'm') {
            section.mBody = mRest.substr(bodyStart, offset - bodyStart);
            mRest = mRest.substr(offset);
            mNumber = number;
            return true;
        }
    }
}

bool Description::section(unsigned index, MediaSection& section) const {
    SectionCursor cursor = sections();
    while (cursor.next(section)) {
        if (section.index == index) {
            return true;
        }
    }
    return false;
}

bool Description::parseMedia(const Line& line, MediaSection& media) {
    std::string_view rest = line.value();
    const std::string_view type = nextField(rest);
    const std::string_view port = nextField(rest);
    const std::string_view protocol = nextField(rest);
    const std::string_view formats = trim(rest);
    if (formats.empty()) {
        return false;
    }
    const size_t slash = port.find('/');
    uint64_t value;
    uint64_t count;
    if (!parseDecimal(port.substr(0, slash), std::numeric_limits<int>::max(), value) ||
        (slash != std::string_view::npos &&
         !parseDecimal(port.substr(slash + 1), std::numeric_limits<int>::max(), count))) {
        return false;
    }
    media.mediaLine = line;
    media.type = type;
    media.port = static_cast<int>(value);
    media.protocol = protocol;
    media.formats = formats;
    return true;
}

bool Description::parseConnection(std::string_view value, std::string_view& address) {
    const std::string_view network = nextField(value);
    const std::string_view family = nextField(value);
    const std::string_view field = nextField(value);
    if (network != "IN" || (family != "IP4" && family != "IP6") || !trim(value).empty()) {
        return false;
    }
    address = field.substr(0, field.find('/'));
    return !address.empty();
}

bool Description::parseBandwidth(std::string_view value, std::string_view& modifier,
                                 uint32_t& bandwidth) {
    const size_t colon = value.find(':');
    uint64_t number;
    if (colon == 0 || colon == std::string_view::npos ||
        !parseDecimal(value.substr(colon + 1), std::numeric_limits<uint32_t>::max(), number)) {
        return false;
    }
    modifier = value.substr(0, colon);
    bandwidth = static_cast<uint32_t>(number);
    return true;
}

void Description::splitAttribute(const Line& line, std::string_view& name,
                                 std::string_view& value) {
    const std::string_view text = line.value();
    const size_t colon = text.find(':');
    name = text.substr(0, colon);
    value = colon == std::string_view::npos ? std::string_view() : text.substr(colon + 1);
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
