// Refusals of the reader: a stream result whose context names the line it comes from.
#ifndef VELMORA_RUNE_SDP_SRC_REFUSAL_H
#define VELMORA_RUNE_SDP_SRC_REFUSAL_H

#include <velmora/rune/StreamConfig.h>

#include "syntax/SdpLine.h"

#include <sstream>

namespace velmora {
namespace rune {
namespace sdp {

// "line N: " and the line's text.
std::string lineContext(const Line& line);

// A refusal whose message is the pieces streamed one after the other; no context.
template <typename... Pieces>
StreamConfig::Result refusal(StreamConfig::ResultCode code, const Pieces&... pieces) {
    StreamConfig::Result result(code);
    std::ostringstream message;
    (message << ... << pieces);
    result.mMessage = message.str();
    return result;
}

// The same, with the line as its context.
template <typename... Pieces>
StreamConfig::Result refusalAt(const Line& line, StreamConfig::ResultCode code,
                               const Pieces&... pieces) {
    StreamConfig::Result result = refusal(code, pieces...);
    result.mContext = lineContext(line);
    return result;
}

// A refusal of the model (a setter's result) with the line as its context; the model's code and
// message are kept.
StreamConfig::Result atLine(const Line& line, StreamConfig::Result result);
StreamConfig::Result atLine(const Line& line, const CodecConfig::Result& result);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_REFUSAL_H
