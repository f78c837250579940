#include <velmora/rune/CodecCapabilities.h>

#include "ReportPattern.h"
#include "ValueChecks.h"

#include <gtest/gtest.h>

#include <vector>

using namespace velmora::rune;
using velmora::testing::platformAssertionPattern;

namespace {

// The constructor is for subclasses only.
class TestCapabilities : public CodecCapabilities {
  public:
    TestCapabilities(int codecId, int band, int packetTime = 20, int maxPacketTime = 240,
                     int channelCount = 1)
        : CodecCapabilities(static_cast<CodecId>(codecId), static_cast<BandType>(band), packetTime,
                            maxPacketTime, channelCount) {}
    CodecCapabilities* clone() const override { return new TestCapabilities(*this); }
};

}  // namespace

TEST(CodecCapabilitiesTest, EqualityTakesEveryField) {
    velmora::testing::expectEqualIffSameIndex(std::vector<TestCapabilities>{
        TestCapabilities(CodecIdAmr, BandTypeNb), TestCapabilities(CodecIdDtmf, BandTypeNb),
        TestCapabilities(CodecIdAmr, BandTypeWb), TestCapabilities(CodecIdAmr, BandTypeNb, 40),
        TestCapabilities(CodecIdAmr, BandTypeNb, 20, 120),
        TestCapabilities(CodecIdAmr, BandTypeNb, 20, 240, 2)});
}

TEST(CodecCapabilitiesDeathTest, ConstructorAssertsCodecIdThenBand) {
    EXPECT_DEATH(TestCapabilities(-1, 2), platformAssertionPattern("isCodecIdValid(mCodecId)"));
    EXPECT_DEATH(TestCapabilities(CodecIdAmr, -1),
                 platformAssertionPattern("isBandTypeValid(mBandType)"));
}
