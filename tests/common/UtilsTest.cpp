#include <velmora/rune/Utils.h>

#include <gtest/gtest.h>

#include <arpa/inet.h>

#include <climits>
#include <string>
#include <tuple>
#include <vector>

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

// The checks accept what inet_pton(3) accepts: every text over a few characters up to some length,
// and the edges of the forms.
TEST(UtilsTest, AcceptsWhatInetPtonAccepts) {
    std::vector<std::string> texts = {"0.0.0.0",
                                      "255.255.255.255",
                                      "256.1.1.1",
                                      "1.2.3.04",
                                      "1.2.3",
                                      "1.2.3.4.5",
                                      "1..2.3",
                                      ".1.2.3",
                                      "1.2.3.4.",
                                      "1.2.3.999",
                                      "1:2:3:4:5:6:7:8",
                                      "1:2:3:4:5:6:7:8:9",
                                      "1:2:3:4:5:6:7::",
                                      "::1:2:3:4:5:6:7",
                                      "1::2:3:4:5:6:7",
                                      "1:2:3:4:5:6:7:8::",
                                      "::1:2:3:4:5:6:7:8",
                                      "::ffff:192.0.2.7",
                                      "1:2:3:4:5:6:1.2.3.4",
                                      "1:2:3:4:5:6:7:1.2.3.4",
                                      "1:2:3:4:5::1.2.3.4",
                                      "::1.2.3.4",
                                      "::1.2.3",
                                      "::256.1.1.1",
                                      "1.2.3.4::",
                                      "12345::",
                                      "ABCD:ef01::",
                                      "g::",
                                      "::",
                                      ":::",
                                      ":",
                                      "1:",
                                      "1::",
                                      "::1:",
                                      "2001:db8:0:1::50",
                                      "fe80::1%eth0",
                                      "::ffff:1.2.3.4:5",
                                      "::abc.1.2.3",
                                      "0000:0000::",
                                      "00000::"};
    const std::string alphabet = "0f:.1";
    std::vector<std::string> layer = {""};
    for (int length = 1; length <= 8; ++length) {
        std::vector<std::string> next;
        for (const std::string& text : layer) {
            for (char c : alphabet) {
                next.push_back(text + c);
            }
        }
        texts.insert(texts.end(), next.begin(), next.end());
        layer.swap(next);
    }
    for (const std::string& text : texts) {
        unsigned char buffer[16];
        const bool v4 = inet_pton(AF_INET, text.c_str(), buffer) == 1;
        const bool v6 = inet_pton(AF_INET6, text.c_str(), buffer) == 1;
        ASSERT_EQ(v4, Utils::isValidIpV4(text)) << text;
        ASSERT_EQ(v6, Utils::isValidIpV6(text)) << text;
        ASSERT_EQ(v4 || v6, Utils::isValidIpAddress(text)) << text;
    }
}
