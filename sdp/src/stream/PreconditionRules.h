// The RFC 3312 rules that make the precondition rows of the descriptions a session sends, below
// the answer that writes them.
#ifndef VELMORA_RUNE_SDP_SRC_STREAM_PRECONDITION_RULES_H
#define VELMORA_RUNE_SDP_SRC_STREAM_PRECONDITION_RULES_H

#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Session.h>

#include "read/PreconditionRows.h"

namespace velmora {
namespace rune {
namespace sdp {

// Whether have reserves every direction that want asks for.
bool covers(StreamConfig::Direction have, StreamConfig::Direction want);

// The rows as the other side sees them: local and remote swapped, send and recv swapped.
Preconditions mirrorPreconditions(const Preconditions& preconditions);

// Into answer, empty when given: the rows of an answer to offered (as the offer writes them),
// status being the directions this side has reserved and strength what it desires for its own
// segment (RFC 3312 section 5.2). None when the offer has none.
void answerPreconditions(const PreconditionRows& offered, StreamConfig::Direction status,
                         Strength strength, PreconditionRows& answer);

// Into offer, empty when given, viewing agreed's types: the rows of an offer. Without agreed rows
// (the last agreed exchange's, seen from this side): none for Strength::None, else the four rows
// of a first offer. With them: their a=curr and a=des rows, the local a=curr from status.
void offerPreconditions(const Preconditions& agreed, StreamConfig::Direction status,
                        Strength strength, PreconditionRows& offer);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_STREAM_PRECONDITION_RULES_H
