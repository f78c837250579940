// What the SDP operations cost on a VoLTE offer (examples/volte-offer.sdp) with the local
// capabilities of rune-sdp, and what a dialog's re-offers cost after it: time and heap
// allocations per call, counted by the operator new of
// AllocationCounter.cpp and reported as the counter "allocs". Each call starts from fresh output
// objects, as a caller's does. A benchmark with a budget fails the program when it allocates more
// per call; ctest runs it that way (SdpAllocationBudgets), scripts/bench.sh for the figures.
#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Sdp.h>
#include <velmora/rune/sdp/Session.h>

#include <benchmark/benchmark.h>

#include "AllocationCounter.h"
#include "DefaultCapabilities.h"

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

using velmora::rune::StreamCapabilities;
using velmora::rune::StreamConfig;
using velmora::rune::bench::AllocationScope;
using velmora::rune::bench::kNoBudget;
namespace sdp = velmora::rune::sdp;

// The model's codec clones and the result strings, never a string per line or token.
constexpr double kCallBudget = 20;

const char* const kLocalIp = "192.0.2.10";
const int kLocalPort = 49152;

const std::string& volteOffer() {
    static const std::string text = [] {
        std::ifstream file(RUNE_VOLTE_OFFER, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }();
    return text;
}

const StreamCapabilities& localCapabilities() {
    static const StreamCapabilities local = velmora::rune::tools::defaultCapabilities();
    return local;
}

const sdp::Origin& origin() {
    static const sdp::Origin value{"-", 1732184400, 1};
    return value;
}

// A refused call would be measured as a cheap one: such a benchmark reports an error instead.
bool succeeds(benchmark::State& state, const sdp::Result& result) {
    if (result.isFailure()) {
        state.SkipWithError(result.format().c_str());
    }
    return result.isSuccess();
}

void BM_ReadRemoteDescription(benchmark::State& state) {
    StreamConfig stream;
    std::vector<sdp::SkippedFormat> skipped;
    if (!succeeds(state, sdp::readRemoteDescription(volteOffer(), stream, skipped))) {
        return;
    }
    const AllocationScope scope;
    for (auto _ : state) {
        StreamConfig read;
        std::vector<sdp::SkippedFormat> left;
        sdp::Result result = sdp::readRemoteDescription(volteOffer(), read, left);
        benchmark::DoNotOptimize(result);
    }
    // Measured only: each of the offer's six codecs is cloned into both directions' lists.
    scope.report(state, kNoBudget);
}
BENCHMARK(BM_ReadRemoteDescription);

void BM_AnswerOffer(benchmark::State& state) {
    StreamConfig stream;
    std::string answer;
    if (!succeeds(state, sdp::answerOffer(volteOffer(), localCapabilities(), kLocalIp, kLocalPort,
                                          origin(), stream, answer))) {
        return;
    }
    const AllocationScope scope;
    for (auto _ : state) {
        StreamConfig negotiated;
        std::string body;
        sdp::Result result = sdp::answerOffer(volteOffer(), localCapabilities(), kLocalIp,
                                              kLocalPort, origin(), negotiated, body);
        benchmark::DoNotOptimize(result);
    }
    scope.report(state, kCallBudget);
}
BENCHMARK(BM_AnswerOffer);

void BM_CreateOffer(benchmark::State& state) {
    std::string offer;
    if (!succeeds(state,
                  sdp::createOffer(localCapabilities(), kLocalIp, kLocalPort, origin(), offer))) {
        return;
    }
    const AllocationScope scope;
    for (auto _ : state) {
        std::string body;
        sdp::Result result =
            sdp::createOffer(localCapabilities(), kLocalIp, kLocalPort, origin(), body);
        benchmark::DoNotOptimize(result);
    }
    scope.report(state, kCallBudget);
}
BENCHMARK(BM_CreateOffer);

// The offerer's side: the VoLTE offer was ours, and the answer is the one answerOffer gives.
void BM_AcceptAnswer(benchmark::State& state) {
    StreamConfig stream;
    std::string answer;
    if (!succeeds(state, sdp::answerOffer(volteOffer(), localCapabilities(), kLocalIp, kLocalPort,
                                          origin(), stream, answer)) ||
        !succeeds(state, sdp::acceptAnswer(volteOffer(), answer, stream))) {
        return;
    }
    const AllocationScope scope;
    for (auto _ : state) {
        StreamConfig negotiated;
        sdp::Result result = sdp::acceptAnswer(volteOffer(), answer, negotiated);
        benchmark::DoNotOptimize(result);
    }
    scope.report(state, kCallBudget);
}
BENCHMARK(BM_AcceptAnswer);

// A dialog that answered the VoLTE offer.
bool answered(benchmark::State& state, sdp::Session& session) {
    StreamConfig stream;
    std::string answer;
    return succeeds(state, session.answerOffer(volteOffer(), stream, answer));
}

// This side holds the call; each re-offer is cancelled so that the next one is a re-offer too.
void BM_HoldReOffer(benchmark::State& state) {
    sdp::Session session(localCapabilities(), kLocalIp, kLocalPort, origin());
    if (!answered(state, session) ||
        !succeeds(state, session.setLocalDirection(StreamConfig::DirectionSendOnly))) {
        return;
    }
    const AllocationScope scope;
    for (auto _ : state) {
        std::string body;
        sdp::Result result = session.createOffer(body);
        session.cancelOffer();
        benchmark::DoNotOptimize(result);
    }
    scope.report(state, kCallBudget);
}
BENCHMARK(BM_HoldReOffer);

// The peer holds the call: its re-offer is the VoLTE offer, sendonly, with the next version.
void BM_AnswerReOffer(benchmark::State& state) {
    std::string reOffer = volteOffer();
    reOffer.replace(reOffer.find("a=sendrecv"), 10, "a=sendonly");
    reOffer.replace(reOffer.find(" 1732184400 IN"), 14, " 1732184401 IN");
    sdp::Session session(localCapabilities(), kLocalIp, kLocalPort, origin());
    if (!answered(state, session)) {
        return;
    }
    const AllocationScope scope;
    for (auto _ : state) {
        StreamConfig negotiated;
        std::string body;
        sdp::Result result = session.answerOffer(reOffer, negotiated, body);
        benchmark::DoNotOptimize(result);
    }
    scope.report(state, kCallBudget);
}
BENCHMARK(BM_AnswerReOffer);

}  // namespace

int main(int argc, char** argv) {
    return velmora::rune::bench::runBenchmarks(argc, argv);
}
