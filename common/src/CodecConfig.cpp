#include <velmora/rune/CodecConfig.h>

#include "Results.h"

namespace velmora {
namespace rune {

const char* CodecConfig::ResultTrait::toText(ResultCode code) {
    return resultCodeText(code);
}

}  // namespace rune
}  // namespace velmora
