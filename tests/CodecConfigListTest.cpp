#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamConfig.h>

#include <gtest/gtest.h>

#include <memory>

namespace velmora {
namespace rune {
namespace {

typedef StreamConfig::CodecConfigList CodecConfigList;

// Counts its live instances, so that the list's deletes through the base are seen.
class CountedCodec : public CodecConfig {
  public:
    explicit CountedCodec(int payloadType)
        : CodecConfig(CodecIdDtmf, BandTypeWb, payloadType, 20, 240) {
        ++live;
    }
    CountedCodec(const CountedCodec& other) : CodecConfig(other) { ++live; }
    ~CountedCodec() override { --live; }
    bool isSupportedBandType(BandType) const override { return true; }
    CodecConfig* clone() const override { return new CountedCodec(*this); }

    static int live;
};

int CountedCodec::live = 0;

TEST(CodecConfigListTest, AddRefusesNullSameObjectAndRepeatedPayloadType) {
    CodecConfigList list;
    AmrCodecConfig* amr = new AmrCodecConfig;  // payload type 98
    ASSERT_TRUE(list.add(amr).isSuccess());
    // A refused codec stays the caller's.
    std::unique_ptr<DtmfCodecConfig> dtmf(new DtmfCodecConfig);
    dtmf->setPayloadType(98);

    EXPECT_EQ("Invalid Param (Code 1002): Null pointer", list.add(nullptr).format());
    EXPECT_EQ("Invalid Param (Code 1002): Already present", list.add(amr).format());
    EXPECT_EQ("Invalid Param (Code 1002): A codec with the same payload type 98 is already present",
              list.add(dtmf.get()).format());
    EXPECT_EQ(1u, list.count());
    EXPECT_EQ(amr, list.get(0));

    dtmf->setPayloadType(99);
    ASSERT_TRUE(list.add(dtmf.get()).isSuccess());
    EXPECT_EQ(dtmf.release(), list.get(1));
    EXPECT_EQ(nullptr, list.get(2));
}

TEST(CodecConfigListTest, ClearAndDestructionDeleteEveryEntry) {
    {
        CodecConfigList list;
        list.add(new CountedCodec(96));
        list.add(new CountedCodec(97));
        list.clear();
        EXPECT_EQ(0, CountedCodec::live);
        EXPECT_EQ(0u, list.count());
        list.add(new CountedCodec(96));
    }
    EXPECT_EQ(0, CountedCodec::live);
}

TEST(CodecConfigListTest, CloneContentFromMakesADeepCopy) {
    CodecConfigList source;
    source.add(new CountedCodec(96));
    source.add(new CountedCodec(97));
    CodecConfigList copy;
    copy.add(new CountedCodec(100));

    copy.cloneContentFrom(source);
    ASSERT_EQ(2u, copy.count());
    EXPECT_EQ(4, CountedCodec::live);
    for (unsigned int index = 0; index < 2; ++index) {
        EXPECT_NE(source.get(index), copy.get(index));
        EXPECT_TRUE(*source.get(index) == *copy.get(index));
    }

    CodecConfig* first = copy.get(0);
    copy.cloneContentFrom(copy);
    EXPECT_EQ(first, copy.get(0));
    EXPECT_EQ(4, CountedCodec::live);

    copy.cloneContentFrom(CodecConfigList());
    EXPECT_EQ(0u, copy.count());
    EXPECT_EQ(2, CountedCodec::live);
}

}  // namespace
}  // namespace rune
}  // namespace velmora
