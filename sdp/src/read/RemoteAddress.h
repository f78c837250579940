// The remote address of a section as the model checks it, and its refusals as reading gives them.
#ifndef VELMORA_RUNE_SDP_SRC_READ_REMOTE_ADDRESS_H
#define VELMORA_RUNE_SDP_SRC_READ_REMOTE_ADDRESS_H

#include <velmora/rune/StreamConfig.h>

#include "read/RemoteMedia.h"

namespace velmora {
namespace rune {
namespace sdp {

// The model's check of remote's address, whose refusal is given as reading gives it.
StreamConfig::Result checkAddress(RemoteMedia& remote);

// The address refusal of remote when it has one and was not checked yet, else later: for a
// refusal that comes after the address.
StreamConfig::Result afterAddress(RemoteMedia& remote, StreamConfig::Result later);

// The refusal of an address that the model's setter refused with result.
StreamConfig::Result addressRefusal(const RemoteMedia& remote, StreamConfig::Result result);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_READ_REMOTE_ADDRESS_H
