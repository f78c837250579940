#include <velmora/utilities/Log.h>

#include "PlatformLog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace velmora::utilities;
using velmora::testing::platformLog;
using velmora::testing::PlatformLogMessage;

namespace {

typedef GenericLog<TypeList<StdIoLogTrait, TypeList<AndroidLogTrait<false>, detail::TypeNull>>> Log;

const int kAndroidFatal = 7;
const int kAndroidWarning = 5;

class LogTest : public ::testing::Test {
  protected:
    void SetUp() override {
        platformLog().clear();
        ::testing::internal::CaptureStderr();
    }

    static std::string stderrText() { return ::testing::internal::GetCapturedStderr(); }
};

}  // namespace

TEST_F(LogTest, StreamWritesOneLineToEachSink) {
    { Log::Stream<details::Level::Warning>("ORLA") << "rates " << 7 << " and " << 2; }
    { Log::Stream<details::Level::Fatal>("VELMORA") << "broken"; }
    EXPECT_EQ("W/ORLA rates 7 and 2\nF/VELMORA broken\n", stderrText());
    const std::vector<PlatformLogMessage> expected = {
        {kAndroidWarning, "ORLA", "rates 7 and 2", 0},
        {kAndroidFatal, "VELMORA", "broken", 0},
    };
    EXPECT_EQ(expected, platformLog());
}

TEST_F(LogTest, PlatformLogIsWrittenBeforeStandardError) {
    { Log::Stream<details::Level::Warning>("ORLA") << "first"; }
    { Log::Stream<details::Level::Warning>("ORLA") << "second"; }
    EXPECT_EQ("W/ORLA first\nW/ORLA second\n", stderrText());
    ASSERT_EQ(2u, platformLog().size());
    EXPECT_EQ(0, platformLog()[0].stderrOffset);
    EXPECT_EQ(static_cast<long>(std::string("W/ORLA first\n").size()),
              platformLog()[1].stderrOffset);
}

TEST_F(LogTest, PercentSignsInStreamedTextPrintAsTheyAre) {
    { Log::Stream<details::Level::Warning>("ORLA") << "%d%s%%"; }
    EXPECT_EQ("W/ORLA %d%s%%\n", stderrText());
    ASSERT_EQ(1u, platformLog().size());
    EXPECT_EQ("%d%s%%", platformLog()[0].text);
}

TEST_F(LogTest, EmptyStreamStillEmitsALine) {
    { Log::Stream<details::Level::Warning> stream("ORLA"); }
    EXPECT_EQ("W/ORLA \n", stderrText());
    ASSERT_EQ(1u, platformLog().size());
    EXPECT_EQ("", platformLog()[0].text);
}

TEST_F(LogTest, FormattedMessageReachesBothSinks) {
    Log::Stream<details::Level::Fatal>("VELMORA").log("%s=%d", "port", 80);
    // The destroyed stream adds its own, empty, message.
    EXPECT_EQ("F/VELMORA port=80\nF/VELMORA \n", stderrText());
    ASSERT_EQ(2u, platformLog().size());
    EXPECT_EQ("port=80", platformLog()[0].text);
}
