#include <velmora/rune/Amr.h>

#include <gtest/gtest.h>

#include <cstdint>

using velmora::rune::AmrRate;
using velmora::rune::isAmrRateValid;
using velmora::rune::isModeChangeCapabilityValid;
using velmora::rune::isModeChangePeriodValid;
using velmora::rune::ModeChangeCapability;
using velmora::rune::ModeChangePeriod;

// AMR-WB has nine modes (0 to 8); AMR's eight are a subset of the indexes.
TEST(AmrRateTest, ValidRatesAreTheAmrWbModeIndexes) {
    for (int rate = -2; rate <= 10; ++rate) {
        EXPECT_EQ(rate >= 0 && rate <= 8, isAmrRateValid(static_cast<AmrRate>(rate))) << rate;
    }
    EXPECT_FALSE(isAmrRateValid(static_cast<AmrRate>(INT32_MIN)));
}

TEST(AmrRateTest, ModeChangeSettingsAcceptZeroAndOne) {
    for (int value = -2; value <= 3; ++value) {
        const bool valid = value == 0 || value == 1;
        EXPECT_EQ(valid, isModeChangePeriodValid(static_cast<ModeChangePeriod>(value))) << value;
        EXPECT_EQ(valid, isModeChangeCapabilityValid(static_cast<ModeChangeCapability>(value)))
            << value;
    }
}
