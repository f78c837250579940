#include <velmora/rune/Amr.h>

#include <cstdint>

namespace velmora {
namespace rune {

// Unsigned comparisons, so that every negative value is refused too.

bool isAmrRateValid(AmrRate rate) {
    return static_cast<uint32_t>(rate) <= AmrRate8;
}

bool isModeChangePeriodValid(ModeChangePeriod period) {
    return static_cast<uint32_t>(period) <= ModeChangePeriodEveryOtherFrame;
}

bool isModeChangeCapabilityValid(ModeChangeCapability capability) {
    return static_cast<uint32_t>(capability) <= ModeChangeCapabilityEveryOtherFrame;
}

}  // namespace rune
}  // namespace velmora
