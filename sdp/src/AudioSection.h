// The audio section of a remote description as its sender wrote it: endpoint, profile,
// direction, RTCP bandwidths, packet times and formats. Reading a description, answering an
// offer and accepting an answer all start from it.
#ifndef VELMORA_RUNE_SDP_SRC_AUDIO_SECTION_H
#define VELMORA_RUNE_SDP_SRC_AUDIO_SECTION_H

#include <velmora/rune/CodecId.h>
#include <velmora/rune/Rtp.h>
#include <velmora/rune/StreamConfig.h>

#include "FormatList.h"
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
    // Of the connection line, without a "/ttl" or "/count" suffix; see addressChecked.
    std::string_view address;
    // Whether the model's address check passed it; reading may leave it to the model's setter
    // that builds the stream.
    bool addressChecked = false;
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

    const RemoteFormat* begin() const { return formats.begin(); }
    const RemoteFormat* end() const { return formats.end(); }

    // Null when the m= line does not list payloadType.
    const RemoteFormat* find(int payloadType) const;
};

// RTP/AVP or RTP/AVPF.
bool isSupportedTransport(std::string_view protocol);
// An audio section with a port other than 0 and a supported transport.
bool qualifies(const MediaSection& section);

// Whether a missing audio section, or a missing c= line for it, is refused as the section is
// read, or later by the caller (an answer's values come before its structure, its missing
// address after).
enum class SectionRule { Required, CheckedLater };

// Whether reading checks the address at its place in the order, or leaves it to the model's
// setter when the stream is built (checking it first only when a later refusal comes up), so
// that the model checks it once.
enum class AddressCheck { Now, ByBuilder };

// Reads section, refusing in this order: port, transport, payload types, address, the AMR
// formats' fmtp values in m= order, then a=ptime and a=maxptime in line order.
StreamConfig::Result readSection(const Description& description, const MediaSection& section,
                                 RemoteMedia& out, SectionRule rule = SectionRule::Required,
                                 AddressCheck check = AddressCheck::Now);

// Parses text and, in the same walk, reads its first section that qualifies; when none does,
// refuses as the first active audio section would be refused, and "No audio stream" when there
// is none. With CheckedLater, no audio section leaves out's section without an m= line.
StreamConfig::Result readDescription(std::string_view text, Description& parsed, RemoteMedia& out,
                                     SectionRule rule, AddressCheck check);

// The model's check of remote's address, whose refusal is given as reading gives it.
StreamConfig::Result checkAddress(RemoteMedia& remote);

// The address refusal of remote when it has one and was not checked yet, else later: for a
// refusal that comes after the address.
StreamConfig::Result afterAddress(RemoteMedia& remote, StreamConfig::Result later);

// The refusal of an address that the model's setter refused with result.
StreamConfig::Result addressRefusal(const RemoteMedia& remote, StreamConfig::Result result);

// 1003 "No connection address", context the section's m= line.
StreamConfig::Result noConnectionAddress(const MediaSection& section);

// The first audio section with a port other than 0; false when there is none.
bool findFirstActiveAudio(const Description& description, MediaSection& section);
// 1003 "No audio stream".
StreamConfig::Result noAudioStream();

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_AUDIO_SECTION_H
