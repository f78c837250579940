// Death tests match the whole report a process writes before it aborts.
#ifndef VELMORA_TESTS_REPORT_PATTERN_H
#define VELMORA_TESTS_REPORT_PATTERN_H

#include <string>

namespace velmora {
namespace testing {

// A regular expression that matches `text` and nothing else.
inline std::string literal(const std::string& text) {
    std::string pattern;
    for (const char c : text) {
        if (std::string("\\^$.|?*+()[]{}").find(c) != std::string::npos) pattern += '\\';
        pattern += c;
    }
    return pattern;
}

// The report of a broken invariant on standard error, at any line of `source`.
inline std::string assertionPattern(const std::string& source, const std::string& condition,
                                    const std::string& message) {
    return "^F/VELMORA " + literal(source) + ":[0-9]+" +
           literal(": Assertion " + condition + " failed: " + message) + "\n$";
}

// The report of a failed argument check, as this test program's __android_log_assert writes it.
inline std::string platformAssertionPattern(const std::string& condition) {
    return "^" + literal("__android_log_assert(\"" + condition + "\", \"OSKAL\", NULL)") + "\n$";
}

}  // namespace testing
}  // namespace velmora

#endif  // VELMORA_TESTS_REPORT_PATTERN_H
