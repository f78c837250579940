// Builds the stream that reading, answering and accepting give: the remote endpoint, the
// direction seen from this side, and codecs placed where the directions want them.
#ifndef VELMORA_RUNE_SDP_SRC_STREAM_STREAM_BUILDER_H
#define VELMORA_RUNE_SDP_SRC_STREAM_STREAM_BUILDER_H

#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamConfig.h>

#include "read/RemoteMedia.h"

#include <optional>

namespace velmora {
namespace rune {
namespace sdp {

// The direction of this side when the other side declares direction.
StreamConfig::Direction mirror(StreamConfig::Direction direction);

// What both directions allow: it sends only when both send, receives only when both receive.
StreamConfig::Direction limit(StreamConfig::Direction direction, StreamConfig::Direction allowed);

// Makes every field of stream but its codecs, in place, a default StreamConfig's, with the remote
// endpoint and profile of remote (read, so checked) and the direction it declares, mirrored and
// limited to allowed, with its hold state: held when the direction is not full duplex or the
// address is 0.0.0.0 or :: (RFC 3264 section 8.4, the old way to hold), so that a media engine can
// tell from isHeld() alone. Its codecs are left for placeAgreedCodecs, or for placeCodec once they
// are cleared.
void startStream(const RemoteMedia& remote, StreamConfig& stream,
                 StreamConfig::Direction allowed = StreamConfig::DirectionFullDuplex);

// RFC 3556 bandwidths as read: a value not given keeps its default; RS and RR both given and
// both 0 turn RTCP off.
void setReadRtcp(const RemoteMedia& remote, StreamConfig& stream);

// The telephone-event codec of a format.
DtmfCodecConfig telephoneEvent(const RemoteFormat& format);

// Sets the packet times that are given, then adds a copy of codec to each active direction of
// stream, and to the downlink when neither is active (an inactive stream keeps its codecs). Its
// payload type must be new to stream.
void placeCodec(CodecConfig& codec, std::optional<uint32_t> packetTime,
                std::optional<uint32_t> maxPacketTime, StreamConfig& stream);

// Makes the codecs of stream, placed as placeCodec places them, amr, of amrFormat, and the
// telephone-event of events when it is given, in the m= order of their formats (both of one m=
// line). A stream that holds codecs of the same classes already, as a dialog's stream negotiated
// again does, takes the values in place.
void placeAgreedCodecs(AmrCodecConfig& amr, const RemoteFormat& amrFormat,
                       const RemoteFormat* events, std::optional<uint32_t> packetTime,
                       std::optional<uint32_t> maxPacketTime, StreamConfig& stream);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_STREAM_STREAM_BUILDER_H
