// Death tests match the whole report a process writes before it aborts.
#ifndef VELMORA_TESTS_REPORT_PATTERN_H
#define VELMORA_TESTS_REPORT_PATTERN_H

#include <string>

namespace velmora {
namespace testing {

// An anchored regular expression that matches exactly `report`, where each "<line>" stands for
// a source line number.
inline std::string reportPattern(const std::string& report) {
    static const std::string kLine = "<line>";
    std::string pattern = "^";
    for (size_t i = 0; i < report.size(); ++i) {
        if (report.compare(i, kLine.size(), kLine) == 0) {
            pattern += "[0-9]+";
            i += kLine.size() - 1;
        } else {
            if (std::string("\\^$.|?*+()[]{}").find(report[i]) != std::string::npos) {
                pattern += '\\';
            }
            pattern += report[i];
        }
    }
    return pattern + "$";
}

// The report of a broken invariant on standard error.
inline std::string assertionPattern(const std::string& source, const std::string& condition,
                                    const std::string& message) {
    return reportPattern("F/VELMORA " + source + ":<line>: Assertion " + condition +
                         " failed: " + message + "\n");
}

// The report of a failed argument check, as this test program's __android_log_assert writes it.
inline std::string platformAssertionPattern(const std::string& condition) {
    return reportPattern("__android_log_assert(\"" + condition + "\", \"OSKAL\", NULL)\n");
}

}  // namespace testing
}  // namespace velmora

#endif  // VELMORA_TESTS_REPORT_PATTERN_H
