#include <velmora/rune/sdp/Sdp.h>

#include "SdpTestSupport.h"

#include <gtest/gtest.h>

#include <memory>

using namespace velmora::rune;
using velmora::testing::amrCodec;
using velmora::testing::dtmfCodec;
using velmora::testing::placedStream;

namespace {

const char* const kSession = "v=0\r\no=- 42 42 IN IP4 192.0.2.99\r\ns=-\r\nt=0 0\r\n";

StreamConfig::Direction mirrored(StreamConfig::Direction direction) {
    return direction == StreamConfig::DirectionSendOnly      ? StreamConfig::DirectionReceiveOnly
           : direction == StreamConfig::DirectionReceiveOnly ? StreamConfig::DirectionSendOnly
                                                             : direction;
}

// What the remote party reads: the written codecs and AS, reduced size and profile, the
// direction mirrored, and what SDP cannot carry at the reader's defaults.
StreamConfig readBack(const StreamConfig& written, const std::string& ip, int port) {
    const bool downlink = written.getDownlinkCodecCount() > 0;
    const unsigned int count =
        downlink ? written.getDownlinkCodecCount() : written.getUplinkCodecCount();
    std::vector<std::unique_ptr<CodecConfig>> codecs;
    std::vector<const CodecConfig*> pointers;
    for (unsigned int i = 0; i < count; ++i) {
        const CodecConfig* codec =
            downlink ? written.getDownlinkCodec(i) : written.getUplinkCodec(i);
        codecs.emplace_back(codec->clone());
        codecs.back()->setPacketTime(pointers.empty() ? codec->getPacketTime()
                                                      : pointers.front()->getPacketTime());
        codecs.back()->setMaxPacketTime(pointers.empty() ? codec->getMaxPacketTime()
                                                         : pointers.front()->getMaxPacketTime());
        if (AmrCodecConfig* amr = dynamic_cast<AmrCodecConfig*>(codecs.back().get())) {
            amr->setDTXMode(true);
            if (!amr->isRdcyModeEnabled()) {
                amr->setMaxRdcy(AmrCodecConfig::DEFAULT_MAX_RDCY);
            }
        }
        pointers.push_back(codecs.back().get());
    }
    StreamConfig stream = placedStream(ip, port, mirrored(written.getDirection()), pointers);
    RtcpConfig rtcp = written.getRtcpConfig();
    rtcp.setInterval(RtcpConfig::DEFAULT_INTERVAL);
    if (!written.isRtcpEnabled()) {
        rtcp.setRs(0);
        rtcp.setRr(0);
    }
    stream.setRtcpConfig(rtcp);
    stream.setRtcp(written.isRtcpEnabled());
    stream.setRtpProfile(written.getRtpProfile());
    return stream;
}

void expectRoundTrip(const StreamConfig& stream, const std::string& ip, int port) {
    const std::string description = kSession + sdp::writeMediaDescription(stream, ip, port);
    SCOPED_TRACE(description);
    StreamConfig read;
    std::vector<sdp::SkippedFormat> skipped;
    ASSERT_EQ("Success", sdp::readRemoteDescription(description, read, skipped).format());
    EXPECT_TRUE(skipped.empty());
    EXPECT_EQ(readBack(stream, ip, port).toString(), read.toString());
}

TEST(SdpRoundTripTest, FullDuplexWithoutDtxOrRedundancy) {
    AmrCodecConfig wide = amrCodec(BandTypeWb, 104);
    wide.setDTXMode(false);
    wide.setMaxRdcy(3);
    AmrCodecConfig narrow = amrCodec(BandTypeNb, 105, {7, 5, 2});
    narrow.setOctetAlignMode(true);
    const DtmfCodecConfig events = dtmfCodec(BandTypeWb, 101);
    StreamConfig stream = placedStream("192.0.2.1", 40000, StreamConfig::DirectionFullDuplex,
                                       {&wide, &narrow, &events});
    stream.setRtcpConfig(RtcpConfig(2500, 2000, 600, 49, false));
    expectRoundTrip(stream, "192.0.2.10", 49152);
}

TEST(SdpRoundTripTest, EveryOptionWithoutRtcp) {
    AmrCodecConfig wide = amrCodec(BandTypeWb, 98, {8, 0, 1});
    wide.setOctetAlignMode(true);
    wide.setCrcMode(true);
    wide.setRobustSortingMode(true);
    wide.setInterleavingMode(true);
    wide.setModeChangePeriod(ModeChangePeriodEveryOtherFrame);
    wide.setModeChangeNeighbor(true);
    wide.setRdcyMode(true);
    wide.setMaxRdcy(220);
    wide.setPacketTime(60);
    AmrCodecConfig narrow = amrCodec(BandTypeNb, 96, {0});
    narrow.setOctetAlignMode(true);
    narrow.setCrcMode(true);
    StreamConfig stream =
        placedStream("192.0.2.1", 40000, StreamConfig::DirectionSendOnly, {&wide, &narrow});
    stream.setRtcp(false);
    stream.setRtcpConfig(RtcpConfig(5000, 1500, 800, 38, true));
    stream.setRtpProfile(RtpProfileAvpf);
    expectRoundTrip(stream, "2001:db8::10", 50000);
}

TEST(SdpRoundTripTest, ReceiveOnlyAndInactive) {
    AmrCodecConfig narrow = amrCodec(BandTypeNb, 97);
    narrow.setRdcyMode(true);
    narrow.setMaxRdcy(40);
    narrow.setModeChangeNeighbor(true);
    const DtmfCodecConfig events = dtmfCodec(BandTypeNb, 101);
    StreamConfig stream =
        placedStream("192.0.2.1", 40000, StreamConfig::DirectionReceiveOnly, {&narrow, &events});
    expectRoundTrip(stream, "192.0.2.10", 49152);
    ASSERT_TRUE(stream.setDirection(StreamConfig::DirectionInactive).isSuccess());
    expectRoundTrip(stream, "192.0.2.10", 49152);
}

}  // namespace
