#include <velmora/rune/Dtmf.h>

#include <gtest/gtest.h>

#include <memory>

namespace velmora {
namespace rune {
namespace {

TEST(DtmfCodecConfigTest, DefaultsPassCheck) {
    const DtmfCodecConfig config;
    EXPECT_EQ(BandTypeWb, DtmfCodecConfig::DEFAULT_BAND_TYPE);
    EXPECT_EQ(99, DtmfCodecConfig::DEFAULT_PAYLOAD_TYPE);
    EXPECT_EQ(20u, DtmfCodecConfig::DEFAULT_PACKET_TIME);
    EXPECT_EQ(240u, DtmfCodecConfig::DEFAULT_MAX_PACKET_TIME);
    EXPECT_EQ(
        "    Codec: DTMF (1)\n"
        "    BandType: 16kHz (1)\n"
        "    PayloadType: 99\n"
        "    PacketTime: 20\n"
        "    MaxPacketTime: 240\n",
        config.toString());
    EXPECT_EQ("Success", config.check().format());
}

TEST(DtmfCodecConfigTest, AcceptsBothBandsAndClonesIndependently) {
    DtmfCodecConfig source;
    EXPECT_TRUE(source.setBandType(BandTypeNb).isSuccess());
    EXPECT_EQ("Invalid Param (Code 1002): Bad band type: 2",
              source.setBandType(static_cast<BandType>(2)).format());
    source.setPayloadType(101);
    const std::unique_ptr<CodecConfig> clone(source.clone());
    EXPECT_EQ(source.toString(), clone->toString());
    clone->setPayloadType(102);
    EXPECT_EQ(101, source.getPayloadType());
}

TEST(DtmfCodecCapabilitiesTest, DefaultsAndIndependentClone) {
    const DtmfCodecCapabilities source;
    EXPECT_EQ(CodecIdDtmf, source.getCodecId());
    EXPECT_EQ(BandTypeWb, source.getBandType());
    EXPECT_EQ(20u, source.getPacketTime());
    EXPECT_EQ(240u, source.getMaxPacketTime());
    EXPECT_EQ(1u, source.getChannelCount());
    const std::unique_ptr<CodecCapabilities> clone(source.clone());
    EXPECT_TRUE(*clone == source);
    clone->setChannelCount(2);
    EXPECT_EQ(1u, source.getChannelCount());
}

TEST(DtmfTest, KeysAreTheRfc4733EventCodes) {
    const char characters[] = "0123456789*#ABCD";
    for (int code = 0; code < 16; ++code) {
        Dtmf::Key key = static_cast<Dtmf::Key>(-1);
        EXPECT_TRUE(Dtmf::getDtmfKeyFromChar(characters[code], key));
        EXPECT_EQ(code, key) << characters[code];
    }
    EXPECT_EQ(16u, Dtmf::initDtmfCharMap().size());
}

TEST(DtmfTest, UnknownCharacterLeavesKeyUntouched) {
    for (const char c : {'a', 'd', ' ', '+', 'E', '\0'}) {
        Dtmf::Key key = Dtmf::KeyStar;
        EXPECT_FALSE(Dtmf::getDtmfKeyFromChar(c, key)) << static_cast<int>(c);
        EXPECT_EQ(Dtmf::KeyStar, key);
    }
}

}  // namespace
}  // namespace rune
}  // namespace velmora
