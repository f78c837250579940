#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamConfig.h>

#include "DataText.h"
#include "ReportPattern.h"
#include "ValueChecks.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>

using namespace velmora::rune;

namespace {

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

// A copy of a stream holding a fading codec first, so with a null first uplink codec.
StreamConfig withNullCodec() {
    StreamConfig stream;
    stream.addUplinkCodec(FadingCodec(true));
    stream.addUplinkCodec(dtmf(101));
    stream.addDownlinkCodec(dtmf(101));
    return StreamConfig(stream);
}

}  // namespace

// The refused codec's clone is left to the caller, a deliberate leak; the fuzzer sees that a
// refusal leaves the stream as it was.
TEST(StreamConfigTest, Refusals) {
    StreamConfig stream;
    const std::string refused = "Invalid Param (Code 1002): ";
    for (const int direction : {4, -1})
        EXPECT_EQ(refused + "Invalid direction : " + std::to_string(direction),
                  stream.setDirection(static_cast<StreamConfig::Direction>(direction)).format());
    EXPECT_EQ(refused + "Invalid socket port: 80", stream.setRemoteRtpPort(80).format());
    EXPECT_EQ(refused + "Invalid internet address : 999.1.1.1",
              stream.setRemoteIp("999.1.1.1").format());
    stream.addUplinkCodec(dtmf(98));
    stream.addDownlinkCodec(dtmf(98));
    const std::string sameType =
        refused + "A codec with the same payload type 98 is already present";
    EXPECT_EQ(sameType, stream.addUplinkCodec(AmrCodecConfig()).format());
    EXPECT_EQ(sameType, stream.addDownlinkCodec(AmrCodecConfig()).format());
}

TEST(StreamConfigTest, RtcpPortFollowsRtpPort) {
    StreamConfig stream;
    EXPECT_EQ(49151, stream.getRemoteRtcpPort());
    for (const auto& [port, rtcpPort] : {std::pair{65534, 65535}, std::pair{65535, -1}}) {
        ASSERT_TRUE(stream.setRemoteRtpPort(port).isSuccess());
        EXPECT_EQ(rtcpPort, stream.getRemoteRtcpPort());
    }
}

// Codecs must be present for each active direction; then each codec's own check() counts, its
// text as the context. The tool's g711-gateway test shows a stream without any codec refused.
TEST(StreamConfigTest, CheckReturnsTheFirstFailure) {
    const std::string invalid = "Invalid Configuration (Code 1003): ";
    const std::string downlink = invalid + "Downlink is active and no downlink codec supplied";
    // Direction, uplink codec, downlink codec.
    const std::tuple<StreamConfig::Direction, bool, bool, std::string> cases[] = {
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
    EXPECT_EQ(velmora::testing::dataText("stream-every-field.txt", "\n"), source.toString());
    StreamConfig other;
    other.addDownlinkCodec(dtmf(96));
    velmora::testing::expectCopiesEqual(source, other);
}

// A null codec ends the listing; a codec can still be added behind it.
TEST(StreamConfigTest, NullCodecEndsListing) {
    StreamConfig broken = withNullCodec();
    EXPECT_EQ(velmora::testing::dataText("stream-null-codec.txt", "\n"), broken.toString());
    EXPECT_TRUE(broken.addUplinkCodec(dtmf(102)).isSuccess());
}

TEST(StreamConfigDeathTest, NullCodecAborts) {
    const StreamConfig broken = withNullCodec();
    EXPECT_DEATH(static_cast<void>(broken.check()),
                 velmora::testing::assertionPattern("common/src/StreamConfig.cpp", "config != NULL",
                                                    "Codec is null"));
    EXPECT_DEATH(StreamConfig{broken},
                 velmora::testing::platformAssertionPattern("otherCodec != NULL"));
}
