#include "read/StaticPayloadTypes.h"

#include <array>

namespace velmora {
namespace rune {
namespace sdp {

std::string_view staticEncoding(int payloadType) {
    // Indexed by payload type; the unassigned and reserved ones are empty.
    static constexpr std::array<std::string_view, 35> kEncodings = {"PCMU/8000",
                                                                    "",
                                                                    "",
                                                                    "GSM/8000",
                                                                    "G723/8000",
                                                                    "DVI4/8000",
                                                                    "DVI4/16000",
                                                                    "LPC/8000",
                                                                    "PCMA/8000",
                                                                    "G722/8000",
                                                                    "L16/44100/2",
                                                                    "L16/44100/1",
                                                                    "QCELP/8000",
                                                                    "CN/8000",
                                                                    "MPA/90000",
                                                                    "G728/8000",
                                                                    "DVI4/11025",
                                                                    "DVI4/22050",
                                                                    "G729/8000",
                                                                    "",
                                                                    "",
                                                                    "",
                                                                    "",
                                                                    "",
                                                                    "",
                                                                    "CelB/90000",
                                                                    "JPEG/90000",
                                                                    "",
                                                                    "nv/90000",
                                                                    "",
                                                                    "",
                                                                    "H261/90000",
                                                                    "MPV/90000",
                                                                    "MP2T/90000",
                                                                    "H263/90000"};
    return payloadType >= 0 && static_cast<size_t>(payloadType) < kEncodings.size()
               ? kEncodings[static_cast<size_t>(payloadType)]
               : std::string_view();
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
