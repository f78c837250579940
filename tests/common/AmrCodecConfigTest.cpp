#include <velmora/rune/Amr.h>

#include "PlatformLog.h"
#include "ReportPattern.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

using namespace velmora::rune;
using namespace velmora::testing;

namespace {

const int kAndroidWarning = 5;

// Each line indented by four spaces and ended by a newline, as codecs write their fields.
std::string lines(std::initializer_list<const char*> fields) {
    std::string text;
    for (const char* field : fields) text += std::string("    ") + field + "\n";
    return text;
}

typedef AmrCodecConfig::AmrRatePreferenceComparator<BandTypeNb> NarrowBandComparator;
typedef AmrCodecConfig::AmrRatePreferenceComparator<BandTypeWb> WideBandComparator;

AmrCodecConfig makeConfig(BandType band, const std::vector<int>& rates) {
    AmrCodecConfig config;
    EXPECT_TRUE(config.setBandType(band).isSuccess());
    for (const int rate : rates)
        EXPECT_TRUE(config.addAmrRate(static_cast<AmrRate>(rate)).isSuccess());
    return config;
}

// The band's mode indexes (RFC 4867) ordered by the comparator. The preferred rate of every
// non-empty subset must be the one the comparator puts first.
template <typename Comparator>
std::vector<int> preferenceOrder(BandType band, int modes) {
    std::vector<int> order;
    for (unsigned mask = 1; mask < (1u << modes); ++mask) {
        AmrCodecConfig config = makeConfig(band, {});
        std::set<AmrRate, Comparator> ordered;
        for (int rate = 0; rate < modes; ++rate) {
            if ((mask & (1u << rate)) == 0) continue;
            config.addAmrRate(static_cast<AmrRate>(rate));
            ordered.insert(static_cast<AmrRate>(rate));
        }
        EXPECT_EQ(*ordered.begin(), config.getPreferedAmrRate()) << mask;
        order.assign(ordered.begin(), ordered.end());  // every mode at the last mask
    }
    return order;
}

}  // namespace

TEST(AmrCodecConfigTest, PreferenceOrderOfEachBand) {
    // AMR: 12.2, 7.40, 5.90, 4.75 kbit/s first; AMR-WB: 12.65, 8.85, 6.60 kbit/s first.
    EXPECT_EQ(std::vector<int>({7, 4, 2, 0, 1, 3, 5, 6}),
              preferenceOrder<NarrowBandComparator>(BandTypeNb, 8));
    EXPECT_EQ(std::vector<int>({2, 1, 0, 3, 4, 5, 6, 7, 8}),
              preferenceOrder<WideBandComparator>(BandTypeWb, 9));
    EXPECT_EQ(AmrRateNone, makeConfig(BandTypeNb, {}).getPreferedAmrRate());
}

TEST(AmrCodecConfigDeathTest, UnrankedRateAborts) {
    const char source[] = "common/src/AmrCodecConfig.cpp";
    const char condition[] = "it != mRatesRanks.end()";
    const std::string narrowBand8 =
        assertionPattern(source, condition, "Invalid AMR mode:8 for band 8kHz");
    EXPECT_DEATH(NarrowBandComparator()(AmrRate8, AmrRate0), narrowBand8);
    EXPECT_DEATH(NarrowBandComparator()(AmrRate0, AmrRate8), narrowBand8);
    EXPECT_DEATH(WideBandComparator()(AmrRate2, static_cast<AmrRate>(9)),
                 assertionPattern(source, condition, "Invalid AMR mode:9 for band 16kHz"));
    EXPECT_DEATH(makeConfig(BandTypeNb, {0, 8}).getPreferedAmrRate(), narrowBand8);
    EXPECT_DEATH(makeConfig(BandTypeNb, {8}).getPreferedAmrRate(), narrowBand8);
}

// Rates keep the order they were added in, each once; bad ones are refused.
TEST(AmrCodecConfigTest, ToStringAndCopiesShowEveryField) {
    AmrCodecConfig source;
    EXPECT_EQ(
        lines({"Codec: AMR (0)", "BandType: 16kHz (1)", "PayloadType: 98", "PacketTime: 20",
               "MaxPacketTime: 240", "OctetAlignEnabled: 0", "DtxModeEnabled: 1", "RdcyEnabled: 0",
               "MaxRdcy: 1", "RateCount: 0", "Rates: ", "CrcEnabled: 0", "RobustSortingEnabled: 0",
               "InterleavingEnabled: 0", "ModeChangeNeighborEnabled: 0", "ModeChangePeriod: 0"}),
        source.toString());
    source = makeConfig(BandTypeNb, {7, 2, 7});
    for (const int rate : {9, -1})
        EXPECT_EQ("Invalid Param (Code 1002): Bad amr rate: " + std::to_string(rate),
                  source.addAmrRate(static_cast<AmrRate>(rate)).format());
    EXPECT_EQ(AmrRateNone, source.getAmrRate(2));
    source.setOctetAlignMode(true);
    source.setDTXMode(false);
    source.setMaxRdcy(40);
    source.setCrcMode(true);
    source.setInterleavingMode(true);
    source.setModeChangePeriod(ModeChangePeriodEveryOtherFrame);
    const std::string expected = lines(
        {"Codec: AMR (0)", "BandType: 8kHz (0)", "PayloadType: 98", "PacketTime: 20",
         "MaxPacketTime: 240", "OctetAlignEnabled: 1", "DtxModeEnabled: 0", "RdcyEnabled: 0",
         "MaxRdcy: 40", "RateCount: 2", "Rates: 7 2 ", "CrcEnabled: 1", "RobustSortingEnabled: 0",
         "InterleavingEnabled: 1", "ModeChangeNeighborEnabled: 0", "ModeChangePeriod: 1"});
    EXPECT_EQ(expected, source.toString());
    const std::unique_ptr<AmrCodecConfig> clone(source.clone());
    AmrCodecConfig assigned;
    assigned = source;
    const AmrCodecConfig& self = source;
    source = self;
    for (const AmrCodecConfig* copy : {clone.get(), &assigned, &source})
        EXPECT_EQ(expected, copy->toString());
}

TEST(AmrCodecConfigTest, CheckReturnsTheFirstFailure) {
    AmrCodecConfig noPacketTime;
    noPacketTime.setPacketTime(0);
    const std::string invalid = "Invalid Configuration (Code 1003): ";
    EXPECT_EQ(invalid + "Packet time must be greater than 0", noPacketTime.check().format());
    EXPECT_EQ(invalid + "Amr rate list is empty.", AmrCodecConfig().check().format());
    EXPECT_EQ(invalid + "Invalid rate: 8", makeConfig(BandTypeNb, {0, 8, 7}).check().format());
    EXPECT_EQ("Success", makeConfig(BandTypeWb, {0, 8}).check().format());
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
    for (size_t i = 0; i < configs.size(); ++i)
        for (size_t j = 0; j < configs.size(); ++j)
            EXPECT_EQ(i == j, configs[i] == configs[j]) << i << " " << j;
    AmrCodecConfig other = configs[0];
    other.setPacketTime(60);
    other.setMaxPacketTime(120);
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
    const std::vector<PlatformLogMessage> warnings = {
        {kAndroidWarning, "ORLA",
         "Input AMR rates do not match; You may experience some wrong behaviour", 0},
        {kAndroidWarning, "ORLA", "Input rates are: 2 ", 0},
        {kAndroidWarning, "ORLA", "Expected rates are: 7 2 ", 0}};
    EXPECT_EQ(warnings, platformLog());
}
