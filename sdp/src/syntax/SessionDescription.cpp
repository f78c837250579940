#include "syntax/SessionDescription.h"

#include "internal/Results.h"
#include "syntax/SdpLine.h"

#include <algorithm>
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

// x=value, where no line of a description may hold a NUL (RFC 8866 section 5); nul points to the
// text's first NUL, or is null.
bool isWellFormed(std::string_view text, const char* nul) {
    return text.size() >= 2 && isLetter(text[0]) && text[1] == '=' &&
           (nul < text.data() || nul >= text.data() + text.size());
}

StreamConfig::Result badLine(const Line& line, const char* message) {
    return refusalAt(line, StreamConfig::InvalidParam, message);
}

// The refusal of a c=, b= or t= line whose form is wrong.
StreamConfig::Result badValues(const Line& line) {
    switch (line.type()) {
        case 'c':
            return badLine(line, "Bad connection line");
        case 'b':
            return refusalAt(line, StreamConfig::InvalidParam,
                             "Bad bandwidth value: ", line.value());
        default:
            return badLine(line, "Bad timing line");
    }
}

}  // namespace

StreamConfig::Result Description::parse(std::string_view text, Description& out,
                                        LineObserver* observer) {
    if (text.size() > kMaxDescriptionSize) {
        return makeResult<StreamConfig::ResultTrait>(StreamConfig::InvalidParam,
                                                     "Description too long");
    }
    Description description;
    description.mText = text;
    description.mSession = text;
    LineCursor lines(text, 1);
    // One search of the whole text costs less than one per line.
    const size_t nulOffset = text.find('\0');
    const char* nul = nulOffset == std::string_view::npos ? nullptr : text.data() + nulOffset;
    Line line;
    if (!lines.next(line)) {
        // Nothing but empty lines: there is no line to name.
        return makeResult<StreamConfig::ResultTrait>(StreamConfig::InvalidParam,
                                                     "Description must start with v=0");
    }
    if (line.text != "v=0") {
        return badLine(line, "Description must start with v=0");
    }
    // Whether the observer sees the current section's lines.
    bool watched = false;
    // A line's values are read by its type only: the fields of other types need no reset.
    LineValues values;
    do {
        if (!isWellFormed(line.text, nul)) {
            return badLine(line, "Bad line");
        }
        if (line.type() == 'm') {
            MediaSection media;
            if (!parseMedia(line, media)) {
                return badLine(line, "Bad media line");
            }
            media.index = description.mSectionCount++;
            if (media.index < kKnownTypes) {
                description.mTypes[media.index] = media.type;
                description.mProtocols[media.index] = media.protocol;
            }
            if (description.mFirstMediaNumber == 0) {
                description.mFirstMediaNumber = line.number;
                // The session part ends where the first m= line starts.
                description.mSession = text.substr(0, line.text.data() - text.data());
            }
            watched = observer != nullptr && observer->mediaLine(media);
            continue;
        }
        if (!readValues(line, values)) {
            return badValues(line);
        }
        if (observer == nullptr) {
            continue;
        }
        if (description.mFirstMediaNumber == 0) {
            observer->sessionLine(line, values);
        } else if (watched) {
            observer->sectionLine(line, values);
        }
    } while (lines.next(line));
    out = description;
    return successResult();
}

bool Description::hasMediaLines(std::string_view text, unsigned count) {
    // A description starts with v=0: every m= line follows a line end.
    size_t at = 0;
    for (unsigned found = 0; found < count; ++found) {
        at = findMediaLineEnd(text, at);
        if (at == std::string_view::npos) {
            return false;
        }
        ++at;
    }
    return true;
}

bool SectionCursor::next(MediaSection& section) {
    LineCursor lines(mRest, mNumber);
    Line line;
    // The description was parsed: the first line left is an m= line, and a valid one.
    if (mIndex == mCount || !lines.next(line) || !Description::parseMedia(line, section)) {
        return false;
    }
    section.index = mIndex++;
    section.mBodyNumber = lines.nextNumber();
    const std::string_view rest = mRest.substr(lines.offset());
    // The next section starts with the next line that starts with "m=".
    // The last section needs no search.
    size_t end = mIndex == mCount ? std::string_view::npos : 0;
    unsigned lineEnds = 0;
    while (end != std::string_view::npos && rest.compare(end, 2, "m=") != 0) {
        end = rest.find('\n', end);
        if (end == std::string_view::npos) {
            break;
        }
        ++end;
        ++lineEnds;
    }
    section.mBody = rest.substr(0, end);
    mNumber = section.mBodyNumber + lineEnds;
    mRest = end == std::string_view::npos ? std::string_view() : rest.substr(end);
    return true;
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

bool Description::hasSameMediaLines(const Description& other) const {
    if (mSectionCount != other.mSectionCount) {
        return false;
    }
    if (mSectionCount <= kKnownTypes) {
        return std::equal(mTypes.begin(), mTypes.begin() + mSectionCount, other.mTypes.begin()) &&
               std::equal(mProtocols.begin(), mProtocols.begin() + mSectionCount,
                          other.mProtocols.begin());
    }
    SectionCursor mine = sections();
    SectionCursor theirs = other.sections();
    MediaSection section;
    MediaSection otherSection;
    while (mine.next(section) && theirs.next(otherSection)) {
        if (section.type != otherSection.type || section.protocol != otherSection.protocol) {
            return false;
        }
    }
    return true;
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
    // Nearly every c= line is written with single spaces: its network and family then need no
    // search.
    const std::string_view usual = value.substr(0, 7);
    const bool single = usual == "IN IP4 " || usual == "IN IP6 ";
    const std::string_view network = single ? usual.substr(0, 2) : nextField(value);
    const std::string_view family = single ? usual.substr(3, 3) : nextField(value);
    if (single) {
        value.remove_prefix(usual.size());
    }
    const std::string_view field = nextField(value);
    if (network != "IN" || (family != "IP4" && family != "IP6") || !trim(value).empty()) {
        return false;
    }
    address = field.substr(0, field.find('/'));
    return !address.empty();
}

bool Description::parseTiming(std::string_view value, uint64_t& start, uint64_t& stop) {
    return parseDecimal(nextField(value), std::numeric_limits<uint64_t>::max(), start) &&
           parseDecimal(nextField(value), std::numeric_limits<uint64_t>::max(), stop) &&
           trim(value).empty();
}

bool Description::parseBandwidth(std::string_view value, std::string_view& modifier,
                                 uint32_t& bandwidth) {
    // A modifier is a few letters: a walk finds the colon sooner than a search.
    size_t colon = 0;
    while (colon < value.size() && value[colon] != ':') {
        ++colon;
    }
    uint64_t number;
    if (colon == 0 || colon == value.size() ||
        !parseDecimal(value.substr(colon + 1), std::numeric_limits<uint32_t>::max(), number)) {
        return false;
    }
    modifier = value.substr(0, colon);
    bandwidth = static_cast<uint32_t>(number);
    return true;
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
