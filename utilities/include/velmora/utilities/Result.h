// Result values: what every validation of the library returns instead of throwing.
//
// A result carries a numeric code, a message, an optional context and the text of the failures
// merged behind it. Merging with &= keeps the first failure as the main one:
//
//   Result<CodecConfig::ResultTrait> result = config.check();
//   result &= other.check();
//   if (result.isFailure()) log(result.format());
//
// A trait gives the code type, the success code and the text of each code.
#ifndef VELMORA_UTILITIES_RESULT_H
#define VELMORA_UTILITIES_RESULT_H

#include <cstdint>
#include <cstring>
#include <sstream>
#include <string>

// The library exports what its public headers declare and hides the rest.
#pragma GCC visibility push(default)

namespace velmora {
namespace utilities {
namespace result {

template <typename Trait>
class Result {
  public:
    typedef typename Trait::ResultCode ResultCode;

    // Appends a value to the message as a default-configured output stream writes it.
    template <typename T>
    struct Append {
        static void run(Result& result, const T& value) {
            std::ostringstream text;
            text << value;
            result.mMessage += text.str();
        }
    };

    Result(ResultCode code) : mCode(code) {}  // NOLINT(google-explicit-constructor)

    // The one shared success value of the trait, built on first use.
    static const Result& success() {
        static const Result success(Trait::SUCCESS);
        return success;
    }

    bool isSuccess() const { return mCode == Trait::SUCCESS; }
    bool isFailure() const { return !isSuccess(); }

    // Keeps this result's code, message and context when both failed; other's text is chained.
    Result& operator&=(Result other) {
        if (isSuccess()) {
            *this = other;
        } else if (other.isFailure()) {
            mChained += " && ";
            mChained += other.format();
        }
        return *this;
    }

    std::string format() const {
        if (isSuccess()) {
            return "Success";
        }
        std::string text = Trait::toText(mCode);
        text += " (Code ";
        // Codes are signed 32-bit numbers; an enumeration without a fixed underlying type would
        // print -7 as 4294967289.
        text += std::to_string(static_cast<std::int32_t>(mCode));
        text += ")";
        std::string detail = mMessage;
        if (!mContext.empty()) {
            if (!detail.empty()) {
                detail += " ";
            }
            detail += "{" + mContext + "}";
        }
        if (!detail.empty()) {
            text += ": " + detail;
        }
        return text + mChained;
    }

    ResultCode mCode;
    std::string mMessage;
    // Formatted failures merged behind this one, each starting with " && ".
    std::string mChained;
    std::string mContext;
};

// Results of system calls: the code is errno, and 0 is success.
struct ErrnoTrait {
    typedef int ResultCode;
    static constexpr ResultCode SUCCESS = 0;
    static const char* toText(ResultCode code) { return std::strerror(code); }
};

}  // namespace result
}  // namespace utilities
}  // namespace velmora

#pragma GCC visibility pop

#endif  // VELMORA_UTILITIES_RESULT_H
