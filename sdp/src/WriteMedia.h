// Writing a media description, with the AMR parameters either as the stream holds them or as
// the caller words them (an answer returns some of them as offered).
#ifndef VELMORA_RUNE_SDP_SRC_WRITE_MEDIA_H
#define VELMORA_RUNE_SDP_SRC_WRITE_MEDIA_H

#include <velmora/rune/Amr.h>
#include <velmora/rune/StreamConfig.h>

#include <functional>
#include <string>

namespace velmora {
namespace rune {
namespace sdp {

// The a=fmtp parameters of an AMR codec; empty text leaves the a=fmtp line out.
typedef std::function<std::string(const AmrCodecConfig&)> AmrParametersText;

// writeMediaDescription, with each AMR codec's parameters from parameters.
std::string writeMedia(const StreamConfig& stream, const std::string& localIp, int localPort,
                       const AmrParametersText& parameters);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_WRITE_MEDIA_H
