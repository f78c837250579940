// What the SDP fuzzer requires of the bodies the library writes, and of the outputs of a refused
// call.
#ifndef VELMORA_FUZZ_BODY_CHECKS_H
#define VELMORA_FUZZ_BODY_CHECKS_H

#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Sdp.h>

#include "syntax/Printable.h"

#include <string>
#include <string_view>
#include <vector>

namespace velmora {
namespace fuzz {

// Lines ended by CRLF, printable between them.
inline bool isBody(const std::string& body) {
    size_t start = 0;
    for (size_t end = body.find("\r\n"); end != std::string::npos; end = body.find("\r\n", start)) {
        if (!rune::sdp::isPrintable(std::string_view(body).substr(start, end - start)))
            return false;
        start = end + 2;
    }
    return !body.empty() && start == body.size();
}

inline bool reads(const std::string& body) {
    rune::StreamConfig stream;
    std::vector<rune::sdp::SkippedFormat> skipped;
    return rune::sdp::readRemoteDescription(body, stream, skipped).isSuccess();
}

// Outputs that a refusal must leave as they are.
struct Outputs {
    rune::StreamConfig stream;
    std::vector<rune::sdp::SkippedFormat> skipped{{0, "untouched"}};
    std::string body = "untouched";

    Outputs() { (void)stream.setRemoteIp("192.0.2.99"); }
    bool untouched() const {
        return stream.toString() == Outputs().stream.toString() && skipped == Outputs().skipped &&
               body == "untouched";
    }
};

}  // namespace fuzz
}  // namespace velmora

#endif  // VELMORA_FUZZ_BODY_CHECKS_H
