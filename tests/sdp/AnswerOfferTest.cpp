#include "SdpTestSupport.h"

#include <functional>

using namespace velmora::rune;
using namespace velmora::testing;

namespace {

const char* const kOfferer = "192.0.2.1";

// Listing no mode supports every mode; the CLI's default capabilities list every mode.
AmrCodecCapabilities amrCaps(BandType band, std::vector<int> modes = {}) {
    AmrCodecCapabilities amr;
    amr.setBandType(band);
    for (int mode : modes) {
        EXPECT_TRUE(amr.addSupportedAmrRate(static_cast<AmrRate>(mode)).isSuccess());
    }
    return amr;
}

// A phone's: AMR-WB, then AMR, and telephone-event for both bands or the narrow one only.
StreamCapabilities phoneCaps(const AmrCodecCapabilities& wide, const AmrCodecCapabilities& narrow,
                             std::vector<RtpProfile> profiles = {RtpProfileAvp, RtpProfileAvpf},
                             RtcpConfig rtcp = RtcpConfig(), bool wideEvents = true) {
    StreamCapabilities local;
    local.addCodecCapabilities(wide);
    local.addCodecCapabilities(narrow);
    DtmfCodecCapabilities events;
    if (wideEvents) {
        local.addCodecCapabilities(events);
    }
    events.setBandType(BandTypeNb);
    local.addCodecCapabilities(events);
    for (RtpProfile profile : profiles) {
        local.addRtpProfile(profile);
    }
    local.setRtcpCaps(rtcp);
    return local;
}

struct AnswerCase {
    std::string offer;
    std::function<StreamCapabilities()> local;
    std::string answer;
    std::function<StreamConfig()> negotiated;
    const char* result = "Success";
};

StreamCapabilities avpOnly() {
    return phoneCaps(amrCaps(BandTypeWb), amrCaps(BandTypeNb), {RtpProfileAvp});
}

// The CLI's answer-volte-offer and answer-avpf-offer pin the default capabilities' answers.
const AnswerCase kAnswers[] = {
    // crc, interleaving and robust sorting offered to a side without them, the
    // bandwidth-efficient format to one that needs the octet-aligned: the first acceptable
    // format is kept, with the telephone-event of its rate, and this side's modes (all) left out.
    // The offer's mode changes bind the stream; without mode-change-capability=2 offered, this
    // side's mode-change-period is not answered. Reduced size is offered but off here.
    {offer({"m=audio 30000 RTP/AVP 98 99 100 101 102 97 103 104", "a=rtpmap:98 AMR-WB/16000/1",
            "a=fmtp:98 crc=1", "a=rtpmap:99 AMR-WB/16000/1", "a=fmtp:99 interleaving=4",
            "a=rtpmap:100 AMR-WB/16000/1", "a=fmtp:100 robust-sorting=1",
            "a=rtpmap:101 AMR-WB/16000/1", "a=rtpmap:102 AMR-WB/16000/1",
            "a=fmtp:102 octet-align=1; mode-change-period=2; mode-change-neighbor=1",
            "a=rtpmap:97 AMR/8000/1", "a=rtpmap:103 telephone-event/8000",
            "a=rtpmap:104 telephone-event/16000", "a=maxptime:300", "a=rtcp-rsize", "a=sendonly"}),
     [] {
         AmrCodecCapabilities wide = amrCaps(BandTypeWb, {0, 1, 2, 3, 4, 5, 6, 7, 8});
         wide.setOctetAlignModeRequired(true);
         EXPECT_TRUE(wide.setModeChangePeriod(ModeChangePeriodEveryOtherFrame).isSuccess());
         return phoneCaps(wide, amrCaps(BandTypeNb));
     },
     sdpText({"m=audio 49152 RTP/AVP 102 104", "c=IN IP4 192.0.2.10", "b=AS:64", "b=RS:800",
              "b=RR:0", "a=rtpmap:102 AMR-WB/16000/1",
              "a=fmtp:102 octet-align=1; mode-change-capability=2; max-red=220",
              "a=rtpmap:104 telephone-event/16000", "a=ptime:20", "a=maxptime:240", "a=recvonly"}),
     [] {
         const AmrCodecConfig amr =
             amrCodec(BandTypeWb, 102, {}, kOctetAlign | kPeriodTwo | kNeighbor, 220);
         const DtmfCodecConfig events = dtmfCodec(BandTypeWb, 104);
         return placedStream(kOfferer, 30000, StreamConfig::DirectionReceiveOnly, {&amr, &events});
     }},
    // AVPF with reduced-size RTCP and every option, names in another case and blanks wherever
    // they are tolerated, to a side that supports them:
    // options and mode-set answered as offered, this side's mode changes and smaller max-red
    // added, unknown parameters dropped, the offer's mode changes bind the stream; no local
    // telephone-event of the kept rate.
    {offer({"m=audio 50000 RTP/AVPF 98 99", "a=rtpmap: 98 amr-wb/16000/1",
            "a=fmtp: 98 Mode-Set = 8 , 2 ,0 ; CRC=1;robust-sorting=1 ; interleaving=4; "
            "max-red=100; mode-change-capability=2; Mode-Change-Period=2; mode-change-neighbor=1 ;"
            " x-vendor=7",
            "a=rtpmap:99 telephone-event/16000", "a=ptime:40", "a=maxptime:120", "a=rtcp-rsize",
            "a=recvonly"}),
     [] {
         AmrCodecCapabilities wide = amrCaps(BandTypeWb);
         wide.setCrcModeSupport(true);
         wide.setRobustSortingModeSupport(true);
         wide.setInterleavingModeSupport(true);
         EXPECT_TRUE(wide.setModeChangePeriod(ModeChangePeriodEveryOtherFrame).isSuccess());
         wide.setModeChangeNeighborRequired(true);
         wide.setMaxSupportedRdcy(60);
         return phoneCaps(wide, amrCaps(BandTypeNb), {RtpProfileAvpf},
                          RtcpConfig(5000, 1000, 400, 40, true), false);
     },
     sdpText({"m=audio 49152 RTP/AVPF 98", "c=IN IP4 192.0.2.10", "b=AS:40", "b=RS:400",
              "b=RR:1000", "a=rtpmap:98 AMR-WB/16000/1",
              "a=fmtp:98 mode-set=8 , 2 ,0; mode-change-capability=2; mode-change-period=2; "
              "mode-change-neighbor=1; crc=1; robust-sorting=1; interleaving=4; max-red=60",
              "a=ptime:40", "a=maxptime:120", "a=sendonly", "a=rtcp-rsize"}),
     [] {
         AmrCodecConfig amr = amrCodec(BandTypeWb, 98, {8, 2, 0}, kEveryOption, 60);
         setPacketTimes({&amr}, 40, 120);
         StreamConfig negotiated = placedStream(kOfferer, 50000, StreamConfig::DirectionSendOnly,
                                                {&amr}, RtcpConfig(5000, 1000, 400, 40, true));
         negotiated.setRtpProfile(RtpProfileAvpf);
         return negotiated;
     }},
    // A gateway whose AMR-WB mode-set holds a mode this side lacks; its AMR has no fmtp, so this
    // side's modes, redundancy (none) and packet times hold, with the narrow-band events.
    // Reduced size is on here but not offered; no profile listed supports RTP/AVP.
    {offer({"m=audio 30000 RTP/AVP 0 96 97 101 100", "a=rtpmap:0 PCMU/8000",
            "a=rtpmap:96 AMR-WB/16000", "a=fmtp:96 mode-set=0,1,2,8", "a=rtpmap:97 AMR/8000",
            "a=rtpmap:101 telephone-event/16000", "a=rtpmap:100 telephone-event/8000",
            "a=maxptime:100", "a=inactive"}),
     [] {
         AmrCodecCapabilities narrow = amrCaps(BandTypeNb, {7, 4, 2, 0});
         narrow.setRdcyModeSupport(false);
         narrow.setPacketTime(40);
         narrow.setMaxPacketTime(200);
         EXPECT_TRUE(narrow.setModeChangeCapability(ModeChangeCapabilityAnyFrameOnly).isSuccess());
         return phoneCaps(amrCaps(BandTypeWb, {2, 1, 0}), narrow, {},
                          RtcpConfig(5000, 2500, 500, 30, true));
     },
     sdpText({"m=audio 49152 RTP/AVP 97 100", "c=IN IP4 192.0.2.10", "b=AS:30", "b=RS:500",
              "b=RR:2500", "a=rtpmap:97 AMR/8000/1", "a=fmtp:97 mode-set=0,2,4,7; max-red=0",
              "a=rtpmap:100 telephone-event/8000", "a=ptime:40", "a=maxptime:100", "a=inactive"}),
     [] {
         AmrCodecConfig amr = amrCodec(BandTypeNb, 97, {0, 2, 4, 7});
         DtmfCodecConfig events = dtmfCodec(BandTypeNb, 100);
         setPacketTimes({&amr, &events}, 40, 100);
         return placedStream(kOfferer, 30000, StreamConfig::DirectionInactive, {&amr, &events},
                             RtcpConfig(5000, 2500, 500, 30, false));
     }},
    // Refusals, which leave the negotiated stream and the answer as they were. The profile is
    // checked before the codecs, an empty set supports RTP/AVP only, and telephone-event alone is
    // no common codec.
    {offer({"m=audio 49152 RTP/AVPF 0"}), avpOnly, "", [] { return StreamConfig(); },
     "Invalid Configuration (Code 1003): Unsupported profile {line 6: m=audio 49152 RTP/AVPF 0}"},
    {offer({"m=audio 49152 RTP/AVPF 97", "a=rtpmap:97 AMR/8000"}),
     [] { return phoneCaps(amrCaps(BandTypeWb), amrCaps(BandTypeNb), {}); }, "",
     [] { return StreamConfig(); },
     "Invalid Configuration (Code 1003): Unsupported profile "
     "{line 6: m=audio 49152 RTP/AVPF 97}"},
    {offer({"m=audio 49152 RTP/AVP 96 101", "a=rtpmap:96 AMR-WB/16000/1", "a=fmtp:96 crc=1",
            "a=rtpmap:101 telephone-event/16000"}),
     avpOnly, "", [] { return StreamConfig(); },
     "Invalid Configuration (Code 1003): No common codec {line 6: m=audio 49152 RTP/AVP 96 101}"},
};

TEST(SdpAnswerTest, AnswersOffers) {
    for (const AnswerCase& row : kAnswers) {
        SCOPED_TRACE(row.offer);
        StreamConfig negotiated;
        std::string answer;
        EXPECT_EQ(row.result, sdp::answerOffer(row.offer, row.local(), "192.0.2.10", 49152,
                                               sdp::Origin(), negotiated, answer)
                                  .format());
        EXPECT_EQ(row.answer, answer);
        EXPECT_EQ(row.negotiated().toString(), negotiated.toString());
    }
}

}  // namespace
