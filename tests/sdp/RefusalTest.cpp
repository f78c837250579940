#include <velmora/rune/sdp/Sdp.h>

#include "SdpTestSupport.h"

#include <gtest/gtest.h>

using namespace velmora::rune;
using velmora::testing::sdpText;

namespace {

// Lines 1 to 5; the m= line of each case is line 6.
const std::string kHead =
    sdpText({"v=0", "o=- 7 7 IN IP4 192.0.2.1", "s=-", "c=IN IP4 192.0.2.1", "t=0 0"});
const std::string kHeadWithoutAddress =
    sdpText({"v=0", "o=- 7 7 IN IP4 192.0.2.1", "s=-", "i=No address", "t=0 0"});

// An AMR format whose fmtp is line 8.
std::string withFmtp(const char* fmtp) {
    return kHead + sdpText({"m=audio 49152 RTP/AVP 97", "a=rtpmap:97 AMR/8000", fmtp});
}

struct RefusalCase {
    const char* name;
    std::string description;
    const char* expected;
};

const RefusalCase kRefusals[] = {
    {"NotStartingWithVersion", sdpText({"o=- 7 7 IN IP4 192.0.2.1", "v=0"}),
     "Invalid Param (Code 1002): Description must start with v=0 "
     "{line 1: o=- 7 7 IN IP4 192.0.2.1}"},
    {"Empty", "\r\n\r\n", "Invalid Param (Code 1002): Description must start with v=0"},
    {"BadLine", kHead + sdpText({"m=audio 49152 RTP/AVP 97", "rtpmap:97 AMR/8000"}),
     "Invalid Param (Code 1002): Bad line {line 7: rtpmap:97 AMR/8000}"},
    {"MediaLineTooShort", kHead + sdpText({"m=audio 49152 RTP/AVP"}),
     "Invalid Param (Code 1002): Bad media line {line 6: m=audio 49152 RTP/AVP}"},
    {"UnreadablePort", kHead + sdpText({"m=audio 4915x RTP/AVP 97"}),
     "Invalid Param (Code 1002): Bad media line {line 6: m=audio 4915x RTP/AVP 97}"},
    {"PayloadTypeOutOfRange", kHead + sdpText({"m=audio 49152 RTP/AVP 97 128"}),
     "Invalid Param (Code 1002): Bad payload type: 128 {line 6: m=audio 49152 RTP/AVP 97 128}"},
    {"RepeatedPayloadType", kHead + sdpText({"m=audio 49152 RTP/AVP 97 101 97"}),
     "Invalid Param (Code 1002): A codec with the same payload type 97 is already present "
     "{line 6: m=audio 49152 RTP/AVP 97 101 97}"},
    {"BadConnection", kHead + sdpText({"m=audio 49152 RTP/AVP 97", "c=IN IP4"}),
     "Invalid Param (Code 1002): Bad connection line {line 7: c=IN IP4}"},
    {"BadBandwidth", kHead + sdpText({"m=audio 49152 RTP/AVP 97", "b=AS:64k"}),
     "Invalid Param (Code 1002): Bad bandwidth value: AS:64k {line 7: b=AS:64k}"},
    {"BadPacketTime", kHead + sdpText({"m=audio 49152 RTP/AVP 97", "a=maxptime:240ms"}),
     "Invalid Param (Code 1002): Bad packet time: 240ms {line 7: a=maxptime:240ms}"},
    {"BadFlag", withFmtp("a=fmtp:97 Octet-Align=2"),
     "Invalid Param (Code 1002): Bad fmtp value: Octet-Align=2 {line 8: a=fmtp:97 Octet-Align=2}"},
    {"BadModeSet", withFmtp("a=fmtp:97 mode-set=0, 2,x"),
     "Invalid Param (Code 1002): Bad fmtp value: mode-set=0, 2,x "
     "{line 8: a=fmtp:97 mode-set=0, 2,x}"},
    {"RedundancyOutOfRange", withFmtp("a=fmtp:97 max-red=65536"),
     "Invalid Param (Code 1002): Bad fmtp value: max-red=65536 {line 8: a=fmtp:97 max-red=65536}"},
    {"InterleavingOutOfRange", withFmtp("a=fmtp:97 interleaving=4294967296"),
     "Invalid Param (Code 1002): Bad fmtp value: interleaving=4294967296 "
     "{line 8: a=fmtp:97 interleaving=4294967296}"},
    {"ModeChangePeriodOutOfRange", withFmtp("a=fmtp:97 mode-change-period=0"),
     "Invalid Param (Code 1002): Bad fmtp value: mode-change-period=0 "
     "{line 8: a=fmtp:97 mode-change-period=0}"},
    {"BadAmrRate",
     kHead + sdpText({"m=audio 49152 RTP/AVP 98 97 101", "a=rtpmap:98 AMR-WB/16000/1",
                      "a=fmtp:98 mode-set=2", "a=rtpmap:97 AMR/8000/1",
                      "a=rtpmap:101 telephone-event/8000", "a=ptime:20", "a=fmtp:97 mode-set=0,9"}),
     "Invalid Param (Code 1002): Bad amr rate: 9 {line 12: a=fmtp:97 mode-set=0,9}"},
    {"HugeAmrRate", withFmtp("a=fmtp:97 mode-set=0099999999999"),
     "Invalid Param (Code 1002): Bad amr rate: 99999999999 "
     "{line 8: a=fmtp:97 mode-set=0099999999999}"},
    {"UnsupportedTransport", kHead + sdpText({"m=audio 49152 RTP/SAVP 97"}),
     "Invalid Param (Code 1002): Unsupported transport: RTP/SAVP "
     "{line 6: m=audio 49152 RTP/SAVP 97}"},
    {"NoAudioStream", kHead + sdpText({"m=audio 0 RTP/AVP 97", "m=video 49154 RTP/AVP 99"}),
     "Invalid Configuration (Code 1003): No audio stream"},
    {"NoConnectionAddress", kHeadWithoutAddress + sdpText({"m=audio 49152 RTP/AVP 97"}),
     "Invalid Configuration (Code 1003): No connection address "
     "{line 6: m=audio 49152 RTP/AVP 97}"},
    {"PortRefusedByModel", kHead + sdpText({"m=audio 80 RTP/AVP 97"}),
     "Invalid Param (Code 1002): Invalid socket port: 80 {line 6: m=audio 80 RTP/AVP 97}"},
    {"AddressRefusedByModel",
     kHead + sdpText({"m=audio 49152 RTP/AVP 97", "c=IN IP4 pbx.example.com"}),
     "Invalid Param (Code 1002): Invalid internet address : pbx.example.com "
     "{line 7: c=IN IP4 pbx.example.com}"},
    // The documented order: line syntax first, then port, transport, payload types, address,
    // fmtp values in m= order, packet times in line order.
    {"SyntaxBeforeStream",
     kHead + sdpText({"m=audio 80 RTP/AVP 97", "m=video 49154 RTP/AVP 99", "b=AS"}),
     "Invalid Param (Code 1002): Bad bandwidth value: AS {line 8: b=AS}"},
    {"PortBeforeTransport", kHead + sdpText({"m=audio 80 RTP/SAVP 97"}),
     "Invalid Param (Code 1002): Invalid socket port: 80 {line 6: m=audio 80 RTP/SAVP 97}"},
    {"TransportBeforePayloadTypes", kHead + sdpText({"m=audio 49152 UDP/TLS/RTP/SAVP 97 97"}),
     "Invalid Param (Code 1002): Unsupported transport: UDP/TLS/RTP/SAVP "
     "{line 6: m=audio 49152 UDP/TLS/RTP/SAVP 97 97}"},
    {"PayloadTypesBeforeAddress", kHeadWithoutAddress + sdpText({"m=audio 49152 RTP/AVP 97 x"}),
     "Invalid Param (Code 1002): Bad payload type: x {line 6: m=audio 49152 RTP/AVP 97 x}"},
    {"AddressBeforeFmtp",
     kHead + sdpText({"m=audio 49152 RTP/AVP 97", "a=rtpmap:97 AMR/8000", "a=fmtp:97 crc=2",
                      "c=IN IP6 ::ffff:1.2.3"}),
     "Invalid Param (Code 1002): Invalid internet address : ::ffff:1.2.3 "
     "{line 9: c=IN IP6 ::ffff:1.2.3}"},
    {"FmtpInMediaLineOrder",
     kHead + sdpText({"m=audio 49152 RTP/AVP 97 98", "a=rtpmap:98 AMR-WB/16000", "a=fmtp:98 crc=2",
                      "a=rtpmap:97 AMR/8000", "a=fmtp:97 robust-sorting=2"}),
     "Invalid Param (Code 1002): Bad fmtp value: robust-sorting=2 "
     "{line 10: a=fmtp:97 robust-sorting=2}"},
    {"FmtpBeforePacketTimes",
     kHead + sdpText({"m=audio 49152 RTP/AVP 97", "a=ptime:x", "a=rtpmap:97 AMR/8000",
                      "a=fmtp:97 mode-change-neighbor=yes"}),
     "Invalid Param (Code 1002): Bad fmtp value: mode-change-neighbor=yes "
     "{line 9: a=fmtp:97 mode-change-neighbor=yes}"},
    {"PacketTimesInLineOrder",
     kHead + sdpText({"m=audio 49152 RTP/AVP 97", "a=maxptime:-1", "a=ptime:20.5"}),
     "Invalid Param (Code 1002): Bad packet time: -1 {line 7: a=maxptime:-1}"},
};

TEST(SdpRefusalTest, RefusesWithTheLine) {
    for (const RefusalCase& row : kRefusals) {
        SCOPED_TRACE(row.name);
        StreamConfig stream;
        std::vector<sdp::SkippedFormat> skipped;
        EXPECT_EQ(row.expected,
                  sdp::readRemoteDescription(row.description, stream, skipped).format());
    }
}

// Lines the stream does not use are not read beyond their syntax.
TEST(SdpRefusalTest, ToleratesWhatTheStreamDoesNotRead) {
    const std::string description =
        sdpText({"v=0", "o=- 7 7 IN IP4 192.0.2.1", "s=-", "c=IN IP4 192.0.2.1", "t=0 0",
                 "a=ptime:soon", "b=TIAS:64000", "m=audio 49152 RTP/AVP 97 101 0", "b=CT:128",
                 "a=rtpmap:97 AMR/8000", "a=rtpmap:101 telephone-event/8000", "a=fmtp:101 0-15",
                 "a=fmtp:0 annexb=perhaps", "a=fmtp:x mode-set=9", "a=rtpmap:y AMR/8000",
                 "a=fmtp:97 mode-change-capability=3; x-vendor", "m=video 49154 RTP/AVP 99",
                 "a=ptime:later", "a=fmtp:99 octet-align=7"});
    StreamConfig stream;
    std::vector<sdp::SkippedFormat> skipped;
    EXPECT_EQ("Success", sdp::readRemoteDescription(description, stream, skipped).format());
}

}  // namespace
