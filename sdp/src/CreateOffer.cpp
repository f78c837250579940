// Writing an offer from the local capabilities.
#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/sdp/Sdp.h>

#include "DirectedOffer.h"
#include "amr/AmrAnswer.h"
#include "amr/AmrFmtp.h"
#include "internal/Results.h"
#include "read/SectionReader.h"
#include "stream/LocalCodecs.h"
#include "write/LineWriter.h"
#include "write/LocalChecks.h"
#include "write/PreconditionLines.h"

#include <array>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

const int kFirstDynamicPayloadType = 96;

// One payload type of the offer.
struct OfferedFormat {
    int payloadType = 0;
    const CodecCapabilities* caps = nullptr;
    // Null for a telephone-event.
    const AmrCodecCapabilities* amr = nullptr;
    bool octetAligned = false;
};

// The payload types in the order they are offered: per AMR capability a bandwidth-efficient
// one (unless it requires octet-align) and an octet-aligned one, then one per DTMF capability.
// Dynamic payload types run out at 127; capabilities beyond are not offered.
class OfferedFormats {
  public:
    explicit OfferedFormats(const StreamCapabilities& local) {
        const unsigned int count = local.getCodecCapabilityCount();
        for (unsigned int i = 0; i < count; ++i) {
            const AmrCodecCapabilities* amr = asAmr(local.getCodecCapabilities(i));
            if (amr != nullptr && !amr->isOctetAlignModeRequired()) {
                add(amr, amr, false);
            }
            if (amr != nullptr) {
                add(amr, amr, true);
                mFirstAmr = mFirstAmr == nullptr ? amr : mFirstAmr;
            }
        }
        for (unsigned int i = 0; i < count; ++i) {
            const DtmfCodecCapabilities* events = asEvents(local.getCodecCapabilities(i));
            if (events != nullptr) {
                add(events, nullptr, false);
            }
        }
    }

    const OfferedFormat* begin() const { return mFormats.data(); }
    const OfferedFormat* end() const { return mFormats.data() + mCount; }
    // Null without an AmrCodecCapabilities.
    const AmrCodecCapabilities* firstAmr() const { return mFirstAmr; }

  private:
    void add(const CodecCapabilities* caps, const AmrCodecCapabilities* amr, bool octetAligned) {
        if (mCount < mFormats.size()) {
            mFormats[mCount] = OfferedFormat{kFirstDynamicPayloadType + static_cast<int>(mCount),
                                             caps, amr, octetAligned};
            ++mCount;
        }
    }

    std::array<OfferedFormat, kMaxPayloadType + 1 - kFirstDynamicPayloadType> mFormats;
    size_t mCount = 0;
    const AmrCodecCapabilities* mFirstAmr = nullptr;
};

bool supportsAvp(const StreamCapabilities& local) {
    const std::set<RtpProfile>& profiles = local.getSupportedRtpProfiles();
    return profiles.empty() || profiles.count(RtpProfileAvp) > 0;
}

void writeOffer(const StreamCapabilities& local, const OfferedFormats& formats,
                const std::string& localIp, int localPort, const Origin& origin,
                StreamConfig::Direction direction, const PreconditionRows* preconditions,
                std::string& text) {
    LineWriter writer(text);
    writer.sessionPart(origin, localIp, nullptr);
    writer.audioMediaStart(localPort, supportsAvp(local) ? RtpProfileAvp : RtpProfileAvpf);
    for (const OfferedFormat& format : formats) {
        writer.text(" ").integer(format.payloadType);
    }
    writer.end();
    writer.connection(localIp);
    const RtcpConfig& rtcp = local.getRTCPcaps();
    writer.bandwidths(rtcp.getAs(), rtcp.getRs(), rtcp.getRr());
    for (const OfferedFormat& format : formats) {
        const CodecId codec = format.amr != nullptr ? CodecIdAmr : CodecIdDtmf;
        writer.rtpmap(format.payloadType, codec, format.caps->getBandType());
        if (format.amr != nullptr) {
            writeAmrFmtp(writer, format.payloadType, offerFmtp(*format.amr, format.octetAligned));
        } else {
            writer.eventsFmtp(format.payloadType);
        }
    }
    writer.packetTimes(formats.firstAmr()->getPacketTime(), formats.firstAmr()->getMaxPacketTime());
    if (preconditions != nullptr) {
        writePreconditions(writer, *preconditions);
    }
    writer.direction(direction);
    if (rtcp.isReducedSizeMode()) {
        writer.attribute("rtcp-rsize");
    }
}

}  // namespace

Result createDirectedOffer(const StreamCapabilities& local, const std::string& localIp,
                           int localPort, const Origin& origin, StreamConfig::Direction direction,
                           const PreconditionRows* preconditions, std::string& offer) {
    Result result = checkOrigin(origin);
    if (result.isSuccess()) {
        result = checkLocalEndpoint(localIp, localPort);
    }
    if (result.isFailure()) {
        return result;
    }
    const OfferedFormats formats(local);
    if (formats.firstAmr() == nullptr) {
        return makeResult<StreamConfig::ResultTrait>(StreamConfig::InvalidConfiguration,
                                                     "No codec to offer");
    }
    std::string text;
    text.reserve(kBodyReserve);
    writeOffer(local, formats, localIp, localPort, origin, direction, preconditions, text);
    offer.swap(text);
    return result;
}

Result createOffer(const StreamCapabilities& local, const std::string& localIp, int localPort,
                   const Origin& origin, std::string& offer) {
    return createDirectedOffer(local, localIp, localPort, origin, StreamConfig::DirectionFullDuplex,
                               nullptr, offer);
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
