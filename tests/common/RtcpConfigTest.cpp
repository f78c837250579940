#include <velmora/rune/Rtp.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace velmora::rune;

// The arguments are interval, RR, RS, AS and reduced size; equality takes each of them.
TEST(RtcpConfigTest, Equality) {
    EXPECT_TRUE(RtcpConfig() == RtcpConfig(5000, 0, 800, 64, false));
    EXPECT_TRUE(RtcpConfig::disabledRtcpConfig == RtcpConfig(0, 0, 0, 0, false));
    const RtcpConfig configs[] = {
        RtcpConfig(5000, 0, 800, 64, false),   RtcpConfig(2500, 0, 800, 64, false),
        RtcpConfig(5000, 400, 800, 64, false), RtcpConfig(5000, 0, 600, 64, false),
        RtcpConfig(5000, 0, 800, 50, false),   RtcpConfig(5000, 0, 800, 64, true),
    };
    for (size_t i = 0; i < 6; ++i)
        for (size_t j = 0; j < 6; ++j)
            EXPECT_TRUE((configs[i] == configs[j]) == (i == j) &&
                        (configs[i] != configs[j]) == (i != j))
                << i << " " << j;
    const RtcpConfig config(1, 2, 3, 4, true);
    EXPECT_EQ(std::vector<unsigned>({1, 2, 3, 4, 1}),
              std::vector<unsigned>({config.getInterval(), config.getRr(), config.getRs(),
                                     config.getAs(), config.isReducedSizeMode()}));
}

TEST(RtcpConfigTest, ProfileShortNames) {
    EXPECT_EQ("AVP", std::string(RtpProfileConverter::mAvp));
    EXPECT_EQ("AVPF", std::string(RtpProfileConverter::mAvpf));
}
