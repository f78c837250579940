// rune-sdp COMMAND [OPTIONS] [FILE...]: session descriptions through librunesdp.
#include "Command.h"

#include <csignal>
#include <iostream>
#include <new>
#include <string>

namespace velmora {
namespace rune {
namespace tools {
namespace {

const int kVersionOption = kLongOnly + 1;

int run(int argc, char** argv) {
    static const option kOptions[] = {
        {"help", no_argument, nullptr, kHelpOption},
        {"version", no_argument, nullptr, kVersionOption},
        {},
    };
    const int result = nextOption(argc, argv, "+:h", kOptions);
    if (result == 'h' || result == kHelpOption) {
        printToolHelp();
        return 0;
    }
    if (result == kVersionOption) {
        std::cout << "rune-sdp " << RUNE_SDP_VERSION << "\n";
        return 0;
    }
    if (result != -1) {
        return usageError(nullptr, "unknown option: " + sdp::quote(argv[optind - 1]));
    }
    if (optind == argc) {
        return usageError(nullptr, "no command given");
    }
    const std::string name = argv[optind];
    for (const Command* command : commands()) {
        if (name == command->name) {
            const int first = optind;
            // The command parses its own options, from its name on.
            optind = 0;
            return command->run(argc - first, argv + first);
        }
    }
    return usageError(nullptr, "unknown command: " + sdp::quote(name));
}

}  // namespace
}  // namespace tools
}  // namespace rune
}  // namespace velmora

int main(int argc, char** argv) {
    using namespace velmora::rune::tools;
    // A file size limit then fails a write (EFBIG) instead of ending the tool, so that an output
    // FILE keeps what it held and the new file beside it is removed.
    std::signal(SIGXFSZ, SIG_IGN);
    int status;
    try {
        status = run(argc, argv);
    } catch (const std::bad_alloc&) {
        std::cerr << "rune-sdp: out of memory\n";
        status = kUsageStatus;
    }
    // Output that did not reach its destination is a failure, whatever the command's result.
    return flushStandardOutput() ? status : kFailureStatus;
}
