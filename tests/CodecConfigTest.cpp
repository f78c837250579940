#include <velmora/rune/CodecConfig.h>

#include "ReportPattern.h"

#include <gtest/gtest.h>

#include <string>

namespace velmora {
namespace rune {
namespace {

using testing::platformAssertionPattern;

// Wide band only, so that a valid band can still be refused.
class WideBandCodecConfig : public CodecConfig {
  public:
    explicit WideBandCodecConfig(CodecId codecId = CodecIdAmr, BandType bandType = BandTypeNb,
                                 int payloadType = 96, unsigned packetTime = 20,
                                 unsigned maxPacketTime = 240)
        : CodecConfig(codecId, bandType, payloadType, packetTime, maxPacketTime) {}
    bool isSupportedBandType(BandType bandType) const override { return bandType == BandTypeWb; }
    CodecConfig* clone() const override { return new WideBandCodecConfig(*this); }
    void forceBandType(BandType bandType) { mBandType = bandType; }
};

TEST(CodecConfigTest, RefusedBandKeepsValue) {
    WideBandCodecConfig config;
    for (const int band : {2, -1, -10, 0}) {
        EXPECT_EQ("Invalid Param (Code 1002): Bad band type: " + std::to_string(band),
                  config.setBandType(static_cast<BandType>(band)).format());
        EXPECT_EQ(BandTypeNb, config.getBandType());
    }
    EXPECT_TRUE(config.setBandType(BandTypeWb).isSuccess());
    EXPECT_EQ(BandTypeWb, config.getBandType());
}

TEST(CodecConfigTest, CheckMergesEveryPacketTimeFailure) {
    const std::string invalid = "Invalid Configuration (Code 1003): ";
    const std::string zero = invalid + "Packet time must be greater than 0";
    const std::string zeroMax = invalid + "Max packet time must be greater than 0";
    const std::string order = invalid + "Packet time '";
    const std::string orderEnd = "' must be lesser or equal than max packet time '";
    const struct {
        unsigned packetTime, maxPacketTime;
        std::string expected;
    } cases[] = {
        {40, 40, "Success"},
        {0, 40, zero},
        {0, 0, zero + " && " + zeroMax},
        {60, 40, order + "60" + orderEnd + "40'"},
        {40, 0, zeroMax + " && " + order + "40" + orderEnd + "0'"},
    };
    for (const auto& c : cases) {
        const WideBandCodecConfig config(CodecIdAmr, BandTypeNb, 96, c.packetTime, c.maxPacketTime);
        EXPECT_EQ(c.expected, config.check().format());
    }
}

TEST(CodecConfigTest, EqualityIgnoresPacketTimes) {
    const WideBandCodecConfig configs[] = {
        WideBandCodecConfig(CodecIdAmr, BandTypeNb, 96),
        WideBandCodecConfig(CodecIdDtmf, BandTypeNb, 96),
        WideBandCodecConfig(CodecIdAmr, BandTypeWb, 96),
        WideBandCodecConfig(CodecIdAmr, BandTypeNb, 97),
    };
    for (size_t i = 0; i < 4; ++i) {
        for (size_t j = 0; j < 4; ++j) {
            EXPECT_EQ(i == j, configs[i] == configs[j]) << i << " " << j;
        }
    }
    EXPECT_TRUE(configs[0] == WideBandCodecConfig(CodecIdAmr, BandTypeNb, 96, 60, 120));
}

TEST(CodecConfigTest, CopyAndToStringTakeEveryField) {
    WideBandCodecConfig source(CodecIdDtmf, BandTypeWb, -1, 30, 60);
    source.forceBandType(static_cast<BandType>(7));
    WideBandCodecConfig copy;
    copy = source;
    EXPECT_EQ(
        "    Codec: DTMF (1)\n"
        "    BandType: Uknown band type (7)\n"
        "    PayloadType: -1\n"
        "    PacketTime: 30\n"
        "    MaxPacketTime: 60\n",
        copy.toString());
}

TEST(CodecConfigDeathTest, ConstructorAssertsCodecIdThenBand) {
    EXPECT_DEATH(WideBandCodecConfig(static_cast<CodecId>(2), static_cast<BandType>(-1)),
                 platformAssertionPattern("isCodecIdValid(mCodecId)"));
    EXPECT_DEATH(WideBandCodecConfig(CodecIdDtmf, static_cast<BandType>(2)),
                 platformAssertionPattern("isBandTypeValid(mBandType)"));
}

TEST(CodecConfigDeathTest, CheckCodecIdNamesTheCandidateFirst) {
    CodecConfig::checkCodecId(CodecIdDtmf, CodecIdDtmf);
    EXPECT_DEATH(CodecConfig::checkCodecId(CodecIdAmr, CodecIdDtmf),
                 testing::assertionPattern("common/src/CodecConfig.cpp",
                                           "candidateCodecId == requiredCodecId",
                                           "Expecting codec AMR instead of DTMF"));
}

}  // namespace
}  // namespace rune
}  // namespace velmora
