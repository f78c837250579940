// Builds failed results and gives the texts that the library's result codes share. runesdp
// builds its results here too (a private include); the texts are runecommon's own, not exported.
#ifndef VELMORA_RUNE_SRC_INTERNAL_RESULTS_H
#define VELMORA_RUNE_SRC_INTERNAL_RESULTS_H

#include <velmora/utilities/Result.h>

#include <cstdint>
#include <sstream>

namespace velmora {
namespace rune {

// "Success", "Unknown error", "Invalid Param", "Invalid Configuration" for 1000 to 1003.
const char* resultCodeText(int32_t code);

// Success built in place: a copy of the trait's shared success value copies three strings.
template <typename Trait>
utilities::result::Result<Trait> successResult() {
    return utilities::result::Result<Trait>(Trait::SUCCESS);
}

// A result whose message is the pieces streamed one after the other.
template <typename Trait, typename... Pieces>
utilities::result::Result<Trait> makeResult(typename Trait::ResultCode code,
                                            const Pieces&... pieces) {
    utilities::result::Result<Trait> result(code);
    std::ostringstream message;
    static_cast<void>((message << ... << pieces));  // no pieces: an empty message
    result.mMessage = message.str();
    return result;
}

}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SRC_INTERNAL_RESULTS_H
