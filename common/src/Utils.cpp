#include <velmora/rune/Utils.h>

#include <arpa/inet.h>

namespace velmora {
namespace rune {

namespace {

template <int family, unsigned addressSize>
bool parsesAs(const std::string& address) {
    unsigned char buffer[addressSize];
    return inet_pton(family, address.c_str(), buffer) == 1;
}

}  // namespace

bool Utils::isValidSocketPort(int port) {
    // One unsigned comparison refuses negative, privileged and too large ports alike.
    return static_cast<unsigned>(port) - 1024u <= 64511u;
}

bool Utils::isValidIpV4(const std::string& address) {
    return parsesAs<AF_INET, 4>(address);
}

bool Utils::isValidIpV6(const std::string& address) {
    return parsesAs<AF_INET6, 16>(address);
}

bool Utils::isValidIpAddress(const std::string& address) {
    return isValidIpV4(address) || isValidIpV6(address);
}

}  // namespace rune
}  // namespace velmora
