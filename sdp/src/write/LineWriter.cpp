#include "write/LineWriter.h"

#include "syntax/Printable.h"
#include "syntax/SdpLine.h"

#include <algorithm>
#include <charconv>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// No number written has more digits.
const size_t kMaxDigits = 20;

// " IN IP6 " when address holds a colon, else " IN IP4 ".
std::string_view addressType(std::string_view address) {
    return address.find(':') != std::string_view::npos ? std::string_view(" IN IP6 ")
                                                       : std::string_view(" IN IP4 ");
}

// A mode-set lists one mode at least.
void writeModes(LineWriter& writer, const AmrModes& modes) {
    writer.number(static_cast<uint64_t>(modes.modes[0]));
    for (unsigned i = 1; i < modes.count; ++i) {
        writer.text(",").number(static_cast<uint64_t>(modes.modes[i]));
    }
}

// name holds the "=".
void writeValue(LineWriter& writer, std::string_view name, std::optional<std::string_view> value) {
    if (value) {
        writer.text(name).text(*value).text("; ");
    }
}

}  // namespace

LineWriter::LineWriter(std::string& out) : mOut(out) {
    const size_t size = mOut.size();
    mOut.resize(mOut.capacity());
    mAt = mOut.data() + size;
    mEnd = mOut.data() + mOut.size();
}

LineWriter::~LineWriter() {
    mOut.resize(static_cast<size_t>(mAt - mOut.data()));
}

void LineWriter::grow(size_t more) {
    const auto size = static_cast<size_t>(mAt - mOut.data());
    mOut.resize(std::max(2 * mOut.size(), size + more));
    mAt = mOut.data() + size;
    mEnd = mOut.data() + mOut.size();
}

LineWriter& LineWriter::longNumber(uint64_t number) {
    // Payload types and packet times: two or three digits from the table, without counting them.
    if (number < 1000) {
        static constexpr char kPairs[] =
            "00010203040506070809101112131415161718192021222324"
            "25262728293031323334353637383940414243444546474849"
            "50515253545556575859606162636465666768697071727374"
            "75767778798081828384858687888990919293949596979899";
        char* at = room(3);
        if (number >= 100) {
            *at++ = static_cast<char>('0' + number / 100);
            number %= 100;
        }
        std::memcpy(at, kPairs + 2 * number, 2);
        mAt = at + 2;
        return *this;
    }
    // Straight into the room, without a copy.
    char* at = room(kMaxDigits);
    mAt = std::to_chars(at, at + kMaxDigits, number).ptr;
    return *this;
}

LineWriter& LineWriter::token(std::string_view token) {
    if (isShownAsIs(token)) {
        return text(token);
    }
    std::string quoted;
    appendQuoted(quoted, token);
    return text(quoted);
}

void LineWriter::sessionPart(const Origin& origin, std::string_view address,
                             const Description* times) {
    const std::string_view type = addressType(address);
    text("v=0\r\no=").text(origin.username).text(" ").number(origin.sessionId).text(" ");
    number(origin.sessionVersion).text(type).text(address).text("\r\ns=-\r\nc=");
    text(type.substr(1)).text(address).end();
    bool timed = false;
    LineCursor lines = times != nullptr ? times->sessionLines() : LineCursor({}, 1);
    Line line;
    while (lines.next(line)) {
        uint64_t start = 0;
        uint64_t stop = 0;
        // The description was parsed: its t= lines read.
        if (line.type() == 't' && Description::parseTiming(line.value(), start, stop)) {
            text("t=").number(start).text(" ").number(stop).end();
            timed = true;
        }
    }
    if (!timed) {
        text("t=0 0\r\n");
    }
}

void LineWriter::audioMediaStart(int port, RtpProfile profile) {
    text("m=audio ").number(static_cast<uint64_t>(port));
    if (profile == RtpProfileAvpf) {
        text(" RTP/AVPF");
    } else {
        text(" RTP/AVP");
    }
}

void LineWriter::connection(std::string_view address) {
    text("c=").text(addressType(address).substr(1)).text(address).end();
}

void LineWriter::bandwidths(unsigned int as, unsigned int rs, unsigned int rr) {
    text("b=AS:").number(as).text("\r\nb=RS:").number(rs).text("\r\nb=RR:").number(rr).end();
}

void LineWriter::rtpmap(int payloadType, CodecId codec, BandType band) {
    const bool narrow = band == BandTypeNb;
    text("a=rtpmap:").integer(payloadType);
    // Each text a constant of its own: copies of a size known here, without a call.
    if (codec == CodecIdAmr && narrow) {
        text(" AMR/8000/1\r\n");
    } else if (codec == CodecIdAmr) {
        text(" AMR-WB/16000/1\r\n");
    } else if (narrow) {
        text(" telephone-event/8000\r\n");
    } else {
        text(" telephone-event/16000\r\n");
    }
}

void LineWriter::fmtpStart(int payloadType) {
    text("a=fmtp:").integer(payloadType).text(" ");
}

void LineWriter::eventsFmtp(int payloadType) {
    fmtpStart(payloadType);
    text("0-15\r\n");
}

void LineWriter::attribute(std::string_view name, std::string_view value) {
    text("a=").text(name);
    if (!value.empty()) {
        text(":").text(value);
    }
    end();
}

void LineWriter::packetTimes(unsigned int packetTime, unsigned int maxPacketTime) {
    text("a=ptime:").number(packetTime).text("\r\na=maxptime:").number(maxPacketTime).end();
}

void LineWriter::direction(StreamConfig::Direction direction) {
    switch (direction) {
        case StreamConfig::DirectionInactive:
            text("a=inactive\r\n");
            break;
        case StreamConfig::DirectionSendOnly:
            text("a=sendonly\r\n");
            break;
        case StreamConfig::DirectionReceiveOnly:
            text("a=recvonly\r\n");
            break;
        default:
            text("a=sendrecv\r\n");
            break;
    }
}

void writeAmrFmtp(LineWriter& writer, int payloadType, const AmrFmtpText& fmtp) {
    writer.fmtpStart(payloadType);
    if (fmtp.modes.count > 0) {
        writer.text("mode-set=");
        writeModes(writer, fmtp.modes);
        writer.text("; ");
    }
    writeValue(writer, "octet-align=", fmtp.octetAlign);
    if (fmtp.modeChangeCapabilityTwo) {
        writer.text("mode-change-capability=2; ");
    }
    if (fmtp.modeChangePeriodTwo) {
        writer.text("mode-change-period=2; ");
    }
    if (fmtp.modeChangeNeighbor) {
        writer.text("mode-change-neighbor=1; ");
    }
    writeValue(writer, "crc=", fmtp.crc);
    writeValue(writer, "robust-sorting=", fmtp.robustSorting);
    writeValue(writer, "interleaving=", fmtp.interleaving);
    writer.text("max-red=").number(fmtp.maxRed).end();
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
