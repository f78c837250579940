#include <velmora/rune/Rtp.h>

#include "ValueChecks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace velmora::rune;

// The arguments are interval, RR, RS, AS and reduced size; equality takes each of them.
TEST(RtcpConfigTest, Equality) {
    EXPECT_TRUE(RtcpConfig() == RtcpConfig(5000, 0, 800, 64, false));
    EXPECT_TRUE(RtcpConfig::disabledRtcpConfig == RtcpConfig(0, 0, 0, 0, false));
    velmora::testing::expectEqualIffSameIndex(std::vector<RtcpConfig>{
        RtcpConfig(5000, 0, 800, 64, false), RtcpConfig(2500, 0, 800, 64, false),
        RtcpConfig(5000, 400, 800, 64, false), RtcpConfig(5000, 0, 600, 64, false),
        RtcpConfig(5000, 0, 800, 50, false), RtcpConfig(5000, 0, 800, 64, true)});
    // The getters show in StreamConfigTest's text; runesdp sets the other fields from b= lines and
    // a=rtcp-rsize.
    RtcpConfig config(1, 2, 3, 4, true);
    config.setInterval(5);
    EXPECT_TRUE(config == RtcpConfig(5, 2, 3, 4, true));
}

TEST(RtcpConfigTest, ProfileShortNames) {
    EXPECT_EQ("AVP", std::string(RtpProfileConverter::mAvp));
    EXPECT_EQ("AVPF", std::string(RtpProfileConverter::mAvpf));
}
