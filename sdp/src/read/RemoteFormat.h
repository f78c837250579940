// One format of an m= line as its sender described it: payload type, what its a=rtpmap names,
// and its a=fmtp, read as AMR parameters for an AMR format.
#ifndef VELMORA_RUNE_SDP_SRC_READ_REMOTE_FORMAT_H
#define VELMORA_RUNE_SDP_SRC_READ_REMOTE_FORMAT_H

#include <velmora/rune/CodecId.h>

#include "amr/AmrFmtp.h"
#include "syntax/SdpLine.h"

#include <cstdint>
#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

const int kMaxPayloadType = 127;

struct RemoteFormat {
    enum Kind : uint8_t { Amr, TelephoneEvent, Unsupported };

    int payloadType = 0;
    Kind kind = Unsupported;
    // For AMR and telephone-event.
    BandType band = BandTypeNb;
    // The a=rtpmap text after the payload type; empty when there is none.
    std::string_view encoding;
    // The a=fmtp line, and its text after the payload type; no line when there is none.
    Line fmtp;
    std::string_view fmtpText;

    // For AMR: the parameters of the a=fmtp; every default without one.
    AmrParameters amr;
};

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_READ_REMOTE_FORMAT_H
