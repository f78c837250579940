// Reading the RFC 3312 precondition lines (a=curr, a=des, a=conf) of a media section.
#ifndef VELMORA_RUNE_SDP_SRC_READ_PRECONDITION_READER_H
#define VELMORA_RUNE_SDP_SRC_READ_PRECONDITION_READER_H

#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Session.h>

#include "read/PreconditionRows.h"
#include "read/RemoteMedia.h"
#include "syntax/SessionDescription.h"

namespace velmora {
namespace rune {
namespace sdp {

// Whether reading also refuses what this side, answering, could not meet: a mandatory a=des of a
// type other than qos on the offer's remote or e2e segment (RFC 3312 sections 8 and 9).
enum class PreconditionUse { Kept, Answered };

// The rows of the section that media was read from, as its sender wrote them, from the
// precondition lines it noted, as views into its text; into out, empty when given. Of two lines of
// the same kind, type and status type, the first counts. A line that does not have the RFC 3312
// form: 1002 "Bad precondition"; with Answered, 1003 "Unsupported precondition: " + the type;
// both with the line as context, in line order.
StreamConfig::Result readPreconditions(const RemoteMedia& media, PreconditionUse use,
                                       PreconditionRows& out);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_READ_PRECONDITION_READER_H
