// Answering an offer (RFC 3264) from the local capabilities.
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/sdp/Sdp.h>

#include "AmrAnswer.h"
#include "AudioSection.h"
#include "Refusal.h"
#include "WriteMedia.h"
#include "syntax/SessionDescription.h"

#include <algorithm>
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
};

bool supportsProfile(const StreamCapabilities& local, RtpProfile profile) {
    const std::set<RtpProfile>& profiles = local.getSupportedRtpProfiles();
    return profiles.empty() ? profile == RtpProfileAvp : profiles.count(profile) > 0;
}

bool hasEvents(const StreamCapabilities& local, BandType band) {
    for (unsigned int i = 0; i < local.getCodecCapabilityCount(); ++i) {
        const auto* dtmf =
            dynamic_cast<const DtmfCodecCapabilities*>(local.getCodecCapabilities(i));
        if (dtmf != nullptr && dtmf->getBandType() == band) {
            return true;
        }
    }
    return false;
}

// The first local AMR capability that accepts format; null when none does.
const AmrCodecCapabilities* acceptingCaps(const StreamCapabilities& local,
                                          const RemoteFormat& format) {
    for (unsigned int i = 0; i < local.getCodecCapabilityCount(); ++i) {
        const auto* amr = dynamic_cast<const AmrCodecCapabilities*>(local.getCodecCapabilities(i));
        if (amr != nullptr && acceptsAmr(*amr, format)) {
            return amr;
        }
    }
    return nullptr;
}

// The first AMR format, in the offerer's order, that a local capability accepts; then the
// telephone-event of its clock rate.
bool choose(const RemoteMedia& remote, const StreamCapabilities& local, Choice& choice) {
    for (const RemoteFormat& format : remote.formats) {
        if (format.kind == RemoteFormat::Amr) {
            choice.amrCaps = acceptingCaps(local, format);
            if (choice.amrCaps != nullptr) {
                choice.amr = &format;
                break;
            }
        }
    }
    if (choice.amr == nullptr) {
        return false;
    }
    const BandType band = choice.amr->band;
    if (hasEvents(local, band)) {
        const auto events = std::find_if(
            remote.formats.begin(), remote.formats.end(), [band](const RemoteFormat& format) {
                return format.kind == RemoteFormat::TelephoneEvent && format.band == band;
            });
        choice.events = events == remote.formats.end() ? nullptr : &*events;
    }
    return true;
}

RtcpConfig answeredRtcp(const StreamCapabilities& local, const RemoteMedia& remote) {
    RtcpConfig rtcp = local.getRTCPcaps();
    rtcp.setReducedSizeMode(remote.reducedSize && rtcp.isReducedSizeMode());
    return rtcp;
}

// The kept formats in the offer's m= order, at the agreed packet times.
void addCodecs(const RemoteMedia& remote, const Choice& choice, StreamConfig& stream) {
    const unsigned int packetTime = remote.packetTime.value_or(choice.amrCaps->getPacketTime());
    const unsigned int maxPacketTime =
        std::min(remote.maxPacketTime.value_or(choice.amrCaps->getMaxPacketTime()),
                 choice.amrCaps->getMaxPacketTime());
    for (const RemoteFormat& format : remote.formats) {
        if (&format == choice.amr) {
            AmrCodecConfig amr = negotiateAmr(*choice.amrCaps, format);
            amr.setPacketTime(packetTime);
            amr.setMaxPacketTime(maxPacketTime);
            placeCodec(amr, stream);
        } else if (&format == choice.events) {
            DtmfCodecConfig dtmf;
            (void)dtmf.setBandType(format.band);
            dtmf.setPayloadType(format.payloadType);
            dtmf.setPacketTime(packetTime);
            dtmf.setMaxPacketTime(maxPacketTime);
            placeCodec(dtmf, stream);
        }
    }
}

}  // namespace

Result answerOffer(const std::string& offer, const StreamCapabilities& local,
                   const std::string& localIp, int localPort, const Origin& /*origin*/,
                   StreamConfig& negotiated, std::string& answer) {
    Description parsed;
    StreamConfig stream;
    RemoteMedia remote;
    Result result = readRemoteMedia(offer, parsed, stream, remote);
    if (result.isFailure()) {
        return result;
    }
    if (!supportsProfile(local, remote.profile)) {
        return refusalAt(remote.media->mediaLine, StreamConfig::InvalidConfiguration,
                         "Unsupported profile");
    }
    Choice choice;
    if (!choose(remote, local, choice)) {
        return refusalAt(remote.media->mediaLine, StreamConfig::InvalidConfiguration,
                         "No common codec");
    }
    (void)stream.setDirection(mirror(remote.direction));
    stream.setRtpProfile(remote.profile);
    const RtcpConfig rtcp = answeredRtcp(local, remote);
    stream.setRtcpConfig(rtcp);
    // RFC 3556: RS and RR both 0 turn RTCP off, as the answer then says.
    stream.setRtcp(rtcp.getRs() != 0 || rtcp.getRr() != 0);
    addCodecs(remote, choice, stream);

    // The stream's one AMR codec is the kept format.
    answer = writeMedia(stream, localIp, localPort, [&choice](const AmrCodecConfig&) {
        return answerAmrParameters(*choice.amrCaps, *choice.amr);
    });
    negotiated = stream;
    return result;
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
