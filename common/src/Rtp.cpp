#include <velmora/rune/Rtp.h>

namespace velmora {
namespace rune {

const unsigned int RtcpConfig::DEFAULT_INTERVAL = 5000;
const unsigned int RtcpConfig::DEFAULT_RR = 0;
const unsigned int RtcpConfig::DEFAULT_RS = 800;
const unsigned int RtcpConfig::DEFAULT_AS = 64;
const bool RtcpConfig::DEFAULT_REDUCED_SIZE_MODE = false;

const RtcpConfig RtcpConfig::disabledRtcpConfig(0, 0, 0, 0, false);

RtcpConfig::RtcpConfig()
    : mInterval(DEFAULT_INTERVAL),
      mRr(DEFAULT_RR),
      mRs(DEFAULT_RS),
      mAs(DEFAULT_AS),
      mReducedSizeMode(DEFAULT_REDUCED_SIZE_MODE) {}

RtcpConfig::RtcpConfig(unsigned int interval, unsigned int rr, unsigned int rs, unsigned int as,
                       bool reducedSizeMode)
    : mInterval(interval), mRr(rr), mRs(rs), mAs(as), mReducedSizeMode(reducedSizeMode) {}

bool RtcpConfig::operator==(const RtcpConfig& other) const {
    return mInterval == other.mInterval && mRr == other.mRr && mRs == other.mRs &&
           mAs == other.mAs && mReducedSizeMode == other.mReducedSizeMode;
}

const char RtpProfileConverter::mAvp[4] = "AVP";
const char RtpProfileConverter::mAvpf[5] = "AVPF";

}  // namespace rune
}  // namespace velmora
