#include <velmora/rune/Utils.h>

#include <string_view>

namespace velmora {
namespace rune {

namespace {

// The forms inet_pton(3) accepts, read as it reads them, without its copy of the address: the
// SDP reader checks every connection address it reads.

// The text up to its first NUL, as a C function sees it.
std::string_view cText(const std::string& address) {
    return address.c_str();
}

// Four decimal numbers up to 255 between dots, none with a leading zero.
bool isDottedQuad(std::string_view text) {
    unsigned octets = 0;
    unsigned value = 0;
    bool inOctet = false;
    for (const char c : text) {
        if (c >= '0' && c <= '9') {
            if (inOctet && value == 0) {
                return false;
            }
            value = value * 10 + static_cast<unsigned>(c - '0');
            if (value > 255) {
                return false;
            }
            if (!inOctet && ++octets > 4) {
                return false;
            }
            inOctet = true;
        } else if (c == '.' && inOctet && octets < 4) {
            value = 0;
            inOctet = false;
        } else {
            return false;
        }
    }
    return octets == 4;
}

bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// Groups of one to four hex digits filling 16 bytes, one "::" at most standing for the groups
// left out, the last four bytes possibly a dotted quad.
bool isIpV6Text(std::string_view text) {
    const unsigned kBytes = 16;
    if (text.empty() || (text[0] == ':' && (text.size() < 2 || text[1] != ':'))) {
        return false;
    }
    size_t at = text[0] == ':' ? 1 : 0;
    size_t groupStart = at;
    unsigned bytes = 0;
    unsigned digits = 0;
    bool gap = false;
    while (at < text.size()) {
        const char c = text[at++];
        if (isHexDigit(c)) {
            if (digits == 4) {
                return false;
            }
            ++digits;
            continue;
        }
        if (c == ':') {
            groupStart = at;
            if (digits == 0) {
                if (gap) {
                    return false;
                }
                gap = true;
                continue;
            }
            if (at == text.size() || bytes + 2 > kBytes) {
                return false;
            }
            bytes += 2;
            digits = 0;
            continue;
        }
        if (c == '.' && bytes + 4 <= kBytes && isDottedQuad(text.substr(groupStart))) {
            bytes += 4;
            digits = 0;
            break;
        }
        return false;
    }
    if (digits > 0) {
        if (bytes + 2 > kBytes) {
            return false;
        }
        bytes += 2;
    }
    // A "::" must stand for one group at least.
    return gap ? bytes < kBytes : bytes == kBytes;
}

}  // namespace

bool Utils::isValidSocketPort(int port) {
    // One unsigned comparison refuses negative, privileged and too large ports alike.
    return static_cast<unsigned>(port) - 1024u <= 64511u;
}

bool Utils::isValidIpV4(const std::string& address) {
    return isDottedQuad(cText(address));
}

bool Utils::isValidIpV6(const std::string& address) {
    return isIpV6Text(cText(address));
}

bool Utils::isValidIpAddress(const std::string& address) {
    const std::string_view text = cText(address);
    return isDottedQuad(text) || isIpV6Text(text);
}

}  // namespace rune
}  // namespace velmora
