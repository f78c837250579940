#include <velmora/rune/CodecConfig.h>
#include <velmora/utilities/Result.h>

#include <gtest/gtest.h>

#include <string>
#include <tuple>

using velmora::rune::CodecConfig;

namespace {

typedef CodecConfig::Result ConfigResult;

ConfigResult make(int code, const std::string& message = "", const std::string& context = "") {
    ConfigResult result(static_cast<CodecConfig::ResultCode>(code));
    result.mMessage = message;
    result.mContext = context;
    return result;
}

const ConfigResult kPort = make(1002, "Invalid socket port: 80");

}  // namespace

// A success formats as "Success" whatever it holds. A context, with a message or without, shows
// in the refusals of runesdp and the checks of StreamConfig.
TEST(ResultTest, FormatsCodeMessageAndContext) {
    const std::tuple<ConfigResult, std::string> cases[] = {
        {make(1000, "message", "context"), "Success"},
        {make(1002), "Invalid Param (Code 1002)"},
        {make(1001), "Unknown error (Code 1001)"},
        {make(999), "Invalid error (Unreachable) (Code 999)"},
        {make(1004, "x"), "Invalid error (Unreachable) (Code 1004): x"},
        {make(-7), "Invalid error (Unreachable) (Code -7)"},
    };
    for (const auto& [result, expected] : cases) {
        EXPECT_EQ(expected, result.format());
        EXPECT_EQ(expected == "Success", result.isSuccess()) << expected;
    }
}

// The first failure stays the main one; the others are chained behind it, whole. CodecConfigTest
// merges failures into a success.
TEST(ResultTest, MergeKeepsTheFirstFailure) {
    ConfigResult chain = make(1003, "b");
    chain &= make(1001, "c");
    const ConfigResult success = ConfigResult::success();
    const std::tuple<ConfigResult, ConfigResult, std::string> cases[] = {
        {kPort, success, kPort.format()},
        {kPort, make(1003, "Codec is null"),
         kPort.format() + " && Invalid Configuration (Code 1003): Codec is null"},
        {make(1002, "a", "ctx"), chain,
         "Invalid Param (Code 1002): a {ctx} && Invalid Configuration (Code 1003): b && "
         "Unknown error (Code 1001): c"},
    };
    for (auto [left, right, expected] : cases) {
        left &= right;
        EXPECT_EQ(expected, left.format());
    }
}

TEST(ResultTest, AppendWritesDecimalNumbers) {
    ConfigResult result = make(1002, "rate: ");
    ConfigResult::Append<int>::run(result, -5);
    ConfigResult::Append<int>::run(result, 0);
    EXPECT_EQ("rate: -50", result.mMessage);
}
