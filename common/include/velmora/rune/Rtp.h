// RTCP settings of a stream and the RTP profiles it may run.
//
//   RtcpConfig rtcp(5000, 0, 800, 64, false);  // interval, RR, RS, AS, reduced size
//   stream.setRtcpConfig(rtcp);
#ifndef VELMORA_RUNE_RTP_H
#define VELMORA_RUNE_RTP_H

#include <cstdint>

// The library exports what its public headers declare and hides the rest.
#pragma GCC visibility push(default)

namespace velmora {
namespace rune {

class RtcpConfig {
  public:
    static const unsigned int DEFAULT_INTERVAL;
    static const unsigned int DEFAULT_RR;
    static const unsigned int DEFAULT_RS;
    static const unsigned int DEFAULT_AS;
    static const bool DEFAULT_REDUCED_SIZE_MODE;

    // All zero: the settings of a stream whose RTCP is off.
    static const RtcpConfig disabledRtcpConfig;

    RtcpConfig();
    // Note the order: RR before RS.
    RtcpConfig(unsigned int interval, unsigned int rr, unsigned int rs, unsigned int as,
               bool reducedSizeMode);

    // Interval, RR, RS, AS and reduced size.
    bool operator==(const RtcpConfig& other) const;
    bool operator!=(const RtcpConfig& other) const { return !(*this == other); }

    unsigned int getInterval() const { return mInterval; }
    unsigned int getRr() const { return mRr; }
    unsigned int getRs() const { return mRs; }
    unsigned int getAs() const { return mAs; }
    bool isReducedSizeMode() const { return mReducedSizeMode; }

    void setInterval(unsigned int interval) { mInterval = interval; }
    void setRr(unsigned int rr) { mRr = rr; }
    void setRs(unsigned int rs) { mRs = rs; }
    void setAs(unsigned int as) { mAs = as; }
    void setReducedSizeMode(bool enabled) { mReducedSizeMode = enabled; }

  private:
    // Report interval, in ms.
    unsigned int mInterval;
    // RTCP bandwidth of receivers (SDP b=RR, RFC 3556), in bit/s.
    unsigned int mRr;
    // RTCP bandwidth of senders (SDP b=RS, RFC 3556), in bit/s.
    unsigned int mRs;
    // Session bandwidth (SDP b=AS), in kbit/s.
    unsigned int mAs;
    // Reduced-size RTCP (SDP a=rtcp-rsize, RFC 5506).
    bool mReducedSizeMode;
};

// Values are the numbers of the RFCs that define the profiles.
enum RtpProfile : int32_t {
    RtpProfileAvp = 3551,   // RTP/AVP
    RtpProfileAvpf = 4585,  // RTP/AVPF
};

// Short names of the profiles.
class RtpProfileConverter {
  public:
    static const char mAvp[4];
    static const char mAvpf[5];
};

}  // namespace rune
}  // namespace velmora

#pragma GCC visibility pop

#endif  // VELMORA_RUNE_RTP_H
