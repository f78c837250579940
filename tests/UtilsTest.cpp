#include <velmora/rune/Utils.h>

#include <gtest/gtest.h>

#include <climits>
#include <string>

using velmora::rune::Utils;

TEST(UtilsTest, AcceptsUnprivilegedPortsOnly) {
    const struct {
        int port;
        bool valid;
    } cases[] = {
        {INT_MIN, false}, {-1, false},   {0, false},     {1023, false},    {1024, true},
        {49150, true},    {65535, true}, {65536, false}, {INT_MAX, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.valid, Utils::isValidSocketPort(c.port)) << c.port;
    }
}

TEST(UtilsTest, ClassifiesAddresses) {
    const struct {
        std::string address;
        bool v4;
        bool v6;
    } cases[] = {
        {"127.0.0.1", true, false},
        {"192.0.2.7", true, false},
        {"::1", false, true},
        {"2001:db8::1", false, true},
        {"::ffff:192.0.2.7", false, true},
        {"", false, false},
        {"pbx.example.com", false, false},
        {"192.0.2.7:5060", false, false},
        {"999.1.1.1", false, false},
        {std::string("127.0.0.1\0garbage", 17), true, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.v4, Utils::isValidIpV4(c.address)) << c.address;
        EXPECT_EQ(c.v6, Utils::isValidIpV6(c.address)) << c.address;
        EXPECT_EQ(c.v4 || c.v6, Utils::isValidIpAddress(c.address)) << c.address;
    }
}
