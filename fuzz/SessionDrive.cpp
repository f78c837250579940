#include "SessionDrive.h"

#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Session.h>

#include "BodyChecks.h"
#include "DefaultCapabilities.h"
#include "Require.h"
#include "syntax/Printable.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <map>
#include <utility>

namespace velmora {
namespace fuzz {

namespace {

using namespace rune;

// Enough for hold, resume, a handover and a refused re-offer or two; seeds without step bytes
// run one step of each kind, in the order of the switch below.
const int kMaxSteps = 24;
const int kStepKinds = 7;

// The fuzzed peer texts in turn; empty when all are used.
class Texts {
  public:
    explicit Texts(const std::string& pool) : mPool(pool) {}
    std::string next() {
        if (mStart >= mPool.size()) return std::string();
        const size_t found = mPool.find("\nv=0", mStart);
        const size_t end = found == std::string::npos ? mPool.size() : found + 1;
        std::string text = mPool.substr(mStart, end - mStart);
        mStart = end;
        return text;
    }

  private:
    const std::string& mPool;
    size_t mStart = 0;
};

// The version of a body's o= line, which every body a session sends has.
uint64_t version(const std::string& body) {
    const size_t line = body.find("\r\no=");
    REQUIRE(line != std::string::npos);
    const char* fields = body.c_str() + line + 4;
    for (int skipped = 0; skipped < 2; ++skipped) {
        fields = std::strchr(fields, ' ');
        REQUIRE(fields != nullptr);
        ++fields;
    }
    return std::strtoull(fields, nullptr, 10);
}

// The bodies one session sends: each reads again, versions count from the first without going
// back (modulo 2^64, as they wrap), and a version names one body only.
class Sent {
  public:
    explicit Sent(uint64_t first) : mFirst(first) {}
    void add(const std::string& body) {
        REQUIRE(isBody(body) && reads(body));
        const uint64_t count = version(body) - mFirst;
        REQUIRE(mLast.empty() || count > mCount || (count == mCount && body == mLast));
        mCount = count;
        mLast = body;
    }

  private:
    uint64_t mFirst;
    uint64_t mCount = 0;
    std::string mLast;
};

// Payload type to codec and band, over both directions' lists.
typedef std::map<int, std::pair<CodecId, BandType>> Bindings;

Bindings bindings(const StreamConfig& stream) {
    Bindings bound;
    for (unsigned int i = 0; i < stream.getUplinkCodecCount(); ++i) {
        const CodecConfig* codec = stream.getUplinkCodec(i);
        bound[codec->getPayloadType()] = {codec->getCodecId(), codec->getBandType()};
    }
    for (unsigned int i = 0; i < stream.getDownlinkCodecCount(); ++i) {
        const CodecConfig* codec = stream.getDownlinkCodec(i);
        bound[codec->getPayloadType()] = {codec->getCodecId(), codec->getBandType()};
    }
    return bound;
}

// Every payload type that both bind, they bind to one codec.
bool keeps(const Bindings& agreed, const Bindings& fresh) {
    for (const auto& binding : fresh) {
        const auto found = agreed.find(binding.first);
        if (found != agreed.end() && found->second != binding.second) return false;
    }
    return true;
}

Bindings offered(const std::string& offer) {
    Outputs read;
    (void)sdp::readRemoteDescription(offer, read.stream, read.skipped);
    return bindings(read.stream);
}

// What a session does next, tried on copies: its next offer and its answer to rune-sdp's offer.
std::string behaviour(const sdp::Session& session) {
    static const std::string kOffer = [] {
        std::string offer;
        (void)sdp::createOffer(tools::defaultCapabilities(), "192.0.2.1", 49150, {"-", 3, 3},
                               offer);
        return offer;
    }();
    sdp::Session offering = session;
    Outputs offer;
    std::string seen = offering.createOffer(offer.body).format() + offer.body;
    sdp::Session answering = session;
    Outputs answer;
    seen += answering.answerOffer(kOffer, answer.stream, answer.body).format() + answer.body;
    return seen + answer.stream.toString();
}

// Directions a step may set, the last one refused by the model.
StreamConfig::Direction direction(FuzzedDataProvider& in) {
    const int kDirections[] = {StreamConfig::DirectionSendOnly, StreamConfig::DirectionFullDuplex,
                               StreamConfig::DirectionReceiveOnly, StreamConfig::DirectionInactive,
                               9};
    return static_cast<StreamConfig::Direction>(kDirections[in.ConsumeIntegralInRange(0, 4)]);
}

// The other side: a second Session with rune-sdp's capabilities, and the fuzzed texts.
class Peer {
  public:
    explicit Peer(const std::string& pool)
        : mSession(tools::defaultCapabilities(), "192.0.2.20", 40000, {"-", 9, 1}), mTexts(pool) {}

