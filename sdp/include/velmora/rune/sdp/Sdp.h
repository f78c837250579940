// Session descriptions (RFC 8866) in and out of the model, for both roles of offer/answer
// (RFC 3264): a remote description read into a StreamConfig, a StreamConfig written as a local
// media section, an offer written from the local StreamCapabilities, an offer answered, and the
// answer to our own offer accepted. Every body written for sending is whole (v=, o=, s=, c=, t=,
// then the media sections), each line ended by CRLF.
//
//   sdp::Origin origin{"-", sessionId, 1};
//   std::string offer;
//   sdp::Result result = sdp::createOffer(localCaps, "192.0.2.10", 49152, origin, offer);
//   ... send offer, receive answerText ...
//   StreamConfig stream;
//   result = sdp::acceptAnswer(offer, answerText, stream);
//   if (result.isSuccess()) result = stream.check();  // negotiating does not check
//
// The answerer's side: sdp::answerOffer(offerText, localCaps, "192.0.2.10", 49152, origin,
// stream, answer). A refusal names the line it comes from in its context:
// "line 12: a=fmtp:97 mode-set=0,9" ("offer line 12: ..." or "answer line 3: ..." where an
// operation reads two texts).
//
// Each operation has a source of its own in sdp/src: ReadDescription.cpp, WriteMedia.cpp,
// AnswerOffer.cpp, CreateOffer.cpp, AcceptAnswer.cpp.
#ifndef VELMORA_RUNE_SDP_SDP_H
#define VELMORA_RUNE_SDP_SDP_H

#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/StreamConfig.h>

#include <cstdint>
#include <string>
#include <vector>

// The library exports what its public headers declare and hides the rest.
#pragma GCC visibility push(default)

namespace velmora {
namespace rune {
namespace sdp {

typedef StreamConfig::Result Result;

// A format of the m= line that the reader did not turn into a codec: an encoding other than
// AMR, AMR-WB and telephone-event, more than one channel, or no a=rtpmap.
struct SkippedFormat {
    // RTP payload type, as the m= line lists it.
    int payloadType;
    // What the a=rtpmap gives after the payload type ("PCMU/8000"); without one, the encoding of
    // a static payload type of RFC 3551 ("PCMA/8000" for 8), else empty.
    std::string encoding;

