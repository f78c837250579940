#include "syntax/SessionDescription.h"

#include "Refusal.h"
#include "syntax/SdpLine.h"

#include <limits>
#include <utility>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// x=value, where no line of a description may hold a NUL (RFC 8866 section 5).
bool isWellFormed(std::string_view text) {
    return text.size() >= 2 && isLetter(text[0]) && text[1] == '=' &&
           text.find('\0') == std::string_view::npos;
}

}  // namespace

StreamConfig::Result Description::parse(std::string_view text, Description& out) {
    const std::vector<Line> lines = splitLines(text);
    Description description;
    bool first = true;
    for (const Line& line : lines) {
        if (line.text.empty()) {
            continue;
        }
        if (first && line.text != "v=0") {
            return refusalAt(line, StreamConfig::InvalidParam, "Description must start with v=0");
        }
        first = false;
        if (!isWellFormed(line.text)) {
            return refusalAt(line, StreamConfig::InvalidParam, "Bad line");
        }
        std::string_view unused;
        uint32_t bandwidth;
        switch (line.type()) {
            case 'm': {
                Media media;
                if (!parseMedia(line, media)) {
                    return refusalAt(line, StreamConfig::InvalidParam, "Bad media line");
                }
                description.mMedia.push_back(std::move(media));
                continue;
            }
            case 'c':
                if (!parseConnection(line.value(), unused)) {
                    return refusalAt(line, StreamConfig::InvalidParam, "Bad connection line");
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
        (description.mMedia.empty() ? description.mSessionLines : description.mMedia.back().lines)
            .push_back(line);
    }
    if (first) {
        // Nothing but empty lines: there is no line to name.
        return refusal(StreamConfig::InvalidParam, "Description must start with v=0");
    }
    out = std::move(description);
    return StreamConfig::Result::success();
}

const Description::Media* Description::firstActiveAudio() const {
    for (const Media& media : mMedia) {
        if (media.type == "audio" && media.port != 0) {
            return &media;
        }
    }
    return nullptr;
}

bool Description::parseMedia(const Line& line, Media& media) {
    const std::vector<std::string_view> fields = splitFields(line.value());
    if (fields.size() < 4) {
        return false;
    }
    std::string_view port = fields[1];
    const size_t slash = port.find('/');
    uint64_t value;
    uint64_t count;
    if (!parseDecimal(port.substr(0, slash), std::numeric_limits<int>::max(), value) ||
        (slash != std::string_view::npos &&
         !parseDecimal(port.substr(slash + 1), std::numeric_limits<int>::max(), count))) {
        return false;
    }
    media.mediaLine = line;
    media.type = fields[0];
    media.port = static_cast<int>(value);
    media.protocol = fields[2];
    media.formats.assign(fields.begin() + 3, fields.end());
    return true;
}

bool Description::parseConnection(std::string_view value, std::string_view& address) {
    const std::vector<std::string_view> fields = splitFields(value);
    if (fields.size() != 3 || fields[0] != "IN" || (fields[1] != "IP4" && fields[1] != "IP6")) {
        return false;
    }
    address = fields[2].substr(0, fields[2].find('/'));
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
