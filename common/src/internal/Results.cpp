#include "Results.h"

namespace velmora {
namespace rune {

const char* resultCodeText(int32_t code) {
    switch (code) {
        case 1000:
            return "Success";
        case 1001:
            return "Unknown error";
        case 1002:
            return "Invalid Param";
        case 1003:
            return "Invalid Configuration";
        default:
            return "Invalid error (Unreachable)";
    }
}

}  // namespace rune
}  // namespace velmora
