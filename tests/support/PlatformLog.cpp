#include "PlatformLog.h"

#include <android/log.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <ostream>

namespace velmora {
namespace testing {

std::vector<PlatformLogMessage>& platformLog() {
    static std::vector<PlatformLogMessage> messages;
    return messages;
}

void PrintTo(const PlatformLogMessage& message, std::ostream* out) {
    *out << "{" << message.priority << ", \"" << message.tag << "\", \"" << message.text << "\"}";
}

}  // namespace testing
}  // namespace velmora

// Replaces liblog's sink for the whole test program.
extern "C" int __android_log_vprint(int priority, const char* tag, const char* format,
                                    va_list args) {
    va_list copy;
    va_copy(copy, args);
    const int length = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    std::string text(static_cast<size_t>(length), '\0');
    std::vsnprintf(&text[0], text.size() + 1, format, args);
    velmora::testing::platformLog().push_back(
        {priority, tag, text, static_cast<long>(lseek(STDERR_FILENO, 0, SEEK_CUR))});
    return length;
}

// Replaces liblog's assertion with a report that death tests can match whole.
extern "C" void __android_log_assert(const char* condition, const char* tag, const char* format,
                                     ...) {
    std::fprintf(stderr, "__android_log_assert(\"%s\", \"%s\", %s)\n", condition, tag,
                 format == nullptr ? "NULL" : format);
    std::abort();
}
