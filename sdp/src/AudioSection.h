// The audio section of a remote description as its sender wrote it: endpoint, profile,
// direction, RTCP bandwidths, packet times and formats, each AMR format with its fmtp
// parameters. Reading a description and answering an offer both start from it.
#ifndef VELMORA_RUNE_SDP_SRC_AUDIO_SECTION_H
#define VELMORA_RUNE_SDP_SRC_AUDIO_SECTION_H

#include <velmora/rune/CodecConfig.h>
#include <velmora/rune/CodecId.h>
#include <velmora/rune/Rtp.h>
#include <velmora/rune/StreamConfig.h>

#include "AmrFmtp.h"
#include "syntax/SessionDescription.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace velmora {
namespace rune {
namespace sdp {

struct RemoteFormat {
    enum Kind { Amr, TelephoneEvent, Unsupported };

    int payloadType = 0;
    Kind kind = Unsupported;
    // For AMR and telephone-event.
    BandType band = BandTypeNb;
    // The a=rtpmap text after the payload type; empty when there is none.
    std::string_view encoding;
    // Null when the format has no a=fmtp.
    const Line* fmtp = nullptr;
    // Read for AMR formats only.
    AmrParameters amr;
};

struct RemoteMedia {
    const Description::Media* media = nullptr;
    RtpProfile profile = RtpProfileAvp;
    // As the sender declares it: its a=sendonly is DirectionSendOnly.
    StreamConfig::Direction direction = StreamConfig::DirectionFullDuplex;
    // RFC 3556 and RFC 8866 b= values; media level first, then session level.
    std::optional<uint32_t> as;
    std::optional<uint32_t> rs;
    std::optional<uint32_t> rr;
    bool reducedSize = false;
    // a=ptime and a=maxptime, in ms.
    std::optional<uint32_t> packetTime;
    std::optional<uint32_t> maxPacketTime;
    // In m= order.
    std::vector<RemoteFormat> formats;
};

// Reads the first audio section with a port other than 0. The remote port and address are set
// on endpoint as they are met, so that the model's refusals come in their place: port,
// transport, payload types, address, the AMR formats' fmtp values in m= order, then a=ptime
// and a=maxptime in line order.
StreamConfig::Result readRemoteMedia(const Description& description, StreamConfig& endpoint,
                                     RemoteMedia& out);

// Parses text into parsed, then reads its audio section as readRemoteMedia does; out points into
// parsed.
StreamConfig::Result readRemoteMedia(const std::string& text, Description& parsed,
                                     StreamConfig& endpoint, RemoteMedia& out);

// The direction of this side when the other side declares direction.
StreamConfig::Direction mirror(StreamConfig::Direction direction);

// Adds a copy of codec to each active direction of stream, and to the downlink when neither is
// active (an inactive stream keeps its codecs). Its payload type must be new to stream.
void placeCodec(const CodecConfig& codec, StreamConfig& stream);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_AUDIO_SECTION_H
