#include <velmora/rune/Amr.h>

#include <gtest/gtest.h>

#include <cstdint>

using namespace velmora::rune;

// AMR-WB has nine modes (0 to 8), AMR's eight are a subset; mode change settings are 0 or 1.
TEST(AmrRateTest, ValidValues) {
    for (int value = -2; value <= 10; ++value) {
        const bool setting = value == 0 || value == 1;
        EXPECT_EQ(value >= 0 && value <= 8, isAmrRateValid(static_cast<AmrRate>(value))) << value;
        EXPECT_EQ(setting, isModeChangePeriodValid(static_cast<ModeChangePeriod>(value))) << value;
        EXPECT_EQ(setting, isModeChangeCapabilityValid(static_cast<ModeChangeCapability>(value)))
            << value;
    }
    EXPECT_FALSE(isAmrRateValid(static_cast<AmrRate>(INT32_MIN)));
}
