#include <velmora/rune/Dtmf.h>

namespace velmora {
namespace rune {

const BandType DtmfCodecConfig::DEFAULT_BAND_TYPE = BandTypeWb;
const int DtmfCodecConfig::DEFAULT_PAYLOAD_TYPE = 99;
const unsigned DtmfCodecConfig::DEFAULT_PACKET_TIME = 20;
const unsigned DtmfCodecConfig::DEFAULT_MAX_PACKET_TIME = 240;

DtmfCodecConfig::DtmfCodecConfig()
    : CodecConfig(CodecIdDtmf, DEFAULT_BAND_TYPE, DEFAULT_PAYLOAD_TYPE, DEFAULT_PACKET_TIME,
                  DEFAULT_MAX_PACKET_TIME) {}

DtmfCodecConfig::DtmfCodecConfig(const DtmfCodecConfig& other) = default;

DtmfCodecConfig& DtmfCodecConfig::operator=(const DtmfCodecConfig& other) {
    copyFrom(other);
    return *this;
}

DtmfCodecConfig::~DtmfCodecConfig() = default;

// Telephone events are carried the same way whatever the audio band.
bool DtmfCodecConfig::isSupportedBandType(BandType bandType) const {
    return isBandTypeValid(bandType);
}

CodecConfig* DtmfCodecConfig::clone() const {
    return new DtmfCodecConfig(*this);
}

}  // namespace rune
}  // namespace velmora
