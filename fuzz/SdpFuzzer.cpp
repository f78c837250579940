// Reads its input as a session description, up to its last NUL if there is one; the bytes after
// that NUL change the local capabilities of rune-sdp (bands, supported modes, AMR options,
// redundancy, profiles, address and port). The description is read as a remote one, answered as an
// offer, and accepted as the answer to the offer rune-sdp writes by default; an offer is written
// from the chosen capabilities, answered from them and its answer accepted, which must succeed.
// Then a Session with those capabilities goes through a dialog whose steps the remaining bytes
// choose, its peer's texts cut from the description (SessionDrive.h).
// Whatever the bytes: a refusal leaves the outputs as they were, every body written reads again,
// and everything the library returns for printing is printable as rune-sdp prints (in bodies, but
// for the CRLF that ends each line). Sessions with a precondition state the bytes choose answer
// the description and accept it as the answer to their offer; their rows print safely.
#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Sdp.h>
#include <velmora/rune/sdp/Session.h>

#include "BodyChecks.h"
#include "DefaultCapabilities.h"
#include "Require.h"
#include "SessionDrive.h"
#include "syntax/Printable.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using namespace velmora::rune;
using velmora::fuzz::isBody;
using velmora::fuzz::Outputs;
using velmora::fuzz::reads;

const char* const kSession = "v=0\r\no=- 0 0 IN IP4 192.0.2.1\r\ns=-\r\nt=0 0\r\n";

// A refusal prints safely and leaves the outputs alone; a written body reads again.
bool written(const sdp::Result& result, const Outputs& out) {
    REQUIRE(sdp::isPrintable(result.format()));
    if (result.isFailure()) {
        REQUIRE(out.untouched());
        return false;
    }
    REQUIRE(isBody(out.body) && reads(out.body));
    return true;
}

// The tool's capabilities, changed where the input says.
StreamCapabilities localCapabilities(FuzzedDataProvider& in) {
    const StreamCapabilities defaults = tools::defaultCapabilities();
    StreamCapabilities local;
    for (unsigned int index = 0; index < defaults.getCodecCapabilityCount(); ++index) {
        const CodecCapabilities* codec = defaults.getCodecCapabilities(index);
        const auto* amr = dynamic_cast<const AmrCodecCapabilities*>(codec);
        if (in.ConsumeBool()) continue;  // left out
        if (amr == nullptr || !in.ConsumeBool()) {
            local.addCodecCapabilities(*codec);
            continue;
        }
        AmrCodecCapabilities changed(*amr);
        changed.setBandType(in.ConsumeBool() ? BandTypeWb : BandTypeNb);
        const auto modes = in.ConsumeIntegral<uint16_t>();
        for (int mode = 0; mode <= 8; ++mode) {
            if ((modes & (1u << mode)) != 0) (void)changed.addSupportedAmrRate(AmrRate(mode));
        }
        changed.setOctetAlignModeRequired(in.ConsumeBool());
        changed.setCrcModeSupport(in.ConsumeBool());
        changed.setRobustSortingModeSupport(in.ConsumeBool());
        changed.setInterleavingModeSupport(in.ConsumeBool());
        (void)changed.setModeChangeCapability(ModeChangeCapability(in.ConsumeBool()));
        (void)changed.setModeChangePeriod(ModeChangePeriod(in.ConsumeBool()));
        changed.setModeChangeNeighborRequired(in.ConsumeBool());
        changed.setRdcyModeSupport(in.ConsumeBool());
        changed.setMaxSupportedRdcy(in.ConsumeIntegralInRange(-1, 300));
        local.addCodecCapabilities(changed);
    }
    const bool someProfiles = in.ConsumeBool();
    if (!someProfiles || in.ConsumeBool()) local.addRtpProfile(RtpProfileAvp);
    if (!someProfiles || in.ConsumeBool()) local.addRtpProfile(RtpProfileAvpf);
    return local;
}

