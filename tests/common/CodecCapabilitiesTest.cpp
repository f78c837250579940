#include <velmora/rune/CodecCapabilities.h>

#include "ReportPattern.h"

#include <gtest/gtest.h>

using namespace velmora::rune;
using velmora::testing::platformAssertionPattern;

namespace {

// The constructor is for subclasses only. AmrCodecCapabilitiesTest and StreamCapabilitiesTest
// vary the fields that equality takes.
class TestCapabilities : public CodecCapabilities {
  public:
    TestCapabilities(int codecId, int band)
        : CodecCapabilities(static_cast<CodecId>(codecId), static_cast<BandType>(band), 20, 240,
                            1) {}
    CodecCapabilities* clone() const override { return new TestCapabilities(*this); }
};

}  // namespace

TEST(CodecCapabilitiesDeathTest, ConstructorAssertsCodecIdThenBand) {
    EXPECT_DEATH(TestCapabilities(-1, 2), platformAssertionPattern("isCodecIdValid(mCodecId)"));
    EXPECT_DEATH(TestCapabilities(CodecIdAmr, -1),
                 platformAssertionPattern("isBandTypeValid(mBandType)"));
}
