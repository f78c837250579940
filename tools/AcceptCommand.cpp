// rune-sdp accept OFFER ANSWER: the stream that the answer to an offer of this side negotiates.
#include "Command.h"
#include "DefaultCapabilities.h"

#include <iostream>

namespace velmora {
namespace rune {
namespace tools {

namespace {

int runAccept(int argc, char** argv) {
    const int parsed = parseHelpOnly(kAcceptCommand, argc, argv);
    if (parsed != -1) {
        return parsed;
    }
    if (argc - optind != 2) {
        return usageError(&kAcceptCommand, "accept takes two FILEs, OFFER and ANSWER");
    }
    std::string offer;
    std::string answer;
    if (!readInput(argv[optind], offer) || !readInput(argv[optind + 1], answer)) {
        return kUsageStatus;
    }
    // The exchange as a dialog continues from it; the stream is the one it agreed.
    sdp::Session session(defaultCapabilities(), "127.0.0.1", 49150, sdp::Origin());
    StreamConfig negotiated;
    sdp::Result result =
        sdp::Session::restore(defaultCapabilities(), offer, answer, sdp::Role::Offerer, session);
    if (result.isSuccess()) {
        result = sdp::acceptAnswer(offer, answer, negotiated);
    }
    if (result.isFailure()) {
        printResult(std::cout, result);
        return kFailureStatus;
    }
    const int status = printStream(std::cout, negotiated);
    printPreconditions(std::cout, session.preconditions());
    return status;
}

}  // namespace

const Command kAcceptCommand = {
    "accept",
    "OFFER ANSWER",
    "Reads ANSWER, the answer to the offer OFFER that this side sent (each a file, or - for\n"
    "standard input), and prints the negotiated stream and the result of its check. A refused\n"
    "answer prints only the refusal.\n",
    kHelpOnly,
    "Exit status: 0 the negotiated stream passes its check; 1 a refused offer or answer, a stream\n"
    "that fails its check, or standard output not writable; 2 a usage error or an input that\n"
    "cannot be read.\n",
    runAccept};

}  // namespace tools
}  // namespace rune
}  // namespace velmora
