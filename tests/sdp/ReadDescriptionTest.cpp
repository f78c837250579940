#include "SdpTestSupport.h"

#include <functional>

using namespace velmora::rune;
using namespace velmora::testing;

namespace {

struct ReadCase {
    std::string description;
    std::function<StreamConfig()> expected;
    std::vector<sdp::SkippedFormat> skipped;
};

// Not repeated here: what the CLI's volte-offer pins (session-level c=, both AMR formats of each
// band, telephone-event at both rates), what the round trips pin (every option as written,
// RTCP off), and the blanks and case of the answer test's AVPF offer.
const ReadCase kReadCases[] = {
    // A session border controller, with LF line ends: a session-level b=RR under a media-level
    // b=AS, the media section's c= and direction before the session's; where the media section
    // repeats a line, the first counts; crc alone implies the octet-aligned format.
    {sdpText({"v=0", "o=- 8437 2 IN IP4 198.51.100.20", "s=SBC", "c=IN IP4 198.51.100.20",
              "b=RR:2000", "t=0 0", "a=sendonly"},
             "\n") +
         sdpText({"m=audio 20000 RTP/AVP 96 101", "c=IN IP4 198.51.100.21",
                  "c=IN IP4 198.51.100.22", "b=AS:30", "b=AS:50", "a=rtpmap:96 AMR/8000",
                  "a=rtpmap:96 AMR-WB/16000", "a=fmtp:96 mode-set=7; crc=1", "a=fmtp:96 mode-set=3",
                  "a=rtpmap:101 telephone-event/8000", "", "a=ptime:40", "a=ptime:60", "a=recvonly",
                  "a=sendonly"},
                 "\n"),
     [] {
         AmrCodecConfig amr = amrCodec(BandTypeNb, 96, {7}, kCrc | kOctetAlign);
         DtmfCodecConfig dtmf = dtmfCodec(BandTypeNb, 101);
         setPacketTimes({&amr, &dtmf}, 40, 240);
         return placedStream("198.51.100.21", 20000, StreamConfig::DirectionSendOnly, {&amr, &dtmf},
                             RtcpConfig(5000, 2000, 800, 30, false));
     },
     {}},
    // The first audio section is disabled; the one read has formats the model has no codec for,
    // takes the session's multicast address and direction, and what it does not use is not read
    // beyond its syntax.
    {sdpText({"v=0", "o=- 5 5 IN IP4 203.0.113.9", "s=-", "c=IN IP4 224.2.1.1/127", "b=TIAS:64000",
              "t=0 0", "a=ptime:soon", "a=rtcp-rsize", "a=inactive", "m=audio 0 RTP/AVP 0",
              "m=video 51372 RTP/AVP 99", "a=rtpmap:99 H264/90000", "a=ptime:later",
              "a=fmtp:99 octet-align=7"}) +
         sdpText({"m=audio 49170 RTP/AVP 0 8 97 98 99 100", "b=CT:128", "a=rtpmap:0 PCMU/8000",
                  "a=rtpmap:97 AMR/8000/2", "a=rtpmap:98 telephone-event/48000",
                  "a=rtpmap:y AMR/8000", "a=fmtp:100x mode-set=9", "a=rtpmap:100 AMR/8000/1",
                  "a=fmtp:100 max-red=0; robust-sorting=1; mode-change-capability=3; x-vendor",
                  "a=fmtp:98 0-15,x", "a=fmtp:0 annexb=maybe"}),
     [] {
         const AmrCodecConfig amr = amrCodec(BandTypeNb, 100, {}, kRobustSorting | kOctetAlign);
         return placedStream("224.2.1.1", 49170, StreamConfig::DirectionInactive, {&amr});
     },
     {{0, "PCMU/8000"}, {8, ""}, {97, "AMR/8000/2"}, {98, "telephone-event/48000"}, {99, ""}}},
};

TEST(SdpReaderTest, ReadsDescriptions) {
    for (const ReadCase& row : kReadCases) {
        SCOPED_TRACE(row.description);
        StreamConfig stream;
        std::vector<sdp::SkippedFormat> skipped = {{1, "left over"}};
        EXPECT_EQ("Success", sdp::readRemoteDescription(row.description, stream, skipped).format());
        EXPECT_EQ(row.expected().toString(), stream.toString());
        EXPECT_EQ(row.skipped, skipped);
    }
}

// Lines 1 to 4, without an address; the m= line that follows is line 5.
const std::string kNoAddress = sdpText({"v=0", "o=- 7 7 IN IP4 192.0.2.1", "s=-", "t=0 0"});

// An AMR format whose fmtp is line 8.
std::string withFmtp(const char* fmtp) {
    return offer({"m=audio 49152 RTP/AVP 97", "a=rtpmap:97 AMR/8000", fmtp});
}

struct Refusal {
    std::string description;
    const char* expected;
};

// Every refusal of reading, and its order: line syntax, then port, transport, payload types,
// address, fmtp values in m= order, packet times in line order.
const Refusal kRefusals[] = {
    {sdpText({"o=- 7 7 IN IP4 192.0.2.1", "v=0"}),
     "Invalid Param (Code 1002): Description must start with v=0 "
     "{line 1: o=- 7 7 IN IP4 192.0.2.1}"},
    {"\r\n\n", "Invalid Param (Code 1002): Description must start with v=0"},
    {offer({"m=audio 49152 RTP/AVP 97", "rtpmap:97 AMR/8000"}),
     "Invalid Param (Code 1002): Bad line {line 7: rtpmap:97 AMR/8000}"},
    {offer({"m=audio 49152 RTP/AVP"}),
     "Invalid Param (Code 1002): Bad media line {line 6: m=audio 49152 RTP/AVP}"},
    {offer({"m=audio 4915x RTP/AVP 97"}),
     "Invalid Param (Code 1002): Bad media line {line 6: m=audio 4915x RTP/AVP 97}"},
    {offer({"m=audio 49152 RTP/AVP 97", "c=IN IP4"}),
     "Invalid Param (Code 1002): Bad connection line {line 7: c=IN IP4}"},
    {offer({"m=audio 80 RTP/AVP 97", "m=video 49154 RTP/AVP 99", "b=AS:64k"}),
     "Invalid Param (Code 1002): Bad bandwidth value: AS:64k {line 8: b=AS:64k}"},
    {offer({"m=audio 80 RTP/SAVP 97"}),
     "Invalid Param (Code 1002): Invalid socket port: 80 {line 6: m=audio 80 RTP/SAVP 97}"},
    {offer({"m=audio 49152 UDP/TLS/RTP/SAVP 97 97"}),
     "Invalid Param (Code 1002): Unsupported transport: UDP/TLS/RTP/SAVP "
     "{line 6: m=audio 49152 UDP/TLS/RTP/SAVP 97 97}"},
    {kNoAddress + "m=audio 49152 RTP/AVP 97 128\r\n",
     "Invalid Param (Code 1002): Bad payload type: 128 {line 5: m=audio 49152 RTP/AVP 97 128}"},
    {offer({"m=audio 49152 RTP/AVP 97 101 97"}),
     "Invalid Param (Code 1002): A codec with the same payload type 97 is already present "
     "{line 6: m=audio 49152 RTP/AVP 97 101 97}"},
    {kNoAddress + "m=audio 49152 RTP/AVP 97\r\n",
     "Invalid Configuration (Code 1003): No connection address "
     "{line 5: m=audio 49152 RTP/AVP 97}"},
    {offer({"m=audio 49152 RTP/AVP 97", "a=rtpmap:97 AMR/8000", "a=fmtp:97 crc=2",
            "c=IN IP6 ::ffff:1.2.3"}),
     "Invalid Param (Code 1002): Invalid internet address : ::ffff:1.2.3 "
     "{line 9: c=IN IP6 ::ffff:1.2.3}"},
    {offer({"m=audio 49152 RTP/AVP 97 98", "a=rtpmap:98 AMR-WB/16000", "a=fmtp:98 crc=2",
            "a=rtpmap:97 AMR/8000", "a=fmtp:97 Octet-Align=2"}),
     "Invalid Param (Code 1002): Bad fmtp value: Octet-Align=2 {line 10: a=fmtp:97 Octet-Align=2}"},
    {offer({"m=audio 49152 RTP/AVP 97", "a=ptime:x", "a=rtpmap:97 AMR/8000",
            "a=fmtp:97 mode-change-neighbor=yes"}),
     "Invalid Param (Code 1002): Bad fmtp value: mode-change-neighbor=yes "
     "{line 9: a=fmtp:97 mode-change-neighbor=yes}"},
    {withFmtp("a=fmtp:97 mode-set=0, 2,x"),
     "Invalid Param (Code 1002): Bad fmtp value: mode-set=0, 2,x "
     "{line 8: a=fmtp:97 mode-set=0, 2,x}"},
    {withFmtp("a=fmtp:97 mode-set=0099999999999"),
     "Invalid Param (Code 1002): Bad amr rate: 99999999999 "
     "{line 8: a=fmtp:97 mode-set=0099999999999}"},
    {withFmtp("a=fmtp:97 max-red=65536"),
     "Invalid Param (Code 1002): Bad fmtp value: max-red=65536 {line 8: a=fmtp:97 max-red=65536}"},
    {withFmtp("a=fmtp:97 interleaving=4294967296"),
     "Invalid Param (Code 1002): Bad fmtp value: interleaving=4294967296 "
     "{line 8: a=fmtp:97 interleaving=4294967296}"},
    {withFmtp("a=fmtp:97 mode-change-period=0"),
     "Invalid Param (Code 1002): Bad fmtp value: mode-change-period=0 "
     "{line 8: a=fmtp:97 mode-change-period=0}"},
    {offer({"m=audio 49152 RTP/AVP 97", "a=maxptime:-1", "a=ptime:20.5"}),
     "Invalid Param (Code 1002): Bad packet time: -1 {line 7: a=maxptime:-1}"},
    {offer({"m=audio 0 RTP/AVP 97", "m=video 49154 RTP/AVP 99"}),
     "Invalid Configuration (Code 1003): No audio stream"},
};

// Answering refuses first what reading refuses; either leaves what it was given as it was.
TEST(SdpReaderTest, RefusesWithTheLine) {
    StreamConfig before;
    ASSERT_TRUE(before.setRemoteRtpPort(50000).isSuccess());
    for (const Refusal& row : kRefusals) {
        SCOPED_TRACE(row.description);
        StreamConfig stream = before;
        std::vector<sdp::SkippedFormat> skipped = {{1, "left over"}};
        std::string answer = "left";
        EXPECT_EQ(row.expected,
                  sdp::readRemoteDescription(row.description, stream, skipped).format());
        EXPECT_EQ(row.expected, sdp::answerOffer(row.description, StreamCapabilities(),
                                                 "192.0.2.10", 49152, sdp::Origin(), stream, answer)
                                    .format());
        EXPECT_EQ(before.toString(), stream.toString());
        EXPECT_EQ((std::vector<sdp::SkippedFormat>{{1, "left over"}}), skipped);
        EXPECT_EQ("left", answer);
    }
}

}  // namespace
