#include <velmora/rune/sdp/Session.h>

#include "SdpTestSupport.h"

#include <cstdint>
#include <sstream>

using namespace velmora::testing;

namespace {

// What happens in a step of a dialog, seen from this side.
enum class Act {
    // This side offers, the peer answers, this side accepts.
    Offer,
    // This side offers; the offer stays outstanding.
    OfferOnly,
    // The peer refuses the outstanding offer.
    Cancel,
    // The peer offers, this side answers.
    Answer,
    // This side accepts the peer's text as an answer.
    Accept,
};

struct Step {
    Act act;
    // The peer's text, a file of tests/sdp/data when it ends in ".sdp"; empty: the peer's own
    // Session writes it.
    std::string peer;
    // The local directions, set before the act.
    Direction ours = kSendRecv;
    Direction theirs = kSendRecv;
    // This side's port from this step on; 0 keeps it.
    int port = 0;
};

struct Dialog {
    // tests/sdp/data/session-<name>.txt holds, per step, the results, the lines of the body this
    // side sent that matter (o=, m=, the formats and the direction) and the stream: its
    // direction and whether it is held.
    const char* name;
    std::vector<Step> steps;
};

std::string text(const std::string& peer) {
    return peer.size() > 4 && peer.compare(peer.size() - 4, 4, ".sdp") == 0 ? dataText(peer) : peer;
}

// The lines of body that the rows pin.
std::string digest(const std::string& body) {
    std::istringstream lines(body);
    std::string out;
    if (!body.empty()) {
        expectOthersReadAlike(body);
    }
    for (std::string line; std::getline(lines, line);) {
        line.erase(line.find_last_not_of('\r') + 1);
        for (const char* start :
             {"o=", "m=", "c=", "a=rtpmap", "a=fmtp", "a=send", "a=recv", "a=inac"}) {
            if (line.rfind(start, 0) == 0) {
                out += line + "\n";
            }
        }
    }
    return out;
}

// The stream's direction, whether it is held, and its codecs (payload type/clock rate).
std::string seen(const StreamConfig& stream) {
    static const char* const kNames[] = {"inactive", "sendonly", "recvonly", "sendrecv"};
    return std::string("stream ") + kNames[stream.getDirection()] +
           (stream.isHeld() ? " held" : "") + codecsSeen(stream) + "\n";
}

// Runs one step of a dialog between us and peer, giving what it expects.
std::string run(const Step& step, sdp::Session& us, sdp::Session& peer) {
    EXPECT_TRUE(us.setLocalDirection(step.ours).isSuccess());
    EXPECT_TRUE(peer.setLocalDirection(step.theirs).isSuccess());
    if (step.port != 0) {
        EXPECT_TRUE(us.setLocalEndpoint("192.0.2.20", step.port).isSuccess());
    }
    std::string body, reply = text(step.peer);
    StreamConfig stream, theirs;
    switch (step.act) {
        case Act::Offer: {
            std::string out = us.createOffer(body).format() + "\n";
            out += digest(body);
            if (reply.empty()) {
                EXPECT_TRUE(peer.answerOffer(body, theirs, reply).isSuccess());
            }
            const sdp::Result result = us.acceptAnswer(reply, stream);
            return out + result.format() + "\n" + (result.isSuccess() ? seen(stream) : "");
        }
        case Act::OfferOnly: {
            const std::string out = us.createOffer(body).format() + "\n";
            return out + digest(body);
        }
        case Act::Cancel:
            us.cancelOffer();
            return "";
        case Act::Answer: {
            if (reply.empty()) {
                EXPECT_TRUE(peer.createOffer(reply).isSuccess());
            }
            const sdp::Result result = us.answerOffer(reply, stream, body);
            if (step.peer.empty() && result.isSuccess()) {
                EXPECT_TRUE(peer.acceptAnswer(body, theirs).isSuccess());
            } else if (step.peer.empty()) {
                peer.cancelOffer();
            }
            return result.format() + "\n" + digest(body) + (result.isSuccess() ? seen(stream) : "");
        }
        case Act::Accept:
            return us.acceptAnswer(reply, stream).format() + "\n";
    }
    return "";
}

const Dialog kDialogs[] = {
    // Hold and resume by this side: the hold re-offer keeps the agreed payload types and their
    // fmtp, the peer's answer leaves the stream held; an unchanged re-offer keeps its version; a
    // new port after a handover keeps the o= line.
    {"hold-resume",
     {
         {Act::Offer, ""},
         {Act::Offer, "", kSendOnly},
         {Act::Offer, ""},
         {Act::Offer, ""},
         {Act::Offer, "", kSendRecv, kSendRecv, 50000},
     }},
    // The peer holds and resumes while this side holds too: each answer mirrors the offer,
    // limited to this side's direction.
    {"peer-holds",
     {
         {Act::Answer, ""},
         {Act::Answer, "", kSendRecv, kSendOnly},
         {Act::Answer, "", kSendOnly, kSendRecv},
         {Act::Answer, "", kSendOnly, kSendOnly},
     }},
    // A softphone's AMR-WB with telephone-event at 8000 Hz only, then its hold re-offer, twice:
    // the second answer is the first, version included.
    {"softphone",
     {
         {Act::Answer, "softphone-first-offer.sdp"},
         {Act::Answer, "softphone-hold-reoffer.sdp"},
         {Act::Answer, "softphone-hold-reoffer.sdp"},
     }},
    // An IMS core's offer; its re-offer listing AMR first keeps AMR-WB 102; c=0.0.0.0 holds;
    // a re-offer that binds the agreed telephone-event 104 to CN is answered as a first offer.
    {"ims-core",
     {
         {Act::Answer, "ims-core-offer.sdp"},
         {Act::Answer, "ims-core-reoffer.sdp"},
         {Act::Answer, "ims-core-old-hold.sdp"},
         {Act::Answer, "ims-core-rebind.sdp"},
     }},
    // Sequences RFC 3264 forbids: an offer while this side's is outstanding, either way, and an
    // answer without one; a cancelled offer was sent, so the next one counts on.
    {"sequences",
     {
         {Act::OfferOnly, ""},
         {Act::Answer, ""},
         {Act::OfferOnly, ""},
         {Act::Cancel, ""},
         {Act::Accept, "sendrecv-answer.sdp"},
         {Act::Offer, ""},
         {Act::OfferOnly, "", kSendOnly},
         {Act::Cancel, ""},
         {Act::Offer, ""},
     }},
    // Sections other than the stream's are rejected in re-offers as this side last wrote them;
    // a re-offer with fewer m= lines is refused.
    {"media-sections",
     {
         {Act::Answer, "video-then-audio.sdp"},
         {Act::Offer, ""},
         {Act::Answer, "gateway-offer.sdp"},
     }},
    // Accepting: a sendrecv answer to a sendonly offer sends only, with telephone-event at 8000
    // Hz beside AMR-WB; an answer in another protocol is refused.
    {"accept",
     {
         {Act::Offer, "sendrecv-answer.sdp", kSendOnly},
         {Act::Offer, "avpf-answer.sdp", kSendOnly},
     }},
};

TEST(SessionTest, Dialogs) {
    for (const Dialog& dialog : kDialogs) {
        SCOPED_TRACE(dialog.name);
        sdp::Session us(anyAmr(), "192.0.2.10", 49152, {"-", 1, 1});
        sdp::Session peer(anyAmr(), "198.51.100.7", 30000, {"peer", 9, 9});
        std::string seenSteps;
        for (size_t i = 0; i < dialog.steps.size(); ++i) {
            seenSteps += "== step " + std::to_string(i + 1) + "\n";
            seenSteps += run(dialog.steps[i], us, peer);
        }
        EXPECT_EQ(dataText(std::string("session-") + dialog.name + ".txt", "\n"), seenSteps);
    }
}

}  // namespace

