#include "write/StreamMedia.h"

#include <velmora/rune/Amr.h>

#include "amr/AmrAnswer.h"
#include "write/PreconditionLines.h"

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// The downlink codecs, or the uplink codecs when there are none. The count is read once: the
// model's lists answer through calls.
struct ListedCodecs {
    explicit ListedCodecs(const StreamConfig& stream)
        : stream(stream),
          downlink(stream.getDownlinkCodecCount() > 0),
          count(downlink ? stream.getDownlinkCodecCount() : stream.getUplinkCodecCount()) {}

    const CodecConfig& operator[](unsigned int i) const {
        return *(downlink ? stream.getDownlinkCodec(i) : stream.getUplinkCodec(i));
    }

    const StreamConfig& stream;
    const bool downlink;
    const unsigned int count;
};

}  // namespace

void writeStreamMedia(LineWriter& writer, const StreamConfig& stream, std::string_view localIp,
                      int localPort, const AmrFmtpText* amrFmtp, EventsFmtp events,
                      const PreconditionRows* preconditions) {
    const ListedCodecs codecs(stream);
    const RtcpConfig& rtcp = stream.getRtcpConfig();
    const bool rtcpOn = stream.isRtcpEnabled();
    writer.audioMediaStart(localPort, stream.getRtpProfile());
    for (unsigned int i = 0; i < codecs.count; ++i) {
        writer.text(" ").integer(codecs[i].getPayloadType());
    }
    writer.end();
    writer.connection(localIp);
    writer.bandwidths(rtcp.getAs(), rtcpOn ? rtcp.getRs() : 0, rtcpOn ? rtcp.getRr() : 0);
    for (unsigned int i = 0; i < codecs.count; ++i) {
        const CodecConfig& codec = codecs[i];
        writer.rtpmap(codec.getPayloadType(), codec.getCodecId(), codec.getBandType());
        if (codec.getCodecId() == CodecIdAmr) {
            writeAmrFmtp(writer, codec.getPayloadType(),
                         amrFmtp != nullptr
                             ? *amrFmtp
                             : configuredFmtp(static_cast<const AmrCodecConfig&>(codec)));
        } else if (events == EventsFmtp::Offered) {
            writer.eventsFmtp(codec.getPayloadType());
        }
    }
    if (codecs.count > 0) {
        const CodecConfig& first = codecs[0];
        writer.packetTimes(first.getPacketTime(), first.getMaxPacketTime());
    }
    if (preconditions != nullptr) {
        writePreconditions(writer, *preconditions);
    }
    writer.direction(stream.getDirection());
    if (rtcp.isReducedSizeMode()) {
        writer.attribute("rtcp-rsize");
    }
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
