// Small text helpers of the reader: blanks, fields, decimal numbers and names without case.
#ifndef VELMORA_RUNE_SDP_SRC_TEXT_H
#define VELMORA_RUNE_SDP_SRC_TEXT_H

#include <cstdint>
#include <string_view>
#include <vector>

// Private to the library: not exported.
#pragma GCC visibility push(hidden)

namespace velmora {
namespace rune {
namespace sdp {

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

#pragma GCC visibility pop

#endif  // VELMORA_RUNE_SDP_SRC_TEXT_H
