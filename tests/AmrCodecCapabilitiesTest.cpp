#include <velmora/rune/Amr.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using velmora::rune::AmrCodecCapabilities;
using velmora::rune::AmrRate;
using velmora::rune::BandTypeWb;
using velmora::rune::CodecIdAmr;
using velmora::rune::ModeChangeCapability;
using velmora::rune::ModeChangeCapabilityAnyFrameOnly;
using velmora::rune::ModeChangePeriod;
using velmora::rune::ModeChangePeriodEveryOtherFrame;

namespace {

std::vector<int> ratesOf(const AmrCodecCapabilities& capabilities) {
    std::vector<int> rates;
    for (unsigned i = 0; i < capabilities.getSupportedAmrRateCount(); ++i) {
        rates.push_back(capabilities.getSupportedAmrRate(i));
    }
    return rates;
}

AmrCodecCapabilities makeSource() {
    AmrCodecCapabilities source;
    source.setPacketTime(40);
    source.setCrcModeSupport(true);
    source.setModeChangeCapability(ModeChangeCapabilityAnyFrameOnly);
    source.addSupportedAmrRate(AmrRate(5));
    return source;
}

}  // namespace

// Unlike a configuration, redundancy is offered by default, up to 220.
TEST(AmrCodecCapabilitiesTest, Defaults) {
    AmrCodecCapabilities capabilities;
    EXPECT_EQ(CodecIdAmr, capabilities.getCodecId());
    EXPECT_EQ(BandTypeWb, capabilities.getBandType());
    EXPECT_EQ(20u, capabilities.getPacketTime());
    EXPECT_EQ(240u, capabilities.getMaxPacketTime());
    EXPECT_EQ(1u, capabilities.getChannelCount());
    EXPECT_TRUE(capabilities.isDTXModeSupported());
    EXPECT_FALSE(
        capabilities.isOctetAlignModeRequired() || capabilities.isRateAdaptationModeSupported() ||
        capabilities.isModeChangeNeighborRequired() || capabilities.isCrcModeSupported() ||
        capabilities.isRobustSortingModeSupported() || capabilities.isInterleavingModeSupported());
    EXPECT_EQ(0, capabilities.getModeChangePeriod());
    EXPECT_EQ(1, capabilities.getModeChangeCapability());
    EXPECT_EQ(0u, capabilities.getSupportedAmrRateCount());
    EXPECT_TRUE(capabilities.isRdcyModeSupported());
    EXPECT_EQ(220, capabilities.getMaxSupportedRdcy());
    capabilities.setRdcyModeSupport(false);
    EXPECT_EQ(-1, capabilities.getMaxSupportedRdcy());
    capabilities.setRdcyModeSupport(true);
    EXPECT_EQ(220, capabilities.getMaxSupportedRdcy());
}

TEST(AmrCodecCapabilitiesTest, RefusedModeChangeSettingsKeepTheirValue) {
    AmrCodecCapabilities capabilities;
    for (const int value : {2, -1}) {
        EXPECT_EQ("Invalid Param (Code 1002): Bad mode change period: " + std::to_string(value),
                  capabilities.setModeChangePeriod(static_cast<ModeChangePeriod>(value)).format());
        EXPECT_EQ("Invalid Param (Code 1002): Bad mode change capability: " + std::to_string(value),
                  capabilities.setModeChangeCapability(static_cast<ModeChangeCapability>(value))
                      .format());
    }
    EXPECT_EQ(0, capabilities.getModeChangePeriod());
    EXPECT_EQ(1, capabilities.getModeChangeCapability());
    EXPECT_TRUE(capabilities.setModeChangePeriod(ModeChangePeriodEveryOtherFrame).isSuccess());
    EXPECT_TRUE(capabilities.setModeChangeCapability(ModeChangeCapabilityAnyFrameOnly).isSuccess());
    EXPECT_EQ(1, capabilities.getModeChangePeriod());
    EXPECT_EQ(0, capabilities.getModeChangeCapability());
}

TEST(AmrCodecCapabilitiesTest, RateListHoldsEachValidRateOnce) {
    AmrCodecCapabilities capabilities;
    for (const int rate : {1, 1, 0, 8}) {
        EXPECT_TRUE(capabilities.addSupportedAmrRate(static_cast<AmrRate>(rate)).isSuccess());
    }
    EXPECT_EQ("Invalid Param (Code 1002): Bad amr rate: 9",
              capabilities.addSupportedAmrRate(static_cast<AmrRate>(9)).format());
    EXPECT_EQ(std::vector<int>({1, 0, 8}), ratesOf(capabilities));
    EXPECT_EQ(-1, capabilities.getSupportedAmrRate(3));
    capabilities.clearSupportedAmrRateVector();
    EXPECT_EQ(0u, capabilities.getSupportedAmrRateCount());
}

TEST(AmrCodecCapabilitiesTest, EqualityComparesEveryFieldAndRateOrder) {
    std::vector<AmrCodecCapabilities> capabilities(16);
    for (AmrCodecCapabilities& c : capabilities) {
        c.addSupportedAmrRate(AmrRate(7));
        c.addSupportedAmrRate(AmrRate(2));
    }
    capabilities[1].setChannelCount(2);
    capabilities[2].setOctetAlignModeRequired(true);
    capabilities[3].setDTXModeSupport(false);
    capabilities[4].setRdcyModeSupport(false);
    capabilities[5].setMaxSupportedRdcy(100);
    capabilities[6].clearSupportedAmrRateVector();
    capabilities[6].addSupportedAmrRate(AmrRate(2));
    capabilities[6].addSupportedAmrRate(AmrRate(7));
    capabilities[7].setRateAdaptationModeSupport(true);
    capabilities[8].setModeChangePeriod(ModeChangePeriodEveryOtherFrame);
    capabilities[9].setModeChangeCapability(ModeChangeCapabilityAnyFrameOnly);
    capabilities[10].setModeChangeNeighborRequired(true);
    capabilities[11].setCrcModeSupport(true);
    capabilities[12].setRobustSortingModeSupport(true);
    capabilities[13].setInterleavingModeSupport(true);
    // Both hide their maximum, but the stored values differ.
    capabilities[14].setRdcyModeSupport(false);
    capabilities[14].setMaxSupportedRdcy(100);
    capabilities[15].addSupportedAmrRate(AmrRate(0));
    for (size_t i = 0; i < capabilities.size(); ++i) {
        for (size_t j = 0; j < capabilities.size(); ++j) {
            EXPECT_EQ(i == j, capabilities[i] == capabilities[j]) << i << " " << j;
            EXPECT_EQ(i != j, capabilities[i] != capabilities[j]) << i << " " << j;
        }
    }
}

TEST(AmrCodecCapabilitiesTest, CopiesCarryEveryField) {
    AmrCodecCapabilities source = makeSource();
    const std::unique_ptr<AmrCodecCapabilities> clone(source.clone());
    AmrCodecCapabilities assigned;
    assigned = source;
    const AmrCodecCapabilities& self = source;
    source = self;
    for (const AmrCodecCapabilities* copy : {clone.get(), &assigned, &source}) {
        EXPECT_TRUE(*copy == makeSource());
        EXPECT_EQ(std::vector<int>({5}), ratesOf(*copy));
    }
}
