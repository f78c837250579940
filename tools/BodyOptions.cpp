// The options of the commands that write a body: offer and answer.
#include <velmora/rune/Utils.h>

#include "Command.h"

#include <cstdint>
#include <limits>

namespace velmora {
namespace rune {
namespace tools {

namespace {

enum : int {
    kAddressOption = kLongOnly + 1,
    kPortOption,
    kSessionIdOption,
    kSessionVersionOption,
    kOurOfferOption,
    kTheirAnswerOption,
    kTheirOfferOption,
    kOurAnswerOption,
    kDirectionOption,
    kQosStrengthOption,
    kQosStatusOption,
};

// The ports the model takes for RTP.
const uint64_t kMinPort = 1024;
const uint64_t kMaxPort = 65535;

// Decimal digits only, at most max; no sign, no blanks.
bool parseDecimal(const std::string& text, uint64_t max, uint64_t& value) {
    if (text.empty()) {
        return false;
    }
    uint64_t result = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            return false;
        }
        const auto digit = static_cast<uint64_t>(c - '0');
        if (result > (max - digit) / 10) {
            return false;
        }
        result = result * 10 + digit;
    }
    value = result;
    return true;
}

// The attribute names of the directions, as this side declares them.
bool parseDirection(const std::string& text, StreamConfig::Direction& direction) {
    static const std::pair<const char*, StreamConfig::Direction> kNames[] = {
        {"sendrecv", StreamConfig::DirectionFullDuplex},
        {"sendonly", StreamConfig::DirectionSendOnly},
        {"recvonly", StreamConfig::DirectionReceiveOnly},
        {"inactive", StreamConfig::DirectionInactive},
    };
    for (const auto& name : kNames) {
        if (text == name.first) {
            direction = name.second;
            return true;
        }
    }
    return false;
}

// RFC 3312's words: the strengths this side may desire, the directions of a status.
bool parseQosStrength(const std::string& text, sdp::Strength& strength) {
    static const std::pair<const char*, sdp::Strength> kNames[] = {
        {"mandatory", sdp::Strength::Mandatory},
        {"optional", sdp::Strength::Optional},
        {"none", sdp::Strength::None},
    };
    for (const auto& name : kNames) {
        if (text == name.first) {
            strength = name.second;
            return true;
        }
    }
    return false;
}

bool parseQosStatus(const std::string& text, StreamConfig::Direction& status) {
    static const std::pair<const char*, StreamConfig::Direction> kNames[] = {
        {"none", StreamConfig::DirectionInactive},
        {"send", StreamConfig::DirectionSendOnly},
        {"recv", StreamConfig::DirectionReceiveOnly},
        {"sendrecv", StreamConfig::DirectionFullDuplex},
    };
    for (const auto& name : kNames) {
        if (text == name.first) {
            status = name.second;
            return true;
        }
    }
    return false;
}

// An exchange is two files: this side's offer and the peer's answer, or the other way round.
int checkExchange(const Command& command, const BodyOptions& options, bool originGiven) {
    const bool ours = !options.ourOffer.empty() || !options.theirAnswer.empty();
    const bool theirs = !options.theirOffer.empty() || !options.ourAnswer.empty();
    if (!ours && !theirs) {
        return -1;
    }
    const bool paired =
        ours != theirs && (ours ? !options.ourOffer.empty() && !options.theirAnswer.empty()
                                : !options.theirOffer.empty() && !options.ourAnswer.empty());
    if (!paired) {
        return usageError(&command,
                          "an exchange is --our-offer FILE --their-answer FILE, or --their-offer "
                          "FILE --our-answer FILE");
    }
    if (originGiven) {
        return usageError(&command,
                          "--session-id and --session-version come from the exchange, not options");
    }
    return -1;
}

}  // namespace

const char* const kBodyOptionsHelp =
    "  --address A          the local address, IPv4 or IPv6 (default 127.0.0.1)\n"
    "  --port P             the local RTP port, 1024-65535 (default 49150)\n"
    "  --session-id N       the o= session id, 0 to 18446744073709551615\n"
    "                       (default: the current time in seconds since 1970)\n"
    "  --session-version N  the o= session version, 0 to 18446744073709551615 (default 1)\n"
    "  --direction D        the local direction: sendrecv (default), sendonly (hold), recvonly\n"
    "                       or inactive\n"
    "  --qos-strength S     the strength of this side's own QoS precondition (RFC 3312):\n"
    "                       mandatory, optional or none (default: no precondition of its own)\n"
    "  --qos-status R       where the local access network has reserved resources: none\n"
    "                       (default), send, recv or sendrecv\n"
    "  --our-offer FILE --their-answer FILE\n"
    "  --their-offer FILE --our-answer FILE\n"
    "                       the dialog's last agreed exchange, offered by this side or by the\n"
    "                       peer: offer then writes a re-offer, answer answers a re-offer; the\n"
    "                       o= line and, unless --address or --port, the local end are those of\n"
    "                       the body this side sent (no --session-id, --session-version)\n"
    "  -o, --output FILE    write the body to FILE instead of standard output (- for standard\n"
    "                       output); FILE is replaced whole, or left as it was\n"
    "  -h, --help           this help\n";

int parseBodyOptions(const Command& command, int argc, char** argv, BodyOptions& options) {
    static const option kOptions[] = {
        {"address", required_argument, nullptr, kAddressOption},
        {"port", required_argument, nullptr, kPortOption},
        {"session-id", required_argument, nullptr, kSessionIdOption},
        {"session-version", required_argument, nullptr, kSessionVersionOption},
        {"direction", required_argument, nullptr, kDirectionOption},
        {"qos-strength", required_argument, nullptr, kQosStrengthOption},
        {"qos-status", required_argument, nullptr, kQosStatusOption},
        {"our-offer", required_argument, nullptr, kOurOfferOption},
        {"their-answer", required_argument, nullptr, kTheirAnswerOption},
        {"their-offer", required_argument, nullptr, kTheirOfferOption},
        {"our-answer", required_argument, nullptr, kOurAnswerOption},
        {"output", required_argument, nullptr, 'o'},
        {"help", no_argument, nullptr, kHelpOption},
        {},
    };
    const uint64_t kMaxDecimal = std::numeric_limits<uint64_t>::max();
    bool originGiven = false;
    int result;
    while ((result = nextOption(argc, argv, "+:ho:", kOptions)) != -1) {
        const std::string value = optarg != nullptr ? optarg : "";
        uint64_t number = 0;
        switch (result) {
            case 'h':
            case kHelpOption:
                return printHelp(command);
            case kAddressOption:
                if (!Utils::isValidIpV4(value) && !Utils::isValidIpV6(value)) {
                    return usageError(&command, "bad address (IPv4 or IPv6): " + sdp::quote(value));
                }
                options.address = value;
                options.addressGiven = true;
                break;
            case kPortOption:
                if (!parseDecimal(value, kMaxPort, number) || number < kMinPort) {
                    return usageError(&command, "bad port (1024-65535): " + sdp::quote(value));
                }
                options.port = static_cast<int>(number);
                options.portGiven = true;
                break;
            case kSessionIdOption:
            case kSessionVersionOption:
                if (!parseDecimal(value, kMaxDecimal, number)) {
                    return usageError(&command,
                                      "bad number (0-18446744073709551615): " + sdp::quote(value));
                }
                (result == kSessionIdOption ? options.origin.sessionId
                                            : options.origin.sessionVersion) = number;
                originGiven = true;
                break;
            case kDirectionOption:
                if (!parseDirection(value, options.direction)) {
                    return usageError(&command,
                                      "bad direction (sendrecv, sendonly, recvonly, "
                                      "inactive): " +
                                          sdp::quote(value));
                }
                break;
            case kQosStrengthOption:
                if (!parseQosStrength(value, options.qosStrength)) {
                    return usageError(&command, "bad QoS strength (mandatory, optional, none): " +
                                                    sdp::quote(value));
                }
                break;
            case kQosStatusOption:
                if (!parseQosStatus(value, options.qosStatus)) {
                    return usageError(&command, "bad QoS status (none, send, recv, sendrecv): " +
                                                    sdp::quote(value));
                }
                break;
            case kOurOfferOption:
            case kTheirAnswerOption:
            case kTheirOfferOption:
            case kOurAnswerOption:
                if (value.empty()) {
                    return usageError(&command, "empty exchange FILE");
                }
                (result == kOurOfferOption      ? options.ourOffer
                 : result == kTheirAnswerOption ? options.theirAnswer
                 : result == kTheirOfferOption  ? options.theirOffer
                                                : options.ourAnswer) = value;
                break;
            case 'o':
                if (value.empty()) {
                    return usageError(&command, "empty output FILE");
                }
                options.output = value;
                break;
            default:
                return optionError(command, result, argv);
        }
    }
    const int ended = checkOptionsEnded(command, argc, argv);
    return ended != -1 ? ended : checkExchange(command, options, originGiven);
}

}  // namespace tools
}  // namespace rune
}  // namespace velmora
