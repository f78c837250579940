#include <velmora/rune/Utils.h>

#include "DataText.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>

#include <climits>
#include <sstream>
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

// The checks accept what inet_pton(3) accepts: every text over a few characters up to some length,
// the edges of the forms (tests/common/data/address-edges.txt), and no more than the text before
// a NUL.
TEST(UtilsTest, AcceptsWhatInetPtonAccepts) {
    std::vector<std::string> texts = {std::string("127.0.0.1\0garbage", 17)};
    std::istringstream edges(velmora::testing::dataText("address-edges.txt", "\n"));
    for (std::string line; std::getline(edges, line);) {
        if (line.compare(0, 1, "#") != 0) texts.push_back(line);
    }
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
