// The SDP side of one dialog (RFC 3264 section 8).
#include <velmora/rune/sdp/Session.h>

#include "DialogAccept.h"
#include "DialogAnswer.h"
#include "DirectedOffer.h"
#include "internal/Results.h"
#include "read/SectionReader.h"
#include "session/OriginLine.h"
#include "session/Reoffer.h"
#include "stream/AgreedFormats.h"
#include "stream/PreconditionRules.h"
#include "stream/StreamBuilder.h"
#include "syntax/SessionDescription.h"
#include "write/LineWriter.h"
#include "write/LocalChecks.h"

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// RFC 3264 forbids the sequence: no context, call control answers it (491 for glare).
Result sequenceRefusal(const char* message) {
    return makeResult<StreamConfig::ResultTrait>(StreamConfig::InvalidConfiguration, message);
}

// The stream section of the description this side sent: where this side receives, and for an
// answer, the RTCP values it gave.
Result readSentSection(const std::string& sent, unsigned index, Description& parsed,
                       RemoteMedia& media) {
    Result result = Description::parse(sent, parsed);
    MediaSection section;
    if (result.isSuccess()) {
        (void)parsed.section(index, section);
        result = readSection(parsed, section, media);
    }
    return result;
}

// The precondition rows of an answer as the side of role sees them.
Preconditions seenFrom(Role role, Preconditions answered) {
    if (role == Role::Offerer) {
        return mirrorPreconditions(answered);
    }
    return answered;
}

// True when text parses as a description.
bool parses(const std::string& text) {
    Description parsed;
    return Description::parse(text, parsed).isSuccess();
}

// The model's check of a direction value.
Result checkDirection(StreamConfig::Direction direction) {
    StreamConfig probe;
    return probe.setDirection(direction);
}

}  // namespace

// The public signature takes references, as the free functions do.
// NOLINTBEGIN(modernize-pass-by-value)
Session::Session(const StreamCapabilities& local, const std::string& localIp, int localPort,
                 const Origin& origin)
    : mLocal(local), mLocalIp(localIp), mLocalPort(localPort), mOrigin(origin) {}
// NOLINTEND(modernize-pass-by-value)

Result Session::createOffer(std::string& offer) {
    if (!mOutstanding.empty()) {
        return sequenceRefusal("Offer outstanding");
    }
    std::string text;
    Result result = successResult();
    PreconditionRows preconditions;
    offerPreconditions(mPreconditions, mQosStatus, mQosStrength, preconditions);
    if (hasAgreed()) {
        result = checkOrigin(mOrigin);
        if (result.isSuccess()) {
            result = checkLocalEndpoint(mLocalIp, mLocalPort);
        }
        if (result.isSuccess()) {
            text.reserve(kBodyReserve);
            writeReoffer(mAgreedStream, StreamPlace{mAgreedIndex, mAgreedSections}, mLastSent,
                         mLocal, LocalEnd{mLocalIp, mLocalPort, mLocalDirection}, preconditions,
                         mOrigin, text);
        }
    } else {
        result = createDirectedOffer(mLocal, mLocalIp, mLocalPort, mOrigin, mLocalDirection,
                                     &preconditions, text);
    }
    if (result.isFailure()) {
        return result;
    }
    send(text);
    mOutstanding = text;
    offer.swap(text);
    return result;
}

Result Session::acceptAnswer(const std::string& answer, StreamConfig& negotiated) {
    if (mOutstanding.empty()) {
        return sequenceRefusal("No offer outstanding");
    }
    AcceptedExchange exchange;
    // Built in place: accepting leaves the stream as it was when it refuses.
    Result result = acceptInDialog(mOutstanding, answer, mAgreedStream, &exchange);
    if (result.isFailure()) {
        return result;
    }
    mAgreedIndex = exchange.place.index;
    mAgreedSections = exchange.place.sections;
    agree(mOutstanding, answer, Role::Offerer,
          seenFrom(Role::Offerer, std::move(exchange.preconditions)));
    mOutstanding.clear();
    negotiated = mAgreedStream;
    return result;
}

void Session::cancelOffer() {
    mOutstanding.clear();
}

