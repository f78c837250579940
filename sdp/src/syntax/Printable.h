// Untrusted text as the library and rune-sdp print it (lines of a description, arguments, file
// names): a byte that could move a terminal's cursor, reorder what the reader sees or split a log
// line is written \xHH, one per byte. Such bytes are those below 0x20 but tab, 0x7F, bytes that
// are not part of a valid UTF-8 sequence, and the UTF-8 of the C1 controls (U+0080-U+009F) and of
// the bidirectional controls.
#ifndef VELMORA_RUNE_SDP_SRC_SYNTAX_PRINTABLE_H
#define VELMORA_RUNE_SDP_SRC_SYNTAX_PRINTABLE_H

#include <string>
#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

// True when no byte of text would be written \xHH.
bool isPrintable(std::string_view text);

// Appends the first 120 bytes of text, each byte that is not printable as \xHH (two upper-case
// hex digits), then "..." when text is longer.
void appendQuoted(std::string& out, std::string_view text);

// The text that appendQuoted appends.
std::string quote(std::string_view text);

// True when appendQuoted would append text unchanged.
bool isShownAsIs(std::string_view text);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_SYNTAX_PRINTABLE_H
