// RFC 4867 section 8.3.1 for both roles: which offered AMR payload type the answerer may accept,
// the a=fmtp it answers and the configuration both sides then use; the a=fmtp of an offer and of
// a configured codec; and what the offerer checks in the answer.
#ifndef VELMORA_RUNE_SDP_SRC_AMR_AMR_ANSWER_H
#define VELMORA_RUNE_SDP_SRC_AMR_AMR_ANSWER_H

#include <velmora/rune/Amr.h>

#include "amr/AmrFmtp.h"

namespace velmora {
namespace rune {
namespace sdp {

// The modes of band that local lists, ascending; empty when they are every mode of the band or
// none of them, which a missing mode-set says.
AmrModes advertisedModes(const AmrCodecCapabilities& local, BandType band);

// True when local is of band, supports every offered mode, crc, robust sorting and interleaving
// where the offer uses them, and does not require octet-align of a bandwidth-efficient offer.
bool acceptsAmr(const AmrCodecCapabilities& local, BandType band, const AmrParameters& offered);

// For an accepted format: octet-align, crc, robust-sorting and interleaving as offered; the
// offered modes, ascending, else the local modes of the band; what local adds about mode changes;
// max-red no larger than either side's. Unknown parameters are dropped.
AmrFmtpText answerFmtp(const AmrCodecCapabilities& local, BandType band,
                       const AmrParameters& offered);

// The configuration of an accepted format at the default packet times: the offer's options and
// mode changes, the agreed modes and the answered max-red, as reading takes it.
void negotiateAmr(const AmrFmtpText& answered, const AmrParameters& offered, BandType band,
                  int payloadType, AmrCodecConfig& config);

// The modes both sides use: the answered mode-set, else the offered one; none stands for every
// mode of the band.
const AmrModes& agreedModes(const AmrModes& answered, const AmrModes& offered);

// Whether the a=fmtp lines of local, offered or answered, say mode-change-capability=2.
bool announcesModeChangeCapability(const AmrCodecCapabilities& local);

// The a=fmtp of an offered payload type of local, octet-aligned or bandwidth-efficient.
AmrFmtpText offerFmtp(const AmrCodecCapabilities& local, bool octetAligned);

// The a=fmtp of a configured codec (RFC 4867 section 8.1); max-red is always written, so an AMR
// format always has its fmtp.
AmrFmtpText configuredFmtp(const AmrCodecConfig& amr);

// The offerer's check of an answered payload type: the options, the mode-set, when offered, with
// the offered modes, and mode-change-period=2 only after mode-change-capability=2.
bool keepsOffer(const AmrParameters& offered, const AmrParameters& answered);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_AMR_AMR_ANSWER_H
