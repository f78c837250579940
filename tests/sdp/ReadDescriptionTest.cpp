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
// band, telephone-event at both rates), what the writer's round trips pin (every option as
// written, RTCP off), and the blanks and case of the answer test's AVPF offer.
const ReadCase kReadCases[] = {
    // A session border controller, with LF line ends: a session-level b=RR under a media-level
    // b=AS, the media section's c= and direction before the session's; where the media section
    // repeats a line, the first counts; crc alone implies the octet-aligned format.
    {dataText("sbc-offer.sdp", "\n"),
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
    {dataText("multicast-offer.sdp"),
     [] {
         const AmrCodecConfig amr = amrCodec(BandTypeNb, 100, {}, kRobustSorting | kOctetAlign);
         return placedStream("224.2.1.1", 49170, StreamConfig::DirectionInactive, {&amr});
     },
     {{0, "PCMU/8000"}, {8, ""}, {97, "AMR/8000/2"}, {98, "telephone-event/48000"}, {99, ""}}},
    // Tabs are blanks; interleaving alone implies the octet-aligned format; a repeated parameter
    // takes its last value; RS 0 without RR keeps RTCP on; control bytes of a skipped encoding
    // are quoted, tabs are not.
    {offer({"m=audio 49152 RTP/AVP 97 0", "b=RS:0", "a=rtpmap:\t97\tAMR/8000",
            "a=fmtp:\t97\tmode-set=1\t;\tinterleaving=4;mode-set=2,\t0",
            "a=rtpmap:0 P\tC\x1bMU/8000\x7f"}),
     [] {
         const AmrCodecConfig amr = amrCodec(BandTypeNb, 97, {2, 0}, kInterleaving | kOctetAlign);
         return placedStream("192.0.2.1", 49152, StreamConfig::DirectionFullDuplex, {&amr},
                             RtcpConfig(5000, 0, 0, 64, false));
     },
     {{0, "P\tC\\x1BMU/8000\\x7F"}}},
    // Neither a secure section nor a section without AMR is passed over when reading.
    {dataText("video-then-audio.sdp"),
     [] { return placedStream("192.0.2.1", 30008, StreamConfig::DirectionFullDuplex, {}); },
     {{0, "PCMU/8000"}}},
    {dataText("savp-then-avp.sdp"),
     [] {
         const AmrCodecConfig amr = amrCodec(BandTypeWb, 96, {0, 2, 4});
         const DtmfCodecConfig dtmf = dtmfCodec(BandTypeWb, 101);
         return placedStream("192.0.2.1", 30000, StreamConfig::DirectionFullDuplex, {&amr, &dtmf});
     },
     {}},
};

// A valid offer of exactly size bytes.
std::string ofSize(size_t size) {
    std::string text = offer({"m=audio 49152 RTP/AVP 97", "a=rtpmap:97 AMR/8000"}) + "a=x:";
    text.append(size - text.size() - 2, 'y');
    return text + "\r\n";
}

TEST(ReadDescriptionTest, ReadsDescriptions) {
    for (const ReadCase& row : kReadCases) {
        SCOPED_TRACE(&row - kReadCases);
        StreamConfig stream;
        std::vector<sdp::SkippedFormat> skipped = {{1, "left over"}};
        EXPECT_EQ("Success", sdp::readRemoteDescription(row.description, stream, skipped).format());
        EXPECT_EQ(row.expected().toString(), stream.toString());
        EXPECT_EQ(row.skipped, skipped);
    }
    StreamConfig stream;
    std::vector<sdp::SkippedFormat> skipped;
    EXPECT_EQ("Success", sdp::readRemoteDescription(ofSize(65536), stream, skipped).format());
}

// Lines 1 to 4, without an address; the m= line that follows is line 5.
const std::string kNoAddress = sdpText({"v=0", "o=- 7 7 IN IP4 192.0.2.1", "s=-", "t=0 0"});

// An AMR format whose fmtp is line 8.
std::string withFmtp(const char* fmtp) {
    return offer({"m=audio 49152 RTP/AVP 97", "a=rtpmap:97 AMR/8000", fmtp});
}

struct Refusal {
    std::string description;
    // The line the context quotes; 0 for none.
    int line;
    const char* message;
};

// Every refusal of reading, and its order: line syntax, then port, transport, payload types,
// address, fmtp values in m= order, packet times in line order.
const Refusal kRefusals[] = {
    {sdpText({"o=- 7 7 IN IP4 192.0.2.1", "v=0"}), 1,
     "Invalid Param (Code 1002): Description must start with v=0"},
    {"\r\n\n", 0, "Invalid Param (Code 1002): Description must start with v=0"},
    {ofSize(65537), 0, "Invalid Param (Code 1002): Description too long"},
    {offer({"m=audio 49152 RTP/AVP 97", "rtpmap:97 AMR/8000"}), 7,
     "Invalid Param (Code 1002): Bad line"},
    {offer({"m=audio 49152 RTP/AVP"}), 6, "Invalid Param (Code 1002): Bad media line"},
    {offer({"m=audio 4915x RTP/AVP 97"}), 6, "Invalid Param (Code 1002): Bad media line"},
    {offer({"m=audio 18446744073709600768 RTP/AVP 97"}), 6,
     "Invalid Param (Code 1002): Bad media line"},
    {offer({"m=audio 49152 RTP/AVP 97", "c=IN IP4"}), 7,
     "Invalid Param (Code 1002): Bad connection line"},
    {offer({"m=audio 80 RTP/AVP 97", "m=video 49154 RTP/AVP 99", "b=AS:64k"}), 8,
     "Invalid Param (Code 1002): Bad bandwidth value: AS:64k"},
    {offer({"m=audio 49152 RTP/AVP 97", "b=RR:18446744073709551713"}), 7,
     "Invalid Param (Code 1002): Bad bandwidth value: RR:18446744073709551713"},
    {offer({"m=audio 80 RTP/SAVP 97"}), 6, "Invalid Param (Code 1002): Invalid socket port: 80"},
    {offer({"m=audio 49152 RTP/SAVP 97", "a=rtpmap:97 AMR/8000"}), 6,
     "Invalid Param (Code 1002): Unsupported transport: RTP/SAVP"},
    {offer({"m=audio 49152 UDP/TLS/RTP/SAVP 97 97"}), 6,
     "Invalid Param (Code 1002): Unsupported transport: UDP/TLS/RTP/SAVP"},
    // No section qualifies: the first audio section with a port gives the refusal.
    {offer({"m=audio 0 RTP/AVP 97", "m=audio 49152 RTP/SAVP 97", "m=audio 49154 RTP/SAVP 97"}), 7,
     "Invalid Param (Code 1002): Unsupported transport: RTP/SAVP"},
    {kNoAddress + "m=audio 49152 RTP/AVP 97 128\r\n", 5,
     "Invalid Param (Code 1002): Bad payload type: 128"},
    {offer({"m=audio 49152 RTP/AVP 18446744073709551713"}), 6,
     "Invalid Param (Code 1002): Bad payload type: 18446744073709551713"},
    {offer({"m=audio 49152 RTP/AVP 97 101 97"}), 6,
     "Invalid Param (Code 1002): A codec with the same payload type 97 is already present"},
    {kNoAddress + "m=audio 49152 RTP/AVP 97\r\n", 5,
     "Invalid Configuration (Code 1003): No connection address"},
    {offer({"m=audio 49152 RTP/AVP 97", "a=rtpmap:97 AMR/8000", "a=fmtp:97 crc=2",
            "c=IN IP6 ::ffff:1.2.3"}),
     9, "Invalid Param (Code 1002): Invalid internet address : ::ffff:1.2.3"},
    {offer({"m=audio 49152 RTP/AVP 97", "c=IN IP4 media-1.example.com"}), 7,
     "Invalid Configuration (Code 1003): Connection address is a domain name"},
    {offer({"m=audio 49152 RTP/AVP 97 98", "a=rtpmap:98 AMR-WB/16000", "a=fmtp:98 crc=2",
            "a=rtpmap:97 AMR/8000", "a=fmtp:97 Octet-Align=2"}),
     10, "Invalid Param (Code 1002): Bad fmtp value: Octet-Align=2"},
    {offer({"m=audio 49152 RTP/AVP 97", "a=ptime:x", "a=rtpmap:97 AMR/8000",
            "a=fmtp:97 mode-change-neighbor=yes"}),
     9, "Invalid Param (Code 1002): Bad fmtp value: mode-change-neighbor=yes"},
    {withFmtp("a=fmtp:97 mode-set=0, 2,x"), 8,
     "Invalid Param (Code 1002): Bad fmtp value: mode-set=0, 2,x"},
    {withFmtp("a=fmtp:97 mode-set=0099999999999"), 8,
     "Invalid Param (Code 1002): Bad amr rate: 99999999999"},
    // Never a narrow-band stream holding the wide-band mode 8.
    {withFmtp("a=fmtp:97 mode-set=0,8"), 8, "Invalid Param (Code 1002): Bad amr rate: 8"},
    {withFmtp("a=fmtp:97 max-red=65536"), 8,
     "Invalid Param (Code 1002): Bad fmtp value: max-red=65536"},
    {withFmtp("a=fmtp:97 interleaving=4294967296"), 8,
     "Invalid Param (Code 1002): Bad fmtp value: interleaving=4294967296"},
    {withFmtp("a=fmtp:97 interleaving=18446744073709551617"), 8,
     "Invalid Param (Code 1002): Bad fmtp value: interleaving=18446744073709551617"},
    {withFmtp("a=fmtp:97 mode-change-period=0"), 8,
     "Invalid Param (Code 1002): Bad fmtp value: mode-change-period=0"},
    {offer({"m=audio 49152 RTP/AVP 97", "a=maxptime:-1", "a=ptime:20.5"}), 7,
     "Invalid Param (Code 1002): Bad packet time: -1"},
    {offer({"m=audio 49152 RTP/AVP 97", "a=ptime:18446744073709551636"}), 7,
     "Invalid Param (Code 1002): Bad packet time: 18446744073709551636"},
    {offer({"m=audio 0 RTP/AVP 97", "m=video 49154 RTP/AVP 99"}), 0,
     "Invalid Configuration (Code 1003): No audio stream"},
};

// Answering, from capabilities that take any AMR format, refuses first what reading refuses;
// either leaves what it was given as it was.
TEST(ReadDescriptionTest, RefusesWithTheLine) {
    const StreamCapabilities local = phoneCaps(amrCaps(BandTypeWb), amrCaps(BandTypeNb));
    StreamConfig before;
    ASSERT_TRUE(before.setRemoteRtpPort(50000).isSuccess());
    for (const Refusal& row : kRefusals) {
        SCOPED_TRACE(&row - kRefusals);
        const std::string expected = refusal(row.message, row.description, row.line);
        StreamConfig stream = before;
        std::vector<sdp::SkippedFormat> skipped = {{1, "left over"}};
        std::string answer = "left";
        EXPECT_EQ(expected, sdp::readRemoteDescription(row.description, stream, skipped).format());
        EXPECT_EQ(expected, sdp::answerOffer(row.description, local, "192.0.2.10", 49152,
                                             sdp::Origin(), stream, answer)
                                .format());
        EXPECT_EQ(before.toString(), stream.toString());
        EXPECT_EQ((std::vector<sdp::SkippedFormat>{{1, "left over"}}), skipped);
        EXPECT_EQ("left", answer);
    }
}

// A context quotes at most 120 characters of its line, and control bytes other than tab as \xHH.
TEST(ReadDescriptionTest, QuotesTheLineSafely) {
    const std::string x120(120, 'x');
    const std::pair<std::string, std::string> kQuotes[] = {
        {x120, x120},
        {x120 + "y", x120 + "..."},
        {std::string("\x1b[2J\x1b]0;t\a\t\x7f\r-\0-", 16),
         "\\x1B[2J\\x1B]0;t\\x07\t\\x7F\\x0D-\\x00-"},
    };
    for (const auto& row : kQuotes) {
        StreamConfig stream;
        std::vector<sdp::SkippedFormat> skipped;
        EXPECT_EQ(
            "Invalid Param (Code 1002): Bad line {line 6: " + row.second + "}",
            sdp::readRemoteDescription(offer({}) + row.first + "\r\n", stream, skipped).format());
    }
}

}  // namespace
