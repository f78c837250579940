#include <velmora/rune/Dtmf.h>

#include "DataText.h"
#include "ValueChecks.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

using namespace velmora::rune;

TEST(DtmfCodecConfigTest, DefaultsNarrowBandAndCopies) {
    DtmfCodecConfig config;
    EXPECT_EQ(velmora::testing::dataText("dtmf-default.txt", "\n"), config.toString());
    EXPECT_EQ("Success", config.check().format());
    EXPECT_TRUE(config.setBandType(BandTypeNb).isSuccess());
    config.setPayloadType(101);
    config.setPacketTime(40);
    config.setMaxPacketTime(80);
    velmora::testing::expectCopiesEqual(config, DtmfCodecConfig());
}

// The offers of runesdp show the codec and the band: telephone-event/16000.
TEST(DtmfCodecCapabilitiesTest, DefaultsAndCopies) {
    DtmfCodecCapabilities source;
    EXPECT_EQ(std::vector<unsigned>({20, 240, 1}),
              std::vector<unsigned>(
                  {source.getPacketTime(), source.getMaxPacketTime(), source.getChannelCount()}));
    source.setBandType(BandTypeNb);
    source.setPacketTime(40);
    source.setMaxPacketTime(80);
    source.setChannelCount(2);
    velmora::testing::expectCopiesEqual(source, DtmfCodecCapabilities());
}

// RFC 4733 event codes; any other character leaves the key untouched.
TEST(DtmfTest, KeysOfCharacters) {
    const std::string keys = "0123456789*#ABCD";
    for (int c = CHAR_MIN; c <= CHAR_MAX; ++c) {
        const size_t code = keys.find(static_cast<char>(c));
        Dtmf::Key key = Dtmf::KeyStar;
        EXPECT_EQ(code != std::string::npos, Dtmf::getDtmfKeyFromChar(static_cast<char>(c), key));
        EXPECT_EQ(code != std::string::npos ? static_cast<int>(code) : Dtmf::KeyStar, key) << c;
    }
}
