#include <velmora/rune/Utils.h>

#include <array>
#include <cstddef>

namespace velmora {
namespace rune {

namespace {

// The forms inet_pton(3) accepts, read as it reads them: up to the first NUL, without its copy
// of the address. The SDP reader checks every connection address it reads, so each form is told
// in one pass over the bytes.

enum class AddressForm { None, IpV4, IpV6 };

constexpr bool isDecimalDigit(char c) {
    return static_cast<unsigned char>(c - '0') <= 9;
}

// The hex digits by byte value: one load per byte of an IPv6 group, whatever the byte.
constexpr std::array<bool, 256> kHexDigits = [] {
    std::array<bool, 256> digits{};
    for (unsigned byte = 0; byte < digits.size(); ++byte) {
        const auto c = static_cast<char>(byte);
        digits[byte] = isDecimalDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
    }
    return digits;
}();

bool isHexDigit(char c) {
    return kHexDigits[static_cast<unsigned char>(c)];
}

// Four decimal numbers up to 255 between dots, none with a leading zero, then the NUL.
bool isDottedQuad(const char* text) {
    for (int octet = 0; octet < 4; ++octet) {
        if (octet > 0 && *text++ != '.') {
            return false;
        }
        if (!isDecimalDigit(*text)) {
            return false;
        }
        auto value = static_cast<unsigned>(*text++ - '0');
        // A zero is a whole octet.
        while (value != 0 && isDecimalDigit(*text)) {
            value = value * 10 + static_cast<unsigned>(*text++ - '0');
            if (value > 255) {
                return false;
            }
        }
    }
    return *text == '\0';
}

// A dotted quad, or groups of one to four hex digits filling 16 bytes, one "::" at most standing
// for the groups left out, the last four bytes possibly a dotted quad. The first group tells the
// two apart: a dot ends it only in a quad.
AddressForm addressForm(const char* text) {
    const unsigned kBytes = 16;
    const char* at = text;
    // A leading colon is only the first of a "::".
    if (*at == ':') {
        if (at[1] != ':') {
            return AddressForm::None;
        }
        ++at;
    }
    unsigned bytes = 0;
    bool gap = false;
    const char* group = at;
    std::ptrdiff_t digits = 0;
    for (;;) {
        group = at;
        while (isHexDigit(*at)) {
            ++at;
        }
        digits = at - group;
        if (*at != ':') {
            break;
        }
        ++at;
        if (digits == 0) {
            // The second colon of a "::".
            if (gap) {
                return AddressForm::None;
            }
            gap = true;
        } else {
            // A group that another one follows.
            bytes += 2;
            if (digits > 4 || bytes > kBytes || *at == '\0') {
                return AddressForm::None;
            }
        }
    }
    // The last group, ended by the NUL or by a dotted quad's first dot.
    if (*at == '.') {
        if (!isDottedQuad(group)) {
            return AddressForm::None;
        }
        if (group == text) {
            return AddressForm::IpV4;
        }
        bytes += 4;
    } else if (*at != '\0' || digits > 4) {
        return AddressForm::None;
    } else if (digits > 0) {
        bytes += 2;
    }
    // A "::" must stand for one group at least.
    const bool full = gap ? bytes < kBytes : bytes == kBytes;
    return full ? AddressForm::IpV6 : AddressForm::None;
}

}  // namespace

bool Utils::isValidSocketPort(int port) {
    // One unsigned comparison refuses negative, privileged and too large ports alike.
    return static_cast<unsigned>(port) - 1024u <= 64511u;
}

bool Utils::isValidIpV4(const std::string& address) {
    return addressForm(address.c_str()) == AddressForm::IpV4;
}

bool Utils::isValidIpV6(const std::string& address) {
    return addressForm(address.c_str()) == AddressForm::IpV6;
}

bool Utils::isValidIpAddress(const std::string& address) {
    return addressForm(address.c_str()) != AddressForm::None;
}

}  // namespace rune
}  // namespace velmora
