// A session description split into its session part and its media sections, with the syntax
// of every line checked: x=value, and the forms of m=, c= and b=. The views point into the
// text that was parsed, which must outlive the description.
#ifndef VELMORA_RUNE_SDP_SRC_SYNTAX_SESSION_DESCRIPTION_H
#define VELMORA_RUNE_SDP_SRC_SYNTAX_SESSION_DESCRIPTION_H

#include <velmora/rune/StreamConfig.h>

#include "syntax/SdpLine.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace velmora {
namespace rune {
namespace sdp {

class Description {
  public:
    struct Media {
        Line mediaLine{};
        // "audio", "video", ...
        std::string_view type;
        // Without any "/count" suffix.
        int port = 0;
        // "RTP/AVP", ...
        std::string_view protocol;
        // The format tokens of the m= line, unread.
        std::vector<std::string_view> formats;
        // The lines after the m= line, up to the next m= line; empty lines left out.
        std::vector<Line> lines;
    };

    // Refuses the first line whose syntax is wrong; out is complete only on success.
    static StreamConfig::Result parse(std::string_view text, Description& out);

    // The session-level lines, v= included; empty lines left out.
    const std::vector<Line>& sessionLines() const { return mSessionLines; }
    const std::vector<Media>& media() const { return mMedia; }
    // The first audio section whose port is not 0; null when there is none.
    const Media* firstActiveAudio() const;

    // The address of a c= value "IN IP4 a" or "IN IP6 a", without a "/ttl" or "/count" suffix.
    static bool parseConnection(std::string_view value, std::string_view& address);
    // A b= value "modifier:number".
    static bool parseBandwidth(std::string_view value, std::string_view& modifier,
                               uint32_t& bandwidth);
    // The name and value of an a= line: "rtpmap" and "97 AMR/8000" for "a=rtpmap:97 AMR/8000".
    static void splitAttribute(const Line& line, std::string_view& name, std::string_view& value);

  private:
    static bool parseMedia(const Line& line, Media& media);

    std::vector<Line> mSessionLines;
    std::vector<Media> mMedia;
};

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_SYNTAX_SESSION_DESCRIPTION_H
