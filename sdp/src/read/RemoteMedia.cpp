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

void RemoteMedia::takePreconditionLine(const Line& line) {
    if (!firstPrecondition.exists()) {
        firstPrecondition = line;
    }
    lastPrecondition = line;
}

LineCursor RemoteMedia::preconditionLines() const {
    const char* const start = firstPrecondition.text.data();
    const char* const end = lastPrecondition.text.data() + lastPrecondition.text.size();
    return {std::string_view(start, static_cast<size_t>(end - start)), firstPrecondition.number};
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
