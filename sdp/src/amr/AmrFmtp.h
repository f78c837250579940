// The AMR payload format parameters of an a=fmtp line (RFC 4867 section 8.1): read as the remote
// party wrote them, turned into the AmrCodecConfig they describe, and written in the one order
// that media descriptions, offers and answers share.
#ifndef VELMORA_RUNE_SDP_SRC_AMR_AMR_FMTP_H
#define VELMORA_RUNE_SDP_SRC_AMR_AMR_FMTP_H

#include <velmora/rune/Amr.h>
#include <velmora/rune/StreamConfig.h>

#include "syntax/SdpLine.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

// The highest mode of a band: 7 for AMR, 8 for AMR-WB.
AmrRate lastMode(BandType band);

// Modes of one band, each once, in an order that matters.
struct AmrModes {
    std::array<AmrRate, AmrRate8 + 1> modes{};
    unsigned count = 0;
    // One bit per mode listed.
    unsigned listed = 0;

    bool contains(AmrRate mode) const {
        return (listed & (1U << static_cast<unsigned>(mode))) != 0;
    }
    // Nothing when mode is listed already.
    void add(AmrRate mode);
    // The same modes, each once, ascending.
    AmrModes ascending() const;
    // Every mode of band, ascending: what a missing mode-set means.
    bool isEveryMode(BandType band) const;
};

// Where a parameter is repeated, the last one counts, for reading and answering alike.
struct AmrParameters {
    // The modes of the mode-set in the order written; none without a mode-set, since a mode-set
    // lists one at least.
    AmrModes modes;
    // The values as written, for an answer to return unmodified; absent when not written.
    std::optional<std::string_view> octetAlignText;
    std::optional<std::string_view> crcText;
    std::optional<std::string_view> robustSortingText;
    std::optional<std::string_view> interleavingText;

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
    // Interleaving group size; 0: no interleaving.
    uint32_t interleaving = 0;

    // crc, robust sorting and interleaving each imply the octet-aligned format.
    bool isOctetAligned() const { return octetAlign || crc || robustSorting || isInterleaved(); }
    bool isInterleaved() const { return interleaving > 0; }
};

// Reads the parameters of an fmtp line of band (text: what follows the payload type). A value
// out of its range, a mode outside the band among them, is refused in the order written. out
// starts as the defaults (a fresh format's) and takes what the text says: complete only on success.
// False with the refusal in refusal, which success leaves as it is: a success result is not
// built for every line.
bool readAmrParameters(std::string_view text, const Line& line, BandType band, AmrParameters& out,
                       StreamConfig::Result& refusal);

// Makes config (reused, so that its rate list keeps its room) the configuration that the
// parameters describe for band and payload type, at the default packet times; modes stand for
// the mode-set (every mode of the band when empty).
void configureAmr(const AmrParameters& parameters, const AmrModes& modes, BandType band,
                  int payloadType, AmrCodecConfig& config);

// An a=fmtp line this side writes, each parameter left out where it says so.
struct AmrFmtpText {
    // The mode-set, in the order of the list; left out when empty.
    AmrModes modes;
    std::optional<std::string_view> octetAlign;
    bool modeChangeCapabilityTwo = false;
    bool modeChangePeriodTwo = false;
    bool modeChangeNeighbor = false;
    std::optional<std::string_view> crc;
    std::optional<std::string_view> robustSorting;
    std::optional<std::string_view> interleaving;
    // Always written.
    uint32_t maxRed = 0;
};

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_AMR_AMR_FMTP_H
