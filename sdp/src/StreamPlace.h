// Where the stream of an exchange is, so that a dialog need not look for it again in its texts.
#ifndef VELMORA_RUNE_SDP_SRC_STREAM_PLACE_H
#define VELMORA_RUNE_SDP_SRC_STREAM_PLACE_H

namespace velmora {
namespace rune {
namespace sdp {

struct StreamPlace {
    // The index of the stream's section.
    unsigned index = 0;
    // The number of m= lines of the exchange.
    unsigned sections = 0;
};

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_STREAM_PLACE_H
