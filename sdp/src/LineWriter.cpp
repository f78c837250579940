#include "LineWriter.h"

#include <velmora/rune/Amr.h>
#include <velmora/rune/Utils.h>

#include "AmrFmtp.h"
#include "internal/Results.h"
#include "syntax/SdpLine.h"

#include <algorithm>
#include <charconv>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

const int kMaxPort = 65535;

bool isIpV6(std::string_view address) {
    return address.find(':') != std::string_view::npos;
}

// The downlink codecs, or the uplink codecs when there are none.
struct ListedCodecs {
    explicit ListedCodecs(const StreamConfig& stream)
        : stream(stream), downlink(stream.getDownlinkCodecCount() > 0) {}

    unsigned int count() const {
        return downlink ? stream.getDownlinkCodecCount() : stream.getUplinkCodecCount();
    }
    const CodecConfig& operator[](unsigned int i) const {
        return *(downlink ? stream.getDownlinkCodec(i) : stream.getUplinkCodec(i));
    }

    const StreamConfig& stream;
    const bool downlink;
};

// RFC 4867 section 8.1. max-red is always written, so an AMR format always has its fmtp.
AmrFmtpText configuredFmtp(const AmrCodecConfig& amr) {
    AmrFmtpText fmtp;
    for (AmrRate rate : amr.getSupportedAmrRates()) {
        fmtp.modes.add(rate);
    }
    if (fmtp.modes.isEveryMode(amr.getBandType())) {
        fmtp.modes = AmrModes();
    }
    const std::string_view on = "1";
    if (amr.isOctetAlignModeEnabled()) {
        fmtp.octetAlign = on;
    }
    fmtp.modeChangePeriodTwo = amr.getModeChangePeriod() == ModeChangePeriodEveryOtherFrame;
    fmtp.modeChangeNeighbor = amr.isModeChangeNeighborEnabled();
    if (amr.isCrcModeEnabled()) {
        fmtp.crc = on;
    }
    if (amr.isRobustSortingModeEnabled()) {
        fmtp.robustSorting = on;
    }
    // The model keeps no group size.
    if (amr.isInterleavingModeEnabled()) {
        fmtp.interleaving = on;
    }
    fmtp.maxRed = amr.isRdcyModeEnabled() ? static_cast<uint32_t>(amr.getMaxRdcy()) : 0;
    return fmtp;
}

}  // namespace

LineWriter::LineWriter(std::string& out) : mOut(out), mSize(out.size()) {
    mOut.resize(mOut.capacity());
}

LineWriter::~LineWriter() {
    mOut.resize(mSize);
}

void LineWriter::grow(size_t more) {
    mOut.resize(std::max(2 * mOut.size(), mSize + more));
}

LineWriter& LineWriter::number(uint64_t number) {
    char digits[20];
    const std::to_chars_result written = std::to_chars(digits, digits + sizeof digits, number);
    return text(std::string_view(digits, static_cast<size_t>(written.ptr - digits)));
}

LineWriter& LineWriter::token(std::string_view token) {
    if (isShownAsIs(token)) {
        return text(token);
    }
    std::string quoted;
    appendQuoted(quoted, token);
    return text(quoted);
}

LineWriter& LineWriter::integer(int64_t number) {
    if (number < 0) {
        text("-");
    }
    return this->number(number < 0 ? 0 - static_cast<uint64_t>(number)
                                   : static_cast<uint64_t>(number));
}

void LineWriter::end() {
    text("\r\n");
}

void LineWriter::sessionPart(const Origin& origin, std::string_view address,
                             std::string_view timing) {
    text("v=0\r\no=").text(origin.username).text(" ").number(origin.sessionId).text(" ");
    number(origin.sessionVersion).text(isIpV6(address) ? " IN IP6 " : " IN IP4 ").text(address);
    end();
    text("s=-\r\n");
    connection(address);
    text("t=").text(timing).end();
}

void LineWriter::audioMediaStart(int port, RtpProfile profile) {
    text("m=audio ").number(static_cast<uint64_t>(port));
    text(profile == RtpProfileAvpf ? " RTP/AVPF" : " RTP/AVP");
}

