#include "write/LocalChecks.h"

#include <velmora/rune/Utils.h>

#include "internal/Results.h"
#include "syntax/SdpLine.h"

namespace velmora {
namespace rune {
namespace sdp {

StreamConfig::Result checkLocalEndpoint(const std::string& localIp, int localPort) {
    // Checked as the model checks a remote end, so that our own reader accepts what we write.
    if (Utils::isValidIpAddress(localIp) && Utils::isValidSocketPort(localPort)) {
        return successResult();
    }
    // The model's words. The caller's own values, not network input: the message stays unquoted.
    StreamConfig probe;
    StreamConfig::Result result = probe.setRemoteIp(localIp);
    return result.isFailure() ? result : probe.setRemoteRtpPort(localPort);
}

StreamConfig::Result checkOrigin(const Origin& origin) {
    bool good = !origin.username.empty();
    for (char c : origin.username) {
        good = good && static_cast<unsigned char>(c) > 0x20 && c != 0x7F;
    }
    return good ? successResult()
                : makeResult<StreamConfig::ResultTrait>(StreamConfig::InvalidParam,
                                                        "Bad origin username");
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
