#include <velmora/rune/CodecId.h>

namespace velmora {
namespace rune {

const char BandTypeConverter::mNb[12] = "Narrow Band";
const char BandTypeConverter::mWb[10] = "Wide Band";

namespace {

const BandType kUnknownBandType = static_cast<BandType>(-10);

}  // namespace

bool isCodecIdValid(CodecId codecId) {
    return static_cast<uint32_t>(codecId) <= CodecIdDtmf;
}

const char* getCodecIdDescription(CodecId codecId) {
    switch (codecId) {
        case CodecIdAmr:
            return "AMR";
        case CodecIdDtmf:
            return "DTMF";
    }
    return "Unknown codec";
}

bool isBandTypeValid(BandType bandType) {
    return static_cast<uint32_t>(bandType) <= BandTypeWb;
}

const char* getBandTypeDescription(BandType bandType) {
    switch (bandType) {
        case BandTypeNb:
            return "8kHz";
        case BandTypeWb:
            return "16kHz";
    }
    return "Uknown band type";
}

uint32_t getBandTypeSamplingRate(BandType bandType) {
    switch (bandType) {
        case BandTypeNb:
            return 8000;
        case BandTypeWb:
            return 16000;
    }
    return 0;
}

BandType getSamplingRateBandType(uint32_t samplingRate) {
    switch (samplingRate) {
        case 8000:
            return BandTypeNb;
        case 16000:
            return BandTypeWb;
        default:
            return kUnknownBandType;
    }
}

}  // namespace rune
}  // namespace velmora
