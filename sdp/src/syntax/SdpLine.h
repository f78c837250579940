// A line of a description, numbered from 1 as an editor shows them, the small text helpers that
// read its pieces (blanks, fields, decimal numbers, names without case), and the refusals that
// name a line, its untrusted bytes quoted.
#ifndef VELMORA_RUNE_SDP_SRC_SYNTAX_SDP_LINE_H
#define VELMORA_RUNE_SDP_SRC_SYNTAX_SDP_LINE_H

#include <velmora/rune/CodecConfig.h>
#include <velmora/rune/StreamConfig.h>

#include "internal/Results.h"

#include <cstdint>
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

    bool next(Line& line);
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

    bool next(std::string_view& piece);

  private:
    std::string_view mRest;
    char mSeparator;
    bool mDone = false;
};

// Space or horizontal tab.
bool isBlank(char c);
// Without the blanks at both ends.
std::string_view trim(std::string_view text);
// The first blank-separated field of text, taken off it with the blanks before it; empty when
// only blanks are left.
std::string_view nextField(std::string_view& text);
// The longest run of decimal digits at the start of text.
std::string_view leadingDigits(std::string_view text);
// Decimal digits only, at most max; false for anything else, however long.
bool parseDecimal(std::string_view text, uint64_t max, uint64_t& value);
bool equalsIgnoreCase(std::string_view a, std::string_view b);

// Untrusted text as refusals and skipped formats show it: bytes below 0x20 other than tab, and
// 0x7F, as \xHH; at most the first 120 characters, then "..." when there are more.
void appendQuoted(std::string& out, std::string_view text);

// A refusal whose context is the line; its message and the line quoted.
StreamConfig::Result atLine(const Line& line, StreamConfig::Result result);
StreamConfig::Result atLine(const Line& line, const CodecConfig::Result& result);

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
