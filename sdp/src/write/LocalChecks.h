// Checks of the values this side writes into a body: its endpoint and its origin.
#ifndef VELMORA_RUNE_SDP_SRC_WRITE_LOCAL_CHECKS_H
#define VELMORA_RUNE_SDP_SRC_WRITE_LOCAL_CHECKS_H

#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Sdp.h>

#include <string>

namespace velmora {
namespace rune {
namespace sdp {

// The model's refusal of a local address or port, as it refuses a remote one: a port is
// 1024-65535.
StreamConfig::Result checkLocalEndpoint(const std::string& localIp, int localPort);
// 1002 "Bad origin username" for a username that is empty or holds a blank or a control byte.
StreamConfig::Result checkOrigin(const Origin& origin);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_WRITE_LOCAL_CHECKS_H
