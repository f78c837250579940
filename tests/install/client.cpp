// Uses the library through its installed headers: a result, a warning line and a port check.
#include <velmora/rune/Utils.h>
#include <velmora/utilities/Log.h>
#include <velmora/utilities/Result.h>

#include <cstdio>

namespace {

struct Trait {
    typedef int ResultCode;
    static constexpr int SUCCESS = 0;
    static const char* toText(int) { return "Failed"; }
};

}  // namespace

int main() {
    using namespace velmora::utilities;
    result::Result<Trait> result(1);
    result.mMessage = "port";
    GenericLog<TypeList<StdIoLogTrait, detail::TypeNull>>::Stream<details::Level::Warning> log(
        "CLIENT");
    log << result.format() << " " << velmora::rune::Utils::isValidSocketPort(49150);
    return 0;
}
