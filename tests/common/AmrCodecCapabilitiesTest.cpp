#include <velmora/rune/Amr.h>

#include "ValueChecks.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

using namespace velmora::rune;

namespace {

typedef std::function<void(AmrCodecCapabilities&)> Change;

// One change per field, each away from the default value.
const std::vector<Change> kChanges = {
    [](AmrCodecCapabilities& c) { c.setBandType(BandTypeNb); },
    [](AmrCodecCapabilities& c) { c.setPacketTime(40); },
    [](AmrCodecCapabilities& c) { c.setMaxPacketTime(120); },
    [](AmrCodecCapabilities& c) { c.setChannelCount(2); },
    [](AmrCodecCapabilities& c) { c.setOctetAlignModeRequired(true); },
    [](AmrCodecCapabilities& c) { c.setDTXModeSupport(false); },
    [](AmrCodecCapabilities& c) { c.setRdcyModeSupport(false); },
    [](AmrCodecCapabilities& c) { c.setMaxSupportedRdcy(100); },
    [](AmrCodecCapabilities& c) { c.addSupportedAmrRate(AmrRate0); },
    [](AmrCodecCapabilities& c) { c.setRateAdaptationModeSupport(true); },
    [](AmrCodecCapabilities& c) { c.setModeChangePeriod(ModeChangePeriodEveryOtherFrame); },
    [](AmrCodecCapabilities& c) { c.setModeChangeCapability(ModeChangeCapabilityAnyFrameOnly); },
    [](AmrCodecCapabilities& c) { c.setModeChangeNeighborRequired(true); },
    [](AmrCodecCapabilities& c) { c.setCrcModeSupport(true); },
    [](AmrCodecCapabilities& c) { c.setRobustSortingModeSupport(true); },
    [](AmrCodecCapabilities& c) { c.setInterleavingModeSupport(true); },
};

AmrCodecCapabilities withRates(const std::vector<AmrRate>& rates,
                               const std::vector<Change>& changes = {}) {
    AmrCodecCapabilities capabilities;
    for (const AmrRate rate : rates) capabilities.addSupportedAmrRate(rate);
    for (const Change& change : changes) change(capabilities);
    return capabilities;
}

}  // namespace

// The defaults are those of the tool's offers and answers (max-red=220), and each change of
// kChanges is away from its default. Without redundancy the maximum reads -1, which runesdp
// writes as max-red=0.
TEST(AmrCodecCapabilitiesTest, NoRedundancyReadsMinusOne) {
    AmrCodecCapabilities c;
    c.setRdcyModeSupport(false);
    EXPECT_EQ(-1, c.getMaxSupportedRdcy());
}

TEST(AmrCodecCapabilitiesTest, RefusedSettingsKeepTheirValue) {
    AmrCodecCapabilities c = withRates({AmrRate1, AmrRate1, AmrRate0, AmrRate8});
    const std::string refused = "Invalid Param (Code 1002): Bad ";
    for (const int value : {2, -1}) {
        EXPECT_EQ(refused + "mode change period: " + std::to_string(value),
                  c.setModeChangePeriod(static_cast<ModeChangePeriod>(value)).format());
        EXPECT_EQ(refused + "mode change capability: " + std::to_string(value),
                  c.setModeChangeCapability(static_cast<ModeChangeCapability>(value)).format());
    }
    EXPECT_EQ(refused + "amr rate: 9", c.addSupportedAmrRate(static_cast<AmrRate>(9)).format());
    EXPECT_TRUE(c == withRates({AmrRate1, AmrRate0, AmrRate8}));
    EXPECT_EQ(AmrRate8, c.getSupportedAmrRate(2));
    EXPECT_EQ(AmrRateNone, c.getSupportedAmrRate(3));
    // kChanges sets the other valid value of each.
    EXPECT_TRUE(c.setModeChangePeriod(ModeChangePeriodAnyFrame).isSuccess());
    EXPECT_TRUE(c.setModeChangeCapability(ModeChangeCapabilityEveryOtherFrame).isSuccess());
}

// Every field counts, the order of the rates too, and the stored maximum redundancy even while
// redundancy is off. Copies carry every field.
TEST(AmrCodecCapabilitiesTest, EqualityAndCopiesTakeEveryField) {
    std::vector<AmrCodecCapabilities> capabilities = {withRates({AmrRate7, AmrRate2})};
    for (const Change& change : kChanges)
        capabilities.push_back(withRates({AmrRate7, AmrRate2}, {change}));
    // No redundancy, with another maximum.
    capabilities.push_back(withRates({AmrRate7, AmrRate2}, {kChanges[6], kChanges[7]}));
    capabilities.push_back(withRates({AmrRate2, AmrRate7}));
    velmora::testing::expectEqualIffSameIndex(capabilities);
    velmora::testing::expectCopiesEqual(withRates({AmrRate7, AmrRate2}, kChanges),
                                        AmrCodecCapabilities());
}
