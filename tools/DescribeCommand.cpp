// rune-sdp describe [FILE|-]: reads a remote description and shows the stream it gives.
#include <velmora/rune/sdp/Sdp.h>

#include "Command.h"

#include <iostream>

namespace velmora {
namespace rune {
namespace tools {

int describe(const std::vector<std::string>& arguments) {
    for (const std::string& argument : arguments) {
        if (argument.size() > 1 && argument[0] == '-') {
            return usageError("describe takes no option: " + argument);
        }
    }
    if (arguments.size() > 1) {
        return usageError("describe takes one FILE at most");
    }
    const std::string path = arguments.empty() ? "-" : arguments.front();
    std::string text;
    if (!readInput(path, text)) {
        return kUsageStatus;
    }
    StreamConfig stream;
    std::vector<sdp::SkippedFormat> skipped;
    const sdp::Result result = sdp::readRemoteDescription(text, stream, skipped);
    if (result.isFailure()) {
        std::cout << result.format() << "\n";
        return 1;
    }
    for (const sdp::SkippedFormat& format : skipped) {
        std::cout << "Skipped payload type " << format.payloadType << ": "
                  << (format.encoding.empty() ? "no rtpmap" : format.encoding) << "\n";
    }
    const StreamConfig::Result check = stream.check();
    std::cout << stream.toString() << check.format() << "\n";
    return check.isSuccess() ? 0 : 1;
}

}  // namespace tools
}  // namespace rune
}  // namespace velmora
