// The library's logger and its two assertion forms.
#ifndef VELMORA_RUNE_SRC_INTERNAL_LOG_H
#define VELMORA_RUNE_SRC_INTERNAL_LOG_H

#include <velmora/utilities/Log.h>

#include <android/log.h>

#include <cstdlib>

namespace velmora {
namespace rune {

// The platform log first, then standard error.
typedef utilities::GenericLog<utilities::TypeList<
    utilities::StdIoLogTrait,
    utilities::TypeList<utilities::AndroidLogTrait<false>, utilities::detail::TypeNull>>>
    Log;

typedef Log::Stream<utilities::details::Level::Fatal> FatalStream;
typedef Log::Stream<utilities::details::Level::Warning> WarningStream;

}  // namespace rune
}  // namespace velmora

// A broken invariant: one fatal line, "path:line: Assertion <condition> failed: <message>", then
// abort. The message is a chain of stream insertions: VELMORA_ASSERT(ok, "rate " << rate).
#define VELMORA_ASSERT(condition, message)                                  \
    do {                                                                    \
        if (!(condition)) {                                                 \
            {                                                               \
                ::velmora::rune::FatalStream report("VELMORA");             \
                report << __FILE__ ":" << __LINE__                          \
                       << ": Assertion " #condition " failed: " << message; \
            }                                                               \
            std::abort();                                                   \
        }                                                                   \
    } while (false)

// A bad constructor or list argument: the platform reports the condition and aborts.
#define VELMORA_PLATFORM_ASSERT(condition)                      \
    do {                                                        \
        if (!(condition)) {                                     \
            __android_log_assert(#condition, "OSKAL", nullptr); \
        }                                                       \
    } while (false)

#endif  // VELMORA_RUNE_SRC_INTERNAL_LOG_H
