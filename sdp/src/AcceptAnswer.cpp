// Accepting the answer to an offer this side sent.
#include <velmora/rune/sdp/Sdp.h>

#include "Refusal.h"

namespace velmora {
namespace rune {
namespace sdp {

// TODO(roles): not written yet.
Result acceptAnswer(const std::string&, const std::string&, StreamConfig&) {
    return refusal(StreamConfig::UnknownError, "Not written yet");
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
