#include "SdpTestSupport.h"

#include <functional>

using namespace velmora::rune;
using namespace velmora::testing;

namespace {

const std::string kOffer = dataText("accept-offer.sdp");

// An answer from 198.51.100.7 whose first m= line is line 6.
std::string answer(std::initializer_list<const char*> media) {
    return sdpText(
               {"v=0", "o=- 9 9 IN IP4 198.51.100.7", "s=-", "c=IN IP4 198.51.100.7", "t=0 0"}) +
           sdpText(media);
}

struct AcceptCase {
    std::string answer;
    std::function<StreamConfig()> negotiated;
};

const AcceptCase kAccepted[] = {
    // A mode-set where the offer had none, mode-change-period=2 after mode-change-capability=2;
    // a format the offer did not list is skipped; the answer's endpoint, direction mirrored,
    // packet time, and max packet time the offer's; the offer's RTCP, reduced size as both ask.
    {answer({"m=audio 30000 RTP/AVP 97 100 0", "c=IN IP4 198.51.100.8", "b=AS:40", "b=RR:500",
             "a=rtpmap:97 AMR-WB/16000/1",
             "a=fmtp:97 mode-set=2,1; octet-align=1; mode-change-period=2; "
             "mode-change-neighbor=1; max-red=100",
             "a=rtpmap:100 telephone-event/16000", "a=rtpmap:0 PCMU/8000", "a=ptime:40",
             "a=sendonly", "a=rtcp-rsize", "m=video 0 RTP/AVP 99"}),
     [] {
         AmrCodecConfig amr =
             amrCodec(BandTypeWb, 97, {2, 1}, kOctetAlign | kPeriodTwo | kNeighbor, 100);
         DtmfCodecConfig events = dtmfCodec(BandTypeWb, 100);
         setPacketTimes({&amr, &events}, 40, 240);
         return placedStream("198.51.100.8", 30000, StreamConfig::DirectionReceiveOnly,
                             {&amr, &events}, RtcpConfig(5000, 2000, 800, 64, true));
     }},
    // The first usable format in the answer's order, the first listed having changed the
    // mode-set; crc, robust sorting and interleaving kept; the events of its rate.
    {answer({"m=audio 30000 RTP/AVP 96 98 100 101", "a=rtpmap:96 AMR-WB/16000/1",
             "a=fmtp:96 mode-set=0,2", "a=rtpmap:98 AMR/8000/1",
             "a=fmtp:98 crc=1; robust-sorting=1; interleaving=1; max-red=0",
             "a=rtpmap:100 telephone-event/16000", "a=rtpmap:101 telephone-event/8000",
             "m=video 0 RTP/AVP 99"}),
     [] {
         const AmrCodecConfig amr =
             amrCodec(BandTypeNb, 98, {}, kOctetAlign | kCrc | kRobustSorting | kInterleaving);
         const DtmfCodecConfig events = dtmfCodec(BandTypeNb, 101);
         return placedStream("198.51.100.7", 30000, StreamConfig::DirectionFullDuplex,
                             {&amr, &events}, RtcpConfig(5000, 2000, 800, 64, false));
     }},
    // The offered mode-set, parameters in another order.
    {answer({"m=audio 30000 RTP/AVP 96", "a=rtpmap:96 AMR-WB/16000/1",
             "a=fmtp:96 max-red=0; mode-set=0,1,2", "a=recvonly", "m=video 0 RTP/AVP 99"}),
     [] {
         const AmrCodecConfig amr = amrCodec(BandTypeWb, 96, {0, 1, 2});
         return placedStream("198.51.100.7", 30000, StreamConfig::DirectionSendOnly, {&amr},
                             RtcpConfig(5000, 2000, 800, 64, false));
     }},
};

TEST(AcceptAnswerTest, AcceptsAnswersThatKeepTheOffer) {
    for (const AcceptCase& row : kAccepted) {
        SCOPED_TRACE(row.answer);
        StreamConfig negotiated;
        EXPECT_EQ("Success", sdp::acceptAnswer(kOffer, row.answer, negotiated).format());
        EXPECT_EQ(row.negotiated().toString(), negotiated.toString());
    }
}

struct Refusal {
    std::string answer;
    // The line of the answer the context quotes; 0 for none.
    int line;
    const char* message;
};

const char* const kMismatch = "Invalid Configuration (Code 1003): Answer does not match the offer";
const char* const kNoCodec = "Invalid Configuration (Code 1003): No common codec";

// In their order: values, the m= lines, the stream, the codecs.
const Refusal kRefusals[] = {
    {answer({"m=audio 30000 RTP/AVP 96", "a=ptime:x"}), 7,
     "Invalid Param (Code 1002): Bad packet time: x"},
    {answer({"m=audio 30000 RTP/AVP 96", "a=rtpmap:96 AMR-WB/16000/1", "a=fmtp:96 mode-set=0,1,2"}),
     0, kMismatch},
    {answer({"m=audio 30000 RTP/AVP 96", "m=text 0 RTP/AVP 99"}), 0, kMismatch},
    {answer({"m=audio 0 RTP/AVP 96", "m=video 0 RTP/AVP 99"}), 6,
     "Invalid Configuration (Code 1003): Stream rejected"},
    {sdpText({"v=0", "o=- 9 9 IN IP4 198.51.100.7", "s=-", "t=0 0", "m=audio 30000 RTP/AVP 96",
              "a=rtpmap:96 AMR-WB/16000/1", "a=fmtp:96 mode-set=0,1,2", "m=video 0 RTP/AVP 99"}),
     5, "Invalid Configuration (Code 1003): No connection address"},
    // What RFC 4867 forbids the answerer to change.
    {answer({"m=audio 30000 RTP/AVP 96", "a=rtpmap:96 AMR-WB/16000/1", "a=fmtp:96 mode-set=0,2,1",
             "m=video 0 RTP/AVP 99"}),
     6, kNoCodec},
    {answer({"m=audio 30000 RTP/AVP 96", "a=rtpmap:96 AMR-WB/16000/1", "m=video 0 RTP/AVP 99"}), 6,
     kNoCodec},
    {answer({"m=audio 30000 RTP/AVP 96", "a=rtpmap:96 AMR-WB/16000/1",
             "a=fmtp:96 mode-set=0,1,2; mode-change-period=2", "m=video 0 RTP/AVP 99"}),
     6, kNoCodec},
    {answer({"m=audio 30000 RTP/AVP 96", "a=rtpmap:96 AMR-WB/16000/1",
             "a=fmtp:96 mode-set=0,1,2; octet-align=1", "m=video 0 RTP/AVP 99"}),
     6, kNoCodec},
    {answer({"m=audio 30000 RTP/AVP 97", "a=rtpmap:97 AMR-WB/16000/1",
             "a=fmtp:97 mode-change-capability=2", "m=video 0 RTP/AVP 99"}),
     6, kNoCodec},
    {answer({"m=audio 30000 RTP/AVP 98", "a=rtpmap:98 AMR/8000/1",
             "a=fmtp:98 robust-sorting=1; interleaving=1", "m=video 0 RTP/AVP 99"}),
     6, kNoCodec},
    {answer({"m=audio 30000 RTP/AVP 98", "a=rtpmap:98 AMR/8000/1",
             "a=fmtp:98 crc=1; interleaving=1", "m=video 0 RTP/AVP 99"}),
     6, kNoCodec},
    {answer({"m=audio 30000 RTP/AVP 98", "a=rtpmap:98 AMR/8000/1",
             "a=fmtp:98 crc=1; robust-sorting=1", "m=video 0 RTP/AVP 99"}),
     6, kNoCodec},
    // Formats the offer did not list are not the stream's.
    {answer({"m=audio 30000 RTP/AVP 102 100", "a=rtpmap:102 AMR-WB/16000/1",
             "a=rtpmap:100 telephone-event/16000", "m=video 0 RTP/AVP 99"}),
     6, kNoCodec},
};

// A refusal leaves the negotiated stream as it was; a fault in the offer names the offer's line.
TEST(AcceptAnswerTest, RefusesAnswersThatChangeTheOffer) {
    StreamConfig before;
    ASSERT_TRUE(before.setRemoteRtpPort(50000).isSuccess());
    for (const Refusal& row : kRefusals) {
        SCOPED_TRACE(row.answer);
        StreamConfig negotiated = before;
        EXPECT_EQ(refusal(row.message, row.answer, row.line),
                  sdp::acceptAnswer(kOffer, row.answer, negotiated).format());
        EXPECT_EQ(before.toString(), negotiated.toString());
    }
    const std::string badOffer = kOffer + "b=AS:x\r\n";
    EXPECT_EQ(refusal("Invalid Param (Code 1002): Bad bandwidth value: AS:x", badOffer, 24),
              sdp::acceptAnswer(badOffer, kRefusals[0].answer, before).format());
}

// Both sides of one call: the answerer's stream, seen from the offerer's side with the
// offerer's RTCP, is the offerer's.
TEST(AcceptAnswerTest, BothSidesAgree) {
    AmrCodecCapabilities octetAligned = amrCaps(BandTypeNb);
    octetAligned.setOctetAlignModeRequired(true);
    octetAligned.setMaxSupportedRdcy(40);
    AmrCodecCapabilities noRedundancy = amrCaps(BandTypeWb);
    noRedundancy.setRdcyModeSupport(false);
    const RtcpConfig reducedSize(5000, 1000, 400, 40, true);
    const std::pair<StreamCapabilities, StreamCapabilities> kCalls[] = {
        {phoneCaps(amrCaps(BandTypeWb), amrCaps(BandTypeNb)),
         phoneCaps(amrCaps(BandTypeWb), amrCaps(BandTypeNb))},
        {phoneCaps(amrCaps(BandTypeNb, {7, 4, 2, 0}), amrCaps(BandTypeNb)),
         phoneCaps(octetAligned, octetAligned)},
        {phoneCaps(noRedundancy, amrCaps(BandTypeNb), {RtpProfileAvpf}, reducedSize),
         phoneCaps(amrCaps(BandTypeWb), amrCaps(BandTypeNb), {RtpProfileAvpf}, reducedSize)},
    };
    for (const auto& call : kCalls) {
        std::string offer, answer;
        StreamConfig offerer, answerer;
        EXPECT_EQ("Success",
                  sdp::createOffer(call.first, "192.0.2.10", 49152, {"-", 1, 1}, offer).format());
        EXPECT_EQ("Success", sdp::answerOffer(offer, call.second, "198.51.100.7", 30000,
                                              {"-", 2, 1}, answerer, answer)
                                 .format());
        EXPECT_EQ("Success", sdp::acceptAnswer(offer, answer, offerer).format());
        SCOPED_TRACE(offer + answer);
        StreamConfig seen = answerer;
        EXPECT_TRUE(seen.setRemoteIp("198.51.100.7").isSuccess());
        EXPECT_TRUE(seen.setRemoteRtpPort(30000).isSuccess());
        EXPECT_TRUE(seen.setDirection(mirrored(answerer.getDirection())).isSuccess());
        RtcpConfig rtcp = call.first.getRTCPcaps();
        rtcp.setReducedSizeMode(answerer.getRtcpConfig().isReducedSizeMode());
        seen.setRtcpConfig(rtcp);
        EXPECT_EQ(seen.toString(), offerer.toString());
        EXPECT_NE(StreamConfig().toString(), offerer.toString());
    }
}

}  // namespace
