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

// The id and band are read first: a dynamic_cast costs more than the whole test otherwise.
const AmrCodecCapabilities* firstAmrCaps(const StreamCapabilities& local, BandType band) {
    for (unsigned int i = 0; i < local.getCodecCapabilityCount(); ++i) {
        const CodecCapabilities* caps = local.getCodecCapabilities(i);
        const auto* amr =
            caps != nullptr && caps->getCodecId() == CodecIdAmr && caps->getBandType() == band
                ? dynamic_cast<const AmrCodecCapabilities*>(caps)
                : nullptr;
        if (amr != nullptr) {
            return amr;
        }
    }
    return nullptr;
}

// The agreed parameters, and the mode change capability that an offer of local announces.
AmrFmtpText reofferedFmtp(const AmrCodecConfig& amr, const StreamCapabilities& local) {
    AmrFmtpText fmtp = configuredFmtp(amr);
    const AmrCodecCapabilities* caps = firstAmrCaps(local, amr.getBandType());
    fmtp.modeChangeCapabilityTwo = caps != nullptr && announcesModeChangeCapability(*caps);
    return fmtp;
}

// The m= line that follows the line end at of text, a description that parses.
bool readMediaLine(std::string_view text, size_t at, MediaSection& section) {
    LineCursor lines(text.substr(at + 1), 1);
    Line line;
    return lines.next(line) && Description::parseMedia(line, section);
}

}  // namespace

void writeReoffer(StreamConfig& agreed, const StreamPlace& place, std::string_view lastSent,
                  const StreamCapabilities& local, const LocalEnd& end,
                  const PreconditionRows& preconditions, const Origin& origin, std::string& text) {
    const AmrCodecConfig* amr = agreedAmr(agreed);
    const AmrFmtpText fmtp = amr != nullptr ? reofferedFmtp(*amr, local) : AmrFmtpText();
    // Written with the local direction set in place: a copy of the stream costs more.
    const StreamConfig::Direction agreedDirection = agreed.getDirection();
    (void)agreed.setDirection(end.direction);
    LineWriter writer(text);
    writer.sessionPart(origin, end.ip, nullptr);
    // lastSent parses, with the exchange's m= lines: they alone are read, without a parse.
    size_t at = 0;
    for (unsigned index = 0; index < place.sections; ++index) {
        at = Description::findMediaLineEnd(lastSent, index == 0 ? 0 : at + 1);
        MediaSection section;
        if (index == place.index) {
            writeStreamMedia(writer, agreed, end.ip, end.port, amr != nullptr ? &fmtp : nullptr,
                             EventsFmtp::Offered, &preconditions);
        } else if (readMediaLine(lastSent, at, section)) {
            writeRejectedMedia(writer, section);
        }
    }
    (void)agreed.setDirection(agreedDirection);
}

StreamPlace findStreamPlace(std::string_view text) {
    // The text parses: its m= lines alone tell, without a second parse.
    std::optional<unsigned> found;
    unsigned sections = 0;
    for (size_t at = Description::findMediaLineEnd(text, 0); at != std::string_view::npos;
         at = Description::findMediaLineEnd(text, at + 1), ++sections) {
        MediaSection section;
        if (!found && readMediaLine(text, at, section) && qualifies(section)) {
            found = sections;
        }
    }
    return StreamPlace{found.value_or(0), sections};
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
