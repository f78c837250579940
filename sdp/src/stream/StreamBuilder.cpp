#include "stream/StreamBuilder.h"

#include <array>
#include <string_view>
#include <typeinfo>

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

// One of a stream's codec lists. Called, not taken by address: an inline member's address would
// add it to the library's exported symbols.
class CodecList {
  public:
    CodecList(StreamConfig& stream, bool uplink) : mStream(stream), mUplink(uplink) {}

    unsigned int count() const {
        return mUplink ? mStream.getUplinkCodecCount() : mStream.getDownlinkCodecCount();
    }
    CodecConfig* get(unsigned int index) const {
        return mUplink ? mStream.getUplinkCodec(index) : mStream.getDownlinkCodec(index);
    }
    void clear() {
        if (mUplink) {
            mStream.clearUplinkCodecs();
        } else {
            mStream.clearDownlinkCodecs();
        }
    }
    // The reader refused repeated payload types, so the list accepts every codec.
    void add(const CodecConfig& codec) {
        (void)(mUplink ? mStream.addUplinkCodec(codec) : mStream.addDownlinkCodec(codec));
    }

  private:
    StreamConfig& mStream;
    bool mUplink;
};

// Makes held a copy of codec when both are Codecs, keeping held's memory; false otherwise.
template <typename Codec>
bool copyAs(const CodecConfig& codec, CodecConfig& held) {
    if (typeid(codec) != typeid(Codec) || typeid(held) != typeid(Codec)) {
        return false;
    }
    static_cast<Codec&>(held) = static_cast<const Codec&>(codec);
    return true;
}

// Makes held a copy of codec when both are of the same class of the library's; false otherwise.
// The codec id tells which class to compare with: a type comparison that fails costs more.
bool copyInPlace(const CodecConfig& codec, CodecConfig* held) {
    if (held == nullptr || held->getCodecId() != codec.getCodecId()) {
        return false;
    }
    switch (codec.getCodecId()) {
        case CodecIdAmr:
            return copyAs<AmrCodecConfig>(codec, *held);
        case CodecIdDtmf:
            return copyAs<DtmfCodecConfig>(codec, *held);
        default:
            return false;
    }
}

// Makes list hold copies of codecs: in place when it holds as many of the same classes (a
// dialog's stream negotiated again), else anew.
template <size_t Size>
void fill(CodecList list, const std::array<CodecConfig*, Size>& codecs, unsigned int count) {
    const unsigned int held = list.count();
    unsigned int kept = 0;
    while (held == count && kept < count && copyInPlace(*codecs[kept], list.get(kept))) {
        ++kept;
    }
    if (held == count && kept == count) {
        return;
    }
    // A new stream's lists are empty already.
    if (held > 0) {
        list.clear();
    }
    for (unsigned int i = 0; i < count; ++i) {
        list.add(*codecs[i]);
    }
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

void placeAgreedCodecs(AmrCodecConfig& amr, const RemoteFormat& amrFormat,
                       const RemoteFormat* events, std::optional<uint32_t> packetTime,
                       std::optional<uint32_t> maxPacketTime, StreamConfig& stream) {
    DtmfCodecConfig dtmf = events != nullptr ? telephoneEvent(*events) : DtmfCodecConfig();
    std::array<CodecConfig*, 2> codecs{&amr, &dtmf};
    const unsigned int count = events != nullptr ? 2 : 1;
    // Both point into one m= line's formats.
    if (events != nullptr && events < &amrFormat) {
        codecs = {&dtmf, &amr};
    }
    for (unsigned int i = 0; i < count; ++i) {
        if (packetTime) {
            codecs[i]->setPacketTime(*packetTime);
        }
        if (maxPacketTime) {
            codecs[i]->setMaxPacketTime(*maxPacketTime);
        }
    }
    const bool downlink = stream.hasDownlink() || !stream.hasUplink();
    fill(CodecList(stream, true), codecs, stream.hasUplink() ? count : 0);
    fill(CodecList(stream, false), codecs, downlink ? count : 0);
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
