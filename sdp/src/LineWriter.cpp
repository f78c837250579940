#include "LineWriter.h"

#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

const char* const kLineEnd = "\r\n";

}  // namespace

void MediaWriter::media(int port, RtpProfile profile,
                        const std::vector<const CodecConfig*>& codecs) {
    mText << "m=audio " << port << (profile == RtpProfileAvpf ? " RTP/AVPF" : " RTP/AVP");
    for (const CodecConfig* codec : codecs) {
        mText << " " << codec->getPayloadType();
    }
    mText << kLineEnd;
}

void MediaWriter::connection(const std::string& address) {
    const bool ipV6 = address.find(':') != std::string::npos;
    mText << "c=IN " << (ipV6 ? "IP6 " : "IP4 ") << address << kLineEnd;
}

void MediaWriter::bandwidth(const char* modifier, unsigned int value) {
    mText << "b=" << modifier << ":" << value << kLineEnd;
}

void MediaWriter::rtpmap(const CodecConfig& codec) {
    const bool narrow = codec.getBandType() == BandTypeNb;
    if (dynamic_cast<const AmrCodecConfig*>(&codec) != nullptr) {
        mText << "a=rtpmap:" << codec.getPayloadType()
              << (narrow ? " AMR/8000/1" : " AMR-WB/16000/1") << kLineEnd;
    } else if (dynamic_cast<const DtmfCodecConfig*>(&codec) != nullptr) {
        mText << "a=rtpmap:" << codec.getPayloadType()
              << (narrow ? " telephone-event/8000" : " telephone-event/16000") << kLineEnd;
    }
}

void MediaWriter::fmtp(int payloadType, const std::string& parameters) {
    if (!parameters.empty()) {
        mText << "a=fmtp:" << payloadType << " " << parameters << kLineEnd;
    }
}

void MediaWriter::attribute(const std::string& name, const std::string& value) {
    mText << "a=" << name << (value.empty() ? "" : ":") << value << kLineEnd;
}

void MediaWriter::direction(StreamConfig::Direction direction) {
    switch (direction) {
        case StreamConfig::DirectionInactive:
            attribute("inactive");
            break;
        case StreamConfig::DirectionSendOnly:
            attribute("sendonly");
            break;
        case StreamConfig::DirectionReceiveOnly:
            attribute("recvonly");
            break;
        default:
            attribute("sendrecv");
            break;
    }
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
