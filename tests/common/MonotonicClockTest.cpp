#include <velmora/rune/MonotonicClock.h>

#include "ReportPattern.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <tuple>

using velmora::rune::common::MonotonicClock;

namespace {

// What this program's clock_gettime answers while active; the system's clock otherwise.
struct FakeClock {
    bool active;
    int error;
    timespec now;
    clockid_t requested;
} fake{};

}  // namespace

extern "C" int clock_gettime(clockid_t clock, timespec* now) {
    if (!fake.active) return static_cast<int>(syscall(SYS_clock_gettime, clock, now));
    fake.requested = clock;
    *now = fake.now;
    if (fake.error != 0) errno = fake.error;
    return fake.error != 0 ? -1 : 0;
}

// Milliseconds of CLOCK_MONOTONIC, in 32 bits.
TEST(MonotonicClockTest, MillisecondsWrapIn32Bits) {
    const std::tuple<time_t, long, int64_t> cases[] = {{5, 999999999, 5999},
                                                       {2147483, 647000000, 2147483647},
                                                       {2147483, 648000000, INT32_MIN},
                                                       {4294967, 295000000, -1},
                                                       {4294967, 296000000, 0}};
    for (const auto& [seconds, nanoseconds, expected] : cases) {
        fake = {true, 0, {seconds, nanoseconds}, -1};
        EXPECT_EQ(expected, MonotonicClock::getTime()) << seconds << " s " << nanoseconds;
        EXPECT_EQ(CLOCK_MONOTONIC, fake.requested);
    }
    fake = FakeClock{};
}

TEST(MonotonicClockDeathTest, FailingClockAbortsWithTheErrnoText) {
    fake = {true, EINVAL, {}, -1};
    EXPECT_DEATH(
        MonotonicClock::getTime(),
        velmora::testing::assertionPattern(
            "common/src/MonotonicClock.cpp", "result == 0",
            "clock_gettime failed 22 " + std::string(std::strerror(EINVAL)) + " (Code 22)"));
    fake = FakeClock{};
}
