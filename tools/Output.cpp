#include "Command.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>

namespace velmora {
namespace rune {
namespace tools {

namespace {

// False with errno set when the body could not be written whole.
bool writeAll(int descriptor, const std::string& body) {
    size_t done = 0;
    while (done < body.size()) {
        const ssize_t written = ::write(descriptor, body.data() + done, body.size() - done);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            errno = written == 0 ? EIO : errno;
            return false;
        }
        done += static_cast<size_t>(written);
    }
    return true;
}

// The permissions a file created the ordinary way gets.
mode_t newFileMode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

// Writes body to a new file beside path and renames it over path, so that path holds either what
// it held or the whole body. False with errno set, the new file removed, when anything fails.
bool replaceFile(const std::string& path, const std::string& body) {
    // npos + 1 is 0: a path without a folder.
    const size_t nameStart = path.rfind('/') + 1;
    std::string temporary = path.substr(0, nameStart) + "." + path.substr(nameStart) + ".XXXXXX";
    const int descriptor = ::mkstemp(temporary.data());
    if (descriptor < 0) {
        return false;
    }
    const bool written = ::fchmod(descriptor, newFileMode()) == 0 && writeAll(descriptor, body) &&
                         ::fsync(descriptor) == 0;
    int error = written ? 0 : errno;
    if (::close(descriptor) != 0 && error == 0) {
        error = errno;
    }
    if (error == 0 && ::rename(temporary.c_str(), path.c_str()) != 0) {
        error = errno;
    }
    if (error == 0) {
        return true;
    }
    ::unlink(temporary.c_str());
    errno = error;
    return false;
}

}  // namespace

bool deliverBody(const BodyOptions& options, const std::string& body) {
    if (options.output.empty() || options.output == "-") {
        // Before anything goes to standard error, so that a terminal shows them in that order.
        std::cout << body << std::flush;
        return true;
    }
    if (replaceFile(options.output, body)) {
        return true;
    }
    std::cerr << "rune-sdp: cannot write " << sdp::quote(options.output) << ": "
              << std::strerror(errno) << "\n";
    return false;
}

void printResult(std::ostream& out, const StreamConfig::Result& result) {
    out << result.format() << "\n";
}

int printStream(std::ostream& out, const StreamConfig& stream) {
    const StreamConfig::Result check = stream.check();
    out << stream.toString();
    printResult(out, check);
    return check.isSuccess() ? 0 : kFailureStatus;
}

void printPreconditions(std::ostream& out, const sdp::Preconditions& preconditions) {
    if (preconditions.rows().empty()) {
        return;
    }
    for (const sdp::Preconditions::Row& row : preconditions.rows()) {
        out << row.toString() << "\n";
    }
    out << (preconditions.met() ? "Preconditions: met\n" : "Preconditions: not met\n");
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
