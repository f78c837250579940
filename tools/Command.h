// The commands of rune-sdp and what they share: options, usage and help, input and output.
// Defined by Command.cpp (the table, usage, options), Input.cpp, Output.cpp, BodyOptions.cpp and
// one file per command.
#ifndef VELMORA_RUNE_TOOLS_COMMAND_H
#define VELMORA_RUNE_TOOLS_COMMAND_H

#include <velmora/rune/sdp/Sdp.h>
#include <velmora/rune/sdp/Session.h>

#include "syntax/Printable.h"

#include <getopt.h>

#include <cstdint>
#include <ctime>
#include <ostream>
#include <string>
#include <vector>

namespace velmora {
namespace rune {
namespace tools {

// Exit status of a refusal, a stream that fails its check, or standard output not writable.
const int kFailureStatus = 1;
// Exit status of a usage error, an input that cannot be read or a FILE that cannot be written.
const int kUsageStatus = 2;

struct Command {
    const char* name;
    // What follows the name in the usage line.
    const char* synopsis;
    // What --help prints after the usage line: what the command does, its options (kHelpOnly or
    // kBodyOptionsHelp) and its exit statuses.
    const char* description;
    const char* options;
    const char* exitStatus;
    // Runs with argv[0] the command's name; returns the exit status.
    int (*run)(int argc, char** argv);
};

extern const Command kDescribeCommand;
extern const Command kOfferCommand;
extern const Command kAnswerCommand;
extern const Command kAcceptCommand;

// The option lines of --help for a command without options, and for offer and answer.
extern const char* const kHelpOnly;
extern const char* const kBodyOptionsHelp;

// Every command, in the order the usage lists them.
const std::vector<const Command*>& commands();

// What rune-sdp --help prints: the usage, the commands and the exit statuses.
void printToolHelp();

// Writes message and the usage lines to standard error (the command's, or every command's for
// nullptr); returns kUsageStatus. Arguments and file names in any message the tool writes go
// through sdp::quote, so that what is printed cannot drive a terminal.
int usageError(const Command* command, const std::string& message);

// Prints the command's usage line and help to standard output; returns 0.
int printHelp(const Command& command);

// getopt_long values of the options that have no short form, and of --help, so that optopt tells a
// long option's error from a short one's.
const int kLongOnly = 256;
const int kHelpOption = kLongOnly;

// The next option of the command's arguments, getopt_long style ("+:" leads shortOptions, so
// options stop at the first operand and a missing value is ':'), without getopt's own messages.
int nextOption(int argc, char** argv, const char* shortOptions, const option* longOptions);

// The usage error for what nextOption returned as '?' or ':'.
int optionError(const Command& command, int result, char** argv);

// After the options: the usage error for an option that follows an operand (returned), or -1.
int checkOptionsEnded(const Command& command, int argc, char** argv);

// Parses a command that has no option but -h/--help. Returns -1 when the command should run,
// with optind at its first operand, else the exit status.
int parseHelpOnly(const Command& command, int argc, char** argv);

// The local end and the o= line of a body this side writes, the dialog it belongs to, and where
// the body goes.
struct BodyOptions {
    std::string address = "127.0.0.1";
    int port = 49150;
    bool addressGiven = false;
    bool portGiven = false;
    // Session id: seconds since 1970 (RFC 8866 suggests a time stamp); version 1.
    sdp::Origin origin{"-", static_cast<uint64_t>(std::time(nullptr)), 1};
    StreamConfig::Direction direction = StreamConfig::DirectionFullDuplex;
    // The local precondition state (RFC 3312): what the access network reserved, what this side
    // desires.
    StreamConfig::Direction qosStatus = StreamConfig::DirectionInactive;
    sdp::Strength qosStrength = sdp::Strength::None;
    // The last agreed exchange of the dialog, as files: this side's offer and the peer's answer,
    // or the peer's offer and this side's answer; all empty for a dialog's first exchange.
    std::string ourOffer;
    std::string theirAnswer;
    std::string theirOffer;
    std::string ourAnswer;
    // Empty or "-": the body goes to standard output.
    std::string output;
};

// Parses the options of offer and answer. Returns -1 when the command should run, with optind at
// its first operand, else the exit status (help printed or usage error).
int parseBodyOptions(const Command& command, int argc, char** argv, BodyOptions& options);

// Makes session, built from the options' local end and origin, the dialog the options give: the
// one restored from the exchange files when given, at the local end they name unless --address or
// --port say otherwise; then the local direction and QoS state. Returns -1 when the command should
// go on, else the exit status (an exchange file that cannot be read, or a refused exchange, whose
// result line goes to standard error).
int joinDialog(const BodyOptions& options, sdp::Session& session);

// The text of path, or of standard input for "-": at most 64 KiB and one byte, so that the library
// sees a longer input as too long. False, after a message on standard error, when it cannot be
// read.
bool readInput(const std::string& path, std::string& text);

// Writes a body the library wrote, as it is (CRLF), to standard output or to the output FILE:
// FILE is replaced whole or not at all. False, after a message on standard error, when the file
// cannot be written.
bool deliverBody(const BodyOptions& options, const std::string& body);

// Prints a result line.
void printResult(std::ostream& out, const StreamConfig::Result& result);

// Prints the stream and the format() line of its check(); the exit status that goes with it.
int printStream(std::ostream& out, const StreamConfig& stream);

// Prints one line per precondition row as a body writes it, then whether they are met; nothing
// when there are none.
void printPreconditions(std::ostream& out, const sdp::Preconditions& preconditions);

// Flushes standard output; false, after a message on standard error, when it could not be written.
bool flushStandardOutput();

}  // namespace tools
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_TOOLS_COMMAND_H
