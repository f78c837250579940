// What an answerer agrees to besides the codecs' parameters: the packet times, and the check of
// the stream it is about to build.
#ifndef VELMORA_RUNE_SDP_SRC_STREAM_ANSWER_TERMS_H
#define VELMORA_RUNE_SDP_SRC_STREAM_ANSWER_TERMS_H

#include <velmora/rune/CodecCapabilities.h>
#include <velmora/rune/CodecConfig.h>
#include <velmora/rune/StreamConfig.h>

#include "read/RemoteMedia.h"

#include <cstdint>

namespace velmora {
namespace rune {
namespace sdp {

struct PacketTimes {
    uint32_t packetTime = 0;
    uint32_t maxPacketTime = 0;
};

// The max packet time the lower of the offer's, when it has one, and local's; the packet time
// the offer's, else local's, lowered to that max.
PacketTimes answeredPacketTimes(const RemoteMedia& offered, const CodecCapabilities& local);

// StreamConfig::check() of the stream that codec and codecs of the same packet times without
// checks of their own (telephone-event) make, given before the stream is built, so that a
// refused stream is never built.
StreamConfig::Result checkAsStream(const CodecConfig& codec);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_STREAM_ANSWER_TERMS_H
