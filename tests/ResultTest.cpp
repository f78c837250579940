#include <velmora/rune/CodecConfig.h>
#include <velmora/utilities/Result.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>

using velmora::rune::CodecConfig;
using velmora::utilities::result::ErrnoTrait;
using velmora::utilities::result::Result;

namespace {

typedef CodecConfig::Result ConfigResult;

ConfigResult failure(int code, const std::string& message = "", const std::string& context = "") {
    ConfigResult result(static_cast<CodecConfig::ResultCode>(code));
    result.mMessage = message;
    result.mContext = context;
    return result;
}

const ConfigResult kPort = failure(1002, "Invalid socket port: 80");
const ConfigResult kCodec = failure(1003, "Codec is null");

}  // namespace

TEST(ResultTest, FormatsCodeMessageAndContext) {
    const struct {
        ConfigResult result;
        std::string expected;
    } cases[] = {
        {kPort, "Invalid Param (Code 1002): Invalid socket port: 80"},
        {failure(1002), "Invalid Param (Code 1002)"},
        {failure(1001), "Unknown error (Code 1001)"},
        {failure(1003, "", "rtcp"), "Invalid Configuration (Code 1003): {rtcp}"},
        {failure(1003, "bad", "rtcp"), "Invalid Configuration (Code 1003): bad {rtcp}"},
        {failure(999), "Invalid error (Unreachable) (Code 999)"},
        {failure(1004, "x"), "Invalid error (Unreachable) (Code 1004): x"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.expected, c.result.format());
    }
}

TEST(ResultTest, SuccessFormatsAsSuccessWhateverItHolds) {
    ConfigResult result = ConfigResult::success();
    result.mMessage = "message";
    result.mChained = " && chained";
    result.mContext = "context";
    EXPECT_EQ("Success", result.format());
    EXPECT_TRUE(result.isSuccess());
    EXPECT_FALSE(result.isFailure());
}

TEST(ResultTest, SuccessIsOneSharedObject) {
    EXPECT_EQ(&ConfigResult::success(), &ConfigResult::success());
    EXPECT_EQ(CodecConfig::Success, ConfigResult::success().mCode);
}

TEST(ResultTest, MergeKeepsTheFirstFailure) {
    ConfigResult merged = ConfigResult::success();
    merged &= kPort;
    EXPECT_EQ(kPort.format(), merged.format());
    EXPECT_EQ(kPort.mMessage, merged.mMessage);

    merged &= ConfigResult::success();
    EXPECT_EQ(kPort.format(), merged.format());

    merged &= kCodec;
    EXPECT_EQ(CodecConfig::InvalidParam, merged.mCode);
    EXPECT_EQ(
        "Invalid Param (Code 1002): Invalid socket port: 80 && "
        "Invalid Configuration (Code 1003): Codec is null",
        merged.format());
}

TEST(ResultTest, MergingSuccessIntoSuccessStaysSuccess) {
    ConfigResult merged = ConfigResult::success();
    merged &= ConfigResult::success();
    EXPECT_EQ("Success", merged.format());
}

TEST(ResultTest, MergingAChainAppendsTheWholeChain) {
    ConfigResult tail = failure(1003, "b");
    tail &= failure(1001, "c");
    ConfigResult merged = failure(1002, "a", "ctx");
    merged &= tail;
    EXPECT_EQ(
        "Invalid Param (Code 1002): a {ctx} && Invalid Configuration (Code 1003): b && "
        "Unknown error (Code 1001): c",
        merged.format());
}

TEST(ResultTest, AppendWritesDecimalNumbers) {
    ConfigResult result = failure(1002, "rate: ");
    ConfigResult::Append<int>::run(result, -5);
    ConfigResult::Append<int>::run(result, 0);
    EXPECT_EQ("rate: -50", result.mMessage);
}

TEST(ResultTest, ErrnoResultsUseTheSystemText) {
    EXPECT_EQ(std::string(std::strerror(EINVAL)) + " (Code 22)",
              Result<ErrnoTrait>(EINVAL).format());
    EXPECT_EQ("Success", Result<ErrnoTrait>(0).format());
}
