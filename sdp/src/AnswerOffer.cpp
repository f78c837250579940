// Answering an offer (RFC 3264) from the local capabilities.
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/sdp/Sdp.h>

#include "DialogAnswer.h"
#include "amr/AmrAnswer.h"
#include "read/PreconditionReader.h"
#include "read/PreconditionRows.h"
#include "read/SectionReader.h"
#include "stream/AnswerTerms.h"
#include "stream/LocalCodecs.h"
#include "stream/PreconditionRules.h"
#include "stream/StreamBuilder.h"
#include "stream/TelephoneEvents.h"
#include "syntax/SessionDescription.h"
#include "write/LineWriter.h"
#include "write/LocalChecks.h"
#include "write/RejectedMedia.h"
#include "write/StreamMedia.h"

#include <set>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// What the answer keeps of the offer.
struct Choice {
    const RemoteFormat* amr = nullptr;
    // The local capability that accepted amr.
    const AmrCodecCapabilities* amrCaps = nullptr;
    // Null when there is none to keep.
    const RemoteFormat* events = nullptr;
    // The a=fmtp answered for amr, once it is chosen.
    AmrFmtpText fmtp;
};

bool supportsProfile(const StreamCapabilities& local, RtpProfile profile) {
    const std::set<RtpProfile>& profiles = local.getSupportedRtpProfiles();
    return profiles.empty() ? profile == RtpProfileAvp : profiles.count(profile) > 0;
}

// The clock rates at which local takes telephone-event.
struct LocalEvents {
    bool narrow = false;
    bool wide = false;

    bool takes(BandType band) const {
        return band == BandTypeNb ? narrow : band == BandTypeWb && wide;
    }
};

// Read in one pass, for all the telephone-events an offer lists.
LocalEvents localEvents(const StreamCapabilities& local) {
    LocalEvents events;
    const unsigned int count = local.getCodecCapabilityCount();
    for (unsigned int i = 0; i < count; ++i) {
        const CodecCapabilities* caps = local.getCodecCapabilities(i);
        if (asEvents(caps) != nullptr) {
            events.narrow = events.narrow || caps->getBandType() == BandTypeNb;
            events.wide = events.wide || caps->getBandType() == BandTypeWb;
        }
    }
    return events;
}

// The first local AMR capability that accepts the parameters; null when none does.
const AmrCodecCapabilities* acceptingCaps(const StreamCapabilities& local, BandType band,
                                          const AmrParameters& parameters) {
    const unsigned int count = local.getCodecCapabilityCount();
    for (unsigned int i = 0; i < count; ++i) {
        const AmrCodecCapabilities* amr = asAmr(local.getCodecCapabilities(i));
        if (amr != nullptr && acceptsAmr(*amr, band, parameters)) {
            return amr;
        }
    }
    return nullptr;
}

// The agreed AMR format when a local capability accepts it, else the first AMR format, in the
// offerer's order, that one accepts; then the telephone-event that goes with it.
bool choose(const RemoteMedia& remote, const StreamCapabilities& local, const AgreedFormats& agreed,
            Choice& choice) {
    const RemoteFormat* kept = findAgreed(remote, agreed.amr, RemoteFormat::Amr);
    choice.amrCaps = kept != nullptr ? acceptingCaps(local, kept->band, kept->amr) : nullptr;
    choice.amr = choice.amrCaps != nullptr ? kept : nullptr;
    for (const RemoteFormat* format = remote.begin();
         choice.amr == nullptr && format != remote.end(); ++format) {
        if (format->kind == RemoteFormat::Amr) {
            choice.amrCaps = acceptingCaps(local, format->band, format->amr);
            choice.amr = choice.amrCaps != nullptr ? format : nullptr;
        }
    }
    if (choice.amr == nullptr) {
        return false;
    }
    const LocalEvents events = localEvents(local);
    choice.events = chooseEvents(
        remote, choice.amr->band, findAgreed(remote, agreed.events, RemoteFormat::TelephoneEvent),
        [&events](const RemoteFormat& format) { return events.takes(format.band); });
    return true;
}

// Why a section read without fault cannot be answered: the profile first, then the codecs. A
// section that binds an agreed payload type to another codec is answered as a first offer.
StreamConfig::Result refusal(const RemoteMedia& remote, const StreamCapabilities& local,
                             const AgreedFormats& agreed, Choice& choice) {
    const AgreedFormats& kept = rebinds(remote, agreed) ? AgreedFormats() : agreed;
    const char* reason = !supportsProfile(local, remote.profile) ? "Unsupported profile"
                         : !choose(remote, local, kept, choice)  ? "No common codec"
                                                                 : nullptr;
    return reason == nullptr
               ? successResult()
               : refusalAt(remote.section.mediaLine, StreamConfig::InvalidConfiguration, reason);
}

