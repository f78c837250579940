#include <velmora/rune/MonotonicClock.h>

#include "PlatformLog.h"
#include "ReportPattern.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ctime>

using velmora::rune::common::MonotonicClock;
using velmora::testing::assertionPattern;

namespace {

// What this program's clock_gettime answers for CLOCK_MONOTONIC; the system's clock otherwise.
struct FakeClock {
    bool active = false;
    int error = 0;
    timespec now{};
    clockid_t requested = -1;
};

FakeClock fakeClock;

class MonotonicClockTest : public ::testing::Test {
  protected:
    void TearDown() override { fakeClock = FakeClock(); }

    static void fake(time_t seconds, long nanoseconds) {
        fakeClock.active = true;
        fakeClock.now.tv_sec = seconds;
        fakeClock.now.tv_nsec = nanoseconds;
    }
};

}  // namespace

extern "C" int clock_gettime(clockid_t clock, timespec* now) {
    if (!fakeClock.active) {
        return static_cast<int>(syscall(SYS_clock_gettime, clock, now));
    }
    fakeClock.requested = clock;
    if (fakeClock.error != 0) {
        errno = fakeClock.error;
        return -1;
    }
    *now = fakeClock.now;
    return 0;
}

TEST_F(MonotonicClockTest, ReadsTheMonotonicClockInMilliseconds) {
    fake(5, 999999999);
    EXPECT_EQ(5999, MonotonicClock::getTime());
    EXPECT_EQ(CLOCK_MONOTONIC, fakeClock.requested);
}

TEST_F(MonotonicClockTest, WrapsIn32Bits) {
    const struct {
        time_t seconds;
        long nanoseconds;
        int64_t expected;
    } cases[] = {
        {2147483, 647000000, 2147483647},
        {2147483, 648000000, -2147483648LL},
        {4294967, 295000000, -1},
        {4294967, 296000000, 0},
    };
    for (const auto& c : cases) {
        fake(c.seconds, c.nanoseconds);
        EXPECT_EQ(c.expected, MonotonicClock::getTime()) << c.seconds << " s " << c.nanoseconds;
    }
}

TEST_F(MonotonicClockTest, SuccessiveReadingsDoNotDecrease) {
    const int64_t first = MonotonicClock::getTime();
    EXPECT_LE(first, MonotonicClock::getTime());
}

TEST_F(MonotonicClockTest, FailingClockAbortsWithTheErrnoText) {
    fakeClock.active = true;
    fakeClock.error = EINVAL;
    EXPECT_DEATH(MonotonicClock::getTime(),
                 assertionPattern("common/src/MonotonicClock.cpp", "result == 0",
                                  "clock_gettime failed 22 " + std::string(std::strerror(EINVAL)) +
                                      " (Code 22)"));
}
