#include "syntax/SdpLine.h"

namespace velmora {
namespace rune {
namespace sdp {

std::vector<Line> splitLines(std::string_view text) {
    std::vector<Line> lines;
    unsigned number = 0;
    while (!text.empty()) {
        size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
        if (end != std::string_view::npos && !line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        lines.push_back(Line{++number, line});
    }
    return lines;
}

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

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

std::vector<std::string_view> splitFields(std::string_view text) {
    std::vector<std::string_view> fields;
    size_t position = 0;
    while (position < text.size()) {
        if (isBlank(text[position])) {
            ++position;
            continue;
        }
        size_t end = position;
        while (end < text.size() && !isBlank(text[end])) {
            ++end;
        }
        fields.push_back(text.substr(position, end - position));
        position = end;
    }
    return fields;
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    size_t start = 0;
    for (size_t end = text.find(separator); end != std::string_view::npos;
         end = text.find(separator, start)) {
        pieces.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    pieces.push_back(text.substr(start));
    return pieces;
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

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
