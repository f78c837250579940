// Reading a remote description into a StreamConfig.
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/sdp/Sdp.h>

#include "AmrFmtp.h"
#include "AudioSection.h"
#include "syntax/SessionDescription.h"

namespace velmora {
namespace rune {
namespace sdp {

namespace {

RtcpConfig rtcpConfig(const RemoteMedia& remote) {
    RtcpConfig rtcp;
    if (remote.as) {
        rtcp.setAs(*remote.as);
    }
    if (remote.rs) {
        rtcp.setRs(*remote.rs);
    }
    if (remote.rr) {
        rtcp.setRr(*remote.rr);
    }
    rtcp.setReducedSizeMode(remote.reducedSize);
    return rtcp;
}

void addCodec(CodecConfig& codec, const RemoteMedia& remote, StreamConfig& stream) {
    if (remote.packetTime) {
        codec.setPacketTime(*remote.packetTime);
    }
    if (remote.maxPacketTime) {
        codec.setMaxPacketTime(*remote.maxPacketTime);
    }
    placeCodec(codec, stream);
}

}  // namespace

Result readRemoteDescription(const std::string& description, StreamConfig& stream,
                             std::vector<SkippedFormat>& skipped) {
    Description parsed;
    StreamConfig read;
    RemoteMedia remote;
    Result result = readRemoteMedia(description, parsed, read, remote);
    if (result.isFailure()) {
        return result;
    }
    (void)read.setDirection(mirror(remote.direction));
    read.setRtpProfile(remote.profile);
    read.setRtcpConfig(rtcpConfig(remote));
    if (remote.rs && remote.rr && *remote.rs == 0 && *remote.rr == 0) {
        read.setRtcp(false);
    }
    std::vector<SkippedFormat> left;
    for (const RemoteFormat& format : remote.formats) {
        if (format.kind == RemoteFormat::Amr) {
            AmrCodecConfig amr = makeAmrCodecConfig(format.amr, format.band, format.payloadType);
            addCodec(amr, remote, read);
        } else if (format.kind == RemoteFormat::TelephoneEvent) {
            DtmfCodecConfig dtmf;
            (void)dtmf.setBandType(format.band);
            dtmf.setPayloadType(format.payloadType);
            addCodec(dtmf, remote, read);
        } else {
            left.push_back(SkippedFormat{format.payloadType, std::string(format.encoding)});
        }
    }
    stream = read;
    skipped = left;
    return result;
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
