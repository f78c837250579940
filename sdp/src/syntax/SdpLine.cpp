#include "syntax/SdpLine.h"

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// Enough for a reader to recognise the line; the rest could be anything up to the size limit.
const size_t kQuotedCharacters = 120;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isControl(char c) {
    return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7F;
}

}  // namespace

bool LineCursor::next(Line& line) {
    while (mOffset < mText.size()) {
        const size_t end = mText.find('\n', mOffset);
        const size_t stop = end == std::string_view::npos ? mText.size() : end;
        std::string_view text = mText.substr(mOffset, stop - mOffset);
        mOffset = end == std::string_view::npos ? mText.size() : end + 1;
        if (end != std::string_view::npos && !text.empty() && text.back() == '\r') {
            text.remove_suffix(1);
        }
        const unsigned number = mNext++;
        if (!text.empty()) {
            line = Line{number, text};
            return true;
        }
    }
    return false;
}

bool PieceCursor::next(std::string_view& piece) {
    if (mDone) {
        return false;
    }
    const size_t end = mRest.find(mSeparator);
    piece = mRest.substr(0, end);
    if (end == std::string_view::npos) {
        mDone = true;
    } else {
        mRest.remove_prefix(end + 1);
    }
    return true;
}

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view trim(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::string_view nextField(std::string_view& text) {
    size_t start = 0;
    while (start < text.size() && isBlank(text[start])) {
        ++start;
    }
    size_t end = start;
    while (end < text.size() && !isBlank(text[end])) {
        ++end;
    }
    const std::string_view field = text.substr(start, end - start);
    text.remove_prefix(end);
    return field;
}

std::string_view leadingDigits(std::string_view text) {
    size_t end = 0;
    while (end < text.size() && isDigit(text[end])) {
        ++end;
    }
    return text.substr(0, end);
}

bool parseDecimal(std::string_view text, uint64_t max, uint64_t& value) {
    if (text.empty()) {
        return false;
    }
    uint64_t number = 0;
    for (char c : text) {
        if (!isDigit(c)) {
            return false;
        }
        number = number * 10 + static_cast<uint64_t>(c - '0');
        // Stopping here keeps the sum far from overflow whatever the length of the text.
        if (number > max) {
            return false;
        }
    }
    value = number;
    return true;
}

bool equalsIgnoreCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (size_t i = 0; i < a.size(); ++i) {
        if (lower(a[i]) != lower(b[i])) {
            return false;
        }
    }
    return true;
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
