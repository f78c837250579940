// The fuzzers' own checks: a broken invariant is a finding.
#ifndef VELMORA_FUZZ_REQUIRE_H
#define VELMORA_FUZZ_REQUIRE_H

#include <sanitizer/common_interface_defs.h>

#include <cstdlib>
#include <sstream>

namespace velmora {
namespace fuzz {

// Reported through the sanitizer's report channel, which survives -close_fd_mask.
[[noreturn]] inline void fail(const char* file, int line, const char* condition) {
    std::ostringstream text;
    text << file << ":" << line << ": " << condition << " does not hold";
    __sanitizer_report_error_summary(text.str().c_str());
    std::abort();
}

}  // namespace fuzz
}  // namespace velmora

#define REQUIRE(condition)                                         \
    do {                                                           \
        if (!(condition)) {                                        \
            ::velmora::fuzz::fail(__FILE__, __LINE__, #condition); \
        }                                                          \
    } while (false)

#endif  // VELMORA_FUZZ_REQUIRE_H
