// Writing an offer from the local capabilities.
#include <velmora/rune/sdp/Sdp.h>

#include "Refusal.h"

namespace velmora {
namespace rune {
namespace sdp {

// TODO(roles): not written yet.
Result createOffer(const StreamCapabilities&, const std::string&, int, const Origin&,
                   std::string&) {
    return refusal(StreamConfig::UnknownError, "Not written yet");
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
