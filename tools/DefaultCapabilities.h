// The local capabilities rune-sdp offers and answers with; the SDP fuzzer starts from them too, so
// that it fuzzes what the tool does.
#ifndef VELMORA_RUNE_TOOLS_DEFAULT_CAPABILITIES_H
#define VELMORA_RUNE_TOOLS_DEFAULT_CAPABILITIES_H

#include <velmora/rune/StreamCapabilities.h>

namespace velmora {
namespace rune {
namespace tools {

// AMR-WB before AMR, each at its defaults and supporting every mode (an empty list of supported
// modes); telephone-event for both bands; RTP/AVP and RTP/AVPF; the default RTCP values.
StreamCapabilities defaultCapabilities();

}  // namespace tools
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_TOOLS_DEFAULT_CAPABILITIES_H
