#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamConfig.h>

#include "ReportPattern.h"

#include <gtest/gtest.h>

#include <string>

namespace velmora {
namespace rune {
namespace {

using testing::assertionPattern;
using testing::platformAssertionPattern;

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

// Each clone has one clone fewer left; once none is left, clone() yields null.
class FadingCodec : public CodecConfig {
  public:
    explicit FadingCodec(int clonesLeft)
        : CodecConfig(CodecIdDtmf, BandTypeWb, 96, 20, 240), mClonesLeft(clonesLeft) {}
    bool isSupportedBandType(BandType) const override { return true; }
    CodecConfig* clone() const override {
        return mClonesLeft > 0 ? new FadingCodec(mClonesLeft - 1) : nullptr;
    }

  private:
    int mClonesLeft;
};

TEST(StreamConfigTest, Defaults) {
    EXPECT_EQ(std::string("127.0.0.1"), StreamConfig::DEFAULT_REMOTE_IP);
    EXPECT_EQ(49150, StreamConfig::DEFAULT_REMOTE_RTP_PORT);
    EXPECT_EQ(StreamConfig::DirectionFullDuplex, StreamConfig::DEFAULT_ACTIVE_DIRECTION);
    EXPECT_TRUE(StreamConfig::DEFAULT_RTCP_ENABLED);
    EXPECT_FALSE(StreamConfig::DEFAULT_IS_HELD);
    EXPECT_FALSE(StreamConfig::DEFAULT_MUTED);
    EXPECT_EQ(RtpProfileAvp, StreamConfig::DEFAULT_RTP_PROFILE);

    const StreamConfig stream;
    EXPECT_EQ(kDefaultText, stream.toString());
    EXPECT_EQ(49151, stream.getRemoteRtcpPort());
}

TEST(StreamConfigTest, RefusedSetterKeepsValue) {
    StreamConfig stream;
    const std::string refused = "Invalid Param (Code 1002): ";
    EXPECT_EQ(refused + "Invalid direction : 4",
              stream.setDirection(static_cast<StreamConfig::Direction>(4)).format());
    EXPECT_EQ(refused + "Invalid direction : -1",
              stream.setDirection(static_cast<StreamConfig::Direction>(-1)).format());
    EXPECT_EQ(refused + "Invalid socket port: 80", stream.setRemoteRtpPort(80).format());
    EXPECT_EQ(refused + "Invalid internet address : 999.1.1.1",
              stream.setRemoteIp("999.1.1.1").format());
    EXPECT_EQ(kDefaultText, stream.toString());
}

TEST(StreamConfigTest, RtcpPortFollowsRtpPort) {
    StreamConfig stream;
    ASSERT_TRUE(stream.setRemoteRtpPort(65534).isSuccess());
    EXPECT_EQ(65535, stream.getRemoteRtcpPort());
    ASSERT_TRUE(stream.setRemoteRtpPort(65535).isSuccess());
    EXPECT_EQ(-1, stream.getRemoteRtcpPort());
}

TEST(StreamConfigTest, CheckWantsCodecsForEachActiveDirection) {
    const std::string uplink = "Uplink is active and no uplink codec supplied";
    const std::string downlink = "Downlink is active and no downlink codec supplied";
    const struct {
        StreamConfig::Direction direction;
        bool uplinkCodec, downlinkCodec;
        std::string expected;
    } cases[] = {
        {StreamConfig::DirectionFullDuplex, false, false, uplink},
        {StreamConfig::DirectionFullDuplex, true, false, downlink},
        {StreamConfig::DirectionFullDuplex, true, true, ""},
        {StreamConfig::DirectionSendOnly, true, false, ""},
        {StreamConfig::DirectionReceiveOnly, false, true, ""},
        {StreamConfig::DirectionReceiveOnly, true, false, downlink},
        {StreamConfig::DirectionInactive, false, false, ""},
    };
    for (const auto& c : cases) {
        StreamConfig stream;
        stream.setDirection(c.direction);
        if (c.uplinkCodec) stream.addUplinkCodec(DtmfCodecConfig());
        if (c.downlinkCodec) stream.addDownlinkCodec(DtmfCodecConfig());
        EXPECT_EQ(
            c.expected.empty() ? "Success" : "Invalid Configuration (Code 1003): " + c.expected,
            stream.check().format())
            << c.direction << " " << c.uplinkCodec << c.downlinkCodec;
    }
}

TEST(StreamConfigTest, CheckReturnsTheFirstFailingCodecAsContext) {
    StreamConfig stream;
    stream.setDirection(StreamConfig::DirectionInactive);
    DtmfCodecConfig late = dtmf(101);
    late.setPacketTime(60);
    late.setMaxPacketTime(40);
    stream.addUplinkCodec(DtmfCodecConfig());
    stream.addUplinkCodec(late);
    stream.addDownlinkCodec(AmrCodecConfig());  // no rates
    EXPECT_EQ(
        "Invalid Configuration (Code 1003): {Invalid Configuration (Code 1003): Packet time '60' "
        "must be lesser or equal than max packet time '40'}",
        stream.check().format());
    stream.clearUplinkCodecs();
    EXPECT_EQ(
        "Invalid Configuration (Code 1003): {Invalid Configuration (Code 1003): Amr rate list is "
        "empty.}",
        stream.check().format());
}

TEST(StreamConfigTest, ToStringShowsEveryFieldAndCodec) {
    StreamConfig stream;
    stream.setRemoteIp("192.0.2.7");
    stream.setRemoteRtpPort(50000);
    stream.muteUplink(true);
    stream.setDirection(StreamConfig::DirectionSendOnly);
    stream.setRtcp(false);
    stream.setRtcpConfig(RtcpConfig(2500, 400, 600, 50, true));
    stream.setHoldState(true);
    stream.setRtpProfile(RtpProfileAvpf);
    stream.setPdpContext({3, 5});
    stream.addUplinkCodec(dtmf(99));
    stream.addUplinkCodec(dtmf(101));
    stream.addDownlinkCodec(dtmf(100));
    EXPECT_EQ(
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
            dtmfText(100),
        stream.toString());
}

TEST(StreamConfigTest, CopyIsDeep) {
    StreamConfig source;
    source.setRemoteIp("192.0.2.7");
    source.addUplinkCodec(AmrCodecConfig());
    source.addUplinkCodec(DtmfCodecConfig());
    StreamConfig assigned;
    assigned.addDownlinkCodec(DtmfCodecConfig());
    assigned = source;
    {
        StreamConfig copy(source);
        for (const StreamConfig* target : {&copy, &assigned}) {
            EXPECT_EQ(source.toString(), target->toString());
            for (unsigned int index = 0; index < 2; ++index) {
                EXPECT_NE(source.getUplinkCodec(index), target->getUplinkCodec(index));
                EXPECT_TRUE(*source.getUplinkCodec(index) == *target->getUplinkCodec(index));
            }
        }
    }
    EXPECT_EQ(98, source.getUplinkCodec(0)->getPayloadType());

    const CodecConfig* first = source.getUplinkCodec(0);
    const std::string text = source.toString();
    StreamConfig& self = source;
    source = self;
    EXPECT_EQ(first, source.getUplinkCodec(0));
    EXPECT_EQ(text, source.toString());
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

TEST(StreamConfigTest, NullCodecEndsListingAndAborts) {
    StreamConfig stream;
    stream.addUplinkCodec(FadingCodec(1));
    stream.addUplinkCodec(dtmf(101));
    stream.addDownlinkCodec(dtmf(101));
    const StreamConfig broken(stream);  // the first uplink entry cloned into null
    ASSERT_EQ(nullptr, broken.getUplinkCodec(0));

    EXPECT_EQ(kDefaultText + "  Downlink codec 1/1\n" + dtmfText(101), broken.toString());
    EXPECT_DEATH(
        static_cast<void>(broken.check()),
        assertionPattern("common/src/StreamConfig.cpp", "config != NULL", "Codec is null"));
    EXPECT_DEATH(StreamConfig{broken}, platformAssertionPattern("otherCodec != NULL"));
}

}  // namespace
}  // namespace rune
}  // namespace velmora
