// What one codec can do on this side of a call, before negotiation. Concrete capabilities
// (AmrCodecCapabilities, DtmfCodecCapabilities) derive from it; StreamCapabilities holds them
// through this base and copies them with clone().
#ifndef VELMORA_RUNE_CODEC_CAPABILITIES_H
#define VELMORA_RUNE_CODEC_CAPABILITIES_H

#include <velmora/rune/CodecId.h>
#include <velmora/utilities/Result.h>

#include <cstdint>

// The library exports what its public headers declare and hides the rest.
#pragma GCC visibility push(default)

namespace velmora {
namespace rune {

class CodecCapabilities {
  public:
    enum ResultCode : int32_t {
        Success = 1000,
        UnknownError = 1001,
        InvalidParam = 1002,
        InvalidConfiguration = 1003,
    };

    struct ResultTrait {
        typedef CodecCapabilities::ResultCode ResultCode;
        static constexpr ResultCode SUCCESS = Success;
        static const char* toText(ResultCode code);
    };

    typedef utilities::result::Result<ResultTrait> Result;

    virtual ~CodecCapabilities();
    // All five fields, in declaration order.
    virtual bool operator==(const CodecCapabilities& other) const;
    // A new copy owned by the caller.
    virtual CodecCapabilities* clone() const = 0;

    // Honours a subclass's equality.
    bool operator!=(const CodecCapabilities& other) const { return !(*this == other); }

    CodecCapabilities(const CodecCapabilities& other) = default;
    CodecCapabilities& operator=(const CodecCapabilities& other) = default;

    CodecId getCodecId() const { return mCodecId; }
    BandType getBandType() const { return mBandType; }
    unsigned getPacketTime() const { return mPacketTime; }
    unsigned getMaxPacketTime() const { return mMaxPacketTime; }
    unsigned getChannelCount() const { return mChannelCount; }

    // Plain stores, without validation.
    void setBandType(BandType bandType) { mBandType = bandType; }
    void setPacketTime(unsigned packetTime) { mPacketTime = packetTime; }
    void setMaxPacketTime(unsigned maxPacketTime) { mMaxPacketTime = maxPacketTime; }
    void setChannelCount(unsigned channelCount) { mChannelCount = channelCount; }

  protected:
    CodecCapabilities(CodecId codecId, BandType bandType, int packetTime, int maxPacketTime,
                      int channelCount);

    CodecId mCodecId;
    BandType mBandType;
    // Packet time, in ms.
    unsigned mPacketTime;
    // Largest packet time, in ms.
    unsigned mMaxPacketTime;
    // Audio channels.
    unsigned mChannelCount;
};

}  // namespace rune
}  // namespace velmora

#pragma GCC visibility pop

#endif  // VELMORA_RUNE_CODEC_CAPABILITIES_H
