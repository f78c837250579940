// A media section refused or left out (RFC 3264 section 6): its m= line with port 0 and nothing
// else.
#ifndef VELMORA_RUNE_SDP_SRC_WRITE_REJECTED_MEDIA_H
#define VELMORA_RUNE_SDP_SRC_WRITE_REJECTED_MEDIA_H

#include "syntax/SessionDescription.h"
#include "write/LineWriter.h"

namespace velmora {
namespace rune {
namespace sdp {

// "m=<type> 0 <proto> <formats>" of section, its formats separated by single blanks; every piece
// quoted, so that no byte of a remote text can break a line.
void writeRejectedMedia(LineWriter& writer, const MediaSection& section);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_WRITE_REJECTED_MEDIA_H
