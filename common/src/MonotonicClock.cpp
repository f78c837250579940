#include <velmora/rune/MonotonicClock.h>

#include "internal/Log.h"

#include <velmora/utilities/Result.h>

#include <cerrno>
#include <ctime>

namespace velmora {
namespace rune {
namespace common {

int64_t MonotonicClock::getTime() {
    timespec now;
    const int result = clock_gettime(CLOCK_MONOTONIC, &now);
    if (result != 0) {
        const utilities::result::Result<utilities::result::ErrnoTrait> error(errno);
        VELMORA_ASSERT(result == 0,
                       "clock_gettime failed " << error.mCode << " " << error.format());
    }
    // 32-bit arithmetic on every platform: the value wraps every 2^32 ms, and clients rely on
    // it behaving the same on the host and on the device.
    const uint32_t milliseconds =
        static_cast<uint32_t>(now.tv_sec) * 1000u + static_cast<uint32_t>(now.tv_nsec / 1000000);
    return static_cast<int32_t>(milliseconds);
}

}  // namespace common
}  // namespace rune
}  // namespace velmora
