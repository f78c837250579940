// A re-offer of an agreed exchange (RFC 3264 section 8): as many m= lines as the exchange, the
// agreed stream at its place with the payload types and parameters both sides agreed on, every
// other section rejected as this side last wrote it.
#ifndef VELMORA_RUNE_SDP_SRC_SESSION_REOFFER_H
#define VELMORA_RUNE_SDP_SRC_SESSION_REOFFER_H

#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Sdp.h>

#include "read/PreconditionRows.h"

#include "StreamPlace.h"

#include <string>
#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

struct LocalEnd {
    const std::string& ip;
    int port;
    StreamConfig::Direction direction;
};

// The re-offer of agreed, at place in lastSent, the last description this side sent (a body it
// wrote or one that reads without refusal, with the exchange's m= lines). The agreed AMR codec
// gets what an offer writes from the first local capability of its band
// (mode-change-capability=2), its telephone-event the events 0-15; the precondition rows before
// its direction. agreed is as it was on return.
void writeReoffer(StreamConfig& agreed, const StreamPlace& place, std::string_view lastSent,
                  const StreamCapabilities& local, const LocalEnd& end,
                  const PreconditionRows& preconditions, const Origin& origin, std::string& text);

// Where in text, a description that parses, the stream of an exchange comes from: the first
// audio section with a port other than 0 and the protocol RTP/AVP or RTP/AVPF; index 0 when there
// is none.
StreamPlace findStreamPlace(std::string_view text);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_SESSION_REOFFER_H
