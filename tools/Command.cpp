#include "Command.h"

#include <cstring>
#include <iostream>

namespace velmora {
namespace rune {
namespace tools {

namespace {

void printUsageLine(std::ostream& stream, const Command& command) {
    stream << "usage: rune-sdp " << command.name << " " << command.synopsis << "\n";
}

}  // namespace

const char* const kHelpOnly = "  -h, --help  this help\n";

const std::vector<const Command*>& commands() {
    static const std::vector<const Command*> table = {&kDescribeCommand, &kOfferCommand,
                                                      &kAnswerCommand, &kAcceptCommand};
    return table;
}

void printToolHelp() {
    std::cout << "usage: rune-sdp COMMAND [OPTIONS] [FILE...]\n"
                 "       rune-sdp --help | --version\n"
                 "\n"
                 "Session descriptions (SDP) of a voice call in and out of librunesdp. offer and\n"
                 "answer use the default local capabilities: AMR-WB and AMR with every mode,\n"
                 "telephone-event in both bands, RTP/AVP and RTP/AVPF.\n"
                 "\n"
                 "Commands:\n"
                 "  describe [FILE|-]          the stream a remote description sets up\n"
                 "  offer [OPTIONS]            an offer\n"
                 "  answer [OPTIONS] [FILE|-]  the answer to an offer and the negotiated stream\n"
                 "  accept OFFER ANSWER        the stream negotiated by the answer to our offer\n"
                 "\n"
                 "A FILE is read, or standard input for - or no FILE; input lines may end in CRLF\n"
                 "or LF, and an input longer than 64 KiB is refused. Bodies are written with CRLF\n"
                 "line ends. Standard output carries the command's product only: the body of\n"
                 "offer and answer, the stream of describe and accept. Options come before FILE,\n"
                 "as --option value or --option=value; -- ends them. 'rune-sdp COMMAND --help'\n"
                 "describes a command and its options.\n"
                 "\n"
                 "Exit status: 0 success; 1 a refused description, a stream that fails its\n"
                 "check, or standard output not writable; 2 a usage error, an input that cannot\n"
                 "be read, or an output FILE that cannot be written.\n";
}

int usageError(const Command* command, const std::string& message) {
    std::cerr << "rune-sdp: " << message << "\n";
    if (command != nullptr) {
        printUsageLine(std::cerr, *command);
    } else {
        for (const Command* each : commands()) {
            printUsageLine(std::cerr, *each);
        }
    }
    return kUsageStatus;
}

int printHelp(const Command& command) {
    printUsageLine(std::cout, command);
    std::cout << "\n"
              << command.description << "\nOptions:\n"
              << command.options << "\n"
              << command.exitStatus;
    return 0;
}

int nextOption(int argc, char** argv, const char* shortOptions, const option* longOptions) {
    opterr = 0;
    return getopt_long(argc, argv, shortOptions, longOptions, nullptr);
}

int optionError(const Command& command, int result, char** argv) {
    // optind has moved past the argument at fault, except for an unknown short option inside a
    // group, which optopt names.
    const std::string argument = sdp::quote(argv[optind - 1]);
    if (result == ':') {
        return usageError(&command, "missing value for " + argument);
    }
    const bool shortOption = optopt > 0 && optopt < kLongOnly;
    return usageError(
        &command, "unknown option: " +
                      (shortOption ? sdp::quote("-" + std::string(1, char(optopt))) : argument));
}

int checkOptionsEnded(const Command& command, int argc, char** argv) {
    // After "--" every argument is an operand, whatever it looks like.
    if (optind > 1 && std::strcmp(argv[optind - 1], "--") == 0) {
        return -1;
    }
    for (int index = optind + 1; index < argc; ++index) {
        if (argv[index][0] == '-' && argv[index][1] != '\0') {
            return usageError(&command, "options come before FILE");
        }
    }
    return -1;
}

int parseHelpOnly(const Command& command, int argc, char** argv) {
    static const option kOptions[] = {{"help", no_argument, nullptr, kHelpOption}, {}};
    const int result = nextOption(argc, argv, "+:h", kOptions);
    if (result == -1) {
        return checkOptionsEnded(command, argc, argv);
    }
    if (result == 'h' || result == kHelpOption) {
        return printHelp(command);
    }
    return optionError(command, result, argv);
}

}  // namespace tools
}  // namespace rune
}  // namespace velmora
