#include "SdpTestSupport.h"

using namespace velmora::testing;

namespace {

struct ReadCase {
    std::string description;
    // In tests/sdp/data: the text of the stream read.
    std::string expected;
    std::vector<sdp::SkippedFormat> skipped;
};

// Not repeated here: what tests/tools/cli/volte-offer.out pins (session-level c=, both AMR
// formats of each band, telephone-event at both rates), what WriteMediaTest's round trips pin
// (every option as written, RTCP off), and the blanks and case of AnswerOfferTest's avpf-offer.
const ReadCase kReadCases[] = {
    // A session border controller, with LF line ends: a session-level b=RR under a media-level
    // b=AS, the media section's c= and direction before the session's; where the media section
    // repeats a line, the first counts; crc alone implies the octet-aligned format.
    {dataText("sbc-offer.sdp", "\n"), "sbc-offer.read.txt", {}},
    // The first audio section is disabled; the one read has formats the model has no codec for,
    // takes the session's multicast address and direction, and what it does not use is not read
    // beyond its syntax.
    {dataText("multicast-offer.sdp"),
     "multicast-offer.read.txt",
     {{0, "PCMU/8000"},
      {8, "PCMA/8000"},
      {97, "AMR/8000/2"},
      {98, "telephone-event/48000"},
      {99, ""}}},
    // Tabs are blanks, and blanks may repeat; interleaving alone implies the octet-aligned
    // format; a repeated parameter takes its last value; RS 0 without RR keeps RTCP on; control
    // bytes of a skipped encoding are quoted, tabs are not.
    {offer({"m=audio 49152 RTP/AVP 97 0", "c=IN\tIP4  192.0.2.7\t", "b=RS:0",
            "a=rtpmap:\t97\tAMR/8000", "a=fmtp:\t97\tmode-set=1\t;\tinterleaving=4;mode-set=2,\t0",
            "a=rtpmap:0 P\tC\x1bMU/8000\x7f"}),
     "blanks-offer.read.txt",
     {{0, "P\tC\\x1BMU/8000\\x7F"}}},
    // Neither a secure section nor a section without AMR is passed over when reading.
    {dataText("video-then-audio.sdp"), "video-then-audio.read.txt", {{0, "PCMU/8000"}}},
    {dataText("savp-then-avp.sdp"), "chosen-section.negotiated.txt", {}},
};

// A valid offer of exactly size bytes.
std::string ofSize(size_t size) {
    std::string text = offer({"m=audio 49152 RTP/AVP 97", "a=rtpmap:97 AMR/8000"}) + "a=x:";
    text.append(size - text.size() - 2, 'y');
    return text + "\r\n";
}

// A stream that every field and list of differs from a default one.
StreamConfig usedStream() {
    const AmrCodecConfig amr = amrCodec(BandTypeNb, 97, {7}, kEveryOption, 40);
    const DtmfCodecConfig dtmf = dtmfCodec(BandTypeWb, 101);
    StreamConfig stream = placedStream("2001:db8::7", 20000, StreamConfig::DirectionInactive,
                                       {&amr, &dtmf}, RtcpConfig(2500, 0, 600, 49, true));
    EXPECT_TRUE(stream.addUplinkCodec(amr).isSuccess());
    stream.muteUplink(true);
    stream.setRtcp(false);
    stream.setHoldState(true);
    stream.setRtpProfile(RtpProfileAvpf);
    stream.setPdpContext({5, 6});
    return stream;
}

// Read into a stream that was used before, a description gives what it gives a new one.
TEST(ReadDescriptionTest, ReadsDescriptions) {
    for (const ReadCase& row : kReadCases) {
        SCOPED_TRACE(&row - kReadCases);
        StreamConfig stream;
        std::vector<sdp::SkippedFormat> skipped = {{1, "left over"}};
        EXPECT_EQ("Success", sdp::readRemoteDescription(row.description, stream, skipped).format());
        EXPECT_EQ(dataText(row.expected, "\n"), stream.toString());
        EXPECT_EQ(row.skipped, skipped);
        StreamConfig used = usedStream();
        EXPECT_EQ("Success", sdp::readRemoteDescription(row.description, used, skipped).format());
        EXPECT_EQ(stream.toString(), used.toString());
    }
    StreamConfig stream;
    std::vector<sdp::SkippedFormat> skipped;
    EXPECT_EQ("Success", sdp::readRemoteDescription(ofSize(65536), stream, skipped).format());
}

// Answering, from capabilities that take any AMR format, refuses first what reading refuses;
// either leaves what it was given as it was.
TEST(ReadDescriptionTest, RefusesWithTheLine) {
    const StreamCapabilities local = anyAmr();
    StreamConfig before;
    ASSERT_TRUE(before.setRemoteRtpPort(50000).isSuccess());
    std::vector<Case> rows = dataCases("read-refusals.txt");
    rows.push_back({"Invalid Param (Code 1002): Description must start with v=0", "\r\n\n"});
    rows.push_back({"Invalid Param (Code 1002): Description too long", ofSize(65537)});
    // A context quotes its line as PrintableTest shows: control bytes but tab as \xHH.
    const std::string badLine = "Invalid Param (Code 1002): Bad line {line 6: ";
    rows.push_back({badLine + "\\x1B[2J\\x1B]0;t\\x07\t\\x7F\\x0D-\\x00-}",
                    offer({}) + std::string("\x1b[2J\x1b]0;t\a\t\x7f\r-\0-\r\n", 18)});
    for (const Case& row : rows) {
        SCOPED_TRACE(row.text.substr(0, 300));
        StreamConfig stream = before;
        std::vector<sdp::SkippedFormat> skipped = {{1, "left over"}};
        std::string answer = "left";
        EXPECT_EQ(row.expected, sdp::readRemoteDescription(row.text, stream, skipped).format());
        EXPECT_EQ(row.expected, sdp::answerOffer(row.text, local, "192.0.2.10", 49152,
                                                 sdp::Origin(), stream, answer)
                                    .format());
        EXPECT_EQ(before.toString(), stream.toString());
        EXPECT_EQ((std::vector<sdp::SkippedFormat>{{1, "left over"}}), skipped);
        EXPECT_EQ("left", answer);
    }
}

}  // namespace