void LineWriter::connection(std::string_view address) {
    text(isIpV6(address) ? "c=IN IP6 " : "c=IN IP4 ").text(address).end();
}

void LineWriter::bandwidth(const char* modifier, unsigned int value) {
    text("b=").text(modifier).text(":").number(value).end();
}

void LineWriter::rtpmap(int payloadType, CodecId codec, BandType band) {
    const bool narrow = band == BandTypeNb;
    text("a=rtpmap:").integer(payloadType);
    if (codec == CodecIdAmr) {
        text(narrow ? " AMR/8000/1" : " AMR-WB/16000/1");
    } else {
        text(narrow ? " telephone-event/8000" : " telephone-event/16000");
    }
    end();
}

void LineWriter::fmtpStart(int payloadType) {
    text("a=fmtp:").integer(payloadType).text(" ");
}

void LineWriter::attribute(std::string_view name, std::string_view value) {
    text("a=").text(name);
    if (!value.empty()) {
        text(":").text(value);
    }
    end();
}

void LineWriter::packetTimes(unsigned int packetTime, unsigned int maxPacketTime) {
    text("a=ptime:").number(packetTime).end();
    text("a=maxptime:").number(maxPacketTime).end();
}

void LineWriter::direction(StreamConfig::Direction direction) {
    switch (direction) {
        case StreamConfig::DirectionInactive:
            attribute("inactive");
            break;
        case StreamConfig::DirectionSendOnly:
            attribute("sendonly");
            break;
        case StreamConfig::DirectionReceiveOnly:
            attribute("recvonly");
            break;
        default:
            attribute("sendrecv");
            break;
    }
}

void writeStreamMedia(LineWriter& writer, const StreamConfig& stream, std::string_view localIp,
                      int localPort, const AmrFmtpText* answered) {
    const ListedCodecs codecs(stream);
    const RtcpConfig& rtcp = stream.getRtcpConfig();
    const bool rtcpOn = stream.isRtcpEnabled();
    writer.audioMediaStart(localPort, stream.getRtpProfile());
    for (unsigned int i = 0; i < codecs.count(); ++i) {
        writer.text(" ").integer(codecs[i].getPayloadType());
    }
    writer.end();
    writer.connection(localIp);
    writer.bandwidth("AS", rtcp.getAs());
    writer.bandwidth("RS", rtcpOn ? rtcp.getRs() : 0);
    writer.bandwidth("RR", rtcpOn ? rtcp.getRr() : 0);
    for (unsigned int i = 0; i < codecs.count(); ++i) {
        const CodecConfig& codec = codecs[i];
        writer.rtpmap(codec.getPayloadType(), codec.getCodecId(), codec.getBandType());
        if (codec.getCodecId() == CodecIdAmr) {
            writeAmrFmtp(writer, codec.getPayloadType(),
                         answered != nullptr
                             ? *answered
                             : configuredFmtp(static_cast<const AmrCodecConfig&>(codec)));
        }
    }
    if (codecs.count() > 0) {
        writer.packetTimes(codecs[0].getPacketTime(), codecs[0].getMaxPacketTime());
    }
    writer.direction(stream.getDirection());
    if (rtcp.isReducedSizeMode()) {
        writer.attribute("rtcp-rsize");
    }
}

StreamConfig::Result checkLocalEndpoint(const std::string& localIp, int localPort) {
    const bool goodAddress = Utils::isValidIpAddress(localIp);
    if (goodAddress && localPort >= 1 && localPort <= kMaxPort) {
        return successResult();
    }
    // The model's words; it refuses privileged ports for remote ends, not for this one.
    // The caller's own values, not network input: the message stays unquoted.
    StreamConfig probe;
    return goodAddress ? probe.setRemoteRtpPort(localPort) : probe.setRemoteIp(localIp);
}

StreamConfig::Result checkOrigin(const Origin& origin) {
    bool good = !origin.username.empty();
    for (char c : origin.username) {
        good = good && static_cast<unsigned char>(c) > 0x20 && c != 0x7F;
    }
    return good ? successResult()
                : makeResult<StreamConfig::ResultTrait>(StreamConfig::InvalidParam,
                                                        "Bad origin username");
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
