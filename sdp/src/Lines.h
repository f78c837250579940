// The lines of a description, numbered from 1 as an editor shows them.
#ifndef VELMORA_RUNE_SDP_SRC_LINES_H
#define VELMORA_RUNE_SDP_SRC_LINES_H

#include <string_view>
#include <vector>

// Private to the library: not exported.
#pragma GCC visibility push(hidden)

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

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#pragma GCC visibility pop

#endif  // VELMORA_RUNE_SDP_SRC_LINES_H
