#include "session/OriginLine.h"

#include "syntax/SdpLine.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// The o= line of a body, from its "o=" to its line end; empty at the body's end when there is
// none. It follows v=, so it is the first line that starts with "o=" after a line end.
std::string_view findOriginLine(std::string_view body) {
    const size_t found = body.find("\no=");
    const size_t start = found == std::string_view::npos ? body.size() : found + 1;
    size_t end = body.find('\n', start);
    end = end == std::string_view::npos ? body.size() : end;
    if (end > start && body[end - 1] == '\r') {
        --end;
    }
    return body.substr(start, end - start);
}

// The text before the o= line.
std::string_view before(std::string_view body, std::string_view line) {
    return body.substr(0, static_cast<size_t>(line.data() - body.data()));
}

}  // namespace

bool readOriginLine(std::string_view body, OriginParts& parts) {
    const std::string_view line = findOriginLine(body);
    std::string_view rest = line.substr(line.empty() ? 0 : 2);
    const std::string_view username = nextField(rest);
    const std::string_view sessionId = nextField(rest);
    const std::string_view versionText = nextField(rest);
    const std::string_view tail = trim(rest);
    uint64_t version = 0;
    if (username.empty() || sessionId.empty() || !parseDecimal(versionText, UINT64_MAX, version) ||
        tail.empty()) {
        return false;
    }
    parts.head = "o=";
    parts.head.append(username).append(" ").append(sessionId);
    parts.version = version;
    parts.tail = tail;
    return true;
}

void writeOriginLine(std::string_view head, uint64_t version, std::string_view tail,
                     std::string& body) {
    const std::string_view line = findOriginLine(body);
    const size_t start = before(body, line).size();
    // In place, in the body's room, with one move of the text after it: no temporary line.
    char number[std::numeric_limits<uint64_t>::digits10 + 3] = {' '};
    char* end = std::to_chars(number + 1, number + sizeof number, version).ptr;
    *end++ = ' ';
    const std::string_view middle(number, static_cast<size_t>(end - number));
    const size_t size = head.size() + middle.size() + tail.size();
    // The usual line, of the same length, is overwritten where it is.
    if (size != line.size()) {
        body.replace(start, line.size(), size, ' ');
    }
    char* out = &body[start];
    out = std::copy(head.begin(), head.end(), out);
    out = std::copy(middle.begin(), middle.end(), out);
    std::copy(tail.begin(), tail.end(), out);
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