// The remote description read, and written back as a media description that reads the same.
void readAndWrite(const std::string& description) {
    Outputs read;
    const sdp::Result result = sdp::readRemoteDescription(description, read.stream, read.skipped);
    REQUIRE(sdp::isPrintable(result.format()));
    if (result.isFailure()) {
        REQUIRE(read.untouched());
        return;
    }
    for (const sdp::SkippedFormat& format : read.skipped)
        REQUIRE(sdp::isPrintable(format.encoding));
    const StreamConfig& stream = read.stream;
    const std::string media =
        sdp::writeMediaDescription(stream, stream.getRemoteIp(), stream.getRemoteRtpPort());
    if (stream.getUplinkCodecCount() + stream.getDownlinkCodecCount() == 0) return;
    REQUIRE(isBody(media) && reads(kSession + media));
}

// Each row as rune-sdp prints it.
bool printable(const sdp::Preconditions& preconditions) {
    return std::all_of(
        preconditions.rows().begin(), preconditions.rows().end(),
        [](const sdp::Preconditions::Row& row) { return sdp::isPrintable(row.toString()); });
}

// The description answered, and accepted as the answer to an offer, by sessions whose
// precondition state comes from the input.
void inDialogs(const std::string& description, const StreamCapabilities& local,
               FuzzedDataProvider& in) {
    sdp::Session answerer(local, "192.0.2.1", 49150, sdp::Origin());
    sdp::Session offerer = answerer;
    for (sdp::Session* session : {&answerer, &offerer}) {
        REQUIRE(session->setQosStatus(StreamConfig::Direction(in.ConsumeIntegralInRange(0, 3)))
                    .isSuccess());
        REQUIRE(
            session->setQosStrength(sdp::Strength(in.ConsumeIntegralInRange(0, 2))).isSuccess());
    }
    Outputs answered;
    if (written(answerer.answerOffer(description, answered.stream, answered.body), answered)) {
        REQUIRE(printable(answerer.preconditions()));
    }
    std::string offer;
    if (offerer.createOffer(offer).isFailure()) return;
    REQUIRE(isBody(offer) && reads(offer));
    Outputs accepted;
    const sdp::Result acceptance = offerer.acceptAnswer(description, accepted.stream);
    REQUIRE(sdp::isPrintable(acceptance.format()) &&
            (acceptance.isSuccess() || accepted.untouched()));
    REQUIRE(printable(offerer.preconditions()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const size_t split = std::min(input.rfind('\0'), size);
    const std::string description = input.substr(0, split);
    FuzzedDataProvider in(data + split, size - split);
    const StreamCapabilities local = localCapabilities(in);
    const char* const addresses[] = {"192.0.2.1", "2001:db8::1", "192.0.2.300"};
    const std::string localIp = addresses[in.ConsumeBool() ? in.ConsumeIntegralInRange(1, 2) : 0];
    const int localPort = in.ConsumeBool() ? in.ConsumeIntegral<int>() : 49150;
    const sdp::Origin origin{"-", in.ConsumeIntegral<uint64_t>(), in.ConsumeIntegral<uint64_t>()};

    readAndWrite(description);

    Outputs answered;
    written(sdp::answerOffer(description, local, localIp, localPort, origin, answered.stream,
                             answered.body),
            answered);

    static const std::string kDefaultOffer = [] {
        std::string offer;
        (void)sdp::createOffer(tools::defaultCapabilities(), "192.0.2.1", 49150, sdp::Origin(),
                               offer);
        return offer;
    }();
    Outputs accepted;
    const sdp::Result acceptance = sdp::acceptAnswer(kDefaultOffer, description, accepted.stream);
    REQUIRE(sdp::isPrintable(acceptance.format()) &&
            (acceptance.isSuccess() || accepted.untouched()));

    velmora::fuzz::driveSession(description, in, local, localIp, localPort, origin);
    inDialogs(description, local, in);

    Outputs offered;
    if (!written(sdp::createOffer(local, localIp, localPort, origin, offered.body), offered)) {
        return 0;
    }
    Outputs answer;
    if (written(sdp::answerOffer(offered.body, local, localIp, localPort, origin, answer.stream,
                                 answer.body),
                answer)) {
        StreamConfig negotiated;
        REQUIRE(sdp::acceptAnswer(offered.body, answer.body, negotiated).isSuccess());
    }
    return 0;
}
