// The remote address of a section as the model checks it, and its refusals as reading gives them.
#ifndef VELMORA_RUNE_SDP_SRC_READ_REMOTE_ADDRESS_H
#define VELMORA_RUNE_SDP_SRC_READ_REMOTE_ADDRESS_H

#include <velmora/rune/StreamConfig.h>

#include "read/RemoteMedia.h"

#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

// Makes address, of remote's connection line, remote's address when the model's check passes
// it; else false with its refusal in refusal as reading gives it: a domain name is refused as
// one, any other address in the model's words.
bool checkAddress(RemoteMedia& remote, std::string_view address, StreamConfig::Result& refusal);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_READ_REMOTE_ADDRESS_H
