// Milliseconds of monotonic time, for the media engine's timers.
//
// The value is computed in 32 bits and sign-extended: it wraps after about 24.8 days of uptime
// (2147483648 ms), so callers compare differences, not absolute values.
#ifndef VELMORA_RUNE_MONOTONIC_CLOCK_H
#define VELMORA_RUNE_MONOTONIC_CLOCK_H

#include <cstdint>

// The library exports what its public headers declare and hides the rest.
#pragma GCC visibility push(default)

namespace velmora {
namespace rune {
namespace common {

class MonotonicClock {
  public:
    // Aborts the process when the system clock cannot be read.
    static int64_t getTime();
};

}  // namespace common
}  // namespace rune
}  // namespace velmora

#pragma GCC visibility pop

#endif  // VELMORA_RUNE_MONOTONIC_CLOCK_H
