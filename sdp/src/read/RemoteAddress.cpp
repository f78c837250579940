// The remote address as the model checks it, and its refusals as reading gives them.
#include <velmora/rune/Utils.h>

#include "read/RemoteAddress.h"
#include "syntax/SdpLine.h"

#include <string>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Letters, digits, '-' and '.', with a letter among them: a name to resolve, not an address.
bool isDomainName(std::string_view address) {
    bool letter = false;
    for (char c : address) {
        if (isLetter(c)) {
            letter = true;
        } else if (!(c >= '0' && c <= '9') && c != '-' && c != '.') {
            return false;
        }
    }
    return letter;
}

}  // namespace

bool checkAddress(RemoteMedia& remote, std::string_view address, StreamConfig::Result& refusal) {
    remote.address.assign(address);
    if (Utils::isValidIpAddress(remote.address)) {
        return true;
    }
    if (isDomainName(address)) {
        refusal = refusalAt(remote.connection, StreamConfig::InvalidConfiguration,
                            "Connection address is a domain name");
        return false;
    }
    // The model's own words.
    StreamConfig probe;
    refusal = atLine(remote.connection, probe.setRemoteIp(remote.address));
    return false;
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
