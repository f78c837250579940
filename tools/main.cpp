// rune-sdp COMMAND [ARGUMENTS...]: session descriptions through librunesdp.
#include "Command.h"

#include <string>
#include <vector>

using velmora::rune::tools::Command;
using velmora::rune::tools::commands;
using velmora::rune::tools::usageError;

int main(int argc, char** argv) {
    if (argc < 2) {
        return usageError("no command given");
    }
    const std::string name = argv[1];
    for (const Command& command : commands()) {
        if (name == command.name) {
            return command.run(std::vector<std::string>(argv + 2, argv + argc));
        }
    }
    return usageError("unknown command: " + name);
}
