// rune-sdp answer [--address A] [--port P] [FILE|-]: answers an offer with the default local
// capabilities and shows the answer and the negotiated stream.
#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/Utils.h>
#include <velmora/rune/sdp/Sdp.h>

#include "Command.h"
#include "DefaultCapabilities.h"

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

namespace velmora {
namespace rune {
namespace tools {

namespace {

const char* const kDefaultAddress = "127.0.0.1";
const int kDefaultPort = 49150;
const int kMaxPort = 65535;

// Decimal digits only, 1 to 65535.
bool parsePort(const std::string& text, int& port) {
    if (text.empty() || text.size() > 5 ||
        text.find_first_not_of("0123456789") != std::string::npos) {
        return false;
    }
    const int value = std::stoi(text);
    if (value < 1 || value > kMaxPort) {
        return false;
    }
    port = value;
    return true;
}

bool isOption(const std::string& argument) {
    return argument.size() > 1 && argument[0] == '-';
}

// The description is written with CRLF; the tool prints with LF.
std::string withLineFeeds(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    return text;
}

}  // namespace

int answer(const std::vector<std::string>& arguments) {
    std::string address = kDefaultAddress;
    int port = kDefaultPort;
    size_t next = 0;
    for (; next < arguments.size() && isOption(arguments[next]); ++next) {
        const std::string& option = arguments[next];
        if (option != "--address" && option != "--port") {
            return usageError("unknown option: " + option);
        }
        if (next + 1 == arguments.size()) {
            return usageError(option + " needs a value");
        }
        const std::string& value = arguments[++next];
        if (option == "--port" && !parsePort(value, port)) {
            return usageError("bad port (1-65535): " + value);
        }
        if (option == "--address") {
            if (!Utils::isValidIpV4(value) && !Utils::isValidIpV6(value)) {
                return usageError("bad address (IPv4 or IPv6): " + value);
            }
            address = value;
        }
    }
    if (arguments.size() - next > 1) {
        return usageError(isOption(arguments[next + 1]) ? "options come before FILE"
                                                        : "answer takes one FILE at most");
    }
    const std::string path = next < arguments.size() ? arguments[next] : "-";
    std::string text;
    if (!readInput(path, text)) {
        return kUsageStatus;
    }
    StreamConfig negotiated;
    std::string media;
    const sdp::Result result = sdp::answerOffer(text, defaultCapabilities(), address, port,
                                                sdp::Origin(), negotiated, media);
    if (result.isFailure()) {
        std::cout << result.format() << "\n";
        return 1;
    }
    const StreamConfig::Result check = negotiated.check();
    std::cout << withLineFeeds(media) << negotiated.toString() << check.format() << "\n";
    return check.isSuccess() ? 0 : 1;
}

}  // namespace tools
}  // namespace rune
}  // namespace velmora
