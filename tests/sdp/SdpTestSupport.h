// Descriptions as text, and the codecs and streams the tests of runesdp expect.
#ifndef VELMORA_TESTS_SDP_SDP_TEST_SUPPORT_H
#define VELMORA_TESTS_SDP_SDP_TEST_SUPPORT_H

#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Sdp.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace velmora {
namespace testing {

// The lines, each ended by lineEnd.
inline std::string sdpText(std::initializer_list<const char*> lines, const char* lineEnd = "\r\n") {
    std::string text;
    for (const char* line : lines) {
        text.append(line).append(lineEnd);
    }
    return text;
}

// An offer from 192.0.2.1 whose m= line, the first of media, is line 6.
inline std::string offer(std::initializer_list<const char*> media) {
    return sdpText({"v=0", "o=- 7 7 IN IP4 192.0.2.1", "s=-", "c=IN IP4 192.0.2.1", "t=0 0"}) +
           sdpText(media);
}

// The AMR options an AmrCodecConfig may have on, besides redundancy.
const int kOctetAlign = 1, kCrc = 2, kRobustSorting = 4, kInterleaving = 8, kPeriodTwo = 16;
const int kNeighbor = 32, kEveryOption = 63;

// The rates in order, or every mode of the band when none are given; the options of the mask
// on; redundancy on when maxRed is not 0.
inline rune::AmrCodecConfig amrCodec(rune::BandType band, int payloadType,
                                     std::vector<int> rates = {}, int options = 0, int maxRed = 0) {
    rune::AmrCodecConfig amr;
    EXPECT_TRUE(amr.setBandType(band).isSuccess());
    amr.setPayloadType(payloadType);
    for (int rate = 0; rates.empty() && rate <= (band == rune::BandTypeNb ? 7 : 8); ++rate) {
        EXPECT_TRUE(amr.addAmrRate(static_cast<rune::AmrRate>(rate)).isSuccess());
    }
    for (int rate : rates) {
        EXPECT_TRUE(amr.addAmrRate(static_cast<rune::AmrRate>(rate)).isSuccess());
    }
    amr.setOctetAlignMode((options & kOctetAlign) != 0);
    amr.setCrcMode((options & kCrc) != 0);
    amr.setRobustSortingMode((options & kRobustSorting) != 0);
    amr.setInterleavingMode((options & kInterleaving) != 0);
    amr.setModeChangePeriod((options & kPeriodTwo) != 0 ? rune::ModeChangePeriodEveryOtherFrame
                                                        : rune::ModeChangePeriodAnyFrame);
    amr.setModeChangeNeighbor((options & kNeighbor) != 0);
    if (maxRed != 0) {
        amr.setRdcyMode(true);
        amr.setMaxRdcy(maxRed);
    }
    return amr;
}

inline rune::DtmfCodecConfig dtmfCodec(rune::BandType band, int payloadType) {
    rune::DtmfCodecConfig dtmf;
    EXPECT_TRUE(dtmf.setBandType(band).isSuccess());
    dtmf.setPayloadType(payloadType);
    return dtmf;
}

// Both packet times of every codec.
inline void setPacketTimes(const std::vector<rune::CodecConfig*>& codecs, unsigned int packetTime,
                           unsigned int maxPacketTime) {
    for (rune::CodecConfig* codec : codecs) {
        codec->setPacketTime(packetTime);
        codec->setMaxPacketTime(maxPacketTime);
    }
}

// A stream with the codecs where the reader places them: on each active direction, on the
// downlink when neither is active.
inline rune::StreamConfig placedStream(const std::string& ip, int port,
                                       rune::StreamConfig::Direction direction,
                                       const std::vector<const rune::CodecConfig*>& codecs,
                                       const rune::RtcpConfig& rtcp = rune::RtcpConfig()) {
    rune::StreamConfig stream;
    EXPECT_TRUE(stream.setRemoteIp(ip).isSuccess());
    EXPECT_TRUE(stream.setRemoteRtpPort(port).isSuccess());
    EXPECT_TRUE(stream.setDirection(direction).isSuccess());
    for (const rune::CodecConfig* codec : codecs) {
        if (stream.hasUplink()) {
            EXPECT_TRUE(stream.addUplinkCodec(*codec).isSuccess());
        }
        if (stream.hasDownlink() || !stream.hasUplink()) {
            EXPECT_TRUE(stream.addDownlinkCodec(*codec).isSuccess());
        }
    }
    stream.setRtcpConfig(rtcp);
    return stream;
}

}  // namespace testing
}  // namespace velmora

#endif  // VELMORA_TESTS_SDP_SDP_TEST_SUPPORT_H
