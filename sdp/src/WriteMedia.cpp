// Writing the local media description of a StreamConfig.
#include <velmora/rune/Amr.h>
#include <velmora/rune/sdp/Sdp.h>

#include "LineWriter.h"
#include "WriteMedia.h"

#include <sstream>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// Every mode of the band, ascending: what a missing mode-set means.
bool isEveryMode(const AmrCodecConfig& amr) {
    const std::vector<AmrRate>& rates = amr.getSupportedAmrRates();
    const size_t modes = amr.getBandType() == BandTypeNb ? 8 : 9;
    if (rates.size() != modes) {
        return false;
    }
    for (size_t i = 0; i < modes; ++i) {
        if (rates[i] != static_cast<AmrRate>(i)) {
            return false;
        }
    }
    return true;
}

// RFC 4867 section 8.1. max-red is always written, so an AMR format always has its fmtp.
std::string amrParameters(const AmrCodecConfig& amr) {
    std::ostringstream text;
    const std::vector<AmrRate>& rates = amr.getSupportedAmrRates();
    if (!rates.empty() && !isEveryMode(amr)) {
        text << "mode-set=";
        for (size_t i = 0; i < rates.size(); ++i) {
            text << (i == 0 ? "" : ",") << rates[i];
        }
        text << "; ";
    }
    if (amr.isOctetAlignModeEnabled()) {
        text << "octet-align=1; ";
    }
    if (amr.getModeChangePeriod() == ModeChangePeriodEveryOtherFrame) {
        text << "mode-change-period=2; ";
    }
    if (amr.isModeChangeNeighborEnabled()) {
        text << "mode-change-neighbor=1; ";
    }
    if (amr.isCrcModeEnabled()) {
        text << "crc=1; ";
    }
    if (amr.isRobustSortingModeEnabled()) {
        text << "robust-sorting=1; ";
    }
    // The model keeps no group size.
    if (amr.isInterleavingModeEnabled()) {
        text << "interleaving=1; ";
    }
    text << "max-red=" << (amr.isRdcyModeEnabled() ? amr.getMaxRdcy() : 0);
    return text.str();
}

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

}  // namespace

std::string writeMedia(const StreamConfig& stream, const std::string& localIp, int localPort,
                       const AmrParametersText& parameters) {
    const std::vector<const CodecConfig*> codecs = listedCodecs(stream);
    const RtcpConfig& rtcp = stream.getRtcpConfig();
    const bool rtcpOn = stream.isRtcpEnabled();
    MediaWriter writer;
    writer.media(localPort, stream.getRtpProfile(), codecs);
    writer.connection(localIp);
    writer.bandwidth("AS", rtcp.getAs());
    writer.bandwidth("RS", rtcpOn ? rtcp.getRs() : 0);
    writer.bandwidth("RR", rtcpOn ? rtcp.getRr() : 0);
    for (const CodecConfig* codec : codecs) {
        writer.rtpmap(*codec);
        if (const auto* amr = dynamic_cast<const AmrCodecConfig*>(codec)) {
            writer.fmtp(codec->getPayloadType(), parameters(*amr));
        }
    }
    if (!codecs.empty()) {
        writer.attribute("ptime", std::to_string(codecs.front()->getPacketTime()));
        writer.attribute("maxptime", std::to_string(codecs.front()->getMaxPacketTime()));
    }
    writer.direction(stream.getDirection());
    if (rtcp.isReducedSizeMode()) {
        writer.attribute("rtcp-rsize");
    }
    return writer.text();
}

std::string writeMediaDescription(const StreamConfig& stream, const std::string& localIp,
                                  int localPort) {
    return writeMedia(stream, localIp, localPort, amrParameters);
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