    // Its offer; empty when it has none to make.
    std::string offer() {
        mSession.cancelOffer();
        std::string body;
        return keep(mSession.createOffer(body), body);
    }
    // Its answer to offer; empty when it refuses.
    std::string answer(const std::string& offer) {
        mSession.cancelOffer();
        StreamConfig stream;
        std::string body;
        return keep(mSession.answerOffer(offer, stream, body), body);
    }
    // The answer to its offer, which it must accept, with the direction mirrored.
    void accept(const std::string& answer, const StreamConfig& answered) {
        StreamConfig stream;
        REQUIRE(mSession.acceptAnswer(answer, stream).isSuccess());
        REQUIRE(stream.getDirection() == mirrored(answered.getDirection()));
    }
    void setDirection(StreamConfig::Direction direction) {
        (void)mSession.setLocalDirection(direction);
    }
    // What the peer sends: the next fuzzed text, its own, or its own cut where the input says and
    // followed by the next fuzzed text; the first as long as fuzzed texts are left.
    std::string text(const std::string& own, FuzzedDataProvider& in) {
        switch (in.ConsumeIntegralInRange(0, 2)) {
            case 0: {
                const std::string fuzzed = mTexts.next();
                return fuzzed.empty() ? own : fuzzed;
            }
            case 1:
                return own;
            default:
                return own.substr(0, in.ConsumeIntegralInRange<size_t>(0, own.size())) +
                       mTexts.next();
        }
    }

  private:
    static StreamConfig::Direction mirrored(StreamConfig::Direction direction) {
        return direction == StreamConfig::DirectionSendOnly ? StreamConfig::DirectionReceiveOnly
               : direction == StreamConfig::DirectionReceiveOnly ? StreamConfig::DirectionSendOnly
                                                                 : direction;
    }
    std::string keep(const sdp::Result& result, const std::string& body) {
        if (result.isFailure()) return std::string();
        mSent.add(body);
        return body;
    }

    sdp::Session mSession;
    Sent mSent{1};
    Texts mTexts;
};

}  // namespace

void driveSession(const std::string& texts, FuzzedDataProvider& in, const StreamCapabilities& local,
                  const std::string& localIp, int localPort, const sdp::Origin& origin) {
    sdp::Session session(local, localIp, localPort, origin);
    Sent sent(origin.sessionVersion);
    Peer peer(texts);
    Bindings agreed;
    // This side's outstanding offer, for the peer to answer.
    std::string outstanding;
    for (int step = 0; step < kMaxSteps && (step < kStepKinds || in.remaining_bytes() > 0);
         ++step) {
        const sdp::Session before = session;
        Outputs out;
        sdp::Result result = sdp::Result::success();
        switch ((in.ConsumeIntegral<uint8_t>() + step) % kStepKinds) {
            case 0: {
                const std::string own = peer.offer();
                const std::string offer = peer.text(own, in);
                result = session.answerOffer(offer, out.stream, out.body);
                if (result.isFailure()) break;
                sent.add(out.body);
                agreed = bindings(out.stream);
                if (!own.empty() && offer == own) peer.accept(out.body, out.stream);
                break;
            }
            case 1:
                result = session.setLocalDirection(direction(in));
                break;
            case 2:
                result = session.createOffer(out.body);
                if (result.isFailure()) break;
                sent.add(out.body);
                REQUIRE(keeps(agreed, offered(out.body)));
                outstanding = out.body;
                break;
            case 3: {
                const std::string own = outstanding.empty() ? "" : peer.answer(outstanding);
                const std::string answer = peer.text(own, in);
                result = session.acceptAnswer(answer, out.stream);
                REQUIRE(result.isSuccess() || answer != own || own.empty());
                if (result.isFailure()) break;
                REQUIRE(keeps(agreed, bindings(out.stream)));
                agreed = bindings(out.stream);
                outstanding.clear();
                break;
            }
            case 4:
                peer.setDirection(direction(in));
                break;
            case 5: {
                const char* const addresses[] = {"192.0.2.1", "2001:db8::1", "192.0.2.300"};
                result =
                    session.setLocalEndpoint(addresses[in.ConsumeIntegralInRange(0, 2)],
                                             in.ConsumeBool() ? in.ConsumeIntegral<int>() : 49160);
                break;
            }
            default:
                session.cancelOffer();
                outstanding.clear();
                break;
        }
        REQUIRE(sdp::isPrintable(result.format()));
        if (result.isSuccess()) continue;
        REQUIRE(out.untouched());
        REQUIRE(behaviour(before) == behaviour(session));
    }
}

}  // namespace fuzz
}  // namespace velmora
