#include "stream/AnswerTerms.h"

#include "syntax/SdpLine.h"

#include <algorithm>

namespace velmora {
namespace rune {
namespace sdp {

PacketTimes answeredPacketTimes(const RemoteMedia& offered, const CodecCapabilities& local) {
    PacketTimes times;
    times.maxPacketTime = std::min(offered.maxPacketTime.value_or(local.getMaxPacketTime()),
                                   local.getMaxPacketTime());
    times.packetTime =
        std::min(offered.packetTime.value_or(local.getPacketTime()), times.maxPacketTime);
    return times;
}

StreamConfig::Result checkAsStream(const CodecConfig& codec) {
    // The codec's own check decides; the stream's words its refusal.
    if (codec.check().isSuccess()) {
        return successResult();
    }
    // An inactive stream needs codecs on neither list: only the codec's own check can refuse.
    StreamConfig probe;
    (void)probe.setDirection(StreamConfig::DirectionInactive);
    (void)probe.addDownlinkCodec(codec);
    return probe.check();
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