    bool operator==(const SkippedFormat& other) const {
        return payloadType == other.payloadType && encoding == other.encoding;
    }
    bool operator!=(const SkippedFormat& other) const { return !(*this == other); }
};

// The o= line of the descriptions one dialog sends (RFC 8866 section 5.2): the session id is
// chosen once per dialog, and the version grows by one with every description the dialog sends
// (RFC 3264 section 8).
struct Origin {
    std::string username = "-";
    uint64_t sessionId = 0;
    uint64_t sessionVersion = 0;
};

// Untrusted input: a description longer than 64 KiB (65,536 bytes) is refused before it is read,
// 1002 "Description too long"; reading never reads outside the text and costs memory within twice
// its size plus a constant. A refusal names its line in the context ("line N: " and the line's
// text); the context and the message each show at most 120 characters of the input, then "...",
// and bytes below 0x20 other than tab, and 0x7F, are written \xHH (two upper-case hex digits),
// as they are in SkippedFormat::encoding.

// Reads the first audio section with a port other than 0 and the protocol RTP/AVP or RTP/AVPF;
// when there is none, refuses as the first audio section with a port other than 0 is refused
// ("No audio stream" without one). Lines may end in CRLF or LF. A c= address with the syntax of a
// domain name is refused with 1003 "Connection address is a domain name", for call control to
// resolve it and read again. A t= line that is not two decimal numbers is refused with 1002
// "Bad timing line", an a=ptime or a=maxptime that is not a number above 0 with 1002
// "Bad packet time: " and its value. On success, stream becomes the stream read (built from a
// default StreamConfig) and skipped lists the formats left out, in m= order; on a refusal both are
// left as they were. The stream is not checked: call stream.check() before using it.
//
// Every stream this library builds (read, answered, accepted) is held (isHeld()) when its
// direction is not full duplex or its remote address is 0.0.0.0 or :: (the old way to hold, RFC
// 3264 section 8.4, read rather than refused).
Result readRemoteDescription(const std::string& description, StreamConfig& stream,
                             std::vector<SkippedFormat>& skipped);

// The local media description of stream, from its m= line on, each line ended by CRLF: the
// downlink codecs, or the uplink codecs when there are none, their packet times, RTCP
// bandwidths, the direction seen from this side and reduced-size RTCP. localIp is written as
// "c=IN IP6" when it holds a colon, else as "c=IN IP4". Profiles other than RTP/AVPF are written
// as RTP/AVP. A stream without codecs gives an m= line without formats, which no reader accepts.
// An empty string when localIp is not an address the model accepts (StreamConfig::setRemoteIp)
// or localPort is not a port it accepts (1024-65535), so that nothing the caller passes can add
// a line and our own reader accepts what is written.
std::string writeMediaDescription(const StreamConfig& stream, const std::string& localIp,
                                  int localPort);

// Answers an offer (RFC 3264; RFC 4867 section 8.3.1 for AMR) from the local capabilities.
// The answer is a whole body: v=0, o= from origin and localIp, s=-, c=, the offer's t= lines,
// each as t=<start> <stop> (t=0 0 when it has none), then one m= line per offered m= line, in
// order. The audio sections that qualify for reading are tried in order; the first whose profile
// local supports and that has an AMR payload type a local AmrCodecCapabilities accepts is
// answered, as writeMediaDescription writes it, with the offer's RFC 3312 precondition lines
// answered before the direction as a Session that has reserved nothing and desires nothing
// answers them; every other section is rejected as "m=<type> 0 <proto> <formats>". The answer
// says what was agreed: a mode-set as its modes, each once, ascending; a=maxptime the lower of
// the offer's and local's, a=ptime the offer's (else local's) lowered to it.
// Refusals: the model's refusals of localIp and of a localPort outside 1024-65535, 1002 "Bad
// origin username" for an empty username or one with a blank or control byte, those of
// readRemoteDescription (a tried section's own refusal is the result), when no section can be
// answered, the first audio section's: "Unsupported profile" or "No common codec"; then the
// answered section's precondition lines, in line order: 1002 "Bad precondition" for a line
// without the RFC 3312 form, 1003 "Unsupported precondition: <type>" for a mandatory a=des of a
// type other than qos on the offer's remote or e2e segment, each with the line; and the
// negotiated stream's check() when it fails: no body is written that its own stream refuses.
//
// The telephone-event kept is the offered one of the chosen AMR's clock rate, else the first
// offered at another rate that a local DtmfCodecCapabilities of that band supports (DTMF at
// 8000 Hz beside AMR-WB), with its payload type and band.
//
// On success, negotiated becomes the stream both sides agreed on (the offer's endpoint, the
// direction mirrored, local RTCP values, the answer's packet times and modes) and answer the whole
// answer body. On a refusal both are left as they were.
Result answerOffer(const std::string& offer, const StreamCapabilities& local,
                   const std::string& localIp, int localPort, const Origin& origin,
                   StreamConfig& negotiated, std::string& answer);

// Writes a whole offer of the local capabilities (v=0, o=, s=-, c=, t=0 0, one audio section on
// localIp and localPort): RTP/AVP when local supports it (an empty set does), else RTP/AVPF; each
// AMR capability as a bandwidth-efficient and an octet-aligned payload type (only the latter when
// it requires octet-align), then a telephone-event per DTMF capability with a=fmtp:<pt> 0-15,
// from payload type 96 up (capabilities beyond 127 are left out); packet times of the first AMR
// capability, RTCP from getRTCPcaps(), a=sendrecv. Refusals: the model's refusals of localIp and
// of a localPort outside 1024-65535, "Bad origin username" as answerOffer gives it, and 1003
// "No codec to offer" without an AmrCodecCapabilities. On a refusal offer is left as it was.
Result createOffer(const StreamCapabilities& local, const std::string& localIp, int localPort,
                   const Origin& origin, std::string& offer);

// Reads the answer to an offer this side sent (both as text) into the stream both sides agreed
// on, or refuses it, in this order: each text as readRemoteDescription refuses it (the offer's
// chosen section read whole, the answer's line syntax), the context naming the text ("offer line
// 12: ..." or "answer line 3: ..."), 1003 "Answer does not match the offer" when the m= lines
// differ in number, media type or protocol, "Stream rejected" when the answer's section at the
// place of the offer's chosen one has port 0, that section's own refusals as reading gives them,
// and "No common codec" when no answered AMR payload type keeps what RFC 4867 forbids an answerer
// to change (octet-align, crc, robust-sorting, interleaving, the modes of an offered mode-set, in
// any order; mode-change-period=2 only after mode-change-capability=2). The stream: the answer's
// endpoint and profile; its direction mirrored, limited to what the offer allowed (a sendrecv
// answer to a sendonly offer sends only, RFC 3264 section 6.1); its first usable AMR payload type
// and the answered telephone-event of that clock rate, else the first answered one of another
// rate that the offer listed; packet times the answer's else the offer's, RTCP bandwidths the
// offer's, reduced size only when both sides listed it. On a refusal negotiated is left as it
// was; it is not checked.
Result acceptAnswer(const std::string& offer, const std::string& answer, StreamConfig& negotiated);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#pragma GCC visibility pop

#endif  // VELMORA_RUNE_SDP_SDP_H
