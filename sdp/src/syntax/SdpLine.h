// A line of a description, numbered from 1 as an editor shows them, the small text helpers that
// read its pieces (blanks, fields, decimal numbers, names without case), and the refusals that
// name a line, its untrusted bytes quoted.
#ifndef VELMORA_RUNE_SDP_SRC_SYNTAX_SDP_LINE_H
#define VELMORA_RUNE_SDP_SRC_SYNTAX_SDP_LINE_H

#include <velmora/rune/CodecConfig.h>
#include <velmora/rune/StreamConfig.h>

#include "internal/Results.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

struct Line {
    // 0 for no line.
    unsigned number = 0;
    // Without its LF or CRLF; a view into the description's text.
    std::string_view text;

    bool exists() const { return number != 0; }
    // For lines of the form x=value only.
    char type() const { return text[0]; }
    std::string_view value() const { return text.substr(2); }
};

// The lines of a text one after the other, empty lines left out. Lines end in LF or CRLF; the
// text after the last line end, when there is any, is a line too.
class LineCursor {
  public:
    LineCursor(std::string_view text, unsigned firstNumber) : mText(text), mNext(firstNumber) {}

    inline bool next(Line& line);
    // Where the line that next() gives next starts, as an offset into the text, and its number.
    size_t offset() const { return mOffset; }
    unsigned nextNumber() const { return mNext; }

  private:
    std::string_view mText;
    size_t mOffset = 0;
    unsigned mNext;
};

// The pieces of a text between separators, untrimmed: "a;;b" gives "a", "" and "b".
class PieceCursor {
  public:
    PieceCursor(std::string_view text, char separator) : mRest(text), mSeparator(separator) {}

    inline bool next(std::string_view& piece);

  private:
    std::string_view mRest;
    char mSeparator;
    bool mDone = false;
};

// Space or horizontal tab.
inline bool isBlank(char c) {
    // Most bytes read are above the space: one comparison rules them out.
    return static_cast<unsigned char>(c) <= ' ' && (c == ' ' || c == '\t');
}

inline std::string_view trimStart(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    return text;
}

inline std::string_view trimEnd(std::string_view text) {
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// Without the blanks at both ends.
inline std::string_view trim(std::string_view text) {
    return trimEnd(trimStart(text));
}

// The first blank-separated field of text, taken off it with the blanks before it; empty when
// only blanks are left.
inline std::string_view nextField(std::string_view& text) {
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

// The longest run of decimal digits at the start of text.
inline std::string_view leadingDigits(std::string_view text) {
    size_t end = 0;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9') {
        ++end;
    }
    return text.substr(0, end);
}

// The decimal number that text starts with, when it is at most max, and the count of its digits;
// false when text does not start with a digit or the number is above max. One step a digit.
inline bool leadingNumber(std::string_view text, uint32_t max, uint32_t& value, size_t& digits) {
    uint64_t number = 0;
    size_t end = 0;
    for (; end < text.size() && text[end] >= '0' && text[end] <= '9'; ++end) {
        // Zeros in front keep the number small: a long run of them is still a number.
        number = number * 10 + static_cast<uint64_t>(text[end] - '0');
        if (number > max) {
            return false;
        }
    }
    if (end == 0) {
        return false;
    }
    value = static_cast<uint32_t>(number);
    digits = end;
    return true;
}

// Decimal digits only, at most max; false for anything else, however long.
inline bool parseDecimal(std::string_view text, uint64_t max, uint64_t& value) {
    if (text.empty()) {
        return false;
    }
    // Up to 19 digits cannot overflow: the usual short numbers take one check a digit.
    const size_t kSafeDigits = 19;
    if (text.size() <= kSafeDigits) {
        uint64_t number = 0;
        for (char c : text) {
            if (c < '0' || c > '9') {
                return false;
            }
            number = number * 10 + static_cast<uint64_t>(c - '0');
        }
        if (number > max) {
            return false;
        }
        value = number;
        return true;
    }
    // A digit more is allowed while the number stays at most max: no step can overflow.
    const uint64_t lastRoom = max / 10;
    const uint64_t lastDigit = max % 10;
    uint64_t number = 0;
    for (char c : text) {
        const auto digit = static_cast<uint64_t>(c - '0');
        if (c < '0' || c > '9' || number > lastRoom || (number == lastRoom && digit > lastDigit)) {
            return false;
        }
        number = number * 10 + digit;
    }
    value = number;
    return true;
}

inline bool equalsIgnoreCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) {
        return false;
    }
    // Names are mostly written in the case looked for: one comparison of the whole first.
    if (a == b) {
        return true;
    }
    for (size_t i = 0; i < a.size(); ++i) {
        // Letters differ from their other case in bit 0x20 only; both must be letters then.
        const char x = a[i];
        const char y = b[i];
        if (x != y && ((x | 0x20) != (y | 0x20) || (x | 0x20) < 'a' || (x | 0x20) > 'z')) {
            return false;
        }
    }
    return true;
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

bool LineCursor::next(Line& line) {
    // Raw pointers: the offsets are in range by construction, so no step needs a bounds check.
    const char* const begin = mText.data();
    const char* const end = begin + mText.size();
    while (mOffset < mText.size()) {
        const char* const start = begin + mOffset;
        const auto* const newline =
            static_cast<const char*>(std::memchr(start, '\n', static_cast<size_t>(end - start)));
        auto length = static_cast<size_t>((newline != nullptr ? newline : end) - start);
        mOffset = newline != nullptr ? static_cast<size_t>(newline + 1 - begin) : mText.size();
        if (newline != nullptr && length > 0 && start[length - 1] == '\r') {
            --length;
        }
        const unsigned number = mNext++;
        if (length > 0) {
            line = Line{number, std::string_view(start, length)};
            return true;
        }
    }
    return false;
}

// The stream's success, built in place.
inline StreamConfig::Result successResult() {
    return rune::successResult<StreamConfig::ResultTrait>();
}

// A refusal whose context is the line; its message and the line quoted.
StreamConfig::Result atLine(const Line& line, StreamConfig::Result result);
StreamConfig::Result atLine(const Line& line, const CodecConfig::Result& result);

// result with its context, when it has one, said to be in the text called name: "offer line 12:
// ..." where a text of its own says "line 12: ...".
StreamConfig::Result inText(const char* name, StreamConfig::Result result);

// A refusal whose message is the pieces streamed one after the other, in the line's context.
template <typename... Pieces>
StreamConfig::Result refusalAt(const Line& line, StreamConfig::ResultCode code,
                               const Pieces&... pieces) {
    return atLine(line, makeResult<StreamConfig::ResultTrait>(code, pieces...));
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_SYNTAX_SDP_LINE_H
