#include "write/LineWriter.h"

#include "syntax/Printable.h"
#include "syntax/SdpLine.h"

#include <algorithm>
#include <charconv>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

bool isIpV6(std::string_view address) {
    return address.find(':') != std::string_view::npos;
}

void writeModes(LineWriter& writer, const AmrModes& modes) {
    for (unsigned i = 0; i < modes.count; ++i) {
        writer.text(i == 0 ? "" : ",").number(static_cast<uint64_t>(modes.modes[i]));
    }
}

void writeValue(LineWriter& writer, const char* name, std::optional<std::string_view> value) {
    if (value) {
        writer.text(name).text("=").text(*value).text("; ");
    }
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

void LineWriter::eventsFmtp(int payloadType) {
    fmtpStart(payloadType);
    text("0-15").end();
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

void writeAmrFmtp(LineWriter& writer, int payloadType, const AmrFmtpText& fmtp) {
    writer.fmtpStart(payloadType);
    if (fmtp.modeSetText) {
        writeValue(writer, "mode-set", fmtp.modeSetText);
    } else if (fmtp.modes.count > 0) {
        writer.text("mode-set=");
        writeModes(writer, fmtp.modes);
        writer.text("; ");
    }
    writeValue(writer, "octet-align", fmtp.octetAlign);
    if (fmtp.modeChangeCapabilityTwo) {
        writer.text("mode-change-capability=2; ");
    }
    if (fmtp.modeChangePeriodTwo) {
        writer.text("mode-change-period=2; ");
    }
    if (fmtp.modeChangeNeighbor) {
        writer.text("mode-change-neighbor=1; ");
    }
    writeValue(writer, "crc", fmtp.crc);
    writeValue(writer, "robust-sorting", fmtp.robustSorting);
    writeValue(writer, "interleaving", fmtp.interleaving);
    writer.text("max-red=").number(fmtp.maxRed).end();
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
