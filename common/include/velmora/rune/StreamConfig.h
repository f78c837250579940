// The negotiated configuration of one RTP stream of a call: remote endpoint, direction, mute and
// hold state, RTCP, RTP profile, bearer contexts and the codecs of each direction.
//
//   StreamConfig stream;
//   stream.setRemoteIp("192.0.2.7");
//   stream.addUplinkCodec(amr);                     // the stream keeps a clone
//   StreamConfig::Result result = stream.check();   // log result.format() or stream.toString()
#ifndef VELMORA_RUNE_STREAM_CONFIG_H
#define VELMORA_RUNE_STREAM_CONFIG_H

#include <velmora/rune/CodecConfig.h>
#include <velmora/rune/Rtp.h>
#include <velmora/utilities/Result.h>

#include <cstdint>
#include <string>
#include <vector>

// The library exports what its public headers declare and hides the rest.
#pragma GCC visibility push(default)

namespace velmora {
namespace rune {

class StreamConfig {
  public:
    enum ResultCode : int32_t {
        Success = 1000,
        UnknownError = 1001,
        InvalidParam = 1002,
        InvalidConfiguration = 1003,
    };

    struct ResultTrait {
        typedef StreamConfig::ResultCode ResultCode;
        static constexpr ResultCode SUCCESS = Success;
        static const char* toText(ResultCode code);
    };

    typedef utilities::result::Result<ResultTrait> Result;

    // Bit 0: the uplink (send) is active; bit 1: the downlink (receive) is active.
    enum Direction : int32_t {
        DirectionInactive = 0,
        DirectionSendOnly = 1,
        DirectionReceiveOnly = 2,
        DirectionFullDuplex = 3,
    };

    // Packet data protocol contexts of the bearer that carries the stream.
    struct PdpContext {
        int primaryCID = 1;
        int secondaryCID = 1;
    };

    // The codecs of one direction, in order of preference. The list owns its entries and refuses
    // a second codec with the same payload type.
    class CodecConfigList {
      public:
        CodecConfigList() = default;
        CodecConfigList(const CodecConfigList&) = delete;
        CodecConfigList& operator=(const CodecConfigList&) = delete;
        ~CodecConfigList();

        unsigned int count() const;
        // Still owned by the list; null when index is out of range.
        CodecConfig* get(unsigned int index) const;
        // Takes ownership on success only; a refused codec stays the caller's.
        Result add(CodecConfig* codec);
        void clear();
        // Makes this list a deep copy of other.
        void cloneContentFrom(const CodecConfigList& other);

      private:
        std::vector<CodecConfig*> mCodecs;
    };

    static const char* const DEFAULT_REMOTE_IP;
    static const int DEFAULT_REMOTE_RTP_PORT;
    static const Direction DEFAULT_ACTIVE_DIRECTION;
    static const bool DEFAULT_RTCP_ENABLED;
    static const bool DEFAULT_IS_HELD;
    static const bool DEFAULT_MUTED;
    static const RtpProfile DEFAULT_RTP_PROFILE;

    StreamConfig();
    StreamConfig(const StreamConfig& other);
    StreamConfig& operator=(const StreamConfig& other);
    virtual ~StreamConfig();

    // Deep: the codecs are cloned.
    void copyFrom(const StreamConfig& other);

    int getRemoteRtpPort() const { return mRemoteRtpPort; }
    // RTP port + 1, or -1 when that is not a usable port.
    int getRemoteRtcpPort() const;
    std::string getRemoteIp() const { return mRemoteIp; }
    bool isUplinkMuted() const { return mUplinkMuted; }
    void muteUplink(bool muted) { mUplinkMuted = muted; }
    Direction getDirection() const { return mDirection; }
    bool hasUplink() const;
    bool hasDownlink() const;
    bool isDirectionValid(Direction direction) const;
    void setRtcp(bool enabled) { mRtcpEnabled = enabled; }
    bool isRtcpEnabled() const { return mRtcpEnabled; }
    void setRtcpConfig(const RtcpConfig& config) { mRtcpConfig = config; }
    const RtcpConfig& getRtcpConfig() const { return mRtcpConfig; }
    void setRtpProfile(RtpProfile profile) { mRtpProfile = profile; }
    RtpProfile getRtpProfile() const { return mRtpProfile; }
    void setHoldState(bool held) { mIsHeld = held; }
    bool isHeld() const { return mIsHeld; }
    void setPdpContext(const PdpContext& context) { mPdpContext = context; }
    PdpContext getPdpContext() const { return mPdpContext; }

    // Each refuses (1002) a bad value and keeps the stored one.
    Result setDirection(Direction direction);
    Result setRemoteRtpPort(int port);
    Result setRemoteIp(const std::string& address);

    unsigned int getUplinkCodecCount() const { return mUplinkCodecs.count(); }
    unsigned int getDownlinkCodecCount() const { return mDownlinkCodecs.count(); }
    // Still owned by the stream; null when index is out of range.
    CodecConfig* getUplinkCodec(unsigned int index) const { return mUplinkCodecs.get(index); }
    CodecConfig* getDownlinkCodec(unsigned int index) const { return mDownlinkCodecs.get(index); }
    // The list keeps a clone of codec; the caller keeps codec. When the list refuses the clone
    // (same payload type as a listed codec), the clone is not released: callers that may add
    // conflicting codecs check the payload types first.
    Result addUplinkCodec(const CodecConfig& codec);
    Result addDownlinkCodec(const CodecConfig& codec);
    void clearUplinkCodecs() { mUplinkCodecs.clear(); }
    void clearDownlinkCodecs() { mDownlinkCodecs.clear(); }

    // Codecs present for each active direction, then each codec's own check(); the first
    // failure is returned, a failing codec's text as its context.
    [[nodiscard]] Result check() const;
    static Result checkCodecs(const CodecConfigList& codecs);
    std::string toString() const;

  private:
    int mRemoteRtpPort;
    // IPv4 or IPv6 text.
    std::string mRemoteIp;
    bool mUplinkMuted;
    Direction mDirection;
    bool mRtcpEnabled;
    RtcpConfig mRtcpConfig;
    // What is sent.
    CodecConfigList mUplinkCodecs;
    // What is received.
    CodecConfigList mDownlinkCodecs;
    bool mIsHeld;
    RtpProfile mRtpProfile;
    PdpContext mPdpContext;
};

}  // namespace rune
}  // namespace velmora

#pragma GCC visibility pop

#endif  // VELMORA_RUNE_STREAM_CONFIG_H
