// Answering an offer inside a dialog: what Session adds to answerOffer.
#ifndef VELMORA_RUNE_SDP_SRC_DIALOG_ANSWER_H
#define VELMORA_RUNE_SDP_SRC_DIALOG_ANSWER_H

#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Sdp.h>
#include <velmora/rune/sdp/Session.h>

#include "StreamPlace.h"
#include "stream/AgreedFormats.h"

#include <string>

namespace velmora {
namespace rune {
namespace sdp {

struct DialogRules {
    // What this side wants; the answer's direction is the offer's mirrored, limited to it.
    StreamConfig::Direction localDirection = StreamConfig::DirectionFullDuplex;
    // Kept when the offer still lists them for their codecs and local accepts them.
    AgreedFormats agreed;
    // The offer's precondition rows are answered from this side's status and strength (RFC
    // 3312); the answered rows, seen from this side, go to preconditions when it is given.
    StreamConfig::Direction qosStatus = StreamConfig::DirectionInactive;
    Strength qosStrength = Strength::None;
    Preconditions* preconditions = nullptr;
    // Where the answered stream is, when given.
    StreamPlace* place = nullptr;
};

// answerOffer under rules; answerOffer itself answers under the default ones.
Result answerInDialog(const std::string& offer, const StreamCapabilities& local,
                      const std::string& localIp, int localPort, const Origin& origin,
                      const DialogRules& rules, StreamConfig& negotiated, std::string& answer);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_DIALOG_ANSWER_H
