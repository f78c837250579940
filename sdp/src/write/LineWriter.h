// Writes the lines of a description into one string, each ended by CRLF: whole lines for the
// session part and the common media lines, and the pieces that the AMR parameters are made of.
#ifndef VELMORA_RUNE_SDP_SRC_WRITE_LINE_WRITER_H
#define VELMORA_RUNE_SDP_SRC_WRITE_LINE_WRITER_H

#include <velmora/rune/CodecId.h>
#include <velmora/rune/Rtp.h>
#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Sdp.h>

#include "amr/AmrFmtp.h"
#include "syntax/SessionDescription.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

// Writes into the room the string has, growing it only when that runs out; the string gets its
// final length when the writer goes.
class LineWriter {
  public:
    explicit LineWriter(std::string& out);
    LineWriter(const LineWriter&) = delete;
    LineWriter& operator=(const LineWriter&) = delete;
    ~LineWriter();

    LineWriter& text(std::string_view text) {
        mAt += text.copy(room(text.size()), text.size());
        return *this;
    }
    // The first size bytes of bytes. All of them are copied, a copy of a size known here, without
    // a call; those past size are written over next.
    template <size_t N>
    LineWriter& firstBytes(const std::array<char, N>& bytes, size_t size) {
        char* const at = room(N);
        std::memcpy(at, bytes.data(), N);
        mAt = at + size;
        return *this;
    }
    // Most numbers written are one digit (AMR modes): those without a call.
    LineWriter& number(uint64_t number) {
        if (number >= 10) {
            return longNumber(number);
        }
        *room(1) = static_cast<char>('0' + number);
        ++mAt;
        return *this;
    }
    LineWriter& integer(int64_t number) {
        if (number < 0) {
            text("-");
        }
        return this->number(number < 0 ? 0 - static_cast<uint64_t>(number)
                                       : static_cast<uint64_t>(number));
    }
    // Untrusted text, quoted as refusals quote it.
    LineWriter& token(std::string_view token);
    // CRLF.
    void end() { text("\r\n"); }

    // v=0, o=, s=-, c= and t= of a body sent from address: the t= lines of times, each as
    // t=<start> <stop>; t=0 0 without times or when it has none.
    void sessionPart(const Origin& origin, std::string_view address, const Description* times);
    // "m=audio <port> <profile>", without the formats and the line end: RTP/AVPF, else RTP/AVP.
    void audioMediaStart(int port, RtpProfile profile);
    // IP6 when address holds a colon, else IP4.
    void connection(std::string_view address);
    // The b=AS, b=RS and b=RR lines.
    void bandwidths(unsigned int as, unsigned int rs, unsigned int rr);
    // AMR/8000/1, AMR-WB/16000/1, telephone-event/8000 or telephone-event/16000.
    void rtpmap(int payloadType, CodecId codec, BandType band);
    // "a=fmtp:<pt> ", without the parameters and the line end.
    void fmtpStart(int payloadType);
    // The a=fmtp of a telephone-event that offers events 0-15 (RFC 4733: the DTMF digits).
    void eventsFmtp(int payloadType);
    // a=name, or a=name:value when value is not empty.
    void attribute(std::string_view name, std::string_view value = std::string_view());
    void packetTimes(unsigned int packetTime, unsigned int maxPacketTime);
    // The attribute of direction as this side declares it: sendrecv, sendonly, ...
    void direction(StreamConfig::Direction direction);

  private:
    // Where the next size bytes go.
    char* room(size_t size) {
        if (size > static_cast<size_t>(mEnd - mAt)) {
            grow(size);
        }
        return mAt;
    }
    void grow(size_t more);
    LineWriter& longNumber(uint64_t number);

    std::string& mOut;
    // Where the next byte goes, and the end of the room, both inside mOut.
    char* mAt;
    char* mEnd;
};

// What a body written for sending starts from: room for a whole answer to a usual offer.
const size_t kBodyReserve = 1024;

// The a=fmtp line of an AMR payload type, its parameters in the one order that media
// descriptions, offers and answers share.
void writeAmrFmtp(LineWriter& writer, int payloadType, const AmrFmtpText& fmtp);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_WRITE_LINE_WRITER_H
