// Which codec a configuration describes and which audio band it runs at, with their texts.
//
//   BandType band = getSamplingRateBandType(16000);  // BandTypeWb
//   if (!isBandTypeValid(band)) { /* an unknown rate gives an invalid band */ }
#ifndef VELMORA_RUNE_CODEC_ID_H
#define VELMORA_RUNE_CODEC_ID_H

#include <cstdint>

// The library exports what its public headers declare and hides the rest.
#pragma GCC visibility push(default)

namespace velmora {
namespace rune {

enum CodecId : int32_t {
    CodecIdAmr = 0,
    CodecIdDtmf = 1,
};

enum BandType : int32_t {
    BandTypeNb = 0,  // narrow band, 8 kHz sampling
    BandTypeWb = 1,  // wide band, 16 kHz sampling
};

bool isCodecIdValid(CodecId codecId);
// "AMR", "DTMF", or "Unknown codec"; a static text.
const char* getCodecIdDescription(CodecId codecId);

bool isBandTypeValid(BandType bandType);
// "8kHz", "16kHz", or "Uknown band type"; a static text.
const char* getBandTypeDescription(BandType bandType);

// Sampling rate in Hz; 0 for an unknown band.
uint32_t getBandTypeSamplingRate(BandType bandType);
// An unknown rate gives a band that isBandTypeValid() refuses.
BandType getSamplingRateBandType(uint32_t samplingRate);

// Display names of the bands, for clients' settings screens.
class BandTypeConverter {
  public:
    static const char mNb[12];
    static const char mWb[10];
};

}  // namespace rune
}  // namespace velmora

#pragma GCC visibility pop

#endif  // VELMORA_RUNE_CODEC_ID_H
