#include <velmora/rune/Amr.h>
#include <velmora/rune/CodecConfig.h>
#include <velmora/rune/Dtmf.h>

#include "ReportPattern.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

using namespace velmora::rune;
using velmora::testing::platformAssertionPattern;

namespace {

// Wide band only, so that a valid band can still be refused.
class WideBandCodecConfig : public CodecConfig {
  public:
    explicit WideBandCodecConfig(CodecId codecId = CodecIdAmr, BandType bandType = BandTypeNb,
                                 int payloadType = 96, unsigned packetTime = 20,
                                 unsigned maxPacketTime = 240)
        : CodecConfig(codecId, bandType, payloadType, packetTime, maxPacketTime) {}
    bool isSupportedBandType(BandType bandType) const override { return bandType == BandTypeWb; }
    CodecConfig* clone() const override { return new WideBandCodecConfig(*this); }
};

}  // namespace

// The fuzzer sees that a refusal keeps the value.
TEST(CodecConfigTest, RefusesBandsItDoesNotSupport) {
    WideBandCodecConfig config;
    for (const int band : {2, -1, -10, 0}) {
        EXPECT_EQ("Invalid Param (Code 1002): Bad band type: " + std::to_string(band),
                  config.setBandType(static_cast<BandType>(band)).format());
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
    const std::tuple<unsigned, unsigned, std::string> cases[] = {
        {40, 40, "Success"},
        {0, 40, zero},
        {0, 0, zero + " && " + zeroMax},
        {60, 40, order + "60" + orderEnd + "40'"},
        {40, 0, zeroMax + " && " + order + "40" + orderEnd + "0'"},
    };
    for (const auto& [packetTime, maxPacketTime, expected] : cases) {
        const WideBandCodecConfig config(CodecIdAmr, BandTypeNb, 96, packetTime, maxPacketTime);
        EXPECT_EQ(expected, config.check().format());
    }
}

// AmrCodecConfigTest varies the other fields.
TEST(CodecConfigTest, EqualityTakesTheCodecId) {
    DtmfCodecConfig dtmf;
    dtmf.setPayloadType(AmrCodecConfig::DEFAULT_PAYLOAD_TYPE);
    EXPECT_FALSE(dtmf == AmrCodecConfig());
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
                 velmora::testing::assertionPattern("common/src/CodecConfig.cpp",
                                                    "candidateCodecId == requiredCodecId",
                                                    "Expecting codec AMR instead of DTMF"));
}
