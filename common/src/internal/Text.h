// The text dumps of toString(), written straight into one string: no stream and no temporary
// string per line or value, so that a dump costs one allocation. Numbers read as a default
// output stream writes them (plain decimal, booleans as 0 and 1, enumerations as numbers).
#ifndef VELMORA_RUNE_SRC_INTERNAL_TEXT_H
#define VELMORA_RUNE_SRC_INTERNAL_TEXT_H

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

namespace velmora {
namespace rune {

class AmrCodecConfig;
class CodecConfig;

// Room for the usual dumps, reserved up front: a codec's lines, and an AMR codec's with all
// nine rates.
constexpr std::size_t kCodecConfigTextSize = 128;
constexpr std::size_t kAmrCodecConfigTextSize = 384;

template <std::size_t Size>
void appendLiteral(std::string& text, const char (&literal)[Size]) {
    text.append(literal, Size - 1);
}

template <typename Value>
void appendNumber(std::string& text, Value value) {
    if constexpr (std::is_same_v<Value, bool>) {
        text += value ? '1' : '0';
    } else if constexpr (std::is_enum_v<Value>) {
        appendNumber(text, static_cast<std::underlying_type_t<Value>>(value));
    } else {
        char digits[std::numeric_limits<Value>::digits10 + 2];  // every digit and a sign
        const char* end = std::to_chars(digits, digits + sizeof(digits), value).ptr;
        text.append(digits, static_cast<std::size_t>(end - digits));
    }
}

// One line of a dump: the label, the value and a newline.
template <std::size_t Size, typename Value>
void appendLine(std::string& text, const char (&label)[Size], Value value) {
    appendLiteral(text, label);
    appendNumber(text, value);
    text += '\n';
}

// The lines of CodecConfig::toString(), then those that AmrCodecConfig adds to them.
void appendCodecConfigText(std::string& text, const CodecConfig& codec);
void appendAmrCodecConfigText(std::string& text, const AmrCodecConfig& amr);

}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SRC_INTERNAL_TEXT_H
