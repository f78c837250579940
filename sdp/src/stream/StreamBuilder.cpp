#include "stream/StreamBuilder.h"

#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

StreamConfig::Direction mirror(StreamConfig::Direction direction) {
    switch (direction) {
        case StreamConfig::DirectionSendOnly:
            return StreamConfig::DirectionReceiveOnly;
        case StreamConfig::DirectionReceiveOnly:
            return StreamConfig::DirectionSendOnly;
        default:
            return direction;
    }
}

StreamConfig::Direction limit(StreamConfig::Direction direction, StreamConfig::Direction allowed) {
    // The values are the bits send (1) and receive (2).
    static_assert(StreamConfig::DirectionSendOnly == 1 && StreamConfig::DirectionReceiveOnly == 2 &&
                      StreamConfig::DirectionFullDuplex == 3,
                  "directions are bit sets");
    return static_cast<StreamConfig::Direction>(direction & allowed);
}

namespace {

void setDirectionAndHold(StreamConfig& stream, StreamConfig::Direction direction,
                         std::string_view remoteIp) {
    // Its Result costs more than the comparison.
    if (stream.getDirection() != direction) {
        (void)stream.setDirection(direction);
    }
    // Given, not read back: getRemoteIp() returns a copy.
    stream.setHoldState(direction != StreamConfig::DirectionFullDuplex || remoteIp == "0.0.0.0" ||
                        remoteIp == "::");
}

}  // namespace

void startStream(const RemoteMedia& remote, StreamConfig& stream, StreamConfig::Direction allowed) {
    // The reader checked the address and the port with the model's own checks.
    (void)stream.setRemoteIp(remote.address);
    // Every other field back to its default in place: a copy of a default stream would copy
    // its strings and lists.
    stream.muteUplink(StreamConfig::DEFAULT_MUTED);
    stream.setRtcp(StreamConfig::DEFAULT_RTCP_ENABLED);
    stream.setRtcpConfig(RtcpConfig());
    stream.clearUplinkCodecs();
    stream.clearDownlinkCodecs();
    stream.setPdpContext(StreamConfig::PdpContext());
    // A stream negotiated again mostly keeps its port; the setter's Result costs more.
    if (stream.getRemoteRtpPort() != remote.port) {
        (void)stream.setRemoteRtpPort(remote.port);
    }
    setDirectionAndHold(stream, limit(mirror(remote.direction), allowed), remote.address);
    stream.setRtpProfile(remote.profile);
}

void setReadRtcp(const RemoteMedia& remote, StreamConfig& stream) {
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
    stream.setRtcpConfig(rtcp);
    if (remote.rs == 0U && remote.rr == 0U) {
        stream.setRtcp(false);
    }
}

DtmfCodecConfig telephoneEvent(const RemoteFormat& format) {
    DtmfCodecConfig dtmf;
    // Its Result costs more than the comparison.
    if (dtmf.getBandType() != format.band) {
        (void)dtmf.setBandType(format.band);
    }
    dtmf.setPayloadType(format.payloadType);
    return dtmf;
}

void placeCodec(CodecConfig& codec, std::optional<uint32_t> packetTime,
                std::optional<uint32_t> maxPacketTime, StreamConfig& stream) {
    if (packetTime) {
        codec.setPacketTime(*packetTime);
    }
    if (maxPacketTime) {
        codec.setMaxPacketTime(*maxPacketTime);
    }
    // The reader refused repeated payload types, so the lists accept every codec.
    if (stream.hasUplink()) {
        (void)stream.addUplinkCodec(codec);
    }
    if (stream.hasDownlink() || !stream.hasUplink()) {
        (void)stream.addDownlinkCodec(codec);
    }
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
