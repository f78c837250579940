#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamCapabilities.h>

#include "ReportPattern.h"

#include <gtest/gtest.h>

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

// RTCP, profiles, then the codec capabilities in order.
TEST(StreamCapabilitiesTest, Equality) {
    const AmrCodecCapabilities amr;
    const DtmfCodecCapabilities dtmf;
    AmrCodecCapabilities amrWithRate;
    amrWithRate.addSupportedAmrRate(AmrRate2);
    StreamCapabilities caps[] = {StreamCapabilities(),  StreamCapabilities(),
                                 StreamCapabilities(),  withCodecs(amr, dtmf),
                                 withCodecs(dtmf, amr), withCodecs(amrWithRate, dtmf)};
    RtcpConfig rtcp(5000, 0, 800, 50, false);
    caps[1].setRtcpCaps(rtcp);
    caps[2].addRtpProfile(RtpProfileAvp);
    for (size_t i = 0; i < 6; ++i)
        for (size_t j = 0; j < 6; ++j)
            EXPECT_TRUE((caps[i] == caps[j]) == (i == j) && (caps[i] != caps[j]) == (i != j))
                << i << " " << j;
}

// Each entry is a clone of its own, in the stream capabilities and in each of their copies.
TEST(StreamCapabilitiesTest, CopyIsDeep) {
    StreamCapabilities source = withCodecs(AmrCodecCapabilities(), DtmfCodecCapabilities());
    RtcpConfig rtcp(2500, 400, 600, 50, true);
    source.setRtcpCaps(rtcp);
    source.addRtpProfile(RtpProfileAvpf);
    EXPECT_EQ(nullptr, source.getCodecCapabilities(2));
    StreamCapabilities assigned = withCodecs(DtmfCodecCapabilities(), DtmfCodecCapabilities());
    assigned = source;
    StreamCapabilities copy(source);
    for (const StreamCapabilities* target : {&copy, &assigned}) {
        EXPECT_TRUE(source == *target);
        EXPECT_NE(source.getCodecCapabilities(1), target->getCodecCapabilities(1));
    }
    const CodecCapabilities* first = source.getCodecCapabilities(0);
    StreamCapabilities& self = source;
    source = self;
    EXPECT_EQ(first, source.getCodecCapabilities(0));
    EXPECT_TRUE(source == copy);
}

TEST(StreamCapabilitiesDeathTest, CopyingNullEntryAborts) {
    StreamCapabilities caps;
    caps.addCodecCapabilities(NullCloningCapabilities());
    EXPECT_DEATH(StreamCapabilities{caps},
                 velmora::testing::assertionPattern("common/src/StreamCapabilities.cpp",
                                                    "*it != NULL", "CodecCapabilities is null"));
}