// The version after 2^64-1 is 0; a cancelled offer was sent, so the next one counts on.
TEST(SessionTest, VersionsWrap) {
    sdp::Session us(anyAmr(), "192.0.2.10", 49152, {"-", 1, UINT64_MAX});
    std::string first, second;
    ASSERT_TRUE(us.createOffer(first).isSuccess());
    us.cancelOffer();
    ASSERT_TRUE(us.setLocalDirection(kSendOnly).isSuccess());
    ASSERT_TRUE(us.createOffer(second).isSuccess());
    EXPECT_EQ("o=- 1 0 IN IP4 192.0.2.10", digest(second).substr(0, digest(second).find('\n')));
}

// A session restored from the exchange it agreed goes on as the live one: a refresh re-offer is
// the offer sent, version included; the answerer's hold re-offer is the live answerer's.
TEST(SessionTest, RestoredSessionsGoOnAsTheLiveOnes) {
    for (sdp::Role role : {sdp::Role::Offerer, sdp::Role::Answerer}) {
        sdp::Session us(anyAmr(), "192.0.2.10", 49152, {"-", 1, 1});
        sdp::Session peer(anyAmr(), "198.51.100.7", 30000, {"peer", 9, 9});
        const bool offering = role == sdp::Role::Offerer;
        sdp::Session& offerer = offering ? us : peer;
        sdp::Session& answerer = offering ? peer : us;
        std::string offer, answer;
        StreamConfig stream;
        for (int exchange = 0; exchange < 2; ++exchange) {
            ASSERT_TRUE(offerer.createOffer(offer).isSuccess());
            ASSERT_TRUE(answerer.answerOffer(offer, stream, answer).isSuccess());
            ASSERT_TRUE(offerer.acceptAnswer(answer, stream).isSuccess());
        }
        sdp::Session restored(anyAmr(), "203.0.113.1", 1024, sdp::Origin());
        ASSERT_EQ("Success",
                  sdp::Session::restore(anyAmr(), offer, answer, role, restored).format());
        std::string live, again;
        if (!offering) {
            ASSERT_TRUE(us.setLocalDirection(kSendOnly).isSuccess());
            ASSERT_TRUE(restored.setLocalDirection(kSendOnly).isSuccess());
        }
        ASSERT_TRUE(us.createOffer(live).isSuccess());
        ASSERT_TRUE(restored.createOffer(again).isSuccess());
        EXPECT_EQ(live, again);
        if (offering) {
            EXPECT_EQ(offer, again);
        }
    }
}

