#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamConfig.h>

#include "ReportPattern.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

using namespace velmora::rune;

namespace {

const std::string kDefaultText =
    "  Remote: 127.0.0.1:49150\n"
    "  Mute: 0\n"
    "  Direction : Full duplex (3)\n"
    "  RtcpEnabled: 1\n"
    "  RtcpConfig: AS=64 RS=800 RR=0 interval=5000  ReducedSizeMode=0\n"
    "  IsHeld: 0\n"
    "  RtpProfile: 3551\n"
    "  PdpContext: primaryCID=1 secondaryCID=1\n";

std::string dtmfText(int payloadType) {
    return "    Codec: DTMF (1)\n    BandType: 16kHz (1)\n    PayloadType: " +
           std::to_string(payloadType) + "\n    PacketTime: 20\n    MaxPacketTime: 240\n";
}

DtmfCodecConfig dtmf(int payloadType) {
    DtmfCodecConfig codec;
    codec.setPayloadType(payloadType);
    return codec;
}

// The clone of a fertile codec is barren; a barren codec clones into null.
class FadingCodec : public DtmfCodecConfig {
  public:
    explicit FadingCodec(bool fertile) : mFertile(fertile) {}
    CodecConfig* clone() const override { return mFertile ? new FadingCodec(false) : nullptr; }

  private:
    bool mFertile;
};

// Its copies get a null first uplink codec.
const StreamConfig& withFadingCodec(StreamConfig& stream) {
    stream.addUplinkCodec(FadingCodec(true));
    stream.addUplinkCodec(dtmf(101));
    stream.addDownlinkCodec(dtmf(101));
    return stream;
}

}  // namespace

TEST(StreamConfigTest, RefusedSettersKeepTheDefaults) {
    StreamConfig stream;
    const std::string refused = "Invalid Param (Code 1002): ";
    for (const int direction : {4, -1})
        EXPECT_EQ(refused + "Invalid direction : " + std::to_string(direction),
                  stream.setDirection(static_cast<StreamConfig::Direction>(direction)).format());
    EXPECT_EQ(refused + "Invalid socket port: 80", stream.setRemoteRtpPort(80).format());
    EXPECT_EQ(refused + "Invalid internet address : 999.1.1.1",
              stream.setRemoteIp("999.1.1.1").format());
    EXPECT_EQ(kDefaultText, stream.toString());
}

TEST(StreamConfigTest, RtcpPortFollowsRtpPort) {
    StreamConfig stream;
    EXPECT_EQ(49151, stream.getRemoteRtcpPort());
    ASSERT_TRUE(stream.setRemoteRtpPort(65534).isSuccess());
    EXPECT_EQ(65535, stream.getRemoteRtcpPort());
    ASSERT_TRUE(stream.setRemoteRtpPort(65535).isSuccess());
    EXPECT_EQ(-1, stream.getRemoteRtcpPort());
}

// Codecs must be present for each active direction; then each codec's own check() counts, its
// text as the context.
TEST(StreamConfigTest, CheckReturnsTheFirstFailure) {
    const std::string invalid = "Invalid Configuration (Code 1003): ";
    const std::string uplink = invalid + "Uplink is active and no uplink codec supplied";
    const std::string downlink = invalid + "Downlink is active and no downlink codec supplied";
    // Direction, uplink codec, downlink codec.
    const std::tuple<StreamConfig::Direction, bool, bool, std::string> cases[] = {
        {StreamConfig::DirectionFullDuplex, false, false, uplink},
        {StreamConfig::DirectionFullDuplex, true, false, downlink},
        {StreamConfig::DirectionFullDuplex, true, true, "Success"},
        {StreamConfig::DirectionSendOnly, true, false, "Success"},
        {StreamConfig::DirectionReceiveOnly, false, true, "Success"},
        {StreamConfig::DirectionReceiveOnly, true, false, downlink},
        {StreamConfig::DirectionInactive, false, false, "Success"}};
    for (const auto& [direction, uplinkCodec, downlinkCodec, expected] : cases) {
        StreamConfig stream;
        stream.setDirection(direction);
        if (uplinkCodec) stream.addUplinkCodec(DtmfCodecConfig());
        if (downlinkCodec) stream.addDownlinkCodec(DtmfCodecConfig());
        EXPECT_EQ(expected, stream.check().format()) << direction << uplinkCodec << downlinkCodec;
    }
    StreamConfig stream;
    stream.setDirection(StreamConfig::DirectionInactive);
    DtmfCodecConfig late = dtmf(101);
    late.setPacketTime(60);
    late.setMaxPacketTime(40);
    stream.addUplinkCodec(DtmfCodecConfig());
    stream.addUplinkCodec(late);
    stream.addDownlinkCodec(AmrCodecConfig());  // no rates
    EXPECT_EQ(invalid + "{" + invalid +
                  "Packet time '60' must be lesser or equal than max packet time '40'}",
              stream.check().format());
    stream.clearUplinkCodecs();
    EXPECT_EQ(invalid + "{" + invalid + "Amr rate list is empty.}", stream.check().format());
}

