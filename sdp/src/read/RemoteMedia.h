// The audio section of a remote description as its sender wrote it: endpoint, profile,
// direction, RTCP bandwidths, packet times and formats. Reading a description, answering an
// offer and accepting an answer all start from it.
#ifndef VELMORA_RUNE_SDP_SRC_READ_REMOTE_MEDIA_H
#define VELMORA_RUNE_SDP_SRC_READ_REMOTE_MEDIA_H

#include <velmora/rune/CodecId.h>
#include <velmora/rune/Rtp.h>
#include <velmora/rune/StreamConfig.h>

#include "read/FormatList.h"
#include "syntax/SessionDescription.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

struct RemoteMedia {
    MediaSection section;
    int port = 0;
    // The c= line that gives the address; none when the description has none for the section.
    Line connection;
    // Of the connection line, without a "/ttl" or "/count" suffix, as the model's check passed it.
    std::string address;
    RtpProfile profile = RtpProfileAvp;
    // As the sender declares it: its a=sendonly is DirectionSendOnly.
    StreamConfig::Direction direction = StreamConfig::DirectionFullDuplex;
    // RFC 3556 and RFC 8866 b= values, per modifier: media level, else session level.
    std::optional<uint32_t> as;
    std::optional<uint32_t> rs;
    std::optional<uint32_t> rr;
    bool reducedSize = false;
    // a=ptime and a=maxptime, in ms.
    std::optional<uint32_t> packetTime;
    std::optional<uint32_t> maxPacketTime;
    // In m= order; a payload type is listed once at most.
    FormatList formats;
    // The first and the last a=curr, a=des or a=conf line; none when there is none.
    Line firstPrecondition;
    Line lastPrecondition;

    const RemoteFormat* begin() const { return formats.begin(); }
    const RemoteFormat* end() const { return formats.end(); }

    // Null when the m= line does not list payloadType.
    const RemoteFormat* find(int payloadType) const;

    void takePreconditionLine(const Line& line);
    // The lines from the first precondition line to the last, so that reading them again does
    // not walk the whole section.
    LineCursor preconditionLines() const;
};

// RTP/AVP or RTP/AVPF.
bool isSupportedTransport(std::string_view protocol);
// An audio section with a port other than 0 and a supported transport.
bool qualifies(const MediaSection& section);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_READ_REMOTE_MEDIA_H
