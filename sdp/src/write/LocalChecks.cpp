#include "write/LocalChecks.h"

#include <velmora/rune/Utils.h>

#include "internal/Results.h"
#include "syntax/SdpLine.h"

namespace velmora {
namespace rune {
namespace sdp {

namespace {

const int kMaxPort = 65535;

}  // namespace

StreamConfig::Result checkLocalEndpoint(const std::string& localIp, int localPort) {
    const bool goodAddress = Utils::isValidIpAddress(localIp);
    if (goodAddress && localPort >= 1 && localPort <= kMaxPort) {
        return successResult();
    }
    // The model's words; it refuses privileged ports for remote ends, not for this one.
    // The caller's own values, not network input: the message stays unquoted.
    StreamConfig probe;
    return goodAddress ? probe.setRemoteRtpPort(localPort) : probe.setRemoteIp(localIp);
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
