// Whole dialogs with Sofia-SIP's offer/answer engine on the other side: what each side writes, the
// other reads, and both see the direction that both sides' holds leave, with the codecs of the
// first exchange kept. GStreamer reads every body too.
#ifdef RUNE_SDP_SOFIA

#include <velmora/rune/sdp/Session.h>

#include "SdpTestSupport.h"
#include "SofiaPeer.h"

using namespace velmora::testing;

namespace {

struct Step {
    // Whether we make the offer, or the peer does.
    bool ours;
    // Our local direction, and the peer's SOATAG_HOLD, from this exchange on.
    StreamConfig::Direction local;
    const char* peerHold;
    // The stream as we see it afterwards; the peer sees it mirrored.
    StreamConfig::Direction agreed;
    // Its codecs (AMR-WB, then telephone-event/8000).
    const char* codecs;
};

struct Dialog {
    const char* name;
    std::vector<Step> steps;
};

// Sofia re-offers with its own payload types (100 AMR-WB, 102 telephone-event), which is its right;
// ours keep the agreed ones.
const Dialog kDialogs[] = {
    {"we call, hold and resume",
     {{true, kSendRecv, "", kSendRecv, " 96/16000 101/8000"},
      {true, kSendOnly, "", kSendOnly, " 96/16000 101/8000"},
      {true, kSendRecv, "", kSendRecv, " 96/16000 101/8000"}}},
    {"the peer calls, holds and resumes",
     {{false, kSendRecv, "", kSendRecv, " 100/16000 102/8000"},
      {false, kSendRecv, "audio", kRecvOnly, " 100/16000 102/8000"},
      {false, kSendRecv, "", kSendRecv, " 100/16000 102/8000"}}},
    {"both hold, each resumes",
     {{true, kSendRecv, "", kSendRecv, " 96/16000 101/8000"},
      {false, kSendRecv, "audio", kRecvOnly, " 100/16000 102/8000"},
      {true, kSendOnly, "audio", kInactive, " 100/16000 102/8000"},
      {false, kSendOnly, "", kSendOnly, " 100/16000 102/8000"},
      {true, kSendRecv, "", kSendRecv, " 100/16000 102/8000"}}},
    {"the peer holds inactive, we offer under its hold",
     {{false, kSendRecv, "", kSendRecv, " 100/16000 102/8000"},
      {false, kSendRecv, "#", kInactive, " 100/16000 102/8000"},
      {true, kSendRecv, "#", kInactive, " 100/16000 102/8000"},
      {false, kRecvOnly, "", kRecvOnly, " 100/16000 102/8000"},
      {true, kSendRecv, "", kSendRecv, " 100/16000 102/8000"}}},
};

// One exchange of the dialog; the stream we agreed on.
StreamConfig exchange(const Step& step, sdp::Session& session, SofiaPeer& peer) {
    EXPECT_EQ("Success", session.setLocalDirection(step.local).format());
    peer.hold(step.peerHold);
    std::string offer, answer;
    StreamConfig stream;
    if (step.ours) {
        EXPECT_EQ("Success", session.createOffer(offer).format());
        answer = peer.answer(offer);
        EXPECT_EQ("Success", session.acceptAnswer(answer, stream).format()) << answer;
    } else {
        offer = peer.offer();
        EXPECT_EQ("Success", session.answerOffer(offer, stream, answer).format()) << offer;
        EXPECT_TRUE(peer.accept(answer)) << answer;
    }
    expectOthersReadAlike(offer);
    expectOthersReadAlike(answer);
    return stream;
}

TEST(SessionPeerTest, DialogsAgreeWithSofia) {
    for (const Dialog& dialog : kDialogs) {
        SCOPED_TRACE(dialog.name);
        sdp::Session session(anyAmr(), "127.0.0.1", 49152, {"-", 5, 1});
        SofiaPeer peer;
        for (size_t i = 0; i < dialog.steps.size(); ++i) {
            SCOPED_TRACE("exchange " + std::to_string(i + 1));
            const Step& step = dialog.steps[i];
            const StreamConfig stream = exchange(step, session, peer);
            EXPECT_EQ(step.agreed, stream.getDirection());
            EXPECT_EQ(step.agreed != kSendRecv, stream.isHeld());
            EXPECT_EQ(mirrored(step.agreed), peer.audio());
            EXPECT_EQ(step.codecs, codecsSeen(stream));
        }
    }
}

}  // namespace

#endif  // RUNE_SDP_SOFIA
