#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamConfig.h>

#include <gtest/gtest.h>

using namespace velmora::rune;

// A refused codec stays the caller's; the list deletes the others (LSan and valgrind watch).
// StreamConfigTest refuses a repeated payload type and copies lists; its text counts and lists
// the codecs in order.
TEST(CodecConfigListTest, AddRefusesNullAndTheSameCodecTwice) {
    StreamConfig::CodecConfigList list;
    AmrCodecConfig* amr = new AmrCodecConfig;
    ASSERT_TRUE(list.add(amr).isSuccess());
    EXPECT_EQ("Invalid Param (Code 1002): Null pointer", list.add(nullptr).format());
    EXPECT_EQ("Invalid Param (Code 1002): Already present", list.add(amr).format());
    DtmfCodecConfig* dtmf = new DtmfCodecConfig;
    ASSERT_TRUE(list.add(dtmf).isSuccess());
    EXPECT_EQ(nullptr, list.get(2));
}
