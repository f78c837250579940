// Reading a remote description into a StreamConfig.
#include <velmora/rune/Amr.h>
#include <velmora/rune/sdp/Sdp.h>

#include "amr/AmrFmtp.h"
#include "read/SectionReader.h"
#include "read/StaticPayloadTypes.h"
#include "stream/StreamBuilder.h"
#include "syntax/Printable.h"
#include "syntax/SessionDescription.h"

namespace velmora {
namespace rune {
namespace sdp {

Result readRemoteDescription(const std::string& description, StreamConfig& stream,
                             std::vector<SkippedFormat>& skipped) {
    Description parsed;
    RemoteMedia remote;
    Result result = readDescription(description, parsed, remote, SectionRule::Required);
    if (result.isFailure()) {
        return result;
    }
    // Nothing below refuses: the stream is built in place.
    startStream(remote, stream);
    // Every format read places its codec anew.
    stream.clearUplinkCodecs();
    stream.clearDownlinkCodecs();
    setReadRtcp(remote, stream);
    skipped.clear();
    AmrCodecConfig amr;
    for (const RemoteFormat& format : remote) {
        if (format.kind == RemoteFormat::Amr) {
            configureAmr(format.amr, format.amr.modes, format.band, format.payloadType, amr);
            placeCodec(amr, remote.packetTime, remote.maxPacketTime, stream);
        } else if (format.kind == RemoteFormat::TelephoneEvent) {
            DtmfCodecConfig dtmf = telephoneEvent(format);
            placeCodec(dtmf, remote.packetTime, remote.maxPacketTime, stream);
        } else {
            SkippedFormat left{format.payloadType, std::string()};
            appendQuoted(left.encoding, format.encoding.data() != nullptr
                                            ? format.encoding
                                            : staticEncoding(format.payloadType));
            skipped.push_back(std::move(left));
        }
    }
    return result;
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
