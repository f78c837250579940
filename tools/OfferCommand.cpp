// rune-sdp offer [OPTIONS]: an offer of the default local capabilities.
#include "Command.h"
#include "DefaultCapabilities.h"

#include <iostream>

namespace velmora {
namespace rune {
namespace tools {

namespace {

int runOffer(int argc, char** argv) {
    BodyOptions options;
    const int parsed = parseBodyOptions(kOfferCommand, argc, argv, options);
    if (parsed != -1) {
        return parsed;
    }
    if (optind < argc) {
        return usageError(&kOfferCommand, "offer takes no FILE");
    }
    std::string body;
    const sdp::Result result = sdp::createOffer(defaultCapabilities(), options.address,
                                                options.port, options.origin, body);
    if (result.isFailure()) {
        printResult(std::cerr, result);
        return kFailureStatus;
    }
    return deliverBody(options, body) ? 0 : kUsageStatus;
}

}  // namespace

const Command kOfferCommand = {
    "offer",
    "[--address A] [--port P] [--session-id N] [--session-version N] [-o FILE]",
    "Writes an offer of the default local capabilities to standard output (or -o FILE): AMR-WB,\n"
    "then AMR, each as a bandwidth-efficient and an octet-aligned payload type, then\n"
    "telephone-event in both bands.\n",
    kBodyOptionsHelp,
    "Exit status: 0 the offer was written; 1 standard output not writable; 2 a usage error or a\n"
    "FILE that cannot be written.\n",
    runOffer};

}  // namespace tools
}  // namespace rune
}  // namespace velmora
