// The library's typical use, end to end: call control configures the codecs and a media stream,
// checks them and logs them; the media engine reads what it needs to run the stream.
#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/Utils.h>

#include <initializer_list>
#include <iostream>
#include <sstream>
#include <string>

using velmora::rune::AmrCodecConfig;
using velmora::rune::AmrRate;
using velmora::rune::BandTypeNb;
using velmora::rune::CodecConfig;
using velmora::rune::DtmfCodecConfig;
using velmora::rune::StreamConfig;
using velmora::rune::Utils;

namespace {

void section(const char* title, const char* explanation) {
    std::cout << "\n== " << title << "\n" << explanation << "\n";
}

template <typename T>
void show(const std::string& label, const T& value) {
    std::cout << "  " << label << ": " << value << "\n";
}

// The library's text dumps come indented and with their own line ends.
void showText(const std::string& label, const std::string& text) {
    std::cout << "  " << label << ":\n" << text;
}

// AMR-WB with payload type 98, and the mode indexes negotiated for the call.
AmrCodecConfig amrWb(std::initializer_list<AmrRate> rates) {
    AmrCodecConfig amr;
    for (AmrRate rate : rates) {
        amr.addAmrRate(rate);
    }
    return amr;
}

std::string ratesText(const AmrCodecConfig& amr) {
    std::ostringstream text;
    const char* separator = "";
    for (AmrRate rate : amr.getSupportedAmrRates()) {
        text << separator << rate;
        separator = ", ";
    }
    return text.str();
}

void showResults() {
    section("Results",
            "Every check returns a result instead of throwing: a code and a message. When several\n"
            "checks fail, the results are merged and the first failure leads.");
    DtmfCodecConfig noPackets;
    noPackets.setPacketTime(0);
    noPackets.setMaxPacketTime(0);
    show("a success", CodecConfig::Result::success().format());
    show("a codec without packet times", noPackets.check().format());
}

void showEndpointChecks() {
    section("Remote endpoint checks",
            "A stream accepts only ports from 1024 to 65535, and IPv4 or IPv6 addresses (no host\n"
            "names).");
    for (int port : {80, 1024, 49150, 65536}) {
        show("port " + std::to_string(port), Utils::isValidSocketPort(port) ? "ok" : "refused");
    }
    for (const char* address : {"192.0.2.7", "2001:db8::1", "pbx.example.com"}) {
        show(std::string("address ") + address,
             Utils::isValidIpAddress(address) ? "ok" : "refused");
    }
}

void showDtmf() {
    section("A DTMF codec",
            "Key presses travel in the stream as telephone events (RFC 4733). The defaults:\n"
            "payload type 99, 20 ms packets.");
    const DtmfCodecConfig dtmf;
    show("check()", dtmf.check().format());
    showText("toString()", dtmf.toString());
}

void showAmrWb(const AmrCodecConfig& amr) {
    section("An AMR-WB codec",
            "The negotiated rates are AMR-WB mode indexes, kept in the order given. The preferred\n"
            "one follows the library's own ranking: 12.65 kbit/s (mode 2) comes first.");
    show("negotiated rates", ratesText(amr));
    show("getPreferedAmrRate()", amr.getPreferedAmrRate());
    show("check()", amr.check().format());
    showText("toString()", amr.toString());
}

void showRateMismatch(const AmrCodecConfig& local) {
    section(
        "A warning",
        "Two AMR configurations whose rate lists differ still compare equal, but the library\n"
        "logs a warning, to the platform log and to standard error (on a desktop host the\n"
        "platform log writes to standard error too, so each line shows twice). Here the remote\n"
        "end offered mode 2 only.");
    const AmrCodecConfig remote = amrWb({AmrRate(2)});
    const bool equal = local == remote;
    show("local == remote", equal ? "true" : "false");
}

StreamConfig configureStream(const AmrCodecConfig& amr) {
    section("A media stream",
            "Call control sets the negotiated remote endpoint and adds the codecs of each\n"
            "direction, most preferred first; the stream keeps its own copies. It checks the\n"
            "stream, then logs it.");
    StreamConfig stream;
    stream.setRemoteIp("192.0.2.7");
    stream.setRemoteRtpPort(50000);
    const DtmfCodecConfig dtmf;
    stream.addUplinkCodec(amr);
    stream.addUplinkCodec(dtmf);
    stream.addDownlinkCodec(amr);
    stream.addDownlinkCodec(dtmf);
    show("check()", stream.check().format());
    showText("toString()", stream.toString());
    return stream;
}

void readStream(const StreamConfig& stream) {
    section(
        "What the media engine reads",
        "RTCP runs on the port after the RTP port; each AMR codec gives the rate to start with.");
    show("getRemoteRtcpPort()", stream.getRemoteRtcpPort());
    for (unsigned int index = 0; index < stream.getUplinkCodecCount(); ++index) {
        if (const auto* amr = dynamic_cast<const AmrCodecConfig*>(stream.getUplinkCodec(index))) {
            show("uplink codec " + std::to_string(index + 1) + " getPreferedAmrRate()",
                 amr->getPreferedAmrRate());
        }
    }
}

void refuseSetter(StreamConfig& stream) {
    section("A refused value",
            "A value from outside is checked when it is set. A bad one comes back with code 1002\n"
            "and the stream keeps the value it had.");
    show("setRemoteRtpPort(80)", stream.setRemoteRtpPort(80).format());
    show("getRemoteRtpPort()", stream.getRemoteRtpPort());
}

void checkBadCodec(const StreamConfig& stream) {
    section("A stream with a bad codec",
            "check() also checks every codec and stops at the first failure, whose own result it\n"
            "carries in braces. Here a narrow-band AMR codec lists mode 8, which only AMR-WB has.");
    AmrCodecConfig narrowBand = amrWb({AmrRate(7), AmrRate(8)});
    narrowBand.setBandType(BandTypeNb);
    StreamConfig broken(stream);
    broken.clearUplinkCodecs();
    broken.addUplinkCodec(narrowBand);
    show("check()", broken.check().format());
}

}  // namespace

int main() {
    // Warnings go to standard error: flush each piece so that both streams stay in order.
    std::cout << std::unitbuf;
    showResults();
    showEndpointChecks();
    showDtmf();
    const AmrCodecConfig amr = amrWb({AmrRate(8), AmrRate(2), AmrRate(0)});
    showAmrWb(amr);
    showRateMismatch(amr);
    StreamConfig stream = configureStream(amr);
    readStream(stream);
    refuseSetter(stream);
    checkBadCodec(stream);
    return 0;
}
