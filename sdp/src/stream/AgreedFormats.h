// The payload types an agreed exchange bound to its codecs (RFC 3264 section 8.3.2): the answer
// to a re-offer keeps them while the offer still binds them to the same codec and clock rate.
#ifndef VELMORA_RUNE_SDP_SRC_STREAM_AGREED_FORMATS_H
#define VELMORA_RUNE_SDP_SRC_STREAM_AGREED_FORMATS_H

#include <velmora/rune/CodecId.h>
#include <velmora/rune/StreamConfig.h>

#include "read/RemoteMedia.h"

namespace velmora {
namespace rune {
namespace sdp {

struct AgreedFormat {
    // -1 for none.
    int payloadType = -1;
    BandType band = BandTypeNb;
};

struct AgreedFormats {
    AgreedFormat amr;
    AgreedFormat events;
};

// The AMR codec and the telephone-event of a negotiated stream.
AgreedFormats agreedFormats(const StreamConfig& stream);

// True when remote lists an agreed payload type for another codec or clock rate, which RFC 3264
// forbids: such an offer is answered as a first offer.
bool rebinds(const RemoteMedia& remote, const AgreedFormats& agreed);

// The format of remote at the agreed payload type, when it is of kind and of the agreed band;
// else null.
const RemoteFormat* findAgreed(const RemoteMedia& remote, const AgreedFormat& agreed,
                               RemoteFormat::Kind kind);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_STREAM_AGREED_FORMATS_H
