// Answering one offered AMR payload type from a local AmrCodecCapabilities (RFC 4867 section
// 8.3.1): whether it can be accepted, the a=fmtp parameters the answer returns, and the
// configuration both sides then use.
#ifndef VELMORA_RUNE_SDP_SRC_AMR_ANSWER_H
#define VELMORA_RUNE_SDP_SRC_AMR_ANSWER_H

#include <velmora/rune/Amr.h>

#include "AudioSection.h"

#include <string>

namespace velmora {
namespace rune {
namespace sdp {

// True when local is of the offered band, supports every offered mode, crc, robust sorting and
// interleaving where the offer uses them, and does not require octet-align of a
// bandwidth-efficient offer. A mode outside the band is never supported.
bool acceptsAmr(const AmrCodecCapabilities& local, const RemoteFormat& offered);

// For an accepted format: octet-align, crc, robust-sorting, interleaving and mode-set as
// offered (mode-set, when not offered, from the local modes of the band); what local adds
// about mode changes; max-red no larger than either side's. Unknown parameters are dropped.
std::string answerAmrParameters(const AmrCodecCapabilities& local, const RemoteFormat& offered);

// The configuration of an accepted format at the default packet times: the offer's options and
// mode changes, the rates of the answer (every mode of the band when it lists none) and the
// answered max-red, as reading takes it.
AmrCodecConfig negotiateAmr(const AmrCodecCapabilities& local, const RemoteFormat& offered);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_AMR_ANSWER_H
