// rune-sdp describe [FILE|-]: reads a remote description and shows the stream it sets up.
#include "Command.h"

#include <iostream>

namespace velmora {
namespace rune {
namespace tools {

namespace {

int runDescribe(int argc, char** argv) {
    const int parsed = parseHelpOnly(kDescribeCommand, argc, argv);
    if (parsed != -1) {
        return parsed;
    }
    if (argc - optind > 1) {
        return usageError(&kDescribeCommand, "describe takes one FILE at most");
    }
    std::string text;
    if (!readInput(optind < argc ? argv[optind] : "-", text)) {
        return kUsageStatus;
    }
    StreamConfig stream;
    std::vector<sdp::SkippedFormat> skipped;
    const sdp::Result result = sdp::readRemoteDescription(text, stream, skipped);
    if (result.isFailure()) {
        printResult(std::cout, result);
        return kFailureStatus;
    }
    for (const sdp::SkippedFormat& format : skipped) {
        std::cout << "Skipped payload type " << format.payloadType << ": "
                  << (format.encoding.empty() ? "no rtpmap" : format.encoding) << "\n";
    }
    return printStream(std::cout, stream);
}

}  // namespace

const Command kDescribeCommand = {
    "describe",
    "[FILE|-]",
    "Reads a remote description (the first RTP/AVP or RTP/AVPF audio section with a port other\n"
    "than 0) and prints the formats it skipped, one line each, the stream it sets up and the\n"
    "result of the stream's check. A refused description prints only the refusal.\n",
    kHelpOnly,
    "Exit status: 0 the stream passes its check; 1 a refused description, a stream that fails\n"
    "its check, or standard output not writable; 2 a usage error or an input that cannot be "
    "read.\n",
    runDescribe};

}  // namespace tools
}  // namespace rune
}  // namespace velmora
