#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamCapabilities.h>

#include "ReportPattern.h"
#include "ValueChecks.h"

#include <gtest/gtest.h>

#include <vector>

using namespace velmora::rune;

namespace {

// clone() yields null, which the stream capabilities store as they are given.
class NullCloningCapabilities : public DtmfCodecCapabilities {
  public:
    CodecCapabilities* clone() const override { return nullptr; }
};

StreamCapabilities withCodecs(const CodecCapabilities& first, const CodecCapabilities& second) {
    StreamCapabilities caps;
    caps.addCodecCapabilities(first);
    caps.addCodecCapabilities(second);
    return caps;
}

}  // namespace

// RTCP, profiles, then the codec capabilities in order; copies are deep (the sanitizers see a
// shared entry).
TEST(StreamCapabilitiesTest, EqualityAndCopies) {
    const AmrCodecCapabilities amr;
    const DtmfCodecCapabilities dtmf;
    AmrCodecCapabilities amrWithRate;
    amrWithRate.addSupportedAmrRate(AmrRate2);
    std::vector<StreamCapabilities> caps = {StreamCapabilities(),  StreamCapabilities(),
                                            StreamCapabilities(),  withCodecs(amr, dtmf),
                                            withCodecs(dtmf, amr), withCodecs(amrWithRate, dtmf)};
    RtcpConfig rtcp(5000, 0, 800, 50, false);
    caps[1].setRtcpCaps(rtcp);
    caps[2].addRtpProfile(RtpProfileAvp);
    velmora::testing::expectEqualIffSameIndex(caps);
    EXPECT_EQ(nullptr, caps[3].getCodecCapabilities(2));

    StreamCapabilities source = withCodecs(amrWithRate, dtmf);
    source.setRtcpCaps(rtcp);
    source.addRtpProfile(RtpProfileAvpf);
    velmora::testing::expectCopiesEqual(source, withCodecs(dtmf, dtmf));
}

TEST(StreamCapabilitiesDeathTest, CopyingNullEntryAborts) {
    StreamCapabilities caps;
    caps.addCodecCapabilities(NullCloningCapabilities());
    EXPECT_DEATH(StreamCapabilities{caps},
                 velmora::testing::assertionPattern("common/src/StreamCapabilities.cpp",
                                                    "*it != NULL", "CodecCapabilities is null"));
}
