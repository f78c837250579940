// Session descriptions (RFC 8866) in and out of the model: a remote description read into a
// StreamConfig, a StreamConfig written as the local media description, and an offer answered
// from the local StreamCapabilities.
//
//   StreamConfig stream;
//   std::vector<sdp::SkippedFormat> skipped;
//   StreamConfig::Result result = sdp::readRemoteDescription(offerText, stream, skipped);
//   if (result.isSuccess()) result = stream.check();  // reading does not check
//   std::string media = sdp::writeMediaDescription(stream, "192.0.2.10", 49152);
//
//   std::string answer;
//   result = sdp::answerOffer(offerText, localCaps, "192.0.2.10", 49152, stream, answer);
//
// A refusal names the line it comes from in its context: "line 12: a=fmtp:97 mode-set=0,9".
#ifndef VELMORA_RUNE_SDP_SDP_H
#define VELMORA_RUNE_SDP_SDP_H

#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/StreamConfig.h>

#include <string>
#include <vector>

namespace velmora {
namespace rune {
namespace sdp {

typedef StreamConfig::Result Result;

// A format of the m= line that the reader did not turn into a codec: an encoding other than
// AMR, AMR-WB and telephone-event, more than one channel, or no a=rtpmap.
struct SkippedFormat {
    // RTP payload type, as the m= line lists it.
    int payloadType;
    // What the a=rtpmap gives after the payload type ("PCMU/8000"); empty when there is none.
    std::string encoding;

    bool operator==(const SkippedFormat& other) const {
        return payloadType == other.payloadType && encoding == other.encoding;
    }
    bool operator!=(const SkippedFormat& other) const { return !(*this == other); }
};

// Reads the first audio section with a port other than 0 of a remote description. Lines may end
// in CRLF or LF. On success, stream becomes the stream read (built from a default StreamConfig)
// and skipped lists the formats left out, in m= order; on a refusal both are left as they were.
// The stream is not checked: call stream.check() before using it.
Result readRemoteDescription(const std::string& description, StreamConfig& stream,
                             std::vector<SkippedFormat>& skipped);

// The local media description of stream, from its m= line on, each line ended by CRLF: the
// downlink codecs, or the uplink codecs when there are none, their packet times, RTCP
// bandwidths, the direction seen from this side and reduced-size RTCP. localIp is written as
// "c=IN IP6" when it holds a colon, else as "c=IN IP4". Profiles other than RTP/AVPF are written
// as RTP/AVP. A stream without codecs gives an m= line without formats, which no reader accepts.
std::string writeMediaDescription(const StreamConfig& stream, const std::string& localIp,
                                  int localPort);

// Answers an offer (RFC 3264; RFC 4867 section 8.3.1 for AMR) from the local capabilities. The
// offer is read as readRemoteDescription reads it and refused the same way; then its profile
// must be one local supports ("Unsupported profile"; an empty set supports RTP/AVP only) and one
// of its AMR payload types acceptable to a local AmrCodecCapabilities of its band ("No common
// codec"). The first acceptable one in the offer's order is kept, with the offered
// telephone-event of its clock rate when local has DtmfCodecCapabilities of that band.
//
// On success, negotiated becomes the stream both sides agreed on (the offer's endpoint, the
// direction mirrored, local RTCP values) and answer this side's media description, written as
// writeMediaDescription writes it but with the AMR parameters the answer returns: octet-align,
// crc, robust-sorting, interleaving and mode-set as offered. On a refusal both are left as they
// were. negotiated is not checked: call negotiated.check() before using it.
Result answerOffer(const std::string& offer, const StreamCapabilities& local,
                   const std::string& localIp, int localPort, StreamConfig& negotiated,
                   std::string& answer);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SDP_H
