#include <velmora/rune/sdp/Sdp.h>

#include "SdpTestSupport.h"

#include <gtest/gtest.h>

using namespace velmora::rune;
using velmora::testing::amrCodec;
using velmora::testing::dtmfCodec;
using velmora::testing::placedStream;
using velmora::testing::sdpText;

namespace {

TEST(SdpWriterTest, WritesPhoneMedia) {
    const AmrCodecConfig wide = amrCodec(BandTypeWb, 104);
    const AmrCodecConfig narrow = amrCodec(BandTypeNb, 105, {0, 2, 4, 7});
    const DtmfCodecConfig wideEvents = dtmfCodec(BandTypeWb, 101);
    const DtmfCodecConfig narrowEvents = dtmfCodec(BandTypeNb, 103);
    StreamConfig stream = placedStream("198.51.100.20", 20000, StreamConfig::DirectionFullDuplex,
                                       {&wide, &narrow, &wideEvents, &narrowEvents});
    stream.setRtcpConfig(RtcpConfig(5000, 2000, 600, 49, false));
    EXPECT_EQ(
        sdpText({"m=audio 49152 RTP/AVP 104 105 101 103", "c=IN IP4 192.0.2.10", "b=AS:49",
                 "b=RS:600", "b=RR:2000", "a=rtpmap:104 AMR-WB/16000/1", "a=fmtp:104 max-red=0",
                 "a=rtpmap:105 AMR/8000/1", "a=fmtp:105 mode-set=0,2,4,7; max-red=0",
                 "a=rtpmap:101 telephone-event/16000", "a=rtpmap:103 telephone-event/8000",
                 "a=ptime:20", "a=maxptime:240", "a=sendrecv"}),
        sdp::writeMediaDescription(stream, "192.0.2.10", 49152));
}

TEST(SdpWriterTest, WritesEveryOption) {
    AmrCodecConfig wide = amrCodec(BandTypeWb, 98, {8, 2, 0});
    wide.setOctetAlignMode(true);
    wide.setModeChangePeriod(ModeChangePeriodEveryOtherFrame);
    wide.setModeChangeNeighbor(true);
    wide.setCrcMode(true);
    wide.setRobustSortingMode(true);
    wide.setInterleavingMode(true);
    wide.setRdcyMode(true);
    wide.setMaxRdcy(80);
    wide.setPacketTime(40);
    wide.setMaxPacketTime(120);
    // Every mode ascending needs no mode-set; without redundancy max-red is 0.
    AmrCodecConfig narrow = amrCodec(BandTypeNb, 96);
    narrow.setMaxRdcy(5);
    StreamConfig stream =
        placedStream("203.0.113.5", 30000, StreamConfig::DirectionSendOnly, {&wide, &narrow});
    stream.setRtcp(false);
    stream.setRtcpConfig(RtcpConfig(5000, 2000, 800, 64, true));
    stream.setRtpProfile(RtpProfileAvpf);
    EXPECT_EQ(sdpText({"m=audio 50000 RTP/AVPF 98 96", "c=IN IP6 2001:db8::10", "b=AS:64", "b=RS:0",
                       "b=RR:0", "a=rtpmap:98 AMR-WB/16000/1",
                       "a=fmtp:98 mode-set=8,2,0; octet-align=1; mode-change-period=2; "
                       "mode-change-neighbor=1; crc=1; robust-sorting=1; interleaving=1; "
                       "max-red=80",
                       "a=rtpmap:96 AMR/8000/1", "a=fmtp:96 max-red=0", "a=ptime:40",
                       "a=maxptime:120", "a=sendonly", "a=rtcp-rsize"}),
              sdp::writeMediaDescription(stream, "2001:db8::10", 50000));
}

TEST(SdpWriterTest, ListsTheDownlinkCodecsFirst) {
    StreamConfig stream;
    ASSERT_TRUE(stream.setDirection(StreamConfig::DirectionInactive).isSuccess());
    ASSERT_TRUE(stream.addUplinkCodec(amrCodec(BandTypeNb, 97, {7})).isSuccess());
    ASSERT_TRUE(stream.addDownlinkCodec(dtmfCodec(BandTypeNb, 101)).isSuccess());
    EXPECT_EQ(sdpText({"m=audio 49152 RTP/AVP 101", "c=IN IP4 192.0.2.10", "b=AS:64", "b=RS:800",
                       "b=RR:0", "a=rtpmap:101 telephone-event/8000", "a=ptime:20",
                       "a=maxptime:240", "a=inactive"}),
              sdp::writeMediaDescription(stream, "192.0.2.10", 49152));
    stream.clearDownlinkCodecs();
    EXPECT_EQ(sdpText({"m=audio 49152 RTP/AVP 97", "c=IN IP4 192.0.2.10", "b=AS:64", "b=RS:800",
                       "b=RR:0", "a=rtpmap:97 AMR/8000/1", "a=fmtp:97 mode-set=7; max-red=0",
                       "a=ptime:20", "a=maxptime:240", "a=inactive"}),
              sdp::writeMediaDescription(stream, "192.0.2.10", 49152));
}

}  // namespace
