// Writes the lines of a media description, each ended by CRLF, in the order they are asked for.
#ifndef VELMORA_RUNE_SDP_SRC_LINE_WRITER_H
#define VELMORA_RUNE_SDP_SRC_LINE_WRITER_H

#include <velmora/rune/CodecConfig.h>
#include <velmora/rune/Rtp.h>
#include <velmora/rune/StreamConfig.h>

#include <sstream>
#include <string>
#include <vector>

namespace velmora {
namespace rune {
namespace sdp {

class MediaWriter {
  public:
    // m=audio with the payload types of codecs, in order; RTP/AVPF or else RTP/AVP.
    void media(int port, RtpProfile profile, const std::vector<const CodecConfig*>& codecs);
    // IP6 when address holds a colon, else IP4.
    void connection(const std::string& address);
    void bandwidth(const char* modifier, unsigned int value);
    // AMR/8000/1, AMR-WB/16000/1 or telephone-event/8000 or /16000; nothing for other codecs.
    void rtpmap(const CodecConfig& codec);
    // Nothing when parameters is empty.
    void fmtp(int payloadType, const std::string& parameters);
    // a=name, or a=name:value when value is not empty.
    void attribute(const std::string& name, const std::string& value = std::string());
    // The attribute of direction as this side declares it: sendrecv, sendonly, ...
    void direction(StreamConfig::Direction direction);

    std::string text() const { return mText.str(); }

  private:
    std::ostringstream mText;
};

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_LINE_WRITER_H
