#include "Command.h"

#include <iostream>

namespace velmora {
namespace rune {
namespace tools {

const std::vector<Command>& commands() {
    static const std::vector<Command> table = {
        {"describe", "[FILE|-]", describe},
        {"answer", "[--address A] [--port P] [FILE|-]", answer},
    };
    return table;
}

int usageError(const std::string& message) {
    std::cerr << "rune-sdp: " << message << "\n";
    for (const Command& command : commands()) {
        std::cerr << "usage: rune-sdp " << command.name << " " << command.usage << "\n";
    }
    return kUsageStatus;
}

}  // namespace tools
}  // namespace rune
}  // namespace velmora
