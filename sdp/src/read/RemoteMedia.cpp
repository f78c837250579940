#include "read/RemoteMedia.h"

namespace velmora {
namespace rune {
namespace sdp {

const RemoteFormat* RemoteMedia::find(int payloadType) const {
    for (const RemoteFormat& format : *this) {
        if (format.payloadType == payloadType) {
            return &format;
        }
    }
    return nullptr;
}

bool isSupportedTransport(std::string_view protocol) {
    return protocol == "RTP/AVP" || protocol == "RTP/AVPF";
}

bool qualifies(const MediaSection& section) {
    return section.isActiveAudio() && isSupportedTransport(section.protocol);
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
