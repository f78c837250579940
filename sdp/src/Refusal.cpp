#include "Refusal.h"

namespace velmora {
namespace rune {
namespace sdp {

std::string lineContext(const Line& line) {
    std::string context = "line " + std::to_string(line.number) + ": ";
    context.append(line.text.data(), line.text.size());
    return context;
}

StreamConfig::Result atLine(const Line& line, StreamConfig::Result result) {
    result.mContext = lineContext(line);
    return result;
}

StreamConfig::Result atLine(const Line& line, const CodecConfig::Result& result) {
    // The two traits share one numbering.
    StreamConfig::Result converted(static_cast<StreamConfig::ResultCode>(result.mCode));
    converted.mMessage = result.mMessage;
    converted.mContext = lineContext(line);
    return converted;
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
