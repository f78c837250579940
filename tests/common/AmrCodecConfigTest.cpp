#include <velmora/rune/Amr.h>

#include "DataText.h"
#include "ReportPattern.h"
#include "ValueChecks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

using namespace velmora::rune;
using velmora::testing::assertionPattern;
using velmora::testing::dataText;

namespace {

typedef AmrCodecConfig::AmrRatePreferenceComparator<BandTypeNb> NarrowBandComparator;
typedef AmrCodecConfig::AmrRatePreferenceComparator<BandTypeWb> WideBandComparator;

AmrCodecConfig makeConfig(BandType band, const std::vector<AmrRate>& rates) {
    AmrCodecConfig config;
    EXPECT_TRUE(config.setBandType(band).isSuccess());
    for (const AmrRate rate : rates) EXPECT_TRUE(config.addAmrRate(rate).isSuccess());
    return config;
}

typedef void (*Change)(AmrCodecConfig&);

// One change per field, each away from the default, and whether equality takes the field.
const std::pair<Change, bool> kChanges[] = {
    {[](AmrCodecConfig& c) { c.setPayloadType(97); }, true},
    {[](AmrCodecConfig& c) { c.setPacketTime(40); }, false},
    {[](AmrCodecConfig& c) { c.setMaxPacketTime(80); }, false},
    {[](AmrCodecConfig& c) { c.setOctetAlignMode(true); }, true},
    {[](AmrCodecConfig& c) { c.setDTXMode(false); }, true},
    {[](AmrCodecConfig& c) { c.setRdcyMode(true); }, true},
    {[](AmrCodecConfig& c) { c.setMaxRdcy(40); }, true},
    {[](AmrCodecConfig& c) { c.setCrcMode(true); }, true},
    {[](AmrCodecConfig& c) { c.setRobustSortingMode(true); }, true},
    {[](AmrCodecConfig& c) { c.setInterleavingMode(true); }, true},
    {[](AmrCodecConfig& c) { c.setModeChangeNeighbor(true); }, false},
    {[](AmrCodecConfig& c) { c.setModeChangePeriod(ModeChangePeriodEveryOtherFrame); }, false},
};

}  // namespace

// AMR: 12.2, 7.40, 5.90, 4.75 kbit/s first; AMR-WB: 12.65, 8.85, 6.60 kbit/s first. Rates added
// worst first are each preferred to all before them; added best first, the first stays preferred.
TEST(AmrCodecConfigTest, PreferenceOrderOfEachBand) {
    const std::vector<AmrRate> narrow = {AmrRate7, AmrRate4, AmrRate2, AmrRate0,
                                         AmrRate1, AmrRate3, AmrRate5, AmrRate6};
    const std::vector<AmrRate> wide = {AmrRate2, AmrRate1, AmrRate0, AmrRate3, AmrRate4,
                                       AmrRate5, AmrRate6, AmrRate7, AmrRate8};
    for (const auto& [band, order] :
         {std::tuple{BandTypeNb, narrow}, std::tuple{BandTypeWb, wide}}) {
        AmrCodecConfig config = makeConfig(band, {});
        EXPECT_EQ(AmrRateNone, config.getPreferedAmrRate());
        for (auto rate = order.rbegin(); rate != order.rend(); ++rate) {
            config.addAmrRate(*rate);
            EXPECT_EQ(*rate, config.getPreferedAmrRate()) << band;
        }
        EXPECT_EQ(order[0], makeConfig(band, order).getPreferedAmrRate()) << band;
    }
    std::vector<AmrRate> sorted = wide;
    std::sort(sorted.begin(), sorted.begin() + 8, NarrowBandComparator());
    EXPECT_EQ(narrow, std::vector<AmrRate>(sorted.begin(), sorted.begin() + 8));
    std::sort(sorted.begin(), sorted.end(), WideBandComparator());
    EXPECT_EQ(wide, sorted);
}

// One report per assertion: each operand of the comparators, and the preferred rate of a list
// holding nothing but an unranked rate.
TEST(AmrCodecConfigDeathTest, UnrankedRateAborts) {
    const char source[] = "common/src/AmrCodecConfig.cpp";
    const char condition[] = "it != mRatesRanks.end()";
    const std::string narrowBand8 =
        assertionPattern(source, condition, "Invalid AMR mode:8 for band 8kHz");
    EXPECT_DEATH(NarrowBandComparator()(AmrRate8, AmrRate0), narrowBand8);
    EXPECT_DEATH(WideBandComparator()(AmrRate2, static_cast<AmrRate>(9)),
                 assertionPattern(source, condition, "Invalid AMR mode:9 for band 16kHz"));
    EXPECT_DEATH(makeConfig(BandTypeNb, {AmrRate8}).getPreferedAmrRate(), narrowBand8);
}

// Rates keep the order they were added in, each once; bad ones are refused.
TEST(AmrCodecConfigTest, ToStringAndCopiesShowEveryField) {
    EXPECT_EQ(dataText("amr-default.txt", "\n"), AmrCodecConfig().toString());
    AmrCodecConfig source = makeConfig(BandTypeNb, {AmrRate7, AmrRate2, AmrRate7});
    for (const int rate : {9, -1})
        EXPECT_EQ("Invalid Param (Code 1002): Bad amr rate: " + std::to_string(rate),
                  source.addAmrRate(static_cast<AmrRate>(rate)).format());
    EXPECT_EQ(AmrRateNone, source.getAmrRate(2));
    for (const auto& change : kChanges) change.first(source);
    EXPECT_EQ(dataText("amr-every-field.txt", "\n"), source.toString());
    velmora::testing::expectCopiesEqual(source, makeConfig(BandTypeWb, {AmrRate1}));
}

// StreamConfigTest shows an empty rate list refused.
TEST(AmrCodecConfigTest, CheckReturnsTheFirstFailure) {
    AmrCodecConfig noPacketTime;
    noPacketTime.setPacketTime(0);
    const std::string invalid = "Invalid Configuration (Code 1003): ";
    EXPECT_EQ(invalid + "Packet time must be greater than 0", noPacketTime.check().format());
    EXPECT_EQ(invalid + "Invalid rate: 8",
              makeConfig(BandTypeNb, {AmrRate0, AmrRate8, AmrRate7}).check().format());
    EXPECT_EQ("Success", makeConfig(BandTypeWb, {AmrRate0, AmrRate8}).check().format());
}

// Packet times, mode change settings and rates take no part; different rates only warn.
TEST(AmrCodecConfigTest, Equality) {
    const AmrCodecConfig base = makeConfig(BandTypeWb, {AmrRate2});
    std::vector<AmrCodecConfig> configs = {base, makeConfig(BandTypeNb, {AmrRate2})};
    AmrCodecConfig other = makeConfig(BandTypeWb, {AmrRate7, AmrRate2});
    for (const auto& [change, compared] : kChanges)
        change(compared ? configs.emplace_back(base) : other);
    velmora::testing::expectEqualIffSameIndex(configs);
    ::testing::internal::CaptureStderr();
    EXPECT_FALSE(configs[1] == other);  // no warning when the codecs differ anyway
    EXPECT_TRUE(other == configs[0]);
    EXPECT_EQ(
        "W/ORLA Input AMR rates do not match; You may experience some wrong behaviour\n"
        "W/ORLA Input rates are: 2 \n"
        "W/ORLA Expected rates are: 7 2 \n",
        ::testing::internal::GetCapturedStderr());
}
