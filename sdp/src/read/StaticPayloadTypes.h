// The encodings of the static RTP payload types of RFC 3551 (section 6), which a format may use
// without an a=rtpmap.
#ifndef VELMORA_RUNE_SDP_SRC_READ_STATIC_PAYLOAD_TYPES_H
#define VELMORA_RUNE_SDP_SRC_READ_STATIC_PAYLOAD_TYPES_H

#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

// "PCMU/8000" for 0, "L16/44100/2" for 10, ...; empty for a payload type without one.
std::string_view staticEncoding(int payloadType);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_READ_STATIC_PAYLOAD_TYPES_H
