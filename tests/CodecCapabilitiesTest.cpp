#include <velmora/rune/CodecCapabilities.h>

#include "ReportPattern.h"

#include <gtest/gtest.h>

namespace velmora {
namespace rune {
namespace {

// A field of its own, to show that != goes through the subclass's equality.
class TaggedCodecCapabilities : public CodecCapabilities {
  public:
    TaggedCodecCapabilities(CodecId codecId, BandType bandType, int packetTime = 20,
                            int maxPacketTime = 240, int channelCount = 1, int tag = 0)
        : CodecCapabilities(codecId, bandType, packetTime, maxPacketTime, channelCount),
          mTag(tag) {}
    bool operator==(const CodecCapabilities& other) const override {
        const auto* tagged = dynamic_cast<const TaggedCodecCapabilities*>(&other);
        return CodecCapabilities::operator==(other) && tagged != nullptr && tagged->mTag == mTag;
    }
    CodecCapabilities* clone() const override { return new TaggedCodecCapabilities(*this); }

  private:
    int mTag;
};

TEST(CodecCapabilitiesTest, EqualityTakesEveryField) {
    const TaggedCodecCapabilities capabilities[] = {
        TaggedCodecCapabilities(CodecIdAmr, BandTypeNb, 20, 240, 1),
        TaggedCodecCapabilities(CodecIdDtmf, BandTypeNb, 20, 240, 1),
        TaggedCodecCapabilities(CodecIdAmr, BandTypeWb, 20, 240, 1),
        TaggedCodecCapabilities(CodecIdAmr, BandTypeNb, 40, 240, 1),
        TaggedCodecCapabilities(CodecIdAmr, BandTypeNb, 20, 120, 1),
        TaggedCodecCapabilities(CodecIdAmr, BandTypeNb, 20, 240, 2),
        TaggedCodecCapabilities(CodecIdAmr, BandTypeNb, 20, 240, 1, 7),
    };
    for (size_t i = 0; i < 7; ++i) {
        for (size_t j = 0; j < 7; ++j) {
            const CodecCapabilities& left = capabilities[i];
            EXPECT_EQ(i == j, left == capabilities[j]) << i << " " << j;
            EXPECT_EQ(i != j, left != capabilities[j]) << i << " " << j;
        }
    }
}

TEST(CodecCapabilitiesTest, CopiesCompareEqualAndSettersDoNotValidate) {
    TaggedCodecCapabilities source(CodecIdDtmf, BandTypeWb, 30, 60, 2, 5);
    source.setBandType(static_cast<BandType>(5));
    TaggedCodecCapabilities assigned(CodecIdAmr, BandTypeNb);
    assigned = source;
    EXPECT_EQ(5, assigned.getBandType());
    EXPECT_TRUE(source == assigned);
    EXPECT_TRUE(source == TaggedCodecCapabilities(source));
}

TEST(CodecCapabilitiesDeathTest, ConstructorAssertsCodecIdThenBand) {
    EXPECT_DEATH(TaggedCodecCapabilities(static_cast<CodecId>(-1), static_cast<BandType>(2)),
                 testing::platformAssertionPattern("isCodecIdValid(mCodecId)"));
    EXPECT_DEATH(TaggedCodecCapabilities(CodecIdAmr, static_cast<BandType>(-1)),
                 testing::platformAssertionPattern("isBandTypeValid(mBandType)"));
}

}  // namespace
}  // namespace rune
}  // namespace velmora
