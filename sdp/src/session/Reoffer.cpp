#include "session/Reoffer.h"

#include <velmora/rune/Amr.h>

#include "amr/AmrAnswer.h"
#include "read/RemoteMedia.h"
#include "syntax/SessionDescription.h"
#include "write/LineWriter.h"
#include "write/RejectedMedia.h"
#include "write/StreamMedia.h"

#include <optional>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// The AMR codec of a negotiated stream, on whichever list holds its codecs.
const AmrCodecConfig* agreedAmr(const StreamConfig& stream) {
    const bool downlink = stream.getDownlinkCodecCount() > 0;
    const unsigned int count =
        downlink ? stream.getDownlinkCodecCount() : stream.getUplinkCodecCount();
    for (unsigned int i = 0; i < count; ++i) {
        const CodecConfig* codec = downlink ? stream.getDownlinkCodec(i) : stream.getUplinkCodec(i);
        if (codec->getCodecId() == CodecIdAmr) {
            return static_cast<const AmrCodecConfig*>(codec);
        }
    }
    return nullptr;
}

const AmrCodecCapabilities* firstAmrCaps(const StreamCapabilities& local, BandType band) {
    for (unsigned int i = 0; i < local.getCodecCapabilityCount(); ++i) {
        const auto* amr = dynamic_cast<const AmrCodecCapabilities*>(local.getCodecCapabilities(i));
        if (amr != nullptr && amr->getBandType() == band) {
            return amr;
        }
    }
    return nullptr;
}

// The agreed parameters, and the mode change capability that an offer of local announces.
AmrFmtpText reofferedFmtp(const AmrCodecConfig& amr, const StreamCapabilities& local) {
    AmrFmtpText fmtp = configuredFmtp(amr);
    const AmrCodecCapabilities* caps = firstAmrCaps(local, amr.getBandType());
    fmtp.modeChangeCapabilityTwo =
        caps != nullptr && offerFmtp(*caps, amr.isOctetAlignModeEnabled()).modeChangeCapabilityTwo;
    return fmtp;
}

}  // namespace

void writeReoffer(const StreamConfig& agreed, unsigned agreedIndex, std::string_view lastSent,
                  const StreamCapabilities& local, const LocalEnd& end,
                  const PreconditionRows& preconditions, const Origin& origin, std::string& text) {
    StreamConfig stream = agreed;
    (void)stream.setDirection(end.direction);
    const AmrCodecConfig* amr = agreedAmr(stream);
    const AmrFmtpText fmtp = amr != nullptr ? reofferedFmtp(*amr, local) : AmrFmtpText();
    Description sent;
    (void)Description::parse(lastSent, sent);
    LineWriter writer(text);
    writer.sessionPart(origin, end.ip, nullptr);
    SectionCursor sections = sent.sections();
    MediaSection section;
    while (sections.next(section)) {
        if (section.index == agreedIndex) {
            writeStreamMedia(writer, stream, end.ip, end.port, amr != nullptr ? &fmtp : nullptr,
                             EventsFmtp::Offered, &preconditions);
        } else {
            writeRejectedMedia(writer, section);
        }
    }
}

unsigned streamSectionIndex(std::string_view text, unsigned& sections) {
    // The text parses: its m= lines alone tell, without a second parse.
    std::optional<unsigned> found;
    sections = 0;
    for (size_t at = Description::findMediaLineEnd(text, 0); at != std::string_view::npos;
         at = Description::findMediaLineEnd(text, at + 1), ++sections) {
        LineCursor lines(text.substr(at + 1), 1);
        Line line;
        MediaSection section;
        if (!found && lines.next(line) && Description::parseMedia(line, section) &&
            qualifies(section)) {
            found = sections;
        }
    }
    return found.value_or(0);
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
