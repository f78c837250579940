#include "Lines.h"

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

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
