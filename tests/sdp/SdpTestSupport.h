// Descriptions as text, and the codecs, capabilities and streams the tests of runesdp expect.
#ifndef VELMORA_TESTS_SDP_SDP_TEST_SUPPORT_H
#define VELMORA_TESTS_SDP_SDP_TEST_SUPPORT_H

#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Sdp.h>

#include "DataText.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <ostream>
#include <string>
#include <vector>

namespace velmora {
namespace testing {

using namespace rune;

// message, followed by the context of line number of text, as format() writes it; textName
// ("offer ", "answer ") names the text where an operation reads two.
std::string refusal(const std::string& message, const std::string& text, int number,
                    const std::string& textName = "");

struct Case {
    // The result's format().
    std::string expected;
    std::string text;
};

// The cases of tests/sdp/data/name (the form is described in read-refusals.txt there); textName
// as refusal() takes it.
std::vector<Case> dataCases(const std::string& name, const std::string& textName = "");

// GStreamer reads body (a whole description, or a media section after a session header) as the
// same fields, in the same order. Does nothing on builds without GStreamer.
void expectOthersReadAlike(const std::string& body);

// The lines, each ended by CRLF.
inline std::string sdpText(std::initializer_list<const char*> lines) {
    std::string text;
    for (const char* line : lines) text.append(line).append("\r\n");
    return text;
}

// An offer from 192.0.2.1 whose m= line, the first of media, is line 6.
inline std::string offer(std::initializer_list<const char*> media) {
    return sdpText({"v=0", "o=- 7 7 IN IP4 192.0.2.1", "s=-", "c=IN IP4 192.0.2.1", "t=0 0"}) +
           sdpText(media);
}

// Local endpoints the model refuses, and its refusal: text after an address, and a privileged
// port (UtilsTest pins the bounds).
struct BadEndpoint {
    const char* ip;
    int port;
    const char* refusal;
};
const BadEndpoint kBadEndpoints[] = {
    {"1.2.3.4\r\na=injected", 49152,
     "Invalid Param (Code 1002): Invalid internet address : 1.2.3.4\r\na=injected"},
    {"192.0.2.10", 1023, "Invalid Param (Code 1002): Invalid socket port: 1023"},
};

// Origins whose username cannot be written (empty, with a blank or a control byte), and their
// refusal.
const sdp::Origin kBadOrigins[] = {{"", 1, 1}, {"a b", 1, 1}, {"a\tb", 1, 1}, {"a\x7f", 1, 1}};
const char* const kBadOrigin = "Invalid Param (Code 1002): Bad origin username";

// The AMR options an AmrCodecConfig may have on, besides redundancy.
const int kOctetAlign = 1, kCrc = 2, kRobustSorting = 4, kInterleaving = 8, kPeriodTwo = 16;
const int kNeighbor = 32, kEveryOption = 63;

// The rates in order; the options of the mask on; redundancy on when maxRed is not 0.
inline AmrCodecConfig amrCodec(BandType band, int payloadType, std::vector<int> rates,
                               int options = 0, int maxRed = 0) {
    AmrCodecConfig amr;
    EXPECT_TRUE(amr.setBandType(band).isSuccess());
    amr.setPayloadType(payloadType);
    for (int rate : rates) EXPECT_TRUE(amr.addAmrRate(static_cast<AmrRate>(rate)).isSuccess());
    amr.setOctetAlignMode((options & kOctetAlign) != 0);
    amr.setCrcMode((options & kCrc) != 0);
    amr.setRobustSortingMode((options & kRobustSorting) != 0);
    amr.setInterleavingMode((options & kInterleaving) != 0);
    amr.setModeChangePeriod((options & kPeriodTwo) != 0 ? ModeChangePeriodEveryOtherFrame
                                                        : ModeChangePeriodAnyFrame);
    amr.setModeChangeNeighbor((options & kNeighbor) != 0);
    amr.setRdcyMode(maxRed != 0);
    amr.setMaxRdcy(maxRed != 0 ? maxRed : amr.getMaxRdcy());
    return amr;
}

inline DtmfCodecConfig dtmfCodec(BandType band, int payloadType) {
    DtmfCodecConfig dtmf;
    EXPECT_TRUE(dtmf.setBandType(band).isSuccess());
    dtmf.setPayloadType(payloadType);
    return dtmf;
}

// A stream with the codecs where the reader places them: on each active direction, on the
// downlink when neither is active.
inline StreamConfig placedStream(const std::string& ip, int port, StreamConfig::Direction direction,
                                 const std::vector<const CodecConfig*>& codecs,
                                 const RtcpConfig& rtcp = RtcpConfig()) {
    StreamConfig stream;
    EXPECT_TRUE(stream.setRemoteIp(ip).isSuccess());
    EXPECT_TRUE(stream.setRemoteRtpPort(port).isSuccess());
    EXPECT_TRUE(stream.setDirection(direction).isSuccess());
    for (const CodecConfig* codec : codecs) {
        EXPECT_TRUE(!stream.hasUplink() || stream.addUplinkCodec(*codec).isSuccess());
        EXPECT_TRUE((stream.hasUplink() && !stream.hasDownlink()) ||
                    stream.addDownlinkCodec(*codec).isSuccess());
    }
    stream.setRtcpConfig(rtcp);
    return stream;
}

typedef StreamConfig::Direction Direction;
const Direction kInactive = StreamConfig::DirectionInactive;
const Direction kSendOnly = StreamConfig::DirectionSendOnly;
const Direction kRecvOnly = StreamConfig::DirectionReceiveOnly;
const Direction kSendRecv = StreamConfig::DirectionFullDuplex;

// The direction of the other side.
inline Direction mirrored(Direction direction) {
    return direction == kSendOnly ? kRecvOnly : direction == kRecvOnly ? kSendOnly : direction;
}

// The codecs of the list that has them, each as " payload type/clock rate".
inline std::string codecsSeen(const StreamConfig& stream) {
    const bool downlink = stream.getDownlinkCodecCount() > 0;
    std::string out;
    for (unsigned int i = 0;
         i < (downlink ? stream.getDownlinkCodecCount() : stream.getUplinkCodecCount()); ++i) {
        const CodecConfig& codec =
            *(downlink ? stream.getDownlinkCodec(i) : stream.getUplinkCodec(i));
        out += " " + std::to_string(codec.getPayloadType()) +
               (codec.getBandType() == BandTypeWb ? "/16000" : "/8000");
    }
    return out;
}

// Listing no mode supports every mode.
inline AmrCodecCapabilities amrCaps(BandType band, std::vector<int> modes = {}) {
    AmrCodecCapabilities amr;
    amr.setBandType(band);
    for (int mode : modes)
        EXPECT_TRUE(amr.addSupportedAmrRate(static_cast<AmrRate>(mode)).isSuccess());
    return amr;
}

// A phone's: two AMR capabilities (AMR-WB, then AMR), and telephone-event for both bands or the
// narrow one only.
inline StreamCapabilities phoneCaps(const AmrCodecCapabilities& first,
                                    const AmrCodecCapabilities& second,
                                    std::vector<RtpProfile> profiles = {RtpProfileAvp,
                                                                        RtpProfileAvpf},
                                    RtcpConfig rtcp = RtcpConfig(), bool wideEvents = true) {
    StreamCapabilities local;
    local.addCodecCapabilities(first);
    local.addCodecCapabilities(second);
    DtmfCodecCapabilities events;
    if (wideEvents) {
        local.addCodecCapabilities(events);
    }
    events.setBandType(BandTypeNb);
    local.addCodecCapabilities(events);
    for (RtpProfile profile : profiles) {
        local.addRtpProfile(profile);
    }
    local.setRtcpCaps(rtcp);
    return local;
}

// Both bands, every mode, both profiles, default RTCP.
inline StreamCapabilities anyAmr() {
    return phoneCaps(amrCaps(BandTypeWb), amrCaps(BandTypeNb));
}

// A capability class of the library as an application may extend it.
template <typename Base>
struct Extended : Base {
    explicit Extended(const Base& base) : Base(base) {}
    Extended* clone() const override { return new Extended(*this); }
};

// anyAmr() of extended classes: offered and answered as anyAmr() is.
inline StreamCapabilities extendedAnyAmr() {
    StreamCapabilities local;
    for (int i = 0; i < 2; ++i) {
        const BandType band = i == 0 ? BandTypeWb : BandTypeNb;
        local.addCodecCapabilities(Extended<AmrCodecCapabilities>(amrCaps(band)));
    }
    DtmfCodecCapabilities events;
    local.addCodecCapabilities(Extended<DtmfCodecCapabilities>(events));
    events.setBandType(BandTypeNb);
    local.addCodecCapabilities(Extended<DtmfCodecCapabilities>(events));
    local.addRtpProfile(RtpProfileAvp);
    local.addRtpProfile(RtpProfileAvpf);
    return local;
}

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
