// What one media stream can do before negotiation: the codec capabilities it offers, in order of
// preference, its RTCP capabilities and the RTP profiles it supports.
#ifndef VELMORA_RUNE_STREAM_CAPABILITIES_H
#define VELMORA_RUNE_STREAM_CAPABILITIES_H

#include <velmora/rune/CodecCapabilities.h>
#include <velmora/rune/Rtp.h>

#include <set>
#include <vector>

// The library exports what its public headers declare and hides the rest.
#pragma GCC visibility push(default)

namespace velmora {
namespace rune {

class StreamCapabilities {
  public:
    StreamCapabilities();
    StreamCapabilities(const StreamCapabilities& other);
    StreamCapabilities& operator=(const StreamCapabilities& other);
    virtual ~StreamCapabilities();

    // Deep: the codec capabilities are cloned.
    void copyFrom(const StreamCapabilities& other);

    // RTCP, profiles, then the codec capabilities in order.
    bool operator==(const StreamCapabilities& other) const;
    bool operator!=(const StreamCapabilities& other) const { return !(*this == other); }

    unsigned int getCodecCapabilityCount() const;
    // Still owned by this object; null when index is out of range.
    CodecCapabilities* getCodecCapabilities(unsigned int index) const;
    // Appends a clone; the caller keeps caps.
    void addCodecCapabilities(const CodecCapabilities& caps);
    void clearCodecCapabilities();

    const RtcpConfig& getRTCPcaps() const { return mRtcpCaps; }
    void setRtcpCaps(RtcpConfig& caps) { mRtcpCaps = caps; }

    void addRtpProfile(RtpProfile profile) { mSupportedRtpProfiles.insert(profile); }
    // Ascending.
    const std::set<RtpProfile>& getSupportedRtpProfiles() const { return mSupportedRtpProfiles; }

  private:
    std::vector<CodecCapabilities*> mCodecCapabilities;
    RtcpConfig mRtcpCaps;
    std::set<RtpProfile> mSupportedRtpProfiles;
};

}  // namespace rune
}  // namespace velmora

#pragma GCC visibility pop

#endif  // VELMORA_RUNE_STREAM_CAPABILITIES_H
