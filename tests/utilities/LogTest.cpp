#include <velmora/utilities/Log.h>

#include "PlatformLog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace velmora::utilities;
using namespace velmora::testing;

namespace {

typedef GenericLog<TypeList<StdIoLogTrait, TypeList<AndroidLogTrait<false>, detail::TypeNull>>> Log;

const int kAndroidFatal = 7;
const int kAndroidWarning = 5;

}  // namespace

// One message per stream on each sink, the platform log first. The streamed text goes through
// "%s", so per-cent signs print as they are; log() hands each sink the arguments from the start.
TEST(LogTest, EachStreamIsOneLineOnEachSinkPlatformLogFirst) {
    platformLog().clear();
    ::testing::internal::CaptureStderr();
    { Log::Stream<details::Level::Warning>("ORLA") << "rates " << 7 << " and " << 2; }
    { Log::Stream<details::Level::Fatal>("VELMORA") << "%d%s%%"; }
    { Log::Stream<details::Level::Warning> empty("ORLA"); }
    Log::Stream<details::Level::Fatal>("VELMORA").log("%s=%d", "port", 80);
    const std::string text = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ("W/ORLA rates 7 and 2\nF/VELMORA %d%s%%\nW/ORLA \nF/VELMORA port=80\nF/VELMORA \n",
              text);
    const std::vector<PlatformLogMessage> expected = {{kAndroidWarning, "ORLA", "rates 7 and 2", 0},
                                                      {kAndroidFatal, "VELMORA", "%d%s%%", 0},
                                                      {kAndroidWarning, "ORLA", "", 0},
                                                      {kAndroidFatal, "VELMORA", "port=80", 0},
                                                      {kAndroidFatal, "VELMORA", "", 0}};
    EXPECT_EQ(expected, platformLog());
    size_t lineStart = 0;
    for (const PlatformLogMessage& message : platformLog()) {
        EXPECT_EQ(static_cast<long>(lineStart), message.stderrOffset) << message.text;
        lineStart = text.find('\n', lineStart) + 1;
    }
}
