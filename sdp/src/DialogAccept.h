// Accepting an answer inside a dialog: what Session adds to acceptAnswer.
#ifndef VELMORA_RUNE_SDP_SRC_DIALOG_ACCEPT_H
#define VELMORA_RUNE_SDP_SRC_DIALOG_ACCEPT_H

#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Sdp.h>
#include <velmora/rune/sdp/Session.h>

#include "StreamPlace.h"

#include <string>

namespace velmora {
namespace rune {
namespace sdp {

// What a dialog keeps of an accepted exchange besides its stream.
struct AcceptedExchange {
    // The answer's precondition rows as its sender wrote them.
    Preconditions preconditions;
    // Where the offer's stream is.
    StreamPlace place;
};

// acceptAnswer, and then, when exchange is given, the answer's precondition rows, refused as the
// answer's (1002 "Bad precondition"), and the offer's stream place; acceptAnswer itself takes
// none.
Result acceptInDialog(const std::string& offer, const std::string& answer, StreamConfig& negotiated,
                      AcceptedExchange* exchange);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_DIALOG_ACCEPT_H
