// Descriptions as text, and the codecs and streams the tests of runesdp expect.
#ifndef VELMORA_TESTS_SDP_SDP_TEST_SUPPORT_H
#define VELMORA_TESTS_SDP_SDP_TEST_SUPPORT_H

#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamConfig.h>

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
        text += line;
        text += lineEnd;
    }
    return text;
}

// Default options; the rates in order, or every mode of the band when none are given.
inline rune::AmrCodecConfig amrCodec(rune::BandType band, int payloadType,
                                     std::vector<int> rates = {}) {
    rune::AmrCodecConfig amr;
    EXPECT_TRUE(amr.setBandType(band).isSuccess());
    amr.setPayloadType(payloadType);
    if (rates.empty()) {
        for (int rate = 0; rate <= (band == rune::BandTypeNb ? 7 : 8); ++rate) {
            rates.push_back(rate);
        }
    }
    for (int rate : rates) {
        EXPECT_TRUE(amr.addAmrRate(static_cast<rune::AmrRate>(rate)).isSuccess());
    }
    return amr;
}

inline rune::DtmfCodecConfig dtmfCodec(rune::BandType band, int payloadType) {
    rune::DtmfCodecConfig dtmf;
    EXPECT_TRUE(dtmf.setBandType(band).isSuccess());
    dtmf.setPayloadType(payloadType);
    return dtmf;
}

// A stream with the codecs where the reader places them: on each active direction, on the
// downlink when neither is active.
inline rune::StreamConfig placedStream(const std::string& ip, int port,
                                       rune::StreamConfig::Direction direction,
                                       const std::vector<const rune::CodecConfig*>& codecs) {
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
    return stream;
}

}  // namespace testing
}  // namespace velmora

#endif  // VELMORA_TESTS_SDP_SDP_TEST_SUPPORT_H
