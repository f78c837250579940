#include <velmora/rune/Dtmf.h>

namespace velmora {
namespace rune {

DtmfCodecCapabilities::DtmfCodecCapabilities()
    : CodecCapabilities(CodecIdDtmf, BandTypeWb, 20, 240, 1) {}

DtmfCodecCapabilities::DtmfCodecCapabilities(const DtmfCodecCapabilities& other) = default;

DtmfCodecCapabilities& DtmfCodecCapabilities::operator=(const DtmfCodecCapabilities& other) =
    default;

DtmfCodecCapabilities::~DtmfCodecCapabilities() = default;

CodecCapabilities* DtmfCodecCapabilities::clone() const {
    return new DtmfCodecCapabilities(*this);
}

}  // namespace rune
}  // namespace velmora
