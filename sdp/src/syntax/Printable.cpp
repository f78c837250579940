#include "syntax/Printable.h"

#include <cstdint>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// Enough for a reader to recognise the text; the rest could be anything up to the size limit.
const size_t kQuotedCharacters = 120;

// Controls that print nothing visible but change how the text around them is shown.
bool isInvisibleControl(uint32_t character) {
    return (character >= 0x80 && character <= 0x9F) || character == 0x61C || character == 0x200E ||
           character == 0x200F || (character >= 0x202A && character <= 0x202E) ||
           (character >= 0x2066 && character <= 0x2069);
}

// The length of the printable character that starts text at offset, 0 when the byte there is
// written \xHH. A valid UTF-8 sequence is the shortest form of a character up to U+10FFFF that is
// not a surrogate: its second byte has a narrower range after E0, ED, F0 and F4.
size_t printableLength(std::string_view text, size_t offset) {
    const auto byte = [&](size_t index) {
        return static_cast<unsigned char>(text[offset + index]);
    };
    const unsigned char first = byte(0);
    if (first < 0x80) {
        return (first >= 0x20 && first != 0x7F) || first == '\t' ? 1 : 0;
    }
    size_t length = 4;
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
    if (first >= 0xC2 && first <= 0xDF) {
        length = 2;
    } else if (first >= 0xE0 && first <= 0xEF) {
        length = 3;
        low = first == 0xE0 ? 0xA0 : low;
        high = first == 0xED ? 0x9F : high;
    } else if (first >= 0xF0 && first <= 0xF4) {
        low = first == 0xF0 ? 0x90 : low;
        high = first == 0xF4 ? 0x8F : high;
    } else {
        return 0;
    }
    if (text.size() - offset < length || byte(1) < low || byte(1) > high) {
        return 0;
    }
    uint32_t character = first & (0x7Fu >> length);
    for (size_t index = 1; index < length; ++index) {
        if (byte(index) < 0x80 || byte(index) > 0xBF) {
            return 0;
        }
        character = (character << 6) | (byte(index) & 0x3Fu);
    }
    return isInvisibleControl(character) ? 0 : length;
}

}  // namespace

bool isPrintable(std::string_view text) {
    for (size_t offset = 0; offset < text.size();) {
        // Printable ASCII, nearly every byte, needs no decoding.
        const auto first = static_cast<unsigned char>(text[offset]);
        if (first >= 0x20 && first < 0x7F) {
            ++offset;
            continue;
        }
        const size_t length = printableLength(text, offset);
        if (length == 0) {
            return false;
        }
        offset += length;
    }
    return true;
}

void appendQuoted(std::string& out, std::string_view text) {
    static const char kHex[] = "0123456789ABCDEF";
    // The bound counts bytes; a character cut by it is no longer valid and shows as \xHH.
    const std::string_view shown = text.substr(0, kQuotedCharacters);
    for (size_t offset = 0; offset < shown.size();) {
        const size_t length = printableLength(shown, offset);
        if (length != 0) {
            out.append(shown.substr(offset, length));
            offset += length;
            continue;
        }
        const auto byte = static_cast<unsigned char>(shown[offset++]);
        out += "\\x";
        out += kHex[byte >> 4];
        out += kHex[byte & 0xF];
    }
    if (shown.size() < text.size()) {
        out += "...";
    }
}

std::string quote(std::string_view text) {
    std::string out;
    appendQuoted(out, text);
    return out;
}

bool isShownAsIs(std::string_view text) {
    return text.size() <= kQuotedCharacters && isPrintable(text);
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
