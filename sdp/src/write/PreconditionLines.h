// Writing RFC 3312 precondition rows as a=curr, a=des and a=conf lines.
#ifndef VELMORA_RUNE_SDP_SRC_WRITE_PRECONDITION_LINES_H
#define VELMORA_RUNE_SDP_SRC_WRITE_PRECONDITION_LINES_H

#include "read/PreconditionRows.h"
#include "write/LineWriter.h"

namespace velmora {
namespace rune {
namespace sdp {

// "a=des:qos mandatory local sendrecv", without the line end.
void writePreconditionRow(LineWriter& writer, const PreconditionRow& row);
// One line per row, in the order the rows are kept.
void writePreconditions(LineWriter& writer, const PreconditionRows& rows);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_WRITE_PRECONDITION_LINES_H
