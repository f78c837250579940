#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamConfig.h>

#include <gtest/gtest.h>

using namespace velmora::rune;

namespace {

typedef StreamConfig::CodecConfigList CodecConfigList;

// Counts its live instances, so that the list's deletes through the base are seen.
class CountedCodec : public DtmfCodecConfig {
  public:
    explicit CountedCodec(int payloadType) : DtmfCodecConfig() {
        setPayloadType(payloadType);
        ++live;
    }
    CountedCodec(const CountedCodec& other) : DtmfCodecConfig(other) { ++live; }
    ~CountedCodec() override { --live; }
    CodecConfig* clone() const override { return new CountedCodec(*this); }
    static int live;
};

int CountedCodec::live = 0;

}  // namespace

// A refused codec stays the caller's. StreamConfigTest refuses a repeated payload type.
TEST(CodecConfigListTest, AddRefusesNullAndTheSameCodecTwice) {
    CodecConfigList list;
    AmrCodecConfig* amr = new AmrCodecConfig;
    ASSERT_TRUE(list.add(amr).isSuccess());
    EXPECT_EQ("Invalid Param (Code 1002): Null pointer", list.add(nullptr).format());
    EXPECT_EQ("Invalid Param (Code 1002): Already present", list.add(amr).format());
    DtmfCodecConfig* dtmf = new DtmfCodecConfig;
    ASSERT_TRUE(list.add(dtmf).isSuccess());
    EXPECT_EQ(2u, list.count());
    EXPECT_EQ(amr, list.get(0));
    EXPECT_EQ(dtmf, list.get(1));
    EXPECT_EQ(nullptr, list.get(2));
}

// The entries replaced, cleared or left at destruction are deleted; a copy onto itself changes
// nothing.
TEST(CodecConfigListTest, CloneContentFromCopiesDeeplyAndEveryRemovalDeletes) {
    {
        CodecConfigList source, copy;
        source.add(new CountedCodec(96));
        source.add(new CountedCodec(97));
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
        copy.cloneContentFrom(CodecConfigList());
        EXPECT_EQ(0u, copy.count());
        EXPECT_EQ(2, CountedCodec::live);
        source.clear();
        EXPECT_EQ(0u, source.count());
        EXPECT_EQ(0, CountedCodec::live);
        source.add(new CountedCodec(96));
    }
    EXPECT_EQ(0, CountedCodec::live);
}
