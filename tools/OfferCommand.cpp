// rune-sdp offer [OPTIONS]: an offer of the default local capabilities, or a re-offer of a
// dialog's agreed exchange.
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
    sdp::Session session(defaultCapabilities(), options.address, options.port, options.origin);
    const int joined = joinDialog(options, session);
    if (joined != -1) {
        return joined;
    }
    std::string body;
    const sdp::Result result = session.createOffer(body);
    if (result.isFailure()) {
        printResult(std::cerr, result);
        return kFailureStatus;
    }
    return deliverBody(options, body) ? 0 : kUsageStatus;
}

}  // namespace

const Command kOfferCommand = {
    "offer",
    "[--address A] [--port P] [--session-id N] [--session-version N] [--direction D]\n"
    "       [--qos-strength S] [--qos-status R]\n"
    "       [--our-offer FILE --their-answer FILE | --their-offer FILE --our-answer FILE]\n"
    "       [-o FILE]",
    "Writes an offer of the default local capabilities to standard output (or -o FILE): AMR-WB,\n"
    "then AMR, each as a bandwidth-efficient and an octet-aligned payload type, then\n"
    "telephone-event in both bands. With an exchange, the re-offer of its agreed stream (hold:\n"
    "--direction sendonly; resume: --direction sendrecv).\n",
    kBodyOptionsHelp,
    "Exit status: 0 the offer was written; 1 a refused exchange or standard output not writable;\n"
    "2 a usage error, an exchange FILE that cannot be read or a FILE that cannot be written.\n",
    runOffer};

}  // namespace tools
}  // namespace rune
}  // namespace velmora
