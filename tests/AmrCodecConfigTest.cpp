#include <velmora/rune/Amr.h>

#include "PlatformLog.h"
#include "ReportPattern.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

using velmora::rune::AmrCodecConfig;
using velmora::rune::AmrRate;
using velmora::rune::BandType;
using velmora::rune::BandTypeNb;
using velmora::rune::BandTypeWb;
using velmora::rune::ModeChangePeriodEveryOtherFrame;
using velmora::testing::assertionPattern;
using velmora::testing::platformLog;
using velmora::testing::PlatformLogMessage;

namespace {

const char kSource[] = "common/src/AmrCodecConfig.cpp";
const char kCondition[] = "it != mRatesRanks.end()";
const int kAndroidWarning = 5;

typedef AmrCodecConfig::AmrRatePreferenceComparator<BandTypeNb> NarrowBandComparator;
typedef AmrCodecConfig::AmrRatePreferenceComparator<BandTypeWb> WideBandComparator;

AmrCodecConfig makeConfig(BandType band, const std::vector<int>& rates) {
    AmrCodecConfig config;
    EXPECT_TRUE(config.setBandType(band).isSuccess());
    for (const int rate : rates) {
        EXPECT_TRUE(config.addAmrRate(static_cast<AmrRate>(rate)).isSuccess()) << rate;
    }
    return config;
}

// Orders the band's mode indexes (RFC 4867) with the comparator, and checks that the preferred
// rate of every non-empty subset is the one the comparator puts first.
template <typename Comparator>
std::vector<int> preferenceOrder(BandType band, int modes) {
    for (unsigned mask = 1; mask < (1u << modes); ++mask) {
        std::vector<int> rates;
        std::set<AmrRate, Comparator> ordered;
        for (int rate = 0; rate < modes; ++rate) {
            if (mask & (1u << rate)) {
                rates.push_back(rate);
                ordered.insert(static_cast<AmrRate>(rate));
            }
        }
        EXPECT_EQ(*ordered.begin(), makeConfig(band, rates).getPreferedAmrRate()) << mask;
    }
    std::set<AmrRate, Comparator> all;
    for (int rate = modes - 1; rate >= 0; --rate) {
        all.insert(static_cast<AmrRate>(rate));
    }
    return std::vector<int>(all.begin(), all.end());
}

}  // namespace

TEST(AmrCodecConfigTest, PreferenceOrderOfEachBand) {
    // AMR: 12.2, 7.40, 5.90, 4.75 kbit/s first; AMR-WB: 12.65, 8.85, 6.60 kbit/s first.
    EXPECT_EQ(std::vector<int>({7, 4, 2, 0, 1, 3, 5, 6}),
              preferenceOrder<NarrowBandComparator>(BandTypeNb, 8));
    EXPECT_EQ(std::vector<int>({2, 1, 0, 3, 4, 5, 6, 7, 8}),
              preferenceOrder<WideBandComparator>(BandTypeWb, 9));
    EXPECT_EQ(4, makeConfig(BandTypeNb, {0, 1, 4}).getPreferedAmrRate());
    EXPECT_EQ(0, makeConfig(BandTypeWb, {8, 3, 0}).getPreferedAmrRate());
    EXPECT_EQ(-1, makeConfig(BandTypeNb, {}).getPreferedAmrRate());
}

TEST(AmrCodecConfigDeathTest, UnrankedRateAborts) {
    const std::string narrowBand8 =
        assertionPattern(kSource, kCondition, "Invalid AMR mode:8 for band 8kHz");
    EXPECT_DEATH(NarrowBandComparator()(AmrRate(8), AmrRate(0)), narrowBand8);
    EXPECT_DEATH(NarrowBandComparator()(AmrRate(0), AmrRate(8)), narrowBand8);
    EXPECT_DEATH(WideBandComparator()(AmrRate(2), AmrRate(9)),
                 assertionPattern(kSource, kCondition, "Invalid AMR mode:9 for band 16kHz"));
    EXPECT_DEATH(makeConfig(BandTypeNb, {0, 8}).getPreferedAmrRate(), narrowBand8);
    EXPECT_DEATH(makeConfig(BandTypeNb, {8}).getPreferedAmrRate(), narrowBand8);
}