// The o= line of a restored description counts in its parts: other blanks between them change no
// text, so a refresh keeps the version.
TEST(SessionTest, RestoredRefreshKeepsTheVersionDespiteOtherBlanks) {
    sdp::Session us(anyAmr(), "192.0.2.10", 49152, {"-", 1, 1});
    sdp::Session peer(anyAmr(), "198.51.100.7", 30000, {"peer", 9, 9});
    std::string offer, answer, again;
    StreamConfig stream;
    ASSERT_TRUE(us.createOffer(offer).isSuccess());
    ASSERT_TRUE(peer.answerOffer(offer, stream, answer).isSuccess());
    ASSERT_TRUE(us.acceptAnswer(answer, stream).isSuccess());
    ASSERT_TRUE(us.createOffer(offer).isSuccess());
    ASSERT_TRUE(peer.answerOffer(offer, stream, answer).isSuccess());
    std::string spaced = offer;
    spaced.replace(spaced.find("o=- 1 2 IN"), 10, "o=-  1 2  IN");
    sdp::Session restored(anyAmr(), "203.0.113.1", 1024, sdp::Origin());
    ASSERT_EQ(
        "Success",
        sdp::Session::restore(anyAmr(), spaced, answer, sdp::Role::Offerer, restored).format());
    ASSERT_TRUE(restored.createOffer(again).isSuccess());
    EXPECT_EQ(offer, again);
}

// A sent description without its o= line is refused, and the session stays as it was. An
// exchange that is none is refused as accepting refuses it: the CLI's OfferRefusedExchange
// (tests/tools/cli/refused-exchange.err).
TEST(SessionTest, RestoreRefusesWhatIsNoExchange) {
    const std::string offer = dataText("softphone-first-offer.sdp");
    std::string withoutOrigin = offer;
    withoutOrigin.erase(withoutOrigin.find("o="),
                        withoutOrigin.find("s=") - withoutOrigin.find("o="));
    sdp::Session session(anyAmr(), "192.0.2.30", 40000, {"-", 5, 5});
    const sdp::Session before = session;
    EXPECT_EQ("Invalid Param (Code 1002): Bad origin line",
              sdp::Session::restore(anyAmr(), offer, withoutOrigin, sdp::Role::Answerer, session)
                  .format());
    std::string mine, theirs;
    EXPECT_TRUE(session.createOffer(mine).isSuccess());
    EXPECT_TRUE(sdp::Session(before).createOffer(theirs).isSuccess());
    EXPECT_EQ(theirs, mine);
}
