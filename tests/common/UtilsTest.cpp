#include <velmora/rune/Utils.h>

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <tuple>

using velmora::rune::Utils;

TEST(UtilsTest, AcceptsUnprivilegedPortsOnly) {
    const std::tuple<int, bool> cases[] = {
        {INT_MIN, false}, {-1, false},   {0, false},     {1023, false},    {1024, true},
        {49150, true},    {65535, true}, {65536, false}, {INT_MAX, false},
    };
    for (const auto& [port, valid] : cases)
        EXPECT_EQ(valid, Utils::isValidSocketPort(port)) << port;
}

TEST(UtilsTest, ClassifiesAddresses) {
    const std::tuple<std::string, bool, bool> cases[] = {
        {"127.0.0.1", true, false},
        {"::1", false, true},
        {"2001:db8::1", false, true},
        {"::ffff:192.0.2.7", false, true},
        {"", false, false},
        {"pbx.example.com", false, false},
        {"192.0.2.7:5060", false, false},
        {std::string("127.0.0.1\0garbage", 17), true, false}};
    for (const auto& [address, v4, v6] : cases) {
        EXPECT_EQ(v4, Utils::isValidIpV4(address)) << address;
        EXPECT_EQ(v6, Utils::isValidIpV6(address)) << address;
        EXPECT_EQ(v4 || v6, Utils::isValidIpAddress(address)) << address;
    }
}
