// rune-sdp offer [OPTIONS]: an offer of the default local capabilities.
#include "Command.h"
#include "DefaultCapabilities.h"

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
        printResult(result);
        return kFailureStatus;
    }
    return deliverBody(options, body) ? 0 : kUsageStatus;
}

}  // namespace

const Command kOfferCommand = {
    "offer", "[--address A] [--port P] [--session-id N] [--session-version N] [-o FILE]",
    "Prints an offer of the default local capabilities: AMR-WB, then AMR, each as a\n"
    "bandwidth-efficient and an octet-aligned payload type, then telephone-event in both bands.\n"
    "\n"
    "Options:\n"
    "  --address A          the local address, IPv4 or IPv6 (default 127.0.0.1)\n"
    "  --port P             the local RTP port, 1-65535 (default 49150)\n"
    "  --session-id N       the o= session id, 0 to 18446744073709551615\n"
    "                       (default: the current time in seconds since 1970)\n"
    "  --session-version N  the o= session version, 0 to 18446744073709551615 (default 1)\n"
    "  -o, --output FILE    write the body to FILE, lines ended by CRLF, instead of printing it\n"
    "  -h, --help           this help\n"
    "\n"
    "Exit status: 0 the offer was written; 1 standard output not writable; 2 a usage error or a\n"
    "FILE that cannot be written.\n",
    runOffer};

}  // namespace tools
}  // namespace rune
}  // namespace velmora
