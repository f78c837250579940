#include <velmora/rune/CodecId.h>

#include <gtest/gtest.h>

#include <string>
#include <tuple>

using namespace velmora::rune;

// The codecs' texts show "AMR" and "DTMF".
TEST(CodecIdTest, UnknownCodecIds) {
    for (const int id : {-1, 2}) {
        EXPECT_FALSE(isCodecIdValid(static_cast<CodecId>(id))) << id;
        EXPECT_EQ(std::string("Unknown codec"), getCodecIdDescription(static_cast<CodecId>(id)));
    }
}

// A sampling rate of no band gives band -10, which is invalid.
TEST(CodecIdTest, BandsAndSamplingRates) {
    const std::tuple<int, bool, std::string, uint32_t> cases[] = {
        {BandTypeNb, true, "8kHz", 8000},
        {BandTypeWb, true, "16kHz", 16000},
        {-1, false, "Uknown band type", 0},
        {2, false, "Uknown band type", 0},
        {-10, false, "Uknown band type", 0}};
    for (const auto& [band, valid, description, samplingRate] : cases) {
        EXPECT_EQ(valid, isBandTypeValid(static_cast<BandType>(band))) << band;
        EXPECT_EQ(description, getBandTypeDescription(static_cast<BandType>(band))) << band;
        EXPECT_EQ(samplingRate, getBandTypeSamplingRate(static_cast<BandType>(band))) << band;
        EXPECT_EQ(valid ? band : -10, getSamplingRateBandType(samplingRate)) << band;
    }
    for (const uint32_t rate : {8001u, 32000u}) EXPECT_EQ(-10, getSamplingRateBandType(rate));
    EXPECT_EQ(std::string("Narrow Band"), BandTypeConverter::mNb);
    EXPECT_EQ(std::string("Wide Band"), BandTypeConverter::mWb);
}
