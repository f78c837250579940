#include <velmora/rune/sdp/Sdp.h>

#include "SdpTestSupport.h"

#include <gtest/gtest.h>

#include <functional>

using namespace velmora::rune;
using velmora::testing::amrCodec;
using velmora::testing::dtmfCodec;
using velmora::testing::placedStream;
using velmora::testing::sdpText;

namespace {

struct ReadCase {
    const char* name;
    std::string description;
    std::function<StreamConfig()> expected;
    std::vector<sdp::SkippedFormat> skipped;
};

// An Android VoLTE phone's offer: AMR-WB and AMR, bandwidth-efficient and octet-aligned, and
// telephone-event for each band.
const ReadCase kPhoneOffer = {
    "PhoneOffer",
    sdpText({"v=0",
             "o=rue 3141 3141 IN IP4 192.0.2.33",
             "s=-",
             "c=IN IP4 192.0.2.33",
             "t=0 0",
             "m=audio 40010 RTP/AVP 116 107 97 111 110",
             "b=AS:49",
             "b=RS:612",
             "b=RR:1837",
             "a=rtpmap:116 AMR-WB/16000/1",
             "a=fmtp:116 mode-change-capability=2;max-red=0",
             "a=rtpmap:107 AMR-WB/16000/1",
             "a=fmtp:107 octet-align=1;mode-change-capability=2;max-red=0",
             "a=rtpmap:97 AMR/8000/1",
             "a=fmtp:97 mode-change-capability=2;max-red=0",
             "a=rtpmap:111 telephone-event/16000",
             "a=fmtp:111 0-15",
             "a=rtpmap:110 telephone-event/8000",
             "a=fmtp:110 0-15",
             "a=ptime:20",
             "a=maxptime:240",
             "a=sendrecv"}),
    [] {
        AmrCodecConfig octetAligned = amrCodec(BandTypeWb, 107);
        octetAligned.setOctetAlignMode(true);
        const AmrCodecConfig wide = amrCodec(BandTypeWb, 116);
        const AmrCodecConfig narrow = amrCodec(BandTypeNb, 97);
        const DtmfCodecConfig wideEvents = dtmfCodec(BandTypeWb, 111);
        const DtmfCodecConfig narrowEvents = dtmfCodec(BandTypeNb, 110);
        StreamConfig stream =
            placedStream("192.0.2.33", 40010, StreamConfig::DirectionFullDuplex,
                         {&wide, &octetAligned, &narrow, &wideEvents, &narrowEvents});
        stream.setRtcpConfig(RtcpConfig(5000, 1837, 612, 49, false));
        return stream;
    },
    {}};

// A session border controller putting the call on hold, with LF line ends: session-level c=,
// direction and b=RR, a media-level b=AS.
const ReadCase kGatewayHold = {
    "GatewayHold",
    sdpText({"v=0", "o=- 8437 2 IN IP4 198.51.100.20", "s=SBC", "c=IN IP4 198.51.100.20",
             "b=RR:2000", "t=0 0", "a=sendonly", "m=audio 20000 RTP/AVP 96 101", "b=AS:30",
             "a=rtpmap:96 AMR/8000", "a=fmtp:96 mode-set=7; octet-align=1",
             "a=rtpmap:101 telephone-event/8000", "", "a=ptime:40"},
            "\n"),
    [] {
        AmrCodecConfig amr = amrCodec(BandTypeNb, 96, {7});
        amr.setOctetAlignMode(true);
        amr.setPacketTime(40);
        DtmfCodecConfig dtmf = dtmfCodec(BandTypeNb, 101);
        dtmf.setPacketTime(40);
        StreamConfig stream =
            placedStream("198.51.100.20", 20000, StreamConfig::DirectionReceiveOnly, {&amr, &dtmf});
        stream.setRtcpConfig(RtcpConfig(5000, 2000, 800, 30, false));
        return stream;
    },
    {}};

// Every AMR option, with names in another case and blanks wherever they are tolerated.
const ReadCase kEveryOption = {
    "EveryOption",
    sdpText({"v=0", "o=- 1 1 IN IP6 2001:db8::5", "s=-", "t=0 0", "m=audio 50000 RTP/AVPF 98",
             "c=IN IP6 2001:db8::5", "b=AS:64", "b=RS:0", "b=RR:0", "a=rtpmap: 98 amr-wb/16000/1",
             "a=fmtp: 98 Mode-Set = 8 , 2 ,0 ; CRC=1;robust-sorting=1 ; interleaving=4; "
             "mode-change-period=2; mode-change-neighbor=1; max-red=100; x-vendor=7",
             "a=maxptime:120", "a=rtcp-rsize", "a=recvonly"}),
    [] {
        AmrCodecConfig amr = amrCodec(BandTypeWb, 98, {8, 2, 0});
        amr.setOctetAlignMode(true);
        amr.setCrcMode(true);
        amr.setRobustSortingMode(true);
        amr.setInterleavingMode(true);
        amr.setModeChangePeriod(ModeChangePeriodEveryOtherFrame);
        amr.setModeChangeNeighbor(true);
        amr.setRdcyMode(true);
        amr.setMaxRdcy(100);
        amr.setMaxPacketTime(120);
        StreamConfig stream =
            placedStream("2001:db8::5", 50000, StreamConfig::DirectionSendOnly, {&amr});
        stream.setRtcpConfig(RtcpConfig(5000, 0, 0, 64, true));
        stream.setRtcp(false);
        stream.setRtpProfile(RtpProfileAvpf);
        return stream;
    },
    {}};

// The first audio section is disabled; the one read has formats the model has no codec for.
const ReadCase kSkippedFormats = {
    "SkippedFormats",
    sdpText({"v=0", "o=- 5 5 IN IP4 203.0.113.9", "s=-", "c=IN IP4 203.0.113.9", "t=0 0",
             "m=audio 0 RTP/AVP 0", "m=video 51372 RTP/AVP 99", "a=rtpmap:99 H264/90000",
             "m=audio 49170 RTP/AVP 0 8 97 98 99 100", "c=IN IP4 224.2.1.1/127",
             "a=rtpmap:0 PCMU/8000", "a=rtpmap:97 AMR/8000/2", "a=rtpmap:98 telephone-event/48000",
             "a=rtpmap:100 AMR/8000/1", "a=fmtp:100 max-red=0", "a=fmtp:98 0-15,x",
             "a=fmtp:0 annexb=maybe", "a=inactive"}),
    [] {
        const AmrCodecConfig amr = amrCodec(BandTypeNb, 100);
        return placedStream("224.2.1.1", 49170, StreamConfig::DirectionInactive, {&amr});
    },
    {{0, "PCMU/8000"}, {8, ""}, {97, "AMR/8000/2"}, {98, "telephone-event/48000"}, {99, ""}}};

const ReadCase kReadCases[] = {kPhoneOffer, kGatewayHold, kEveryOption, kSkippedFormats};

TEST(SdpReaderTest, ReadsDescriptions) {
    for (const ReadCase& row : kReadCases) {
        SCOPED_TRACE(row.name);
        StreamConfig stream;
        std::vector<sdp::SkippedFormat> skipped = {{1, "left over"}};
        const sdp::Result result = sdp::readRemoteDescription(row.description, stream, skipped);
        EXPECT_EQ("Success", result.format());
        EXPECT_EQ(row.expected().toString(), stream.toString());
        EXPECT_EQ(row.skipped, skipped);
    }
}

TEST(SdpReaderTest, RefusalLeavesStreamAndSkippedFormats) {
    StreamConfig stream;
    EXPECT_TRUE(stream.setRemoteRtpPort(50000).isSuccess());
    const std::string before = stream.toString();
    std::vector<sdp::SkippedFormat> skipped = {{1, "left over"}};
    std::string description = kSkippedFormats.description;
    description.replace(description.find("m=audio 49170"), 13, "m=audio 80");
    EXPECT_TRUE(sdp::readRemoteDescription(description, stream, skipped).isFailure());
    EXPECT_EQ(before, stream.toString());
    EXPECT_EQ((std::vector<sdp::SkippedFormat>{{1, "left over"}}), skipped);
}

TEST(SdpReaderTest, FirstOccurrenceCounts) {
    const std::string description = sdpText(
        {"v=0", "o=- 1 1 IN IP4 192.0.2.1", "s=-", "c=IN IP4 192.0.2.1", "t=0 0",
         "m=audio 49152 RTP/AVP 97", "c=IN IP4 192.0.2.2", "c=IN IP4 192.0.2.3", "b=AS:40",
         "b=AS:50", "a=rtpmap:97 AMR/8000", "a=rtpmap:97 AMR-WB/16000", "a=fmtp:97 mode-set=2",
         "a=fmtp:97 mode-set=3", "a=ptime:30", "a=ptime:60", "a=recvonly", "a=sendonly"});
    StreamConfig stream;
    std::vector<sdp::SkippedFormat> skipped;
    ASSERT_TRUE(sdp::readRemoteDescription(description, stream, skipped).isSuccess());
    AmrCodecConfig amr = amrCodec(BandTypeNb, 97, {2});
    amr.setPacketTime(30);
    StreamConfig expected =
        placedStream("192.0.2.2", 49152, StreamConfig::DirectionSendOnly, {&amr});
    expected.setRtcpConfig(RtcpConfig(5000, 0, 800, 40, false));
    EXPECT_EQ(expected.toString(), stream.toString());
}

}  // namespace
