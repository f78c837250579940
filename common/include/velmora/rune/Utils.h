// Checks of the remote media endpoint a stream is given: port and textual IP address.
#ifndef VELMORA_RUNE_UTILS_H
#define VELMORA_RUNE_UTILS_H

#include <string>

// The library exports what its public headers declare and hides the rest.
#pragma GCC visibility push(default)

namespace velmora {
namespace rune {

class Utils {
  public:
    // Media never uses a privileged port: 1024 to 65535 only.
    static bool isValidSocketPort(int port);
    static bool isValidIpV4(const std::string& address);
    static bool isValidIpV6(const std::string& address);
    // IPv4 first, then IPv6.
    static bool isValidIpAddress(const std::string& address);
};

}  // namespace rune
}  // namespace velmora

#pragma GCC visibility pop

#endif  // VELMORA_RUNE_UTILS_H
