#include "syntax/SdpLine.h"

#include "syntax/Printable.h"

namespace velmora {
namespace rune {
namespace sdp {

StreamConfig::Result atLine(const Line& line, StreamConfig::Result result) {
    std::string message;
    appendQuoted(message, result.mMessage);
    result.mMessage = std::move(message);
    result.mContext = "line " + std::to_string(line.number) + ": ";
    appendQuoted(result.mContext, line.text);
    return result;
}

StreamConfig::Result atLine(const Line& line, const CodecConfig::Result& result) {
    static_assert(static_cast<int>(CodecConfig::InvalidParam) ==
                          static_cast<int>(StreamConfig::InvalidParam) &&
                      static_cast<int>(CodecConfig::InvalidConfiguration) ==
                          static_cast<int>(StreamConfig::InvalidConfiguration) &&
                      static_cast<int>(CodecConfig::UnknownError) ==
                          static_cast<int>(StreamConfig::UnknownError),
                  "the two traits share one numbering");
    StreamConfig::Result converted(static_cast<StreamConfig::ResultCode>(result.mCode));
    converted.mMessage = result.mMessage;
    return atLine(line, std::move(converted));
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
