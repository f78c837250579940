// The o= line of the bodies one dialog sends (RFC 3264 section 8): every body carries the o= line
// of the first, with a version that counts only when the rest of the body changes.
#ifndef VELMORA_RUNE_SDP_SRC_SESSION_ORIGIN_LINE_H
#define VELMORA_RUNE_SDP_SRC_SESSION_ORIGIN_LINE_H

#include <cstdint>
#include <string>
#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

// The o= line of a body read as "o=<username> <sess-id> <sess-version> <rest>".
struct OriginParts {
    // "o=<username> <sess-id>".
    std::string head;
    uint64_t version = 0;
    // The network type, address type and address: "IN IP4 192.0.2.10".
    std::string tail;
};

// The parts of body's o= line; false when it has none of that form.
bool readOriginLine(std::string_view body, OriginParts& parts);

// Makes the o= line of body "<head> <version> <tail>", head and tail as in OriginParts.
void writeOriginLine(std::string_view head, uint64_t version, std::string_view tail,
                     std::string& body);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_SESSION_ORIGIN_LINE_H
