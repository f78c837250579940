#include <velmora/rune/CodecId.h>

#include <gtest/gtest.h>

#include <string>

using namespace velmora::rune;

TEST(CodecIdTest, ValidatesCodecIds) {
    EXPECT_TRUE(isCodecIdValid(CodecIdAmr));
    EXPECT_TRUE(isCodecIdValid(CodecIdDtmf));
    EXPECT_FALSE(isCodecIdValid(static_cast<CodecId>(-1)));
    EXPECT_FALSE(isCodecIdValid(static_cast<CodecId>(2)));
}

TEST(CodecIdTest, DescribesCodecIds) {
    EXPECT_EQ(std::string("AMR"), getCodecIdDescription(CodecIdAmr));
    EXPECT_EQ(std::string("DTMF"), getCodecIdDescription(CodecIdDtmf));
    EXPECT_EQ(std::string("Unknown codec"), getCodecIdDescription(static_cast<CodecId>(5)));
}

TEST(CodecIdTest, DescribesAndConvertsBands) {
    const struct {
        int band;
        bool valid;
        std::string description;
        uint32_t samplingRate;
    } cases[] = {
        {BandTypeNb, true, "8kHz", 8000},
        {BandTypeWb, true, "16kHz", 16000},
        {-1, false, "Uknown band type", 0},
        {2, false, "Uknown band type", 0},
    };
    for (const auto& c : cases) {
        const BandType band = static_cast<BandType>(c.band);
        EXPECT_EQ(c.valid, isBandTypeValid(band)) << c.band;
        EXPECT_EQ(c.description, getBandTypeDescription(band)) << c.band;
        EXPECT_EQ(c.samplingRate, getBandTypeSamplingRate(band)) << c.band;
        if (c.valid) {
            EXPECT_EQ(band, getSamplingRateBandType(c.samplingRate));
        }
    }
}

TEST(CodecIdTest, UnknownSamplingRateGivesAnInvalidBand) {
    for (uint32_t rate : {0u, 8001u, 32000u}) {
        EXPECT_EQ(-10, getSamplingRateBandType(rate)) << rate;
        EXPECT_FALSE(isBandTypeValid(getSamplingRateBandType(rate))) << rate;
    }
}

TEST(CodecIdTest, BandDisplayNames) {
    EXPECT_EQ(std::string("Narrow Band"), BandTypeConverter::mNb);
    EXPECT_EQ(12u, sizeof(BandTypeConverter::mNb));
    EXPECT_EQ(std::string("Wide Band"), BandTypeConverter::mWb);
    EXPECT_EQ(10u, sizeof(BandTypeConverter::mWb));
}
