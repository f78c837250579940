#include "SdpTestSupport.h"

#include <functional>
#include <memory>

using namespace velmora::rune;
using namespace velmora::testing;

namespace {

const std::string kSession = sdpText({"v=0", "o=- 42 42 IN IP4 192.0.2.99", "s=-", "t=0 0"});

// What the remote party reads from what stream wrote, seen from its side: the listed codecs at
// the first one's packet times, and what SDP cannot carry at the reader's defaults.
StreamConfig readBack(const StreamConfig& written, const std::string& ip,
                      StreamConfig::Direction direction) {
    const bool down = written.getDownlinkCodecCount() > 0;
    std::vector<std::unique_ptr<CodecConfig>> codecs;
    std::vector<const CodecConfig*> read;
    for (unsigned int i = 0;
         i < (down ? written.getDownlinkCodecCount() : written.getUplinkCodecCount()); ++i) {
        codecs.emplace_back(
            (down ? written.getDownlinkCodec(i) : written.getUplinkCodec(i))->clone());
        setPacketTimes({codecs[i].get()}, codecs[0]->getPacketTime(),
                       codecs[0]->getMaxPacketTime());
        if (auto* amr = dynamic_cast<AmrCodecConfig*>(codecs[i].get())) {
            amr->setDTXMode(true);
            amr->setMaxRdcy(amr->isRdcyModeEnabled() ? amr->getMaxRdcy()
                                                     : AmrCodecConfig::DEFAULT_MAX_RDCY);
        }
        read.push_back(codecs[i].get());
    }
    RtcpConfig rtcp = written.getRtcpConfig();
    rtcp.setInterval(RtcpConfig::DEFAULT_INTERVAL);
    if (!written.isRtcpEnabled()) {
        rtcp.setRs(0);
        rtcp.setRr(0);
    }
    StreamConfig stream = placedStream(ip, 49152, direction, read, rtcp);
    stream.setRtcp(written.isRtcpEnabled());
    stream.setRtpProfile(written.getRtpProfile());
    return stream;
}

struct WriteCase {
    std::function<StreamConfig()> stream;
    const char* ip;
    // The direction the remote party reads: this side's, mirrored.
    StreamConfig::Direction read;
    std::string media;
};

const WriteCase kWriteCases[] = {
    // A phone's: AMR-WB without DTX or redundancy, AMR with modes in another order,
    // telephone-event for each band; the downlink codecs are listed, not the uplink ones. RR 0
    // alone keeps RTCP on.
    {[] {
         AmrCodecConfig wide = amrCodec(BandTypeWb, 104);
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
     "192.0.2.10", StreamConfig::DirectionFullDuplex,
     sdpText({"m=audio 49152 RTP/AVP 104 105 101 103", "c=IN IP4 192.0.2.10", "b=AS:49", "b=RS:600",
              "b=RR:0", "a=rtpmap:104 AMR-WB/16000/1", "a=fmtp:104 max-red=0",
              "a=rtpmap:105 AMR/8000/1", "a=fmtp:105 mode-set=7,5,2; octet-align=1; max-red=0",
              "a=rtpmap:101 telephone-event/16000", "a=rtpmap:103 telephone-event/8000",
              "a=ptime:20", "a=maxptime:240", "a=sendrecv"})},
    // Every option, over AVPF with RTCP off and reduced size; every mode of AMR, not ascending;
    // the packet times of the first codec; send only, so the uplink codecs are listed.
    {[] {
         AmrCodecConfig wide = amrCodec(BandTypeWb, 98, {8, 2, 0}, kEveryOption, 80);
         setPacketTimes({&wide}, 40, 120);
         const AmrCodecConfig narrow =
             amrCodec(BandTypeNb, 96, {7, 6, 5, 4, 3, 2, 1, 0}, kOctetAlign | kCrc);
         StreamConfig stream =
             placedStream("203.0.113.5", 30000, StreamConfig::DirectionSendOnly, {&wide, &narrow},
                          RtcpConfig(5000, 2000, 800, 64, true));
         stream.setRtcp(false);
         stream.setRtpProfile(RtpProfileAvpf);
         return stream;
     },
     "2001:db8::10", StreamConfig::DirectionReceiveOnly,
     sdpText({"m=audio 49152 RTP/AVPF 98 96", "c=IN IP6 2001:db8::10", "b=AS:64", "b=RS:0",
              "b=RR:0", "a=rtpmap:98 AMR-WB/16000/1",
              "a=fmtp:98 mode-set=8,2,0; octet-align=1; mode-change-period=2; "
              "mode-change-neighbor=1; crc=1; robust-sorting=1; interleaving=1; max-red=80",
              "a=rtpmap:96 AMR/8000/1",
              "a=fmtp:96 mode-set=7,6,5,4,3,2,1,0; octet-align=1; crc=1; max-red=0", "a=ptime:40",
              "a=maxptime:120", "a=sendonly", "a=rtcp-rsize"})},
};

// Written whole, then read back as the remote party reads it.
TEST(SdpWriterTest, WritesWhatTheRemotePartyReadsBack) {
    for (const WriteCase& row : kWriteCases) {
        const StreamConfig stream = row.stream();
        const std::string media = sdp::writeMediaDescription(stream, row.ip, 49152);
        SCOPED_TRACE(media);
        EXPECT_EQ(row.media, media);
        StreamConfig read;
        std::vector<sdp::SkippedFormat> skipped;
        EXPECT_EQ("Success", sdp::readRemoteDescription(kSession + media, read, skipped).format());
        EXPECT_TRUE(skipped.empty());
        EXPECT_EQ(readBack(stream, row.ip, row.read).toString(), read.toString());
    }
}

}  // namespace
