#include "Command.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>

namespace velmora {
namespace rune {
namespace tools {

namespace {

// One byte more than the library reads: it refuses the longer input itself, and the tool never
// holds more than this, whatever the input (/dev/zero, an endless pipe).
const size_t kInputLimit = 64 * 1024 + 1;

}  // namespace

bool readInput(const std::string& path, std::string& text) {
    const bool standardInput = path == "-";
    std::FILE* file = standardInput ? stdin : std::fopen(path.c_str(), "rb");
    int error = file == nullptr ? errno : 0;
    if (file != nullptr) {
        text.resize(kInputLimit);
        text.resize(std::fread(text.data(), 1, kInputLimit, file));
        if (std::ferror(file) != 0) {
            error = errno;
        }
        if (!standardInput) {
            std::fclose(file);
        }
    }
    if (error != 0) {
        std::cerr << "rune-sdp: cannot read "
                  << (standardInput ? "standard input" : sdp::quote(path)) << ": "
                  << std::strerror(error) << "\n";
        return false;
    }
    return true;
}

}  // namespace tools
}  // namespace rune
}  // namespace velmora
