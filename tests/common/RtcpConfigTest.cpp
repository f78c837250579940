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
    // The getters show in StreamConfigTest's text.
    RtcpConfig config(1, 2, 3, 4, true);
    config.setInterval(5);
    config.setRr(6);
    config.setRs(7);
    config.setAs(8);
    config.setReducedSizeMode(false);
    EXPECT_TRUE(config == RtcpConfig(5, 6, 7, 8, false));
}

TEST(RtcpConfigTest, ProfileShortNames) {
    EXPECT_EQ("AVP", std::string(RtpProfileConverter::mAvp));
    EXPECT_EQ("AVPF", std::string(RtpProfileConverter::mAvpf));
}
