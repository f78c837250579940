#include "SdpTestSupport.h"

#include <functional>

using namespace velmora::testing;

namespace {

struct AnswerCase {
    // In tests/sdp/data; the answer expected is in name.answer.sdp.
    std::string name;
    std::function<StreamCapabilities()> local;
    // In tests/sdp/data: the negotiated stream's text.
    std::string negotiated;
    const char* ip = "192.0.2.10";
    sdp::Origin origin = {"-", 1, 2};
};

// The default capabilities' answers are pinned by the CLI's tests/tools/cli/answer-volte-offer.out
// and answer-avpf-offer.out.
const AnswerCase kAnswers[] = {
    // crc, interleaving and robust sorting offered to a side without them, the
    // bandwidth-efficient format to one that needs the octet-aligned: the first acceptable
    // format is kept, with the telephone-event of its rate, and this side's modes (all) left out.
    // The offer's mode changes bind the stream; without mode-change-capability=2 offered, this
    // side's mode-change-period is not answered. Reduced size is offered but off here.
    {"options-offer",
     [] {
         AmrCodecCapabilities wide = amrCaps(BandTypeWb, {0, 1, 2, 3, 4, 5, 6, 7, 8});
         wide.setOctetAlignModeRequired(true);
         EXPECT_TRUE(wide.setModeChangePeriod(ModeChangePeriodEveryOtherFrame).isSuccess());
         return phoneCaps(wide, amrCaps(BandTypeNb));
     },
     "options-offer.negotiated.txt"},
    // AVPF with reduced-size RTCP and every option, names in another case, blanks wherever they
    // are tolerated and a repeated mode-set, to a side that supports them, without t=:
    // options and the last mode-set answered as offered, this side's mode changes and smaller
    // max-red added, unknown parameters dropped, the offer's mode changes bind the stream; no
    // local telephone-event of the kept rate.
    {"avpf-offer",
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
     "avpf-offer.negotiated.txt",
     "2001:db8::10",
     {"phone", 18446744073709551615u, 0}},
    // A gateway whose AMR-WB mode-set holds a mode this side lacks; its AMR has no fmtp, so this
    // side's modes, redundancy (none) and packet times hold, with the narrow-band events.
    // Reduced size is on here but not offered; no profile listed supports RTP/AVP.
    {"gateway-offer",
     [] {
         AmrCodecCapabilities narrow = amrCaps(BandTypeNb, {7, 4, 2, 0});
         narrow.setRdcyModeSupport(false);
         narrow.setPacketTime(40);
         narrow.setMaxPacketTime(200);
         EXPECT_TRUE(narrow.setModeChangeCapability(ModeChangeCapabilityAnyFrameOnly).isSuccess());
         return phoneCaps(amrCaps(BandTypeWb, {2, 1, 0}), narrow, {},
                          RtcpConfig(5000, 2500, 500, 30, true));
     },
     "gateway-offer.negotiated.txt"},
    // One m= line per offered one: every section but the chosen one is rejected, a secure one
    // before it, one without AMR, a disabled one, video, text and application alike.
    {"savp-then-avp", anyAmr, "chosen-section.negotiated.txt"},
    {"video-then-audio", anyAmr, "chosen-section.negotiated.txt"},
    // The application's own subclasses of the capability classes are told as theirs.
    {"video-then-audio", extendedAnyAmr, "chosen-section.negotiated.txt"},
    {"audio-text-application", anyAmr, "chosen-section.negotiated.txt"},
    // Packet times: the offer's max packet time below this side's lowers this side's packet
    // time; an offered packet time above this side's max is lowered to it. Every offered t= line
    // is answered; a mode-set is answered as its modes, each once, ascending.
    {"short-packets-offer", anyAmr, "short-packets-offer.negotiated.txt"},
    {"long-packets-offer", anyAmr, "long-packets-offer.negotiated.txt"},
};

TEST(AnswerOfferTest, AnswersOffers) {
    for (const AnswerCase& row : kAnswers) {
        SCOPED_TRACE(row.name);
        StreamConfig negotiated;
        std::string answer;
        EXPECT_EQ("Success", sdp::answerOffer(dataText(row.name + ".sdp"), row.local(), row.ip,
                                              49152, row.origin, negotiated, answer)
                                 .format());
        EXPECT_EQ(dataText(row.name + ".answer.sdp"), answer);
        expectOthersReadAlike(answer);
        EXPECT_EQ(dataText(row.negotiated, "\n"), negotiated.toString());
    }
}

// However the offer spells what it offers, the answer says what was agreed: each offer is
// answered as its plainly written twin, short-packets-offer.sdp, is.
TEST(AnswerOfferTest, AnswersWhatWasAgreed) {
    const std::string plain = dataText("short-packets-offer.sdp");
    const auto spelled = [&](const std::string& from, const std::string& to) {
        std::string text = plain;
        return text.replace(text.find(from), from.size(), to);
    };
    std::string huge = "mode-set=2";
    for (int i = 0; i < 20000; ++i) huge += ",0";
    const std::string kTwins[] = {
        spelled("mode-set=0,2", "mode-set=0 , 2"),
        spelled("mode-set=0,2", "mode-set=2,0,2,00"),
        spelled("mode-set=0,2", huge),
        spelled("t=3034423619 3034427219\r\nt=0 0", "t=03034423619\t 3034427219 \r\nt=00 0"),
    };
    StreamConfig expected;
    std::string expectedAnswer;
    ASSERT_TRUE(sdp::answerOffer(plain, anyAmr(), "192.0.2.10", 49152, {}, expected, expectedAnswer)
                    .isSuccess());
    for (const std::string& offer : kTwins) {
        SCOPED_TRACE(offer.substr(0, 200));
        StreamConfig negotiated;
        std::string answer;
        EXPECT_EQ("Success",
                  sdp::answerOffer(offer, anyAmr(), "192.0.2.10", 49152, {}, negotiated, answer)
                      .format());
        EXPECT_EQ(expectedAnswer, answer);
        EXPECT_EQ(expected.toString(), negotiated.toString());
    }
}

// Refusals leave the negotiated stream and the answer as they were.
TEST(AnswerOfferTest, RefusesWithTheFirstAudioSection) {
    const StreamCapabilities avpOnly = phoneCaps(amrCaps(BandTypeWb), amrCaps(BandTypeNb), {});
    for (const Case& row : dataCases("answer-refusals.txt")) {
        StreamConfig negotiated;
        std::string answer = "left";
        EXPECT_EQ(row.expected, sdp::answerOffer(row.text, avpOnly, "192.0.2.10", 49152,
                                                 sdp::Origin(), negotiated, answer)
                                    .format());
        EXPECT_EQ(StreamConfig().toString(), negotiated.toString());
        EXPECT_EQ("left", answer);
    }
    for (const BadEndpoint& endpoint : kBadEndpoints) {
        StreamConfig negotiated;
        std::string answer = "left";
        EXPECT_EQ(endpoint.refusal,
                  sdp::answerOffer(dataText("gateway-offer.sdp"), anyAmr(), endpoint.ip,
                                   endpoint.port, sdp::Origin(), negotiated, answer)
                      .format());
        EXPECT_EQ("left", answer);
    }
    for (const sdp::Origin& origin : kBadOrigins) {
        StreamConfig negotiated;
        std::string answer = "left";
        EXPECT_EQ(kBadOrigin, sdp::answerOffer(dataText("gateway-offer.sdp"), anyAmr(),
                                               "192.0.2.10", 49152, origin, negotiated, answer)
                                  .format());
        EXPECT_EQ("left", answer);
    }
}

// No answer is written for a stream that fails its own check: here this side's packet times
// are 0.
TEST(AnswerOfferTest, RefusesAStreamThatFailsItsCheck) {
    AmrCodecCapabilities narrow = amrCaps(BandTypeNb);
    narrow.setPacketTime(0);
    narrow.setMaxPacketTime(0);
    StreamConfig negotiated;
    std::string answer = "left";
    EXPECT_EQ(
        "Invalid Configuration (Code 1003): {Invalid Configuration (Code 1003): Packet time "
        "must be greater than 0 && Invalid Configuration (Code 1003): Max packet time must "
        "be greater than 0}",
        sdp::answerOffer(dataText("long-packets-offer.sdp"), phoneCaps(narrow, narrow),
                         "192.0.2.10", 49152, sdp::Origin(), negotiated, answer)
            .format());
    EXPECT_EQ(StreamConfig().toString(), negotiated.toString());
    EXPECT_EQ("left", answer);
}

}  // namespace