Result Session::answerOffer(const std::string& offer, StreamConfig& negotiated,
                            std::string& answer) {
    if (!mOutstanding.empty()) {
        return sequenceRefusal("Offer outstanding");
    }
    Preconditions preconditions;
    StreamPlace place;
    DialogRules rules;
    rules.localDirection = mLocalDirection;
    rules.preconditions = &preconditions;
    rules.place = &place;
    rules.qosStatus = mQosStatus;
    rules.qosStrength = mQosStrength;
    if (hasAgreed()) {
        // An offer that does not parse is refused below, as answering refuses it. Looking for
        // its m= lines costs less than the parse, which only an offer with fewer needs.
        if (!Description::hasMediaLines(offer, mAgreedSections) && parses(offer)) {
            return sequenceRefusal("Offer removes a media section");
        }
        rules.agreed = agreedFormats(mAgreedStream);
    }
    std::string text;
    // Built in place: answering leaves the stream as it was when it refuses.
    Result result =
        answerInDialog(offer, mLocal, mLocalIp, mLocalPort, mOrigin, rules, mAgreedStream, text);
    if (result.isFailure()) {
        return result;
    }
    send(text);
    mAgreedIndex = place.index;
    mAgreedSections = place.sections;
    agree(offer, text, Role::Answerer, std::move(preconditions));
    negotiated = mAgreedStream;
    answer.swap(text);
    return result;
}

Result Session::setLocalEndpoint(const std::string& localIp, int localPort) {
    Result result = checkLocalEndpoint(localIp, localPort);
    if (result.isFailure()) {
        return result;
    }
    mLocalIp = localIp;
    mLocalPort = localPort;
    return result;
}

Result Session::setLocalDirection(StreamConfig::Direction direction) {
    Result result = checkDirection(direction);
    if (result.isFailure()) {
        return result;
    }
    mLocalDirection = direction;
    return result;
}

Result Session::setQosStatus(StreamConfig::Direction local) {
    Result result = checkDirection(local);
    if (result.isFailure()) {
        return result;
    }
    mQosStatus = local;
    return result;
}

Result Session::setQosStrength(Strength strength) {
    if (strength != Strength::None && strength != Strength::Optional &&
        strength != Strength::Mandatory) {
        return makeResult<StreamConfig::ResultTrait>(
            StreamConfig::InvalidParam, "Invalid strength : ", static_cast<int>(strength));
    }
    mQosStrength = strength;
    return successResult();
}

Result Session::restore(const StreamCapabilities& local, const std::string& offer,
                        const std::string& answer, Role role, Session& session) {
    StreamConfig stream;
    AcceptedExchange exchange;
    Result result = acceptInDialog(offer, answer, stream, &exchange);
    if (result.isFailure()) {
        return result;
    }
    const std::string& sent = role == Role::Offerer ? offer : answer;
    OriginParts origin;
    if (!readOriginLine(sent, origin)) {
        return makeResult<StreamConfig::ResultTrait>(StreamConfig::InvalidParam, "Bad origin line");
    }
    // Both texts share the stream's section index: accepting found the answer's there.
    Description parsed;
    RemoteMedia media;
    result = readSentSection(sent, exchange.place.index, parsed, media);
    if (result.isFailure()) {
        return result;
    }
    if (role == Role::Answerer) {
        // This side's RTCP values are the ones its answer gave, not the offer's.
        setReadRtcp(media, stream);
    }
    Session restored(local, std::string(media.address), media.port, Origin());
    restored.mOrigin.username = origin.head.substr(2, origin.head.find(' ') - 2);
    restored.mOrigin.sessionVersion = origin.version;
    restored.mSent = true;
    restored.mOriginHead = origin.head;
    restored.mVersion = origin.version;
    restored.mOriginTail = origin.tail;
    // With the dialog's o= line, as send keeps every body.
    restored.mLastSent = sent;
    writeOriginLine(origin.head, origin.version, origin.tail, restored.mLastSent);
    restored.mAgreedStream = stream;
    const StreamPlace place = findStreamPlace(sent);
    restored.mAgreedIndex = place.index;
    restored.mAgreedSections = place.sections;
    restored.agree(offer, answer, role, seenFrom(role, std::move(exchange.preconditions)));
    session = restored;
    return result;
}

const Preconditions& Session::preconditions() const {
    return mPreconditions;
}

void Session::send(std::string& body) {
    if (!mSent) {
        // The first body carries the o= line that every later one repeats.
        OriginParts origin;
        (void)readOriginLine(body, origin);
        mOriginHead = origin.head;
        mVersion = origin.version;
        mOriginTail = origin.tail;
    } else {
        // The last body sent has the dialog's o= line too: with this version, the same text is
        // the same body, kept already.
        writeOriginLine(mOriginHead, mVersion, mOriginTail, body);
        if (body == mLastSent) {
            return;
        }
        // Wraps at 2^64, which RFC 8866 allows.
        ++mVersion;
    }
    writeOriginLine(mOriginHead, mVersion, mOriginTail, body);
    mSent = true;
    mLastSent = body;
}

// The caller sets the agreed stream and its place first: the step that read them knows them.
void Session::agree(const std::string& offer, const std::string& answer, Role role,
                    Preconditions preconditions) {
    mAgreedOffer = offer;
    mAgreedAnswer = answer;
    mAgreedRole = role;
    mPreconditions = std::move(preconditions);
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
