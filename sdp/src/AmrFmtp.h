// The AMR payload format parameters of an a=fmtp line (RFC 4867 section 8.1) as the remote party
// wrote them, and the AmrCodecConfig they describe.
#ifndef VELMORA_RUNE_SDP_SRC_AMR_FMTP_H
#define VELMORA_RUNE_SDP_SRC_AMR_FMTP_H

#include <velmora/rune/Amr.h>
#include <velmora/rune/StreamConfig.h>

#include "syntax/SdpLine.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora {
namespace rune {
namespace sdp {

struct AmrParameters {
    // Every parameter, known or not, in the order written: name as written, trimmed value.
    std::vector<std::pair<std::string_view, std::string_view>> written;
    // mode-set, in the order written; absent means every mode of the band.
    std::optional<std::vector<AmrRate>> modeSet;
    bool octetAlign = false;
    // RFC 4867 values: 1 or 2.
    std::optional<uint32_t> modeChangePeriod;
    // Not part of a configuration and not checked; absent when not a number.
    std::optional<uint32_t> modeChangeCapability;
    bool modeChangeNeighbor = false;
    // In ms, 0-65535.
    std::optional<uint32_t> maxRed;
    bool crc = false;
    bool robustSorting = false;
    // Interleaving group size; 0 or absent: no interleaving.
    std::optional<uint32_t> interleaving;

    // crc, robust sorting and interleaving each imply the octet-aligned format.
    bool isOctetAligned() const;
    bool isInterleaved() const { return interleaving.value_or(0) > 0; }
};

// Reads the parameters of an fmtp line (the text after its payload type). A value out of its
// range is refused in the order written, with line as the context.
StreamConfig::Result readAmrParameters(std::string_view text, const Line& line, AmrParameters& out);

// The configuration the parameters describe for band and payload type, at the default packet
// times.
AmrCodecConfig makeAmrCodecConfig(const AmrParameters& parameters, BandType band, int payloadType);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_AMR_FMTP_H