// The first qualifying section that can be answered, starting with remote, the first one, read
// already. A refusal other than the profile's or the codecs' is the result; when none can be
// answered, the first active audio section's refusal.
StreamConfig::Result chooseSection(const Description& offer, const StreamCapabilities& local,
                                   const AgreedFormats& agreed, RemoteMedia& remote,
                                   Choice& choice) {
    StreamConfig::Result result = refusal(remote, local, agreed, choice);
    if (result.isSuccess()) {
        return result;
    }
    const unsigned tried = remote.section.index;
    SectionCursor sections = offer.sections();
    MediaSection section;
    while (sections.next(section)) {
        if (section.index <= tried || !qualifies(section)) {
            continue;
        }
        result = readSection(offer, section, remote);
        if (result.isFailure()) {
            return result;
        }
        choice = Choice();
        if (refusal(remote, local, agreed, choice).isSuccess()) {
            return result;
        }
    }
    // There is one: a qualifying section was read.
    findFirstActiveAudio(offer, section);
    result = readSection(offer, section, remote);
    choice = Choice();
    return result.isFailure() ? result : refusal(remote, local, agreed, choice);
}

RtcpConfig answeredRtcp(const StreamCapabilities& local, const RemoteMedia& remote) {
    RtcpConfig rtcp = local.getRTCPcaps();
    rtcp.setReducedSizeMode(remote.reducedSize && rtcp.isReducedSizeMode());
    return rtcp;
}

// The kept formats in the offer's m= order, at the agreed packet times, in the direction both
// sides allow. Only the stream's check can refuse, before stream changes.
StreamConfig::Result negotiate(const RemoteMedia& remote, const StreamCapabilities& local,
                               const Choice& choice, StreamConfig::Direction localDirection,
                               StreamConfig& stream) {
    const PacketTimes times = answeredPacketTimes(remote, *choice.amrCaps);
    AmrCodecConfig amr;
    negotiateAmr(choice.fmtp, choice.amr->amr, choice.amr->band, choice.amr->payloadType, amr);
    amr.setPacketTime(times.packetTime);
    amr.setMaxPacketTime(times.maxPacketTime);
    StreamConfig::Result result = checkAsStream(amr);
    if (result.isFailure()) {
        return result;
    }
    startStream(remote, stream, localDirection);
    const RtcpConfig rtcp = answeredRtcp(local, remote);
    stream.setRtcpConfig(rtcp);
    // RFC 3556: RS and RR both 0 turn RTCP off, as the answer then says.
    stream.setRtcp(rtcp.getRs() != 0 || rtcp.getRr() != 0);
    placeAgreedCodecs(amr, *choice.amr, choice.events, times.packetTime, times.maxPacketTime,
                      stream);
    return result;
}

// One m= line per offered one: the chosen section answered, every other one rejected.
void writeAnswer(const Description& offer, const RemoteMedia& remote, const Choice& choice,
                 const StreamConfig& stream, const std::string& localIp, int localPort,
                 const Origin& origin, const PreconditionRows& preconditions, std::string& text) {
    LineWriter writer(text);
    writer.sessionPart(origin, localIp, &offer);
    SectionCursor sections = offer.sections();
    MediaSection section;
    for (unsigned index = 0; index < offer.sectionCount(); ++index) {
        if (index == remote.section.index) {
            writeStreamMedia(writer, stream, localIp, localPort, &choice.fmtp, EventsFmtp::Left,
                             &preconditions);
            continue;
        }
        // Only the rejected sections are read again: the usual offer, with one section, is not.
        while (sections.next(section) && section.index != index) {
        }
        writeRejectedMedia(writer, section);
    }
}

}  // namespace

Result answerInDialog(const std::string& offer, const StreamCapabilities& local,
                      const std::string& localIp, int localPort, const Origin& origin,
                      const DialogRules& rules, StreamConfig& negotiated, std::string& answer) {
    // Each step's refusal is returned as built: a Result assigned costs more.
    if (Result checked = checkOrigin(origin); checked.isFailure()) {
        return checked;
    }
    if (Result checked = checkLocalEndpoint(localIp, localPort); checked.isFailure()) {
        return checked;
    }
    Description parsed;
    RemoteMedia remote;
    if (Result read = readDescription(offer, parsed, remote, SectionRule::Required);
        read.isFailure()) {
        return read;
    }
    Choice choice;
    if (Result chosen = chooseSection(parsed, local, rules.agreed, remote, choice);
        chosen.isFailure()) {
        return chosen;
    }
    PreconditionRows offered;
    if (Result rows = readPreconditions(remote, PreconditionUse::Answered, offered);
        rows.isFailure()) {
        return rows;
    }
    choice.fmtp = answerFmtp(*choice.amrCaps, choice.amr->band, choice.amr->amr);
    Result result = negotiate(remote, local, choice, rules.localDirection, negotiated);
    if (result.isFailure()) {
        return result;
    }
    // Nothing below refuses: the answer is written in place.
    PreconditionRows answered;
    answerPreconditions(offered, rules.qosStatus, rules.qosStrength, answered);
    std::string text;
    text.reserve(kBodyReserve);
    writeAnswer(parsed, remote, choice, negotiated, localIp, localPort, origin, answered, text);
    if (rules.preconditions != nullptr) {
        *rules.preconditions = toPreconditions(answered);
    }
    if (rules.place != nullptr) {
        *rules.place = StreamPlace{remote.section.index, parsed.sectionCount()};
    }
    answer.swap(text);
    return result;
}

Result answerOffer(const std::string& offer, const StreamCapabilities& local,
                   const std::string& localIp, int localPort, const Origin& origin,
                   StreamConfig& negotiated, std::string& answer) {
    return answerInDialog(offer, local, localIp, localPort, origin, DialogRules(), negotiated,
                          answer);
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
