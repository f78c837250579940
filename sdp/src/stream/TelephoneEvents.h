// Which telephone-event a stream keeps beside its AMR codec (RFC 4733; TS 26.114 annex G).
// Offers with AMR-WB often list telephone-event at 8000 Hz only: DTMF then goes at that rate
// rather than not at all.
#ifndef VELMORA_RUNE_SDP_SRC_STREAM_TELEPHONE_EVENTS_H
#define VELMORA_RUNE_SDP_SRC_STREAM_TELEPHONE_EVENTS_H

#include <velmora/rune/CodecId.h>

#include "read/RemoteMedia.h"

namespace velmora {
namespace rune {
namespace sdp {

// Among the telephone-events of remote that usable accepts: the first of band's clock rate,
// else the first of another rate; preferred instead when it is usable and of the rate chosen.
// Null when none is usable.
template <typename Usable>
const RemoteFormat* chooseEvents(const RemoteMedia& remote, BandType band,
                                 const RemoteFormat* preferred, Usable usable) {
    const RemoteFormat* sameRate = nullptr;
    const RemoteFormat* otherRate = nullptr;
    for (const RemoteFormat& format : remote) {
        if (format.kind != RemoteFormat::TelephoneEvent || !usable(format)) {
            continue;
        }
        const RemoteFormat*& first = format.band == band ? sameRate : otherRate;
        first = first == nullptr ? &format : first;
    }
    const RemoteFormat* chosen = sameRate != nullptr ? sameRate : otherRate;
    const bool keepPreferred = chosen != nullptr && preferred != nullptr &&
                               preferred->kind == RemoteFormat::TelephoneEvent &&
                               preferred->band == chosen->band && usable(*preferred);
    return keepPreferred ? preferred : chosen;
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_STREAM_TELEPHONE_EVENTS_H
