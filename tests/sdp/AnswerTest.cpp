#include <velmora/rune/StreamCapabilities.h>
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

const char* const kOfferer = "192.0.2.1";
// Lines 1 to 5; the m= line of each offer is line 6.
const std::string kHead =
    sdpText({"v=0", "o=- 7 7 IN IP4 192.0.2.1", "s=-", "c=IN IP4 192.0.2.1", "t=0 0"});

// Every mode of the band unless modes are given; no optional payload format.
AmrCodecCapabilities amrCaps(BandType band, std::vector<int> modes = {}) {
    AmrCodecCapabilities amr;
    amr.setBandType(band);
    for (int mode = 0; modes.empty() && mode <= (band == BandTypeNb ? 7 : 8); ++mode) {
        EXPECT_TRUE(amr.addSupportedAmrRate(static_cast<AmrRate>(mode)).isSuccess());
    }
    for (int mode : modes) {
        EXPECT_TRUE(amr.addSupportedAmrRate(static_cast<AmrRate>(mode)).isSuccess());
    }
    return amr;
}

DtmfCodecCapabilities dtmfCaps(BandType band) {
    DtmfCodecCapabilities dtmf;
    dtmf.setBandType(band);
    return dtmf;
}

StreamCapabilities localCaps(const std::vector<const CodecCapabilities*>& codecs,
                             std::vector<RtpProfile> profiles = {RtpProfileAvp, RtpProfileAvpf},
                             RtcpConfig rtcp = RtcpConfig()) {
    StreamCapabilities local;
    for (const CodecCapabilities* codec : codecs) {
        local.addCodecCapabilities(*codec);
    }
    for (RtpProfile profile : profiles) {
        local.addRtpProfile(profile);
    }
    local.setRtcpCaps(rtcp);
    return local;
}

// A phone's: AMR-WB, then AMR, and telephone-event for both bands.
StreamCapabilities phoneCaps(const AmrCodecCapabilities& wide = amrCaps(BandTypeWb)) {
    const AmrCodecCapabilities narrow = amrCaps(BandTypeNb);
    const DtmfCodecCapabilities wideEvents = dtmfCaps(BandTypeWb);
    const DtmfCodecCapabilities narrowEvents = dtmfCaps(BandTypeNb);
    return localCaps({&wide, &narrow, &wideEvents, &narrowEvents});
}

// The lines every answer here starts with, at the default RTCP values.
std::string answerHead(const char* media) {
    return sdpText({media, "c=IN IP4 192.0.2.10", "b=AS:64", "b=RS:800", "b=RR:0"});
}

struct AnswerCase {
    const char* name;
    std::string offer;
    std::function<StreamCapabilities()> local;
    std::string answer;
    std::function<StreamConfig()> negotiated;
};