// Every field away from its default; the copies are deep, and a copy onto itself changes nothing.
TEST(StreamConfigTest, ToStringAndCopiesShowEveryFieldAndCodec) {
    StreamConfig source;
    source.setRemoteIp("192.0.2.7");
    source.setRemoteRtpPort(50000);
    source.muteUplink(true);
    source.setDirection(StreamConfig::DirectionSendOnly);
    source.setRtcp(false);
    source.setRtcpConfig(RtcpConfig(2500, 400, 600, 50, true));
    source.setHoldState(true);
    source.setRtpProfile(RtpProfileAvpf);
    source.setPdpContext({3, 5});
    source.addUplinkCodec(dtmf(99));
    source.addUplinkCodec(dtmf(101));
    source.addDownlinkCodec(dtmf(100));
    const std::string expected =
        "  Remote: 192.0.2.7:50000\n"
        "  Mute: 1\n"
        "  Direction : Send only (1)\n"
        "  RtcpEnabled: 0\n"
        "  RtcpConfig: AS=50 RS=600 RR=400 interval=2500  ReducedSizeMode=1\n"
        "  IsHeld: 1\n"
        "  RtpProfile: 4585\n"
        "  PdpContext: primaryCID=3 secondaryCID=5\n"
        "  Uplink codec 1/2\n" +
        dtmfText(99) + "  Uplink codec 2/2\n" + dtmfText(101) + "  Downlink codec 1/1\n" +
        dtmfText(100);
    EXPECT_EQ(expected, source.toString());
    StreamConfig assigned;
    assigned.addDownlinkCodec(dtmf(96));
    assigned = source;
    StreamConfig copy(source);
    for (const StreamConfig* target : {&copy, &assigned}) {
        EXPECT_EQ(expected, target->toString());
        EXPECT_NE(source.getUplinkCodec(1), target->getUplinkCodec(1));
        EXPECT_NE(source.getDownlinkCodec(0), target->getDownlinkCodec(0));
    }
    const CodecConfig* first = source.getUplinkCodec(0);
    StreamConfig& self = source;
    source = self;
    EXPECT_EQ(first, source.getUplinkCodec(0));
    EXPECT_EQ(expected, source.toString());
}

TEST(StreamConfigTest, RefusedAddLeavesListUnchanged) {
    StreamConfig stream;
    stream.addUplinkCodec(dtmf(98));
    stream.addDownlinkCodec(dtmf(98));
    const std::string refusal =
        "Invalid Param (Code 1002): A codec with the same payload type 98 is already present";
    EXPECT_EQ(refusal, stream.addUplinkCodec(AmrCodecConfig()).format());
    EXPECT_EQ(refusal, stream.addDownlinkCodec(AmrCodecConfig()).format());
    EXPECT_EQ(kDefaultText + "  Uplink codec 1/1\n" + dtmfText(98) + "  Downlink codec 1/1\n" +
                  dtmfText(98),
              stream.toString());
}

// A null codec ends the listing; a codec can still be added behind it.
TEST(StreamConfigTest, NullCodecEndsListing) {
    StreamConfig stream;
    StreamConfig broken(withFadingCodec(stream));
    ASSERT_EQ(nullptr, broken.getUplinkCodec(0));
    EXPECT_EQ(kDefaultText + "  Downlink codec 1/1\n" + dtmfText(101), broken.toString());
    EXPECT_TRUE(broken.addUplinkCodec(dtmf(102)).isSuccess());
}

TEST(StreamConfigDeathTest, NullCodecAborts) {
    StreamConfig stream;
    const StreamConfig broken(withFadingCodec(stream));
    EXPECT_DEATH(static_cast<void>(broken.check()),
                 velmora::testing::assertionPattern("common/src/StreamConfig.cpp", "config != NULL",
                                                    "Codec is null"));
    EXPECT_DEATH(StreamConfig{broken},
                 velmora::testing::platformAssertionPattern("otherCodec != NULL"));
}
