#include "SdpTestSupport.h"

using namespace velmora::testing;

namespace {

const std::string kOffer = dataText("accept-offer.sdp");

TEST(AcceptAnswerTest, AcceptsAnswersThatKeepTheOffer) {
    const std::vector<Case> rows = dataCases("accept-answers.txt");
    for (size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE(rows[i].text);
        StreamConfig negotiated;
        EXPECT_EQ(rows[i].expected, sdp::acceptAnswer(kOffer, rows[i].text, negotiated).format());
        EXPECT_EQ(dataText("accept-answers." + std::to_string(i + 1) + ".negotiated.txt", "\n"),
                  negotiated.toString());
    }
}

// A refusal leaves the negotiated stream as it was and names the text of its line.
TEST(AcceptAnswerTest, RefusesAnswersThatChangeTheOffer) {
    StreamConfig before;
    ASSERT_TRUE(before.setRemoteRtpPort(50000).isSuccess());
    const std::vector<Case> rows = dataCases("accept-refusals.txt", "answer ");
    for (const Case& row : rows) {
        SCOPED_TRACE(row.text);
        StreamConfig negotiated = before;
        EXPECT_EQ(row.expected, sdp::acceptAnswer(kOffer, row.text, negotiated).format());
        EXPECT_EQ(before.toString(), negotiated.toString());
    }
    const std::string badOffer = kOffer + "b=AS:x\r\n";
    EXPECT_EQ(
        refusal("Invalid Param (Code 1002): Bad bandwidth value: AS:x", badOffer, 23, "offer "),
        sdp::acceptAnswer(badOffer, rows[0].text, before).format());
}

// Both sides of one call: the answerer's stream, seen from the offerer's side with the
// offerer's RTCP, is the offerer's. Reduced size is on only when both sides have it on.
TEST(AcceptAnswerTest, BothSidesAgree) {
    AmrCodecCapabilities octetAligned = amrCaps(BandTypeNb);
    octetAligned.setOctetAlignModeRequired(true);
    octetAligned.setMaxSupportedRdcy(40);
    AmrCodecCapabilities noRedundancy = amrCaps(BandTypeWb);
    noRedundancy.setRdcyModeSupport(false);
    const RtcpConfig reducedSize(5000, 1000, 400, 40, true);
    const std::pair<StreamCapabilities, StreamCapabilities> kCalls[] = {
        {anyAmr(), anyAmr()},
        {phoneCaps(amrCaps(BandTypeNb, {7, 4, 2, 0}), amrCaps(BandTypeNb)),
         phoneCaps(octetAligned, octetAligned)},
        {phoneCaps(noRedundancy, amrCaps(BandTypeNb), {RtpProfileAvpf}, reducedSize),
         phoneCaps(amrCaps(BandTypeWb), amrCaps(BandTypeNb), {RtpProfileAvpf}, reducedSize)},
        {phoneCaps(amrCaps(BandTypeWb), amrCaps(BandTypeNb), {}, reducedSize), anyAmr()},
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