const AnswerCase kAnswers[] = {
    // An Android VoLTE phone: both formats of AMR-WB, then AMR, and telephone-event at both rates.
    {"FirstAcceptableWithEventsOfItsRate",
     kHead +
         sdpText({"m=audio 40010 RTP/AVP 116 107 97 111 110", "a=rtpmap:116 AMR-WB/16000/1",
                  "a=fmtp:116 mode-change-capability=2;max-red=0", "a=rtpmap:107 AMR-WB/16000/1",
                  "a=fmtp:107 octet-align=1;mode-change-capability=2;max-red=0",
                  "a=rtpmap:97 AMR/8000/1", "a=rtpmap:111 telephone-event/16000",
                  "a=rtpmap:110 telephone-event/8000", "a=ptime:20", "a=maxptime:240"}),
     [] { return phoneCaps(); },
     answerHead("m=audio 49152 RTP/AVP 116 111") +
         sdpText({"a=rtpmap:116 AMR-WB/16000/1", "a=fmtp:116 mode-change-capability=2; max-red=0",
                  "a=rtpmap:111 telephone-event/16000", "a=ptime:20", "a=maxptime:240",
                  "a=sendrecv"}),
     [] {
         const AmrCodecConfig amr = amrCodec(BandTypeWb, 116);
         const DtmfCodecConfig events = dtmfCodec(BandTypeWb, 111);
         return placedStream(kOfferer, 40010, StreamConfig::DirectionFullDuplex, {&amr, &events});
     }},
    // crc, robust sorting and interleaving offered to a side that has none of them and needs the
    // octet-aligned format, on hold.
    {"OptionsTheSideLacks",
     kHead + sdpText({"m=audio 30000 RTP/AVP 98 99 100 101 102", "a=rtpmap:98 AMR-WB/16000/1",
                      "a=fmtp:98 crc=1", "a=rtpmap:99 AMR-WB/16000/1", "a=fmtp:99 interleaving=4",
                      "a=rtpmap:100 AMR-WB/16000/1", "a=fmtp:100 robust-sorting=1",
                      "a=rtpmap:101 AMR-WB/16000/1", "a=rtpmap:102 AMR-WB/16000/1",
                      "a=fmtp:102 octet-align=1", "a=sendonly"}),
     [] {
         AmrCodecCapabilities wide = amrCaps(BandTypeWb);
         wide.setOctetAlignModeRequired(true);
         return phoneCaps(wide);
     },
     answerHead("m=audio 49152 RTP/AVP 102") +
         sdpText({"a=rtpmap:102 AMR-WB/16000/1",
                  "a=fmtp:102 octet-align=1; mode-change-capability=2; max-red=220", "a=ptime:20",
                  "a=maxptime:240", "a=recvonly"}),
     [] {
         AmrCodecConfig amr = amrCodec(BandTypeWb, 102);
         amr.setOctetAlignMode(true);
         amr.setRdcyMode(true);
         amr.setMaxRdcy(220);
         return placedStream(kOfferer, 30000, StreamConfig::DirectionReceiveOnly, {&amr});
     }},
    // AVPF with reduced-size RTCP, every option supported; the offer's mode changes bind the
    // negotiated codec, this side's go into the answer.
    {"EveryOptionSupported",
     kHead + sdpText({"m=audio 50000 RTP/AVPF 98", "a=rtpmap:98 AMR-WB/16000/1",
                      "a=fmtp:98 Mode-Set = 8 , 2 ,0 ; CRC=1;robust-sorting=1 ; interleaving=4; "
                      "max-red=100; mode-change-capability=2; x-vendor=7",
                      "a=ptime:40", "a=maxptime:120", "a=rtcp-rsize", "a=recvonly"}),
     [] {
         AmrCodecCapabilities wide = amrCaps(BandTypeWb);
         wide.setCrcModeSupport(true);
         wide.setRobustSortingModeSupport(true);
         wide.setInterleavingModeSupport(true);
         EXPECT_TRUE(wide.setModeChangePeriod(ModeChangePeriodEveryOtherFrame).isSuccess());
         wide.setModeChangeNeighborRequired(true);
         wide.setMaxSupportedRdcy(60);
         return localCaps({&wide}, {RtpProfileAvpf}, RtcpConfig(5000, 1000, 400, 40, true));
     },
     sdpText({"m=audio 49152 RTP/AVPF 98", "c=IN IP4 192.0.2.10", "b=AS:40", "b=RS:400",
              "b=RR:1000", "a=rtpmap:98 AMR-WB/16000/1",
              "a=fmtp:98 mode-set=8 , 2 ,0; mode-change-capability=2; mode-change-period=2; "
              "mode-change-neighbor=1; crc=1; robust-sorting=1; interleaving=4; max-red=60",
              "a=ptime:40", "a=maxptime:120", "a=sendonly", "a=rtcp-rsize"}),
     [] {
         AmrCodecConfig amr = amrCodec(BandTypeWb, 98, {8, 2, 0});
         amr.setOctetAlignMode(true);
         amr.setCrcMode(true);
         amr.setRobustSortingMode(true);
         amr.setInterleavingMode(true);
         amr.setRdcyMode(true);
         amr.setMaxRdcy(60);
         amr.setPacketTime(40);
         amr.setMaxPacketTime(120);
         StreamConfig negotiated =
             placedStream(kOfferer, 50000, StreamConfig::DirectionSendOnly, {&amr});
         negotiated.setRtcpConfig(RtcpConfig(5000, 1000, 400, 40, true));
         negotiated.setRtpProfile(RtpProfileAvpf);
         return negotiated;
     }},
    // A gateway whose AMR-WB mode-set holds a mode this side lacks; its AMR has no fmtp, so
    // this side's modes, redundancy (none) and packet times hold, with the narrow-band events.
    // Reduced size is on here but not offered.
    {"GatewayModeSetNotHonoured",
     kHead + sdpText({"m=audio 30000 RTP/AVP 0 96 97 101 100", "a=rtpmap:0 PCMU/8000",
                      "a=rtpmap:96 AMR-WB/16000", "a=fmtp:96 mode-set=0,1,2,8",
                      "a=rtpmap:97 AMR/8000", "a=rtpmap:101 telephone-event/16000",
                      "a=rtpmap:100 telephone-event/8000", "a=maxptime:100", "a=inactive"}),
     [] {
         const AmrCodecCapabilities wide = amrCaps(BandTypeWb, {2, 1, 0});
         AmrCodecCapabilities narrow = amrCaps(BandTypeNb, {7, 4, 2, 0});
         narrow.setRdcyModeSupport(false);
         narrow.setPacketTime(40);
         narrow.setMaxPacketTime(200);
         EXPECT_TRUE(narrow.setModeChangeCapability(ModeChangeCapabilityAnyFrameOnly).isSuccess());
         const DtmfCodecCapabilities wideEvents = dtmfCaps(BandTypeWb);
         const DtmfCodecCapabilities narrowEvents = dtmfCaps(BandTypeNb);
         return localCaps({&wide, &narrow, &wideEvents, &narrowEvents}, {},
                          RtcpConfig(5000, 2500, 500, 30, true));
     },
     sdpText({"m=audio 49152 RTP/AVP 97 100", "c=IN IP4 192.0.2.10", "b=AS:30", "b=RS:500",
              "b=RR:2500", "a=rtpmap:97 AMR/8000/1", "a=fmtp:97 mode-set=0,2,4,7; max-red=0",
              "a=rtpmap:100 telephone-event/8000", "a=ptime:40", "a=maxptime:100", "a=inactive"}),
     [] {
         AmrCodecConfig amr = amrCodec(BandTypeNb, 97, {0, 2, 4, 7});
         DtmfCodecConfig events = dtmfCodec(BandTypeNb, 100);
         for (CodecConfig* codec : std::vector<CodecConfig*>{&amr, &events}) {
             codec->setPacketTime(40);
             codec->setMaxPacketTime(100);
         }
         StreamConfig negotiated =
             placedStream(kOfferer, 30000, StreamConfig::DirectionInactive, {&amr, &events});
         negotiated.setRtcpConfig(RtcpConfig(5000, 2500, 500, 30, false));
         return negotiated;
     }},
};

