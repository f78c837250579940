// Whole dialogs with Sofia-SIP's offer/answer engine on the other side: what each side writes,
// the other reads, and both agree on the direction. GStreamer reads every body too.
#ifdef RUNE_SDP_SOFIA

#include "SdpTestSupport.h"
#include "SofiaPeer.h"

using namespace velmora::testing;

namespace {

const StreamCapabilities kLocal = anyAmr();
const sdp::Origin kOrigin{"-", 5, 1};

// The stream as both sides see it.
void expectAgreed(const SofiaPeer& peer, const StreamConfig& stream,
                  StreamConfig::Direction direction) {
    EXPECT_EQ(direction, stream.getDirection());
    EXPECT_EQ(mirrored(direction), peer.audio());
}

TEST(SessionPeerTest, FirstExchangeEitherWay) {
    SofiaPeer callee;
    std::string offer, answer;
    StreamConfig stream;
    ASSERT_EQ("Success", sdp::createOffer(kLocal, "127.0.0.1", 49152, kOrigin, offer).format());
    answer = callee.answer(offer);
    expectOthersReadAlike(offer);
    expectOthersReadAlike(answer);
    EXPECT_EQ("Success", sdp::acceptAnswer(offer, answer, stream).format());
    expectAgreed(callee, stream, StreamConfig::DirectionFullDuplex);

    SofiaPeer caller;
    offer = caller.offer();
    expectOthersReadAlike(offer);
    EXPECT_EQ(
        "Success",
        sdp::answerOffer(offer, kLocal, "127.0.0.1", 49152, kOrigin, stream, answer).format());
    expectOthersReadAlike(answer);
    EXPECT_TRUE(caller.accept(answer));
    expectAgreed(caller, stream, StreamConfig::DirectionFullDuplex);
}

}  // namespace

#endif  // RUNE_SDP_SOFIA
