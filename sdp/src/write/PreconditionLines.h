// Writing RFC 3312 precondition rows as a=curr, a=des and a=conf lines.
#ifndef VELMORA_RUNE_SDP_SRC_WRITE_PRECONDITION_LINES_H
#define VELMORA_RUNE_SDP_SRC_WRITE_PRECONDITION_LINES_H

#include <velmora/rune/sdp/Session.h>

#include "write/LineWriter.h"

namespace velmora {
namespace rune {
namespace sdp {

// "a=des:qos mandatory local sendrecv", without the line end.
void writePreconditionRow(LineWriter& writer, const Preconditions::Row& row);
// One line per row, in the order the rows are kept.
void writePreconditions(LineWriter& writer, const Preconditions& preconditions);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_WRITE_PRECONDITION_LINES_H
