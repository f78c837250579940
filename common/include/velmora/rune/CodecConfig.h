// The negotiated configuration of one codec of a stream: codec, band, RTP payload type and packet
// times. Concrete codecs (AmrCodecConfig, DtmfCodecConfig) derive from it; streams hold them
// through this base, copy them with clone() and validate them with check().
//
//   DtmfCodecConfig dtmf;
//   dtmf.setPayloadType(101);
//   Result<CodecConfig::ResultTrait> result = dtmf.check();
#ifndef VELMORA_RUNE_CODEC_CONFIG_H
#define VELMORA_RUNE_CODEC_CONFIG_H

#include <velmora/rune/CodecId.h>
#include <velmora/utilities/Result.h>

#include <cstdint>
#include <string>

// The library exports what its public headers declare and hides the rest.
#pragma GCC visibility push(default)

namespace velmora {
namespace rune {

class CodecConfig {
  public:
    enum ResultCode : int32_t {
        Success = 1000,
        UnknownError = 1001,
        InvalidParam = 1002,
        InvalidConfiguration = 1003,
    };

    struct ResultTrait {
        typedef CodecConfig::ResultCode ResultCode;
        static constexpr ResultCode SUCCESS = Success;
        static const char* toText(ResultCode code);
    };

    typedef utilities::result::Result<ResultTrait> Result;

    virtual ~CodecConfig();
    virtual bool isSupportedBandType(BandType bandType) const = 0;
    // Packet times: every failure is merged into the result, the first one leading.
    [[nodiscard]] virtual Result check() const;
    // A new copy owned by the caller.
    virtual CodecConfig* clone() const = 0;
    // Codec, band and payload type; the packet times take no part.
    virtual bool operator==(const CodecConfig& other) const;
    // Five lines, each indented by four blanks and ended by a newline.
    virtual std::string toString() const;

    CodecConfig(const CodecConfig& other);
    CodecConfig& operator=(const CodecConfig& other);
    // Copies every field, the codec id included.
    void copyFrom(const CodecConfig& other);

    CodecId getCodecId() const { return mCodecId; }
    BandType getBandType() const { return mBandType; }
    int getPayloadType() const { return mPayloadType; }
    unsigned getPacketTime() const { return mPacketTime; }
    unsigned getMaxPacketTime() const { return mMaxPacketTime; }

    // Refuses (1002) a band that is invalid or that the codec does not support.
    Result setBandType(BandType bandType);
    void setPayloadType(int payloadType) { mPayloadType = payloadType; }
    void setPacketTime(unsigned packetTime) { mPacketTime = packetTime; }
    void setMaxPacketTime(unsigned maxPacketTime) { mMaxPacketTime = maxPacketTime; }

    // Aborts the process when the two ids differ.
    static void checkCodecId(CodecId candidateCodecId, CodecId requiredCodecId);

  protected:
    CodecConfig(CodecId codecId, BandType bandType, int payloadType, unsigned packetTime,
                unsigned maxPacketTime);

    CodecId mCodecId;
    BandType mBandType;
    // RTP payload type number.
    int mPayloadType;
    // Packet time (SDP a=ptime), in ms.
    unsigned mPacketTime;
    // Largest packet time (SDP a=maxptime), in ms.
    unsigned mMaxPacketTime;
};

}  // namespace rune
}  // namespace velmora

#pragma GCC visibility pop

#endif  // VELMORA_RUNE_CODEC_CONFIG_H