TEST(SdpAnswerTest, AnswersOffers) {
    for (const AnswerCase& row : kAnswers) {
        SCOPED_TRACE(row.name);
        StreamConfig negotiated;
        std::string answer;
        EXPECT_EQ("Success",
                  sdp::answerOffer(row.offer, row.local(), "192.0.2.10", 49152, negotiated, answer)
                      .format());
        EXPECT_EQ(row.answer, answer);
        EXPECT_EQ(row.negotiated().toString(), negotiated.toString());
    }
}

struct RefusalCase {
    const char* name;
    std::string offer;
    std::vector<RtpProfile> profiles;
    const char* expected;
};

const RefusalCase kRefusals[] = {
    {"ReadingFirst",
     kHead + sdpText({"m=audio 49152 RTP/AVPF 97", "a=rtpmap:97 AMR/8000", "a=fmtp:97 crc=2"}),
     {RtpProfileAvp},
     "Invalid Param (Code 1002): Bad fmtp value: crc=2 {line 8: a=fmtp:97 crc=2}"},
    {"AvpfNotSupported",
     kHead + sdpText({"m=audio 49152 RTP/AVPF 0"}),
     {RtpProfileAvp},
     "Invalid Configuration (Code 1003): Unsupported profile {line 6: m=audio 49152 RTP/AVPF 0}"},
    {"AvpfWithoutProfiles",
     kHead + sdpText({"m=audio 49152 RTP/AVPF 97", "a=rtpmap:97 AMR/8000"}),
     {},
     "Invalid Configuration (Code 1003): Unsupported profile "
     "{line 6: m=audio 49152 RTP/AVPF 97}"},
    {"OtherBandOnly",
     kHead + sdpText({"m=audio 49152 RTP/AVP 96 101", "a=rtpmap:96 AMR-WB/16000/1",
                      "a=rtpmap:101 telephone-event/8000"}),
     {RtpProfileAvp},
     "Invalid Configuration (Code 1003): No common codec {line 6: m=audio 49152 RTP/AVP 96 101}"},
};

TEST(SdpAnswerTest, RefusesWithTheMediaLine) {
    const AmrCodecCapabilities narrow = amrCaps(BandTypeNb);
    const DtmfCodecCapabilities events = dtmfCaps(BandTypeNb);
    for (const RefusalCase& row : kRefusals) {
        SCOPED_TRACE(row.name);
        StreamConfig negotiated;
        const std::string before = negotiated.toString();
        std::string answer = "left";
        EXPECT_EQ(row.expected,
                  sdp::answerOffer(row.offer, localCaps({&narrow, &events}, row.profiles),
                                   "192.0.2.10", 49152, negotiated, answer)
                      .format());
        EXPECT_EQ(before, negotiated.toString());
        EXPECT_EQ("left", answer);
    }
}

}  // namespace
