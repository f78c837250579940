#include "DefaultCapabilities.h"

#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>

namespace velmora {
namespace rune {
namespace tools {

StreamCapabilities defaultCapabilities() {
    StreamCapabilities local;
    AmrCodecCapabilities amr;
    local.addCodecCapabilities(amr);
    amr.setBandType(BandTypeNb);
    local.addCodecCapabilities(amr);
    DtmfCodecCapabilities events;
    local.addCodecCapabilities(events);
    events.setBandType(BandTypeNb);
    local.addCodecCapabilities(events);
    local.addRtpProfile(RtpProfileAvp);
    local.addRtpProfile(RtpProfileAvpf);
    return local;
}

}  // namespace tools
}  // namespace rune
}  // namespace velmora
