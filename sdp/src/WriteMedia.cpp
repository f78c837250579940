// Writing the local media description of a StreamConfig.
#include <velmora/rune/sdp/Sdp.h>

#include "write/LineWriter.h"
#include "write/LocalChecks.h"
#include "write/StreamMedia.h"

namespace velmora {
namespace rune {
namespace sdp {

std::string writeMediaDescription(const StreamConfig& stream, const std::string& localIp,
                                  int localPort) {
    std::string text;
    if (checkLocalEndpoint(localIp, localPort).isFailure()) {
        return text;
    }
    text.reserve(kBodyReserve);
    LineWriter writer(text);
    writeStreamMedia(writer, stream, localIp, localPort, nullptr);
    return text;
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
