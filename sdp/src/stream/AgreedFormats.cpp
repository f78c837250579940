#include "stream/AgreedFormats.h"

namespace velmora {
namespace rune {
namespace sdp {

namespace {

void take(const CodecConfig& codec, AgreedFormats& agreed) {
    AgreedFormat& format = codec.getCodecId() == CodecIdAmr ? agreed.amr : agreed.events;
    format = AgreedFormat{codec.getPayloadType(), codec.getBandType()};
}

bool isAgreed(const RemoteFormat& format, const AgreedFormat& agreed, RemoteFormat::Kind kind) {
    return format.kind == kind && format.band == agreed.band;
}

// A first offer has none agreed: nothing to look up.
const RemoteFormat* findListed(const RemoteMedia& remote, const AgreedFormat& agreed) {
    return agreed.payloadType < 0 ? nullptr : remote.find(agreed.payloadType);
}

bool isBoundElsewhere(const RemoteMedia& remote, const AgreedFormat& agreed,
                      RemoteFormat::Kind kind) {
    const RemoteFormat* format = findListed(remote, agreed);
    return format != nullptr && !isAgreed(*format, agreed, kind);
}

}  // namespace

AgreedFormats agreedFormats(const StreamConfig& stream) {
    AgreedFormats agreed;
    // Each active list holds all of them; an inactive stream keeps them on the downlink, so the
    // downlink, when it holds any, tells.
    const unsigned int downlink = stream.getDownlinkCodecCount();
    if (downlink > 0) {
        for (unsigned int i = 0; i < downlink; ++i) {
            take(*stream.getDownlinkCodec(i), agreed);
        }
        return agreed;
    }
    for (unsigned int i = 0; i < stream.getUplinkCodecCount(); ++i) {
        take(*stream.getUplinkCodec(i), agreed);
    }
    return agreed;
}

bool rebinds(const RemoteMedia& remote, const AgreedFormats& agreed) {
    return isBoundElsewhere(remote, agreed.amr, RemoteFormat::Amr) ||
           isBoundElsewhere(remote, agreed.events, RemoteFormat::TelephoneEvent);
}

const RemoteFormat* findAgreed(const RemoteMedia& remote, const AgreedFormat& agreed,
                               RemoteFormat::Kind kind) {
    const RemoteFormat* format = findListed(remote, agreed);
    return format != nullptr && isAgreed(*format, agreed, kind) ? format : nullptr;
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
