// Reads its input as a remote session description. Whatever the bytes, reading either refuses
// with a line-naming result or gives a stream; a stream with codecs is written back out as this
// side's media description, and the other party reads it to the same codecs, AS, reduced size
// and profile, with the direction mirrored. The input is also answered as an offer with the
// local capabilities of rune-sdp answer; an answer reads back to the negotiated codecs, but for
// the mode changes, with the direction mirrored.
#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Sdp.h>

#include "Require.h"

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

using velmora::rune::AmrCodecCapabilities;
using velmora::rune::AmrCodecConfig;
using velmora::rune::AmrRate;
using velmora::rune::BandType;
using velmora::rune::CodecConfig;
using velmora::rune::DtmfCodecCapabilities;
using velmora::rune::StreamCapabilities;
using velmora::rune::StreamConfig;
namespace sdp = velmora::rune::sdp;

const char* const kSession = "v=0\r\no=- 0 0 IN IP4 192.0.2.1\r\ns=-\r\nt=0 0\r\n";

// The codecs a media description lists: the downlink ones, else the uplink ones.
std::vector<const CodecConfig*> listedCodecs(const StreamConfig& stream) {
    std::vector<const CodecConfig*> codecs;
    const bool downlink = stream.getDownlinkCodecCount() > 0;
    const unsigned int count =
        downlink ? stream.getDownlinkCodecCount() : stream.getUplinkCodecCount();
    for (unsigned int i = 0; i < count; ++i) {
        codecs.push_back(downlink ? stream.getDownlinkCodec(i) : stream.getUplinkCodec(i));
    }
    return codecs;
}

StreamConfig::Direction mirrored(StreamConfig::Direction direction) {
    return direction == StreamConfig::DirectionSendOnly      ? StreamConfig::DirectionReceiveOnly
           : direction == StreamConfig::DirectionReceiveOnly ? StreamConfig::DirectionSendOnly
                                                             : direction;
}

// Those of rune-sdp answer: AMR-WB and AMR supporting every mode, telephone-event for both
// bands, RTP/AVP and RTP/AVPF, the default RTCP values.
StreamCapabilities localCapabilities() {
    StreamCapabilities local;
    for (BandType band : {velmora::rune::BandTypeWb, velmora::rune::BandTypeNb}) {
        AmrCodecCapabilities amr;
        amr.setBandType(band);
        for (int mode = 0; mode <= (band == velmora::rune::BandTypeNb ? 7 : 8); ++mode) {
            (void)amr.addSupportedAmrRate(static_cast<AmrRate>(mode));
        }
        local.addCodecCapabilities(amr);
    }
    DtmfCodecCapabilities events;
    local.addCodecCapabilities(events);
    events.setBandType(velmora::rune::BandTypeNb);
    local.addCodecCapabilities(events);
    local.addRtpProfile(velmora::rune::RtpProfileAvp);
    local.addRtpProfile(velmora::rune::RtpProfileAvpf);
    return local;
}

void answer(const std::string& offer) {
    static const StreamCapabilities local = localCapabilities();
    StreamConfig negotiated;
    std::string media;
    const sdp::Result answered =
        sdp::answerOffer(offer, local, "192.0.2.1", 49150, sdp::Origin(), negotiated, media);
    if (answered.isFailure()) {
        REQUIRE(!answered.mContext.empty() || answered.mMessage == "No audio stream" ||
                answered.mMessage == "Description must start with v=0");
        return;
    }
    // check() changes nothing, so asking twice gives the same.
    REQUIRE(negotiated.check().format() == negotiated.check().format());

    StreamConfig read;
    std::vector<sdp::SkippedFormat> skipped;
    REQUIRE(sdp::readRemoteDescription(kSession + media, read, skipped).isSuccess());
    REQUIRE(skipped.empty());
    const std::vector<const CodecConfig*> codecs = listedCodecs(negotiated);
    const std::vector<const CodecConfig*> codecsRead = listedCodecs(read);
    REQUIRE(!codecs.empty() && codecsRead.size() == codecs.size());
    for (size_t i = 0; i < codecs.size(); ++i) {
        // The answer carries this side's mode changes, the negotiated codec the offer's.
        const std::unique_ptr<CodecConfig> codecRead(codecsRead[i]->clone());
        const auto* amr = dynamic_cast<const AmrCodecConfig*>(codecs[i]);
        if (auto* amrRead = dynamic_cast<AmrCodecConfig*>(codecRead.get()); amr && amrRead) {
            amrRead->setModeChangePeriod(amr->getModeChangePeriod());
            amrRead->setModeChangeNeighbor(amr->isModeChangeNeighborEnabled());
        }
        REQUIRE(codecRead->toString() == codecs[i]->toString());
    }
    REQUIRE(read.getDirection() == mirrored(negotiated.getDirection()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string description(reinterpret_cast<const char*>(data), size);
    answer(description);
    StreamConfig stream;
    std::vector<sdp::SkippedFormat> skipped;
    const sdp::Result read = sdp::readRemoteDescription(description, stream, skipped);
    if (read.isFailure()) {
        // Only these two have no line to name.
        REQUIRE(!read.mContext.empty() || read.mMessage == "No audio stream" ||
                read.mMessage == "Description must start with v=0");
        return 0;
    }
    // A stream that reads may still fail its check; both must be safe to ask for.
    const StreamConfig::Result checked = stream.check();
    REQUIRE(!checked.format().empty() && !stream.toString().empty());

    const std::vector<const CodecConfig*> codecs = listedCodecs(stream);
    if (codecs.empty()) {
        // An m= line without formats is not a description; nothing to read back.
        return 0;
    }
    const std::string media =
        sdp::writeMediaDescription(stream, stream.getRemoteIp(), stream.getRemoteRtpPort());
    StreamConfig again;
    std::vector<sdp::SkippedFormat> skippedAgain;
    REQUIRE(sdp::readRemoteDescription(kSession + media, again, skippedAgain).isSuccess());
    REQUIRE(skippedAgain.empty());

    const std::vector<const CodecConfig*> codecsAgain = listedCodecs(again);
    REQUIRE(codecsAgain.size() == codecs.size());
    for (size_t i = 0; i < codecs.size(); ++i) {
        REQUIRE(codecsAgain[i]->toString() == codecs[i]->toString());
    }
    REQUIRE(again.getDirection() == mirrored(stream.getDirection()));
    REQUIRE(again.getRemoteIp() == stream.getRemoteIp());
    REQUIRE(again.getRemoteRtpPort() == stream.getRemoteRtpPort());
    REQUIRE(again.getRtpProfile() == stream.getRtpProfile());
    REQUIRE(again.getRtcpConfig().getAs() == stream.getRtcpConfig().getAs());
    REQUIRE(again.getRtcpConfig().isReducedSizeMode() ==
            stream.getRtcpConfig().isReducedSizeMode());
    return 0;
}
