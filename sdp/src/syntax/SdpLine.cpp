#include "syntax/SdpLine.h"

#include <algorithm>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// Enough for a reader to recognise the line; the rest could be anything up to the size limit.
const size_t kQuotedCharacters = 120;

bool isControl(char c) {
    return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7F;
}

}  // namespace

bool isShownAsIs(std::string_view text) {
    return text.size() <= kQuotedCharacters && std::none_of(text.begin(), text.end(), isControl);
}

void appendQuoted(std::string& out, std::string_view text) {
    static const char kHex[] = "0123456789ABCDEF";
    const std::string_view shown = text.substr(0, kQuotedCharacters);
    for (char c : shown) {
        if (isControl(c)) {
            const auto byte = static_cast<unsigned char>(c);
            out += "\\x";
            out += kHex[byte >> 4];
            out += kHex[byte & 0xF];
        } else {
            out += c;
        }
    }
    if (shown.size() < text.size()) {
        out += "...";
    }
}

StreamConfig::Result atLine(const Line& line, StreamConfig::Result result) {
    std::string message;
    appendQuoted(message, result.mMessage);
    result.mMessage = std::move(message);
    result.mContext = "line " + std::to_string(line.number) + ": ";
    appendQuoted(result.mContext, line.text);
    return result;
}

StreamConfig::Result inText(const char* name, StreamConfig::Result result) {
    if (!result.mContext.empty()) {
        result.mContext.insert(0, std::string(name) + " ");
    }
    return result;
}

StreamConfig::Result atLine(const Line& line, const CodecConfig::Result& result) {
    static_assert(static_cast<int>(CodecConfig::InvalidParam) ==
                          static_cast<int>(StreamConfig::InvalidParam) &&
                      static_cast<int>(CodecConfig::InvalidConfiguration) ==
                          static_cast<int>(StreamConfig::InvalidConfiguration) &&
                      static_cast<int>(CodecConfig::UnknownError) ==
                          static_cast<int>(StreamConfig::UnknownError),
                  "the two traits share one numbering");
    StreamConfig::Result converted(static_cast<StreamConfig::ResultCode>(result.mCode));
    converted.mMessage = result.mMessage;
    return atLine(line, std::move(converted));
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
