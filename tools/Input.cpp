#include "Command.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>

namespace velmora {
namespace rune {
namespace tools {

bool readInput(const std::string& path, std::string& text) {
    const bool standardInput = path == "-";
    std::FILE* file = standardInput ? stdin : std::fopen(path.c_str(), "rb");
    int error = file == nullptr ? errno : 0;
    if (file != nullptr) {
        char buffer[4096];
        size_t size;
        while ((size = std::fread(buffer, 1, sizeof buffer, file)) > 0) {
            text.append(buffer, size);
        }
        if (std::ferror(file) != 0) {
            error = errno;
        }
        if (!standardInput) {
            std::fclose(file);
        }
    }
    if (error != 0) {
        std::cerr << "rune-sdp: cannot read " << (standardInput ? "standard input" : path) << ": "
                  << std::strerror(error) << "\n";
        return false;
    }
    return true;
}

}  // namespace tools
}  // namespace rune
}  // namespace velmora
