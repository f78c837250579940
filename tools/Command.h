// The subcommands of rune-sdp and what they share: usage errors and reading the input.
#ifndef VELMORA_RUNE_TOOLS_COMMAND_H
#define VELMORA_RUNE_TOOLS_COMMAND_H

#include <string>
#include <vector>

namespace velmora {
namespace rune {
namespace tools {

// Exit status of a usage error or an unreadable input.
const int kUsageStatus = 2;

struct Command {
    const char* name;
    // What follows the name in the usage line.
    const char* usage;
    // Runs with the arguments after the name; returns the exit status.
    int (*run)(const std::vector<std::string>& arguments);
};

// Every subcommand, in the order the usage lists them.
const std::vector<Command>& commands();

// Writes message and the usage to standard error; returns kUsageStatus.
int usageError(const std::string& message);

// The text of path, or of standard input for "-"; false, after a message on standard error, when
// it cannot be read.
bool readInput(const std::string& path, std::string& text);

int describe(const std::vector<std::string>& arguments);
int answer(const std::vector<std::string>& arguments);

}  // namespace tools
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_TOOLS_COMMAND_H
