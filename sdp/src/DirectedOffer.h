// Offering with a direction other than sendrecv: a dialog's first offer while this side holds.
#ifndef VELMORA_RUNE_SDP_SRC_DIRECTED_OFFER_H
#define VELMORA_RUNE_SDP_SRC_DIRECTED_OFFER_H

#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Sdp.h>

#include "read/PreconditionRows.h"

#include <string>

namespace velmora {
namespace rune {
namespace sdp {

// createOffer with direction as the a= line and the precondition rows, when given, before it;
// createOffer itself offers sendrecv without preconditions.
Result createDirectedOffer(const StreamCapabilities& local, const std::string& localIp,
                           int localPort, const Origin& origin, StreamConfig::Direction direction,
                           const PreconditionRows* preconditions, std::string& offer);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_DIRECTED_OFFER_H
