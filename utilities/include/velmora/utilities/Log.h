// A compile-time logger: each message goes to every sink of a type list.
//
// The library logs through the platform log and standard error:
//
//   typedef GenericLog<TypeList<StdIoLogTrait, TypeList<AndroidLogTrait<false>, detail::TypeNull>>>
//       Log;
//   { Log::Stream<details::Level::Warning> s("ORLA"); s << "rate " << 7; }  // one line, "W/ORLA
//   rate 7"
//
// A Stream collects text and emits exactly one message when it is destroyed.
#ifndef VELMORA_UTILITIES_LOG_H
#define VELMORA_UTILITIES_LOG_H

#include <android/log.h>

#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <sstream>

// The library exports what its public headers declare and hides the rest.
#pragma GCC visibility push(default)

namespace velmora {
namespace utilities {

namespace details {

struct Level {
    // Lower is more severe.
    enum Enum : int32_t { Fatal = 33, Warning = 35 };

    static constexpr const char* letter(Enum level) { return level == Fatal ? "F" : "W"; }
    static constexpr int androidPriority(Enum level) {
        return level == Fatal ? ANDROID_LOG_FATAL : ANDROID_LOG_WARN;
    }
};

}  // namespace details

namespace detail {

struct TypeNull {};

// Writes to the sinks from the last of the list back to the first, so that the platform log has
// a message before standard error shows it.
template <typename List>
struct SinkDispatch {
    template <details::Level::Enum level>
    static void valog(const char* tag, const char* format, va_list args) {
        SinkDispatch<typename List::tail>::template valog<level>(tag, format, args);
        // Each sink consumes its own copy of the arguments.
        va_list copy;
        va_copy(copy, args);
        List::head::template valog<level>(tag, format, copy);
        va_end(copy);
    }
};

template <>
struct SinkDispatch<TypeNull> {
    template <details::Level::Enum level>
    static void valog(const char*, const char*, va_list) {}
};

}  // namespace detail

template <typename Head, typename Tail>
struct TypeList {
    typedef Head head;
    typedef Tail tail;
};

// Standard error: "F/TAG " + message + newline.
struct StdIoLogTrait {
    template <details::Level::Enum level>
    static void valog(const char* tag, const char* format, va_list args) {
        std::fprintf(stderr, "%s/%s ", details::Level::letter(level), tag);
        std::vfprintf(stderr, format, args);
        std::fputc('\n', stderr);
    }
};

template <bool>
struct AndroidLogTrait;

// The platform log, at the priority of the level.
template <>
struct AndroidLogTrait<false> {
    template <details::Level::Enum level>
    static void valog(const char* tag, const char* format, va_list args) {
        __android_log_vprint(details::Level::androidPriority(level), tag, format, args);
    }
};

template <typename List>
class GenericLog {
  public:
    // Writes one message to every sink.
    template <details::Level::Enum level>
    static void valog(const char* tag, const char* format, va_list args) {
        detail::SinkDispatch<List>::template valog<level>(tag, format, args);
    }

    template <details::Level::Enum level>
    class Stream {
      public:
        explicit Stream(const char* tag) : mTag(tag) {}
        Stream(const Stream&) = delete;
        Stream& operator=(const Stream&) = delete;

        // The text goes through "%s", so per-cent signs in it print as they are.
        ~Stream() { log("%s", mStream.str().c_str()); }

        template <typename T>
        Stream& operator<<(const T& value) {
            mStream << value;
            return *this;
        }

        void log(const char* format, ...) {
            va_list args;
            va_start(args, format);
            GenericLog::valog<level>(mTag, format, args);
            va_end(args);
        }

      private:
        std::ostringstream mStream;
        const char* mTag;
    };
};

}  // namespace utilities
}  // namespace velmora

#pragma GCC visibility pop

#endif  // VELMORA_UTILITIES_LOG_H