TEST(AmrCodecConfigTest, DefaultsAndTheirConstants) {
    EXPECT_EQ(BandTypeWb, AmrCodecConfig::DEFAULT_BAND_TYPE);
    EXPECT_EQ(98, AmrCodecConfig::DEFAULT_PAYLOAD_TYPE);
    EXPECT_EQ(20u, AmrCodecConfig::DEFAULT_PACKET_TIME);
    EXPECT_EQ(240u, AmrCodecConfig::DEFAULT_MAX_PACKET_TIME);
    EXPECT_EQ(1, AmrCodecConfig::DEFAULT_MAX_RDCY);
    EXPECT_EQ(0, AmrCodecConfig::DEFAULT_MODE_CHANGE_PERIOD);
    EXPECT_TRUE(AmrCodecConfig::DEFAULT_DTX_MODE_ENABLED);
    EXPECT_FALSE(AmrCodecConfig::DEFAULT_OCTET_ALIGN_ENABLED ||
                 AmrCodecConfig::DEFAULT_RDCY_ENABLED || AmrCodecConfig::DEFAULT_CRC_ENABLED ||
                 AmrCodecConfig::DEFAULT_ROBUST_SORTING_ENABLED ||
                 AmrCodecConfig::DEFAULT_INTERLEAVING_ENABLED ||
                 AmrCodecConfig::DEFAULT_MODE_CHANGE_NEIGHBOR_ENABLED);
    EXPECT_EQ(
        "    Codec: AMR (0)\n"
        "    BandType: 16kHz (1)\n"
        "    PayloadType: 98\n"
        "    PacketTime: 20\n"
        "    MaxPacketTime: 240\n"
        "    OctetAlignEnabled: 0\n"
        "    DtxModeEnabled: 1\n"
        "    RdcyEnabled: 0\n"
        "    MaxRdcy: 1\n"
        "    RateCount: 0\n"
        "    Rates: \n"
        "    CrcEnabled: 0\n"
        "    RobustSortingEnabled: 0\n"
        "    InterleavingEnabled: 0\n"
        "    ModeChangeNeighborEnabled: 0\n"
        "    ModeChangePeriod: 0\n",
        AmrCodecConfig().toString());
}

TEST(AmrCodecConfigTest, ToStringWritesEveryAmrField) {
    AmrCodecConfig config = makeConfig(BandTypeNb, {7, 2});
    config.setOctetAlignMode(true);
    config.setDTXMode(false);
    config.setMaxRdcy(40);
    config.setCrcMode(true);
    config.setInterleavingMode(true);
    config.setModeChangePeriod(ModeChangePeriodEveryOtherFrame);
    EXPECT_EQ(
        "    Codec: AMR (0)\n"
        "    BandType: 8kHz (0)\n"
        "    PayloadType: 98\n"
        "    PacketTime: 20\n"
        "    MaxPacketTime: 240\n"
        "    OctetAlignEnabled: 1\n"
        "    DtxModeEnabled: 0\n"
        "    RdcyEnabled: 0\n"
        "    MaxRdcy: 40\n"
        "    RateCount: 2\n"
        "    Rates: 7 2 \n"
        "    CrcEnabled: 1\n"
        "    RobustSortingEnabled: 0\n"
        "    InterleavingEnabled: 1\n"
        "    ModeChangeNeighborEnabled: 0\n"
        "    ModeChangePeriod: 1\n",
        config.toString());
}

TEST(AmrCodecConfigTest, AddAmrRateKeepsOrderAndRefusesBadRates) {
    AmrCodecConfig config = makeConfig(BandTypeNb, {7, 2, 7, 8});
    for (const int rate : {9, -1}) {
        EXPECT_EQ("Invalid Param (Code 1002): Bad amr rate: " + std::to_string(rate),
                  config.addAmrRate(static_cast<AmrRate>(rate)).format());
    }
    EXPECT_EQ(std::vector<AmrRate>({AmrRate(7), AmrRate(2), AmrRate(8)}),
              config.getSupportedAmrRates());
    EXPECT_EQ(-1, config.getAmrRate(3));
}

