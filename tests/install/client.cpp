// Uses the libraries through their installed headers: a warning line, a port check, and a remote
// description read and written back by runesdp.
#include <velmora/rune/Utils.h>
#include <velmora/rune/sdp/Sdp.h>
#include <velmora/utilities/Log.h>

#include <string>
#include <vector>

namespace {

const char* const kOffer =
    "v=0\r\no=- 1 1 IN IP4 192.0.2.7\r\ns=-\r\nc=IN IP4 192.0.2.7\r\nt=0 0\r\n"
    "m=audio 49170 RTP/AVP 97\r\na=rtpmap:97 AMR-WB/16000/1\r\n";

}  // namespace

int main() {
    using namespace velmora::utilities;
    velmora::rune::StreamConfig stream;
    std::vector<velmora::rune::sdp::SkippedFormat> skipped;
    const velmora::rune::sdp::Result read =
        velmora::rune::sdp::readRemoteDescription(kOffer, stream, skipped);
    const std::string media = velmora::rune::sdp::writeMediaDescription(stream, "192.0.2.8", 49152);
    GenericLog<TypeList<StdIoLogTrait, detail::TypeNull>>::Stream<details::Level::Warning> log(
        "CLIENT");
    log << velmora::rune::Utils::isValidSocketPort(49150) << "; " << read.format() << " "
        << media.substr(0, media.find('\r'));
    return 0;
}
