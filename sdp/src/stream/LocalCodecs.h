// The kind of a local codec capability. The codec id rules out most capabilities; the library's
// own classes are then told by their type, at the cost of a comparison, and only a subclass of
// them needs a dynamic_cast, which costs more than the rest of any test that asks.
#ifndef VELMORA_RUNE_SDP_SRC_STREAM_LOCAL_CODECS_H
#define VELMORA_RUNE_SDP_SRC_STREAM_LOCAL_CODECS_H

#include <velmora/rune/Amr.h>
#include <velmora/rune/CodecCapabilities.h>
#include <velmora/rune/Dtmf.h>

#include <typeinfo>

namespace velmora {
namespace rune {
namespace sdp {

// Null unless caps, of codec id, is a Capabilities.
template <typename Capabilities>
const Capabilities* asKind(const CodecCapabilities* caps, CodecId id) {
    if (caps == nullptr || caps->getCodecId() != id) {
        return nullptr;
    }
    return typeid(*caps) == typeid(Capabilities) ? static_cast<const Capabilities*>(caps)
                                                 : dynamic_cast<const Capabilities*>(caps);
}

// Null unless caps is an AmrCodecCapabilities.
inline const AmrCodecCapabilities* asAmr(const CodecCapabilities* caps) {
    return asKind<AmrCodecCapabilities>(caps, CodecIdAmr);
}

// Null unless caps is a DtmfCodecCapabilities.
inline const DtmfCodecCapabilities* asEvents(const CodecCapabilities* caps) {
    return asKind<DtmfCodecCapabilities>(caps, CodecIdDtmf);
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_STREAM_LOCAL_CODECS_H
