#include "SdpTestSupport.h"

#include <functional>

using namespace velmora::testing;

namespace {

struct WriteCase {
    std::function<StreamConfig()> stream;
    const char* ip;
    int port;
    std::string media;
};

const WriteCase kWriteCases[] = {
    // A phone's: AMR-WB without DTX or redundancy, AMR with modes in another order,
    // telephone-event for each band; the downlink codecs are listed, not the uplink ones. RR 0
    // alone keeps RTCP on.
    {[] {
         AmrCodecConfig wide = amrCodec(BandTypeWb, 104, {0, 1, 2, 3, 4, 5, 6, 7, 8});
         wide.setDTXMode(false);
         wide.setMaxRdcy(3);
         const AmrCodecConfig narrow = amrCodec(BandTypeNb, 105, {7, 5, 2}, kOctetAlign);
         const DtmfCodecConfig wideEvents = dtmfCodec(BandTypeWb, 101);
         const DtmfCodecConfig narrowEvents = dtmfCodec(BandTypeNb, 103);
         StreamConfig stream = placedStream(
             "198.51.100.20", 20000, StreamConfig::DirectionFullDuplex,
             {&wide, &narrow, &wideEvents, &narrowEvents}, RtcpConfig(2500, 0, 600, 49, false));
         EXPECT_TRUE(stream.addUplinkCodec(amrCodec(BandTypeNb, 97, {7})).isSuccess());
         return stream;
     },
     "192.0.2.10", 49152, dataText("write-phone.sdp")},
    // Every option, over AVPF with RTCP off and reduced size; every mode of AMR, not ascending;
    // the packet times of the first codec; send only, so the uplink codecs are listed.
    {[] {
         AmrCodecConfig wide = amrCodec(BandTypeWb, 98, {8, 2, 0}, kEveryOption, 80);
         wide.setPacketTime(40);
         wide.setMaxPacketTime(120);
         const AmrCodecConfig narrow =
             amrCodec(BandTypeNb, 96, {7, 6, 5, 4, 3, 2, 1, 0}, kOctetAlign | kCrc);
         StreamConfig stream =
             placedStream("203.0.113.5", 30000, StreamConfig::DirectionSendOnly, {&wide, &narrow},
                          RtcpConfig(5000, 2000, 800, 64, true));
         stream.setRtcp(false);
         stream.setRtpProfile(RtpProfileAvpf);
         return stream;
     },
     "2001:db8::10", 65535, dataText("write-every-option.sdp")},
};

// Written whole; read back as the remote party reads it and seen from this side again, it
// writes the same text.
TEST(WriteMediaTest, WritesWhatReadsBackAlike) {
    for (const WriteCase& row : kWriteCases) {
        const std::string media = sdp::writeMediaDescription(row.stream(), row.ip, row.port);
        SCOPED_TRACE(media);
        EXPECT_EQ(row.media, media);
        expectOthersReadAlike(media);
        StreamConfig read;
        std::vector<sdp::SkippedFormat> skipped;
        EXPECT_EQ("Success",
                  sdp::readRemoteDescription(
                      sdpText({"v=0", "o=- 1 1 IN IP4 192.0.2.99", "s=-", "t=0 0"}) + media, read,
                      skipped)
                      .format());
        EXPECT_TRUE(skipped.empty());
        EXPECT_TRUE(read.setDirection(mirrored(read.getDirection())).isSuccess());
        EXPECT_EQ(media, sdp::writeMediaDescription(read, row.ip, row.port));
    }
}

// Nothing is written for a local endpoint the model refuses.
TEST(WriteMediaTest, WritesNothingForABadEndpoint) {
    const StreamConfig stream = kWriteCases[0].stream();
    for (const BadEndpoint& endpoint : kBadEndpoints) {
        EXPECT_EQ("", sdp::writeMediaDescription(stream, endpoint.ip, endpoint.port));
    }
}

}  // namespace
