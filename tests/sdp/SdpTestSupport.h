// Descriptions as text, and the codecs, capabilities and streams the tests of runesdp expect.
#ifndef VELMORA_TESTS_SDP_SDP_TEST_SUPPORT_H
#define VELMORA_TESTS_SDP_SDP_TEST_SUPPORT_H

#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Sdp.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <ostream>
#include <string>
#include <vector>

namespace velmora {
namespace testing {

// The lines, each ended by lineEnd.
std::string sdpText(std::initializer_list<const char*> lines, const char* lineEnd = "\r\n");

// An offer from 192.0.2.1 whose m= line, the first of media, is line 6.
std::string offer(std::initializer_list<const char*> media);

// tests/sdp/data/name, its lines ended by lineEnd.
std::string dataText(const std::string& name, const char* lineEnd = "\r\n");

// message, followed by the context of line number of text (none for 0), as format() writes it.
std::string refusal(const std::string& message, const std::string& text, int number);

// GStreamer reads body (a whole description, or a media section after a session header) as the
// same fields, in the same order. Does nothing on builds without GStreamer.
void expectOthersReadAlike(const std::string& body);

// Local endpoints the model refuses, and its refusal.
struct BadEndpoint {
    const char* ip;
    int port;
    const char* refusal;
};
const BadEndpoint kBadEndpoints[] = {
    {"1.2.3.4\r\na=injected", 49152,
     "Invalid Param (Code 1002): Invalid internet address : 1.2.3.4\r\na=injected"},
    {"", 49152, "Invalid Param (Code 1002): Invalid internet address : "},
    {"192.0.2.10", -5, "Invalid Param (Code 1002): Invalid socket port: -5"},
    {"192.0.2.10", 0, "Invalid Param (Code 1002): Invalid socket port: 0"},
    {"192.0.2.10", 65536, "Invalid Param (Code 1002): Invalid socket port: 65536"},
};

// The AMR options an AmrCodecConfig may have on, besides redundancy.
const int kOctetAlign = 1, kCrc = 2, kRobustSorting = 4, kInterleaving = 8, kPeriodTwo = 16;
const int kNeighbor = 32, kEveryOption = 63;

// The rates in order, or every mode of the band when none are given; the options of the mask
// on; redundancy on when maxRed is not 0.
rune::AmrCodecConfig amrCodec(rune::BandType band, int payloadType, std::vector<int> rates = {},
                              int options = 0, int maxRed = 0);

rune::DtmfCodecConfig dtmfCodec(rune::BandType band, int payloadType);

// Both packet times of every codec.
void setPacketTimes(const std::vector<rune::CodecConfig*>& codecs, unsigned int packetTime,
                    unsigned int maxPacketTime);

// A stream with the codecs where the reader places them: on each active direction, on the
// downlink when neither is active.
rune::StreamConfig placedStream(const std::string& ip, int port,
                                rune::StreamConfig::Direction direction,
                                const std::vector<const rune::CodecConfig*>& codecs,
                                const rune::RtcpConfig& rtcp = rune::RtcpConfig());

// The direction of the other side.
rune::StreamConfig::Direction mirrored(rune::StreamConfig::Direction direction);

// Listing no mode supports every mode.
rune::AmrCodecCapabilities amrCaps(rune::BandType band, std::vector<int> modes = {});

// A phone's: AMR-WB, then AMR, and telephone-event for both bands or the narrow one only.
rune::StreamCapabilities phoneCaps(
    const rune::AmrCodecCapabilities& wide, const rune::AmrCodecCapabilities& narrow,
    std::vector<rune::RtpProfile> profiles = {rune::RtpProfileAvp, rune::RtpProfileAvpf},
    rune::RtcpConfig rtcp = rune::RtcpConfig(), bool wideEvents = true);

}  // namespace testing

namespace rune {
namespace sdp {
inline void PrintTo(const SkippedFormat& format, std::ostream* out) {
    *out << format.payloadType << " \"" << format.encoding << '"';
}
}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_TESTS_SDP_SDP_TEST_SUPPORT_H
