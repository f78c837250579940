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

// The model's check, once.
StreamConfig::Result checkAddress(RemoteMedia& remote) {
    const std::string address(remote.address);
    if (Utils::isValidIpAddress(address)) {
        remote.addressChecked = true;
        return successResult();
    }
    StreamConfig probe;
    return addressRefusal(remote, probe.setRemoteIp(address));
}

StreamConfig::Result afterAddress(RemoteMedia& remote, StreamConfig::Result later) {
    if (remote.addressChecked || !remote.connection.exists()) {
        return later;
    }
    StreamConfig::Result address = checkAddress(remote);
    return address.isFailure() ? address : later;
}

StreamConfig::Result addressRefusal(const RemoteMedia& remote, StreamConfig::Result result) {
    if (isDomainName(remote.address)) {
        return refusalAt(remote.connection, StreamConfig::InvalidConfiguration,
                         "Connection address is a domain name");
    }
    // The model's own words.
    return atLine(remote.connection, std::move(result));
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
