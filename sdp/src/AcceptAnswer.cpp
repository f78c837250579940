// Accepting the answer to an offer this side sent (the offerer's side of RFC 3264 and of RFC
// 4867 section 8.3.1).
#include <velmora/rune/Amr.h>
#include <velmora/rune/sdp/Sdp.h>

#include "DialogAccept.h"
#include "amr/AmrAnswer.h"
#include "amr/AmrFmtp.h"
#include "internal/Results.h"
#include "read/PreconditionReader.h"
#include "read/SectionReader.h"
#include "stream/StreamBuilder.h"
#include "stream/TelephoneEvents.h"
#include "syntax/SessionDescription.h"

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// What this side keeps of the answer.
struct Choice {
    const RemoteFormat* amr = nullptr;
    const AmrParameters* offered = nullptr;
    const AmrParameters* answered = nullptr;
    // Null when there is none to keep.
    const RemoteFormat* events = nullptr;
};

// The offered format of the same payload type, codec and band as an answered one.
const RemoteFormat* offeredAs(const RemoteMedia& offer, const RemoteFormat& answered) {
    const RemoteFormat* offered = offer.find(answered.payloadType);
    return offered != nullptr && offered->kind == answered.kind && offered->band == answered.band
               ? offered
               : nullptr;
}

// The first usable AMR payload type in the answer's order, with the answered telephone-event
// of its clock rate, else the first of another rate; formats that the offer did not list are
// skipped.
bool choose(const RemoteMedia& offer, const RemoteMedia& answer, Choice& choice) {
    for (const RemoteFormat& format : answer) {
        const RemoteFormat* offered =
            format.kind == RemoteFormat::Amr ? offeredAs(offer, format) : nullptr;
        if (offered == nullptr) {
            continue;
        }
        if (keepsOffer(offered->amr, format.amr)) {
            choice.offered = &offered->amr;
            choice.answered = &format.amr;
            choice.amr = &format;
            break;
        }
    }
    if (choice.amr == nullptr) {
        return false;
    }
    choice.events = chooseEvents(
        answer, choice.amr->band, nullptr,
        [&offer](const RemoteFormat& format) { return offeredAs(offer, format) != nullptr; });
    return true;
}

// The answer read, its chosen section's values as describe reads them; its structure comes next,
// then the stream at the offer's position.
StreamConfig::Result readAnswer(const std::string& text, const Description& offer,
                                const RemoteMedia& offered, RemoteMedia& answered, Choice& choice) {
    Description answer;
    StreamConfig::Result result =
        readDescription(text, answer, answered, SectionRule::CheckedLater);
    if (result.isFailure()) {
        return result;
    }
    if (!offer.hasSameMediaLines(answer)) {
        return makeResult<StreamConfig::ResultTrait>(StreamConfig::InvalidConfiguration,
                                                     "Answer does not match the offer");
    }
    MediaSection section = answered.section;
    if (!section.mediaLine.exists() || section.index != offered.section.index) {
        answer.section(offered.section.index, section);
        if (section.port == 0) {
            return refusalAt(section.mediaLine, StreamConfig::InvalidConfiguration,
                             "Stream rejected");
        }
        result = readSection(answer, section, answered);
        if (result.isFailure()) {
            return result;
        }
    } else if (!answered.connection.exists()) {
        return noConnectionAddress(section);
    }
    if (!choose(offered, answered, choice)) {
        return refusalAt(section.mediaLine, StreamConfig::InvalidConfiguration, "No common codec");
    }
    return result;
}

// The answer's direction mirrored, within what the offer allowed (RFC 3264 section 6.1); RTCP
// bandwidths the offer's, as reading takes them; reduced size only when both listed it.
void negotiate(const RemoteMedia& offered, const RemoteMedia& answered, const Choice& choice,
               StreamConfig& stream) {
    startStream(answered, stream, offered.direction);
    setReadRtcp(offered, stream);
    RtcpConfig rtcp = stream.getRtcpConfig();
    rtcp.setReducedSizeMode(offered.reducedSize && answered.reducedSize);
    stream.setRtcpConfig(rtcp);
    const std::optional<uint32_t> packetTime =
        answered.packetTime ? answered.packetTime : offered.packetTime;
    const std::optional<uint32_t> maxPacketTime =
        answered.maxPacketTime ? answered.maxPacketTime : offered.maxPacketTime;
    AmrCodecConfig amr;
    configureAmr(*choice.answered, agreedModes(choice.answered->modes, choice.offered->modes),
                 choice.amr->band, choice.amr->payloadType, amr);
    placeAgreedCodecs(amr, *choice.amr, choice.events, packetTime, maxPacketTime, stream);
}

}  // namespace

Result acceptInDialog(const std::string& offer, const std::string& answer, StreamConfig& negotiated,
                      AcceptedExchange* exchange) {
    // Each refusal names the text it comes from.
    Description offerParsed;
    RemoteMedia offered;
    Result result = readDescription(offer, offerParsed, offered, SectionRule::Required);
    if (result.isFailure()) {
        return inText("offer", std::move(result));
    }
    RemoteMedia answered;
    Choice choice;
    // Built where it is returned: a Result assigned costs more.
    Result checked = readAnswer(answer, offerParsed, offered, answered, choice);
    if (checked.isSuccess() && exchange != nullptr) {
        // The answer's section was read at the offer's stream place.
        PreconditionRows rows;
        checked = readPreconditions(answered, PreconditionUse::Kept, rows);
        exchange->preconditions = toPreconditions(rows);
        exchange->place = StreamPlace{offered.section.index, offerParsed.sectionCount()};
    }
    if (checked.isFailure()) {
        return inText("answer", std::move(checked));
    }
    negotiate(offered, answered, choice, negotiated);
    return checked;
}

Result acceptAnswer(const std::string& offer, const std::string& answer, StreamConfig& negotiated) {
    return acceptInDialog(offer, answer, negotiated, nullptr);
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
