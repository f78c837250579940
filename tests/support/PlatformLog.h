// What the library asked of the platform log, recorded by this test program's own definitions of
// __android_log_vprint and __android_log_assert.
#ifndef VELMORA_TESTS_PLATFORM_LOG_H
#define VELMORA_TESTS_PLATFORM_LOG_H

#include <iosfwd>
#include <string>
#include <vector>

namespace velmora {
namespace testing {

struct PlatformLogMessage {
    int priority;
    std::string tag;
    std::string text;
    // Bytes already written to standard error when the message reached the platform log.
    long stderrOffset;

    bool operator==(const PlatformLogMessage& other) const {
        return priority == other.priority && tag == other.tag && text == other.text;
    }
};

// Messages since the last clear, oldest first.
std::vector<PlatformLogMessage>& platformLog();

void PrintTo(const PlatformLogMessage& message, std::ostream* out);

}  // namespace testing
}  // namespace velmora

#endif  // VELMORA_TESTS_PLATFORM_LOG_H
