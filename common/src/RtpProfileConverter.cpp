#include <velmora/rune/Rtp.h>

namespace velmora {
namespace rune {

const char RtpProfileConverter::mAvp[4] = "AVP";
const char RtpProfileConverter::mAvpf[5] = "AVPF";

}  // namespace rune
}  // namespace velmora
