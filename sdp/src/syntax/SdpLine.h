// A line of a description, numbered from 1 as an editor shows them, and the small text helpers
// that read its pieces: blanks, fields, decimal numbers and names without case.
#ifndef VELMORA_RUNE_SDP_SRC_SYNTAX_SDP_LINE_H
#define VELMORA_RUNE_SDP_SRC_SYNTAX_SDP_LINE_H

#include <cstdint>
#include <string_view>
#include <vector>

namespace velmora {
namespace rune {
namespace sdp {

struct Line {
    unsigned number;
    // Without its LF or CRLF; a view into the description's text.
    std::string_view text;

    // For lines of the form x=value only.
    char type() const { return text[0]; }
    std::string_view value() const { return text.substr(2); }
};

// Lines end in LF or CRLF; the text after the last line end, when there is any, is a line too.
std::vector<Line> splitLines(std::string_view text);

// Space or horizontal tab.
bool isBlank(char c);
// Without the blanks at both ends.
std::string_view trim(std::string_view text);
// The blank-separated fields of text; runs of blanks count as one separator.
std::vector<std::string_view> splitFields(std::string_view text);
// The pieces of text between separators, untrimmed; "a;;b" gives three pieces.
std::vector<std::string_view> split(std::string_view text, char separator);
// The longest run of decimal digits at the start of text.
std::string_view leadingDigits(std::string_view text);

// Decimal digits only, at most max; false for anything else, however long.
bool parseDecimal(std::string_view text, uint64_t max, uint64_t& value);
bool equalsIgnoreCase(std::string_view a, std::string_view b);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_SYNTAX_SDP_LINE_H