TEST(AmrCodecConfigTest, CheckReturnsTheFirstFailure) {
    AmrCodecConfig noPacketTime;
    noPacketTime.setPacketTime(0);
    EXPECT_EQ("Invalid Configuration (Code 1003): Packet time must be greater than 0",
              noPacketTime.check().format());
    EXPECT_EQ("Invalid Configuration (Code 1003): Amr rate list is empty.",
              AmrCodecConfig().check().format());
    EXPECT_EQ("Invalid Configuration (Code 1003): Invalid rate: 8",
              makeConfig(BandTypeNb, {0, 8, 7}).check().format());
    EXPECT_EQ("Success", makeConfig(BandTypeWb, {0, 8}).check().format());
}

TEST(AmrCodecConfigTest, CopiesCarryEveryField) {
    AmrCodecConfig source = makeConfig(BandTypeNb, {5, 1});
    source.setPacketTime(40);
    source.setModeChangeNeighbor(true);
    const std::string expected = source.toString();
    const std::unique_ptr<AmrCodecConfig> clone(source.clone());
    AmrCodecConfig assigned;
    assigned = source;
    const AmrCodecConfig& self = source;
    source = self;
    for (const AmrCodecConfig* copy : {clone.get(), &assigned, &source}) {
        EXPECT_EQ(expected, copy->toString());
    }
}

// Packet times, mode change settings and rates take no part.
TEST(AmrCodecConfigTest, Equality) {
    std::vector<AmrCodecConfig> configs(10, makeConfig(BandTypeWb, {2}));
    configs[1].setPayloadType(99);
    configs[2].setBandType(BandTypeNb);
    configs[3].setOctetAlignMode(true);
    configs[4].setDTXMode(false);
    configs[5].setRdcyMode(true);
    configs[6].setMaxRdcy(2);
    configs[7].setCrcMode(true);
    configs[8].setRobustSortingMode(true);
    configs[9].setInterleavingMode(true);
    for (size_t i = 0; i < configs.size(); ++i) {
        for (size_t j = 0; j < configs.size(); ++j) {
            EXPECT_EQ(i == j, configs[i] == configs[j]) << i << " " << j;
        }
    }
    AmrCodecConfig other = configs[0];
    other.setPacketTime(60);
    other.setModeChangeNeighbor(true);
    other.setModeChangePeriod(ModeChangePeriodEveryOtherFrame);
    EXPECT_TRUE(configs[0] == other);
}

TEST(AmrCodecConfigTest, DifferentRatesOnlyWarn) {
    const AmrCodecConfig expected = makeConfig(BandTypeWb, {7, 2});
    AmrCodecConfig otherPayload = makeConfig(BandTypeWb, {2});
    otherPayload.setPayloadType(99);
    platformLog().clear();
    ::testing::internal::CaptureStderr();
    EXPECT_TRUE(expected == makeConfig(BandTypeWb, {7, 2}));
    EXPECT_FALSE(expected == otherPayload);
    EXPECT_TRUE(expected == makeConfig(BandTypeWb, {2}));
    EXPECT_EQ(
        "W/ORLA Input AMR rates do not match; You may experience some wrong behaviour\n"
        "W/ORLA Input rates are: 2 \n"
        "W/ORLA Expected rates are: 7 2 \n",
        ::testing::internal::GetCapturedStderr());
    const std::vector<PlatformLogMessage> lines = {
        {kAndroidWarning, "ORLA",
         "Input AMR rates do not match; You may experience some wrong behaviour", 0},
        {kAndroidWarning, "ORLA", "Input rates are: 2 ", 0},
        {kAndroidWarning, "ORLA", "Expected rates are: 7 2 ", 0},
    };
    EXPECT_EQ(lines, platformLog());
}
