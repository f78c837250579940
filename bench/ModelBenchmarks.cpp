// What the model costs on the paths a media engine takes during a call: time and heap allocations
// per iteration. Every allocation of the program, the library's included, goes through the
// operator new of AllocationCounter.cpp, so each benchmark reports them as the counter "allocs".
//
// A benchmark with a budget fails the program when it allocates more per iteration; ctest runs
// it that way (AllocationBudgets), scripts/bench.sh for the figures.
#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamConfig.h>

#include <benchmark/benchmark.h>

#include "AllocationCounter.h"

#include <memory>
#include <string>
#include <vector>

namespace {

using velmora::rune::AmrCodecConfig;
using velmora::rune::AmrRate;
using velmora::rune::BandTypeNb;
using velmora::rune::CodecConfig;
using velmora::rune::Dtmf;
using velmora::rune::DtmfCodecConfig;
using velmora::rune::StreamConfig;
using velmora::rune::bench::AllocationScope;
using velmora::rune::bench::kNoBudget;

AmrCodecConfig amrCodec(int payloadType) {
    AmrCodecConfig amr;
    amr.setPayloadType(payloadType);
    for (AmrRate rate : {velmora::rune::AmrRate2, velmora::rune::AmrRate8}) {
        static_cast<void>(amr.addAmrRate(rate));
    }
    return amr;
}

// A valid full-duplex stream with an AMR and a DTMF codec in each direction.
StreamConfig callStream() {
    StreamConfig stream;
    static_cast<void>(stream.setRemoteIp("192.0.2.7"));
    static_cast<void>(stream.setRemoteRtpPort(50000));
    const AmrCodecConfig amr = amrCodec(AmrCodecConfig::DEFAULT_PAYLOAD_TYPE);
    const DtmfCodecConfig dtmf;
    static_cast<void>(stream.addUplinkCodec(amr));
    static_cast<void>(stream.addUplinkCodec(dtmf));
    static_cast<void>(stream.addDownlinkCodec(amr));
    static_cast<void>(stream.addDownlinkCodec(dtmf));
    return stream;
}

// The two codec clones, the AMR clone's rate vector and the list's buffer, per direction.
constexpr double kStreamCopyBudget = 2 * (2 + 1 + 1);

void BM_StreamCopy(benchmark::State& state) {
    const StreamConfig stream = callStream();
    const AllocationScope scope;
    for (auto _ : state) {
        StreamConfig copy(stream);
        benchmark::DoNotOptimize(copy);
    }
    scope.report(state, kStreamCopyBudget);
}
BENCHMARK(BM_StreamCopy);

void BM_StreamCheck(benchmark::State& state) {
    const StreamConfig stream = callStream();
    if (stream.check().isFailure()) {
        state.SkipWithError("the stream is not valid");
        return;
    }
    const AllocationScope scope;
    for (auto _ : state) {
        StreamConfig::Result result = stream.check();
        benchmark::DoNotOptimize(result);
    }
    scope.report(state, 0);
}
BENCHMARK(BM_StreamCheck);

void preferredRate(benchmark::State& state, const AmrCodecConfig& amr) {
    const AllocationScope scope;
    for (auto _ : state) {
        AmrRate rate = amr.getPreferedAmrRate();
        benchmark::DoNotOptimize(rate);
    }
    scope.report(state, 0);
}

void BM_PreferedAmrRateWideBand(benchmark::State& state) {
    AmrCodecConfig amr;
    for (int rate = 8; rate >= 0; --rate) {
        static_cast<void>(amr.addAmrRate(static_cast<AmrRate>(rate)));
    }
    preferredRate(state, amr);
}
BENCHMARK(BM_PreferedAmrRateWideBand);

void BM_PreferedAmrRateNarrowBand(benchmark::State& state) {
    AmrCodecConfig amr;
    static_cast<void>(amr.setBandType(BandTypeNb));
    for (int rate = 0; rate <= 7; ++rate) {
        static_cast<void>(amr.addAmrRate(static_cast<AmrRate>(rate)));
    }
    preferredRate(state, amr);
}
BENCHMARK(BM_PreferedAmrRateNarrowBand);

// A dump is written into one reserved string, the codecs' lines included.
constexpr double kTextBudget = 1;

void BM_AmrToString(benchmark::State& state) {
    const AmrCodecConfig amr = amrCodec(AmrCodecConfig::DEFAULT_PAYLOAD_TYPE);
    const AllocationScope scope;
    for (auto _ : state) {
        std::string text = amr.toString();
        benchmark::DoNotOptimize(text);
    }
    scope.report(state, kTextBudget);
}
BENCHMARK(BM_AmrToString);

void BM_StreamToString(benchmark::State& state) {
    const StreamConfig stream = callStream();
    const AllocationScope scope;
    for (auto _ : state) {
        std::string text = stream.toString();
        benchmark::DoNotOptimize(text);
    }
    scope.report(state, kTextBudget);
}
BENCHMARK(BM_StreamToString);

void BM_AddEightCodecs(benchmark::State& state) {
    std::vector<std::unique_ptr<CodecConfig>> codecs;
    for (int index = 0; index < 4; ++index) {
        codecs.emplace_back(new AmrCodecConfig(amrCodec(96 + index)));
        auto dtmf = std::make_unique<DtmfCodecConfig>();
        dtmf->setPayloadType(100 + index);
        codecs.push_back(std::move(dtmf));
    }
    const AllocationScope scope;
    for (auto _ : state) {
        StreamConfig stream;
        for (const auto& codec : codecs) {
            StreamConfig::Result result = stream.addUplinkCodec(*codec);
            benchmark::DoNotOptimize(result);
        }
        benchmark::DoNotOptimize(stream);
    }
    scope.report(state, kNoBudget);
}
BENCHMARK(BM_AddEightCodecs);

void BM_DtmfKeyFromChar(benchmark::State& state) {
    // The sixteen keys and a few characters the map does not know.
    const std::string dialled = "0123456789*#ABCDabcd +";
    const AllocationScope scope;
    for (auto _ : state) {
        for (char c : dialled) {
            Dtmf::Key key = Dtmf::Key0;
            bool found = Dtmf::getDtmfKeyFromChar(c, key);
            benchmark::DoNotOptimize(found);
            benchmark::DoNotOptimize(key);
        }
    }
    scope.report(state, 0);
}
BENCHMARK(BM_DtmfKeyFromChar);

// What a media engine reads to start a stream.
void BM_Getters(benchmark::State& state) {
    const StreamConfig stream = callStream();
    const AllocationScope scope;
    for (auto _ : state) {
        benchmark::DoNotOptimize(stream.getRemoteIp());
        benchmark::DoNotOptimize(stream.getRemoteRtpPort());
        benchmark::DoNotOptimize(stream.getRemoteRtcpPort());
        benchmark::DoNotOptimize(stream.getDirection());
        benchmark::DoNotOptimize(stream.hasUplink());
        benchmark::DoNotOptimize(stream.hasDownlink());
        benchmark::DoNotOptimize(stream.isUplinkMuted());
        benchmark::DoNotOptimize(stream.isHeld());
        benchmark::DoNotOptimize(stream.isRtcpEnabled());
        benchmark::DoNotOptimize(stream.getRtcpConfig().getAs());
        benchmark::DoNotOptimize(stream.getRtpProfile());
        benchmark::DoNotOptimize(stream.getPdpContext());
        for (unsigned index = 0; index < stream.getUplinkCodecCount(); ++index) {
            const CodecConfig* codec = stream.getUplinkCodec(index);
            benchmark::DoNotOptimize(codec->getCodecId());
            benchmark::DoNotOptimize(codec->getBandType());
            benchmark::DoNotOptimize(codec->getPayloadType());
            benchmark::DoNotOptimize(codec->getPacketTime());
            benchmark::DoNotOptimize(codec->getMaxPacketTime());
        }
        const auto* amr = static_cast<const AmrCodecConfig*>(stream.getDownlinkCodec(0));
        benchmark::DoNotOptimize(amr->getAmrRateCount());
        benchmark::DoNotOptimize(amr->getAmrRate(0));
        benchmark::DoNotOptimize(amr->getSupportedAmrRates().size());
        benchmark::DoNotOptimize(amr->isOctetAlignModeEnabled());
        benchmark::DoNotOptimize(amr->isDTXModeEnabled());
        benchmark::DoNotOptimize(amr->getMaxRdcy());
        benchmark::DoNotOptimize(amr->getModeChangePeriod());
    }
    scope.report(state, 0);
}
BENCHMARK(BM_Getters);

// getRemoteIp() returns a copy: an address longer than the string's inline buffer (15
// characters in libstdc++) costs an allocation on every call.
void BM_GetRemoteIpV6(benchmark::State& state) {
    StreamConfig stream;
    static_cast<void>(stream.setRemoteIp("2001:db8:85a3::8a2e:370:7334"));
    const AllocationScope scope;
    for (auto _ : state) {
        benchmark::DoNotOptimize(stream.getRemoteIp());
    }
    scope.report(state, 1);
}
BENCHMARK(BM_GetRemoteIpV6);

}  // namespace

int main(int argc, char** argv) {
    return velmora::rune::bench::runBenchmarks(argc, argv);
}
