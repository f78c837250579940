#include <velmora/rune/Rtp.h>

#include <gtest/gtest.h>

#include <string>

namespace velmora {
namespace rune {
namespace {

TEST(RtcpConfigTest, DefaultsAndArgumentOrder) {
    EXPECT_EQ(5000u, RtcpConfig::DEFAULT_INTERVAL);
    EXPECT_EQ(0u, RtcpConfig::DEFAULT_RR);
    EXPECT_EQ(800u, RtcpConfig::DEFAULT_RS);
    EXPECT_EQ(64u, RtcpConfig::DEFAULT_AS);
    EXPECT_FALSE(RtcpConfig::DEFAULT_REDUCED_SIZE_MODE);
    EXPECT_TRUE(RtcpConfig() == RtcpConfig(5000, 0, 800, 64, false));

    const RtcpConfig config(1, 2, 3, 4, true);
    EXPECT_EQ(1u, config.getInterval());
    EXPECT_EQ(2u, config.getRr());
    EXPECT_EQ(3u, config.getRs());
    EXPECT_EQ(4u, config.getAs());
    EXPECT_TRUE(config.isReducedSizeMode());
    EXPECT_TRUE(RtcpConfig::disabledRtcpConfig == RtcpConfig(0, 0, 0, 0, false));
}

TEST(RtcpConfigTest, Equality) {
    const RtcpConfig configs[] = {
        RtcpConfig(),
        RtcpConfig(2500, 0, 800, 64, false),
        RtcpConfig(5000, 400, 800, 64, false),
        RtcpConfig(5000, 0, 600, 64, false),
        RtcpConfig(5000, 0, 800, 50, false),
        RtcpConfig(5000, 0, 800, 64, true),
        RtcpConfig::disabledRtcpConfig,
    };
    const size_t count = sizeof(configs) / sizeof(configs[0]);
    for (size_t i = 0; i < count; ++i) {
        for (size_t j = 0; j < count; ++j) {
            EXPECT_EQ(i == j, configs[i] == configs[j]) << i << " " << j;
            EXPECT_EQ(i != j, configs[i] != configs[j]) << i << " " << j;
        }
    }
}

TEST(RtcpConfigTest, ProfilesAreRfcNumbersWithShortNames) {
    EXPECT_EQ(3551, RtpProfileAvp);
    EXPECT_EQ(4585, RtpProfileAvpf);
    EXPECT_EQ("AVP", std::string(RtpProfileConverter::mAvp));
    EXPECT_EQ("AVPF", std::string(RtpProfileConverter::mAvpf));
    EXPECT_EQ(4u, sizeof(RtpProfileConverter::mAvp));
    EXPECT_EQ(5u, sizeof(RtpProfileConverter::mAvpf));
}

}  // namespace
}  // namespace rune
}  // namespace velmora
