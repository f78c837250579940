#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamCapabilities.h>

#include "ReportPattern.h"

#include <gtest/gtest.h>

#include <set>

namespace velmora {
namespace rune {
namespace {

using testing::assertionPattern;

// clone() yields null, which the stream capabilities store as they are given.
class NullCloningCapabilities : public CodecCapabilities {
  public:
    NullCloningCapabilities() : CodecCapabilities(CodecIdDtmf, BandTypeWb, 20, 240, 1) {}
    CodecCapabilities* clone() const override { return nullptr; }
};

StreamCapabilities withCodecs(const CodecCapabilities& first, const CodecCapabilities& second) {
    StreamCapabilities caps;
    caps.addCodecCapabilities(first);
    caps.addCodecCapabilities(second);
    return caps;
}

TEST(StreamCapabilitiesTest, ProfilesAreASortedSet) {
    StreamCapabilities caps;
    caps.addRtpProfile(RtpProfileAvpf);
    caps.addRtpProfile(RtpProfileAvp);
    caps.addRtpProfile(RtpProfileAvp);
    EXPECT_EQ(std::set<RtpProfile>({RtpProfileAvp, RtpProfileAvpf}),
              caps.getSupportedRtpProfiles());
}

TEST(StreamCapabilitiesTest, AddStoresDistinctClones) {
    const DtmfCodecCapabilities dtmf;
    const StreamCapabilities caps = withCodecs(dtmf, dtmf);
    ASSERT_EQ(2u, caps.getCodecCapabilityCount());
    EXPECT_NE(caps.getCodecCapabilities(0), caps.getCodecCapabilities(1));
    EXPECT_NE(&dtmf, caps.getCodecCapabilities(0));
    EXPECT_TRUE(dtmf == *caps.getCodecCapabilities(1));
    EXPECT_EQ(nullptr, caps.getCodecCapabilities(2));
}

TEST(StreamCapabilitiesTest, Equality) {
    const AmrCodecCapabilities amr;
    const DtmfCodecCapabilities dtmf;
    AmrCodecCapabilities amrWithRate;
    amrWithRate.addSupportedAmrRate(AmrRate2);
    StreamCapabilities caps[] = {
        StreamCapabilities(),  StreamCapabilities(),  StreamCapabilities(),
        withCodecs(amr, dtmf), withCodecs(dtmf, amr), withCodecs(amrWithRate, dtmf),
    };
    RtcpConfig rtcp;
    rtcp.setAs(50);
    caps[1].setRtcpCaps(rtcp);
    caps[2].addRtpProfile(RtpProfileAvp);
    const size_t count = sizeof(caps) / sizeof(caps[0]);
    for (size_t i = 0; i < count; ++i) {
        for (size_t j = 0; j < count; ++j) {
            EXPECT_EQ(i == j, caps[i] == caps[j]) << i << " " << j;
            EXPECT_EQ(i != j, caps[i] != caps[j]) << i << " " << j;
        }
    }
    EXPECT_TRUE(caps[1].getRTCPcaps() == rtcp);
}

TEST(StreamCapabilitiesTest, CopyIsDeep) {
    StreamCapabilities source = withCodecs(AmrCodecCapabilities(), DtmfCodecCapabilities());
    source.addRtpProfile(RtpProfileAvpf);
    StreamCapabilities assigned = withCodecs(DtmfCodecCapabilities(), DtmfCodecCapabilities());
    assigned = source;
    StreamCapabilities copy(source);
    for (const StreamCapabilities* target : {&copy, &assigned}) {
        EXPECT_TRUE(source == *target);
        EXPECT_NE(source.getCodecCapabilities(0), target->getCodecCapabilities(0));
    }

    const CodecCapabilities* first = source.getCodecCapabilities(0);
    StreamCapabilities& self = source;
    source = self;
    EXPECT_EQ(first, source.getCodecCapabilities(0));
    EXPECT_TRUE(source == copy);
}

TEST(StreamCapabilitiesTest, CopyingNullEntryAborts) {
    StreamCapabilities caps;
    caps.addCodecCapabilities(NullCloningCapabilities());
    EXPECT_DEATH(StreamCapabilities{caps},
                 assertionPattern("common/src/StreamCapabilities.cpp", "*it != NULL",
                                  "CodecCapabilities is null"));
}

}  // namespace
}  // namespace rune
}  // namespace velmora
