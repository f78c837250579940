// A short tour of the library: results, a warning line, and the checks of a remote endpoint.
#include <velmora/rune/CodecConfig.h>
#include <velmora/rune/Utils.h>
#include <velmora/utilities/Log.h>

#include <iostream>

using velmora::rune::CodecConfig;
using velmora::rune::Utils;
using namespace velmora::utilities;

namespace {

typedef GenericLog<TypeList<StdIoLogTrait, TypeList<AndroidLogTrait<false>, detail::TypeNull>>> Log;

void showResults() {
    std::cout << "== Results\n";
    CodecConfig::Result result = CodecConfig::Result::success();
    std::cout << "success:            " << result.format() << "\n";
    CodecConfig::Result port(CodecConfig::InvalidParam);
    port.mMessage = "Invalid socket port: 80";
    result &= port;
    CodecConfig::Result codec(CodecConfig::InvalidConfiguration);
    codec.mMessage = "Codec is null";
    result &= codec;
    std::cout << "two merged failures: " << result.format() << "\n";
}

void showEndpointChecks() {
    std::cout << "== Remote endpoint checks\n";
    for (int port : {80, 1024, 49150, 65536}) {
        std::cout << "port " << port << ": " << (Utils::isValidSocketPort(port) ? "ok" : "refused")
                  << "\n";
    }
    for (const char* address : {"192.0.2.7", "2001:db8::1", "pbx.example.com"}) {
        std::cout << "address " << address << ": "
                  << (Utils::isValidIpAddress(address) ? "ok" : "refused") << "\n";
    }
}

}  // namespace

int main() {
    showResults();
    std::cout << "== A warning line (platform log and standard error)\n" << std::flush;
    { Log::Stream<details::Level::Warning>("ORLA") << "remote offered " << 3 << " rates"; }
    showEndpointChecks();
    return 0;
}
