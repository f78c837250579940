// rune-sdp answer [OPTIONS] [FILE|-]: answers an offer, the first of a dialog or a re-offer, with
// the default local capabilities and shows the answer and the negotiated stream.
#include "Command.h"
#include "DefaultCapabilities.h"

#include <iostream>

namespace velmora {
namespace rune {
namespace tools {

namespace {

int runAnswer(int argc, char** argv) {
    BodyOptions options;
    const int parsed = parseBodyOptions(kAnswerCommand, argc, argv, options);
    if (parsed != -1) {
        return parsed;
    }
    if (argc - optind > 1) {
        return usageError(&kAnswerCommand, "answer takes one FILE at most");
    }
    sdp::Session session(defaultCapabilities(), options.address, options.port, options.origin);
    const int joined = joinDialog(options, session);
    if (joined != -1) {
        return joined;
    }
    std::string offer;
    if (!readInput(optind < argc ? argv[optind] : "-", offer)) {
        return kUsageStatus;
    }
    StreamConfig negotiated;
    std::string body;
    const sdp::Result result = session.answerOffer(offer, negotiated, body);
    if (result.isFailure()) {
        printResult(std::cerr, result);
        return kFailureStatus;
    }
    if (!deliverBody(options, body)) {
        return kUsageStatus;
    }
    const int status = printStream(std::cerr, negotiated);
    printPreconditions(std::cerr, session.preconditions());
    return status;
}

}  // namespace

const Command kAnswerCommand = {
    "answer",
    "[--address A] [--port P] [--session-id N] [--session-version N] [--direction D]\n"
    "       [--qos-strength S] [--qos-status R]\n"
    "       [--our-offer FILE --their-answer FILE | --their-offer FILE --our-answer FILE]\n"
    "       [-o FILE] [FILE|-]",
    "Answers the offer in FILE with the default local capabilities (AMR-WB and AMR with every\n"
    "mode, telephone-event in both bands, RTP/AVP and RTP/AVPF): writes the answer to standard\n"
    "output (or -o FILE), and the negotiated stream and the result of its check to standard\n"
    "error. A refused offer writes only the refusal, to standard error, and -o no FILE. With an\n"
    "exchange, FILE is a re-offer in that dialog: the agreed payload types are kept and the\n"
    "direction is the offer's mirrored, limited by --direction.\n",
    kBodyOptionsHelp,
    "Exit status: 0 the negotiated stream passes its check; 1 a refused offer or exchange, a\n"
    "stream that fails its check, or standard output not writable; 2 a usage error, an input that\n"
    "cannot be read or a FILE that cannot be written.\n",
    runAnswer};

}  // namespace tools
}  // namespace rune
}  // namespace velmora
