// Cost of one call of the Session's two re-offer operations, for scripts/session-cost.sh: a hold
// re-offer, and the answer to the peer's hold re-offer, each after the offer was answered. Built
// against the installed package as ../shared/tools/sdp-cost builds its driver, with the same
// local capabilities, so that the rows sit beside its rows.
#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/Rtp.h>
#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Session.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace {

using namespace velmora::rune;

AmrCodecCapabilities everyMode(BandType band) {
    AmrCodecCapabilities amr;
    (void)amr.setBandType(band);
    const int last = band == BandTypeWb ? AmrRate8 : AmrRate7;
    for (int mode = AmrRate0; mode <= last; ++mode) {
        (void)amr.addSupportedAmrRate(static_cast<AmrRate>(mode));
    }
    return amr;
}

StreamCapabilities capabilities() {
    StreamCapabilities local;
    local.addCodecCapabilities(everyMode(BandTypeWb));
    local.addCodecCapabilities(everyMode(BandTypeNb));
    DtmfCodecCapabilities events;
    local.addCodecCapabilities(events);
    (void)events.setBandType(BandTypeNb);
    local.addCodecCapabilities(events);
    local.addRtpProfile(RtpProfileAvp);
    local.addRtpProfile(RtpProfileAvpf);
    return local;
}

// The offer made sendonly, with the next version of its o= line: the peer holds the call.
std::string holdReOffer(std::string offer) {
    offer.replace(offer.find("a=sendrecv"), 10, "a=sendonly");
    const size_t id = offer.find(' ', offer.find("o=") + 2);
    const size_t version = id + 1;
    const size_t end = offer.find(' ', version);
    const unsigned long long next = std::stoull(offer.substr(version, end - version)) + 1;
    offer.replace(version, end - version, std::to_string(next));
    return offer;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: session-cost-driver hold|reanswer FILE N\n");
        return 2;
    }
    const std::string mode = argv[1];
    std::ifstream file(argv[2], std::ios::binary);
    const std::string offer((std::istreambuf_iterator<char>(file)),
                            std::istreambuf_iterator<char>());
    const int n = std::atoi(argv[3]);
    sdp::Session session(capabilities(), "192.0.2.10", 49152, {"-", 1732184400, 1});
    StreamConfig stream;
    std::string answer;
    sdp::Result result = session.answerOffer(offer, stream, answer);
    if (result.isSuccess() && mode == "hold") {
        result = session.setLocalDirection(StreamConfig::DirectionSendOnly);
    }
    const std::string reOffer = holdReOffer(offer);
    for (int i = 0; i < n && result.isSuccess(); ++i) {
        std::string body;
        if (mode == "hold") {
            result = session.createOffer(body);
            session.cancelOffer();
        } else if (mode == "reanswer") {
            StreamConfig negotiated;
            result = session.answerOffer(reOffer, negotiated, body);
        } else {
            std::fprintf(stderr, "unknown mode %s\n", mode.c_str());
            return 2;
        }
    }
    if (result.isFailure()) {
        std::fprintf(stderr, "%s: %s\n", mode.c_str(), result.format().c_str());
        return 1;
    }
    return 0;
}
