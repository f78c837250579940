#include "Command.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>

namespace velmora {
namespace rune {
namespace tools {

namespace {

bool writeFile(const std::string& path, const std::string& body) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    bool written = file != nullptr;
    if (written) {
        written = std::fwrite(body.data(), 1, body.size(), file) == body.size();
        written = std::fclose(file) == 0 && written;
    }
    if (!written) {
        std::cerr << "rune-sdp: cannot write " << path << ": " << std::strerror(errno) << "\n";
    }
    return written;
}

}  // namespace

bool deliverBody(const BodyOptions& options, const std::string& body) {
    if (!options.output.empty()) {
        return writeFile(options.output, body);
    }
    // The library ends every line with CRLF; the tool prints with LF.
    std::string text = body;
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    std::cout << text;
    return true;
}

void printResult(const StreamConfig::Result& result) {
    std::cout << result.format() << "\n";
}

int printStream(const StreamConfig& stream) {
    const StreamConfig::Result check = stream.check();
    std::cout << stream.toString();
    printResult(check);
    return check.isSuccess() ? 0 : kFailureStatus;
}

bool flushStandardOutput() {
    std::cout.flush();
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0 && std::cout.good()) {
        return true;
    }
    std::cerr << "rune-sdp: cannot write standard output: " << std::strerror(errno) << "\n";
    return false;
}

}  // namespace tools
}  // namespace rune
}  // namespace velmora
