// A Session driven through one dialog by the SDP fuzzer: offers, answers, re-offers, holds,
// handovers and cancels, the peer's texts fuzzed or written by a second Session.
#ifndef VELMORA_FUZZ_SESSION_DRIVE_H
#define VELMORA_FUZZ_SESSION_DRIVE_H

#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/sdp/Sdp.h>

#include <fuzzer/FuzzedDataProvider.h>

#include <string>

namespace velmora {
namespace fuzz {

// texts holds the fuzzed peer texts, each from a line "v=0" on; the bytes of in choose the steps
// and where the peer's own texts are cut to splice a fuzzed one in. Whatever the bytes:
// versions never go back and one version never names two bodies; a payload type agreed for a
// codec is offered and accepted for that codec only; a refused call leaves its output arguments
// and the session's behaviour as they were; what one Session answers, the other accepts.
void driveSession(const std::string& texts, FuzzedDataProvider& in,
                  const rune::StreamCapabilities& local, const std::string& localIp, int localPort,
                  const rune::sdp::Origin& origin);

}  // namespace fuzz
}  // namespace velmora

#endif  // VELMORA_FUZZ_SESSION_DRIVE_H
