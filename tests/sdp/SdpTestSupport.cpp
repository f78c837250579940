#include "SdpTestSupport.h"

#include <fstream>
#include <sstream>

#ifdef RUNE_SDP_GSTREAMER
#include <gst/sdp/gstsdpmessage.h>
#endif

using namespace velmora::rune;

namespace velmora {
namespace testing {

std::string sdpText(std::initializer_list<const char*> lines, const char* lineEnd) {
    std::string text;
    for (const char* line : lines) {
        text.append(line).append(lineEnd);
    }
    return text;
}

std::string offer(std::initializer_list<const char*> media) {
    return sdpText({"v=0", "o=- 7 7 IN IP4 192.0.2.1", "s=-", "c=IN IP4 192.0.2.1", "t=0 0"}) +
           sdpText(media);
}

std::string dataText(const std::string& name, const char* lineEnd) {
    std::ifstream file(RUNE_SDP_TEST_DATA + name);
    EXPECT_TRUE(file.is_open()) << name;
    std::string text;
    for (std::string line; std::getline(file, line);) {
        text.append(line).append(lineEnd);
    }
    return text;
}

std::string refusal(const std::string& message, const std::string& text, int number) {
    if (number == 0) {
        return message;
    }
    std::istringstream lines(text);
    std::string line;
    for (int i = 0; i < number; ++i) {
        std::getline(lines, line);
    }
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    return message + " {line " + std::to_string(number) + ": " + line + "}";
}

#ifdef RUNE_SDP_GSTREAMER
namespace {

// Null fields, which no body should give, print as such.
const char* field(const char* text) {
    return text == nullptr ? "(null)" : text;
}

void writeConnection(std::ostream& out, const GstSDPConnection* c) {
    if (c->address != nullptr) {
        out << "c=" << field(c->nettype) << ' ' << field(c->addrtype) << ' ' << c->address
            << "\r\n";
    }
}

void writeBandwidth(std::ostream& out, const GstSDPBandwidth* b) {
    out << "b=" << field(b->bwtype) << ':' << b->bandwidth << "\r\n";
}

void writeAttribute(std::ostream& out, const GstSDPAttribute* a) {
    out << "a=" << field(a->key) << (a->value != nullptr && *a->value != '\0' ? ":" : "")
        << (a->value != nullptr ? a->value : "") << "\r\n";
}

void writeMedia(std::ostream& out, const GstSDPMedia* m) {
    out << "m=" << field(m->media) << ' ' << m->port << ' ' << field(m->proto);
    for (guint i = 0; i < gst_sdp_media_formats_len(m); ++i) {
        out << ' ' << gst_sdp_media_get_format(m, i);
    }
    out << "\r\n";
    for (guint i = 0; i < gst_sdp_media_connections_len(m); ++i) {
        writeConnection(out, gst_sdp_media_get_connection(m, i));
    }
    for (guint i = 0; i < gst_sdp_media_bandwidths_len(m); ++i) {
        writeBandwidth(out, gst_sdp_media_get_bandwidth(m, i));
    }
    for (guint i = 0; i < gst_sdp_media_attributes_len(m); ++i) {
        writeAttribute(out, gst_sdp_media_get_attribute(m, i));
    }
}

// The body again, from the fields GStreamer read, in the order a body of ours has them.
std::string readByGstreamer(const std::string& body) {
    GstSDPMessage* message = nullptr;
    gst_sdp_message_new(&message);
    EXPECT_EQ(GST_SDP_OK, gst_sdp_message_parse_buffer(reinterpret_cast<const guint8*>(body.data()),
                                                       body.size(), message));
    std::ostringstream out;
    const GstSDPOrigin* o = gst_sdp_message_get_origin(message);
    out << "v=" << field(gst_sdp_message_get_version(message)) << "\r\no=" << field(o->username)
        << ' ' << field(o->sess_id) << ' ' << field(o->sess_version) << ' ' << field(o->nettype)
        << ' ' << field(o->addrtype) << ' ' << field(o->addr)
        << "\r\ns=" << field(gst_sdp_message_get_session_name(message)) << "\r\n";
    writeConnection(out, gst_sdp_message_get_connection(message));
    for (guint i = 0; i < gst_sdp_message_bandwidths_len(message); ++i) {
        writeBandwidth(out, gst_sdp_message_get_bandwidth(message, i));
    }
    // GStreamer keeps no time of "t=0 0", and writes it when there is none.
    if (gst_sdp_message_times_len(message) == 0) {
        out << "t=0 0\r\n";
    }
    for (guint i = 0; i < gst_sdp_message_times_len(message); ++i) {
        const GstSDPTime* t = gst_sdp_message_get_time(message, i);
        out << "t=" << field(t->start) << ' ' << field(t->stop) << "\r\n";
    }
    for (guint i = 0; i < gst_sdp_message_attributes_len(message); ++i) {
        writeAttribute(out, gst_sdp_message_get_attribute(message, i));
    }
    for (guint i = 0; i < gst_sdp_message_medias_len(message); ++i) {
        writeMedia(out, gst_sdp_message_get_media(message, i));
    }
    gst_sdp_message_free(message);
    return out.str();
}

}  // namespace
#endif

void expectOthersReadAlike(const std::string& body) {
#ifdef RUNE_SDP_GSTREAMER
    const std::string whole =
        body.compare(0, 2, "v=") == 0
            ? body
            : sdpText({"v=0", "o=- 42 42 IN IP4 192.0.2.99", "s=-", "t=0 0"}) + body;
    EXPECT_EQ(whole, readByGstreamer(whole));
#else
    (void)body;
#endif
}

AmrCodecConfig amrCodec(BandType band, int payloadType, std::vector<int> rates, int options,
                        int maxRed) {
    AmrCodecConfig amr;
    EXPECT_TRUE(amr.setBandType(band).isSuccess());
    amr.setPayloadType(payloadType);
    for (int rate = 0; rates.empty() && rate <= (band == BandTypeNb ? 7 : 8); ++rate) {
        EXPECT_TRUE(amr.addAmrRate(static_cast<AmrRate>(rate)).isSuccess());
    }
    for (int rate : rates) {
        EXPECT_TRUE(amr.addAmrRate(static_cast<AmrRate>(rate)).isSuccess());
    }
    amr.setOctetAlignMode((options & kOctetAlign) != 0);
    amr.setCrcMode((options & kCrc) != 0);
    amr.setRobustSortingMode((options & kRobustSorting) != 0);
    amr.setInterleavingMode((options & kInterleaving) != 0);
    amr.setModeChangePeriod((options & kPeriodTwo) != 0 ? ModeChangePeriodEveryOtherFrame
                                                        : ModeChangePeriodAnyFrame);
    amr.setModeChangeNeighbor((options & kNeighbor) != 0);
    if (maxRed != 0) {
        amr.setRdcyMode(true);
        amr.setMaxRdcy(maxRed);
    }
    return amr;
}

DtmfCodecConfig dtmfCodec(BandType band, int payloadType) {
    DtmfCodecConfig dtmf;
    EXPECT_TRUE(dtmf.setBandType(band).isSuccess());
    dtmf.setPayloadType(payloadType);
    return dtmf;
}

void setPacketTimes(const std::vector<CodecConfig*>& codecs, unsigned int packetTime,
                    unsigned int maxPacketTime) {
    for (CodecConfig* codec : codecs) {
        codec->setPacketTime(packetTime);
        codec->setMaxPacketTime(maxPacketTime);
    }
}

StreamConfig placedStream(const std::string& ip, int port, StreamConfig::Direction direction,
                          const std::vector<const CodecConfig*>& codecs, const RtcpConfig& rtcp) {
    StreamConfig stream;
    EXPECT_TRUE(stream.setRemoteIp(ip).isSuccess());
    EXPECT_TRUE(stream.setRemoteRtpPort(port).isSuccess());
    EXPECT_TRUE(stream.setDirection(direction).isSuccess());
    for (const CodecConfig* codec : codecs) {
        if (stream.hasUplink()) {
            EXPECT_TRUE(stream.addUplinkCodec(*codec).isSuccess());
        }
        if (stream.hasDownlink() || !stream.hasUplink()) {
            EXPECT_TRUE(stream.addDownlinkCodec(*codec).isSuccess());
        }
    }
    stream.setRtcpConfig(rtcp);
    return stream;
}

StreamConfig::Direction mirrored(StreamConfig::Direction direction) {
    return direction == StreamConfig::DirectionSendOnly      ? StreamConfig::DirectionReceiveOnly
           : direction == StreamConfig::DirectionReceiveOnly ? StreamConfig::DirectionSendOnly
                                                             : direction;
}

AmrCodecCapabilities amrCaps(BandType band, std::vector<int> modes) {
    AmrCodecCapabilities amr;
    amr.setBandType(band);
    for (int mode : modes) {
        EXPECT_TRUE(amr.addSupportedAmrRate(static_cast<AmrRate>(mode)).isSuccess());
    }
    return amr;
}

StreamCapabilities phoneCaps(const AmrCodecCapabilities& wide, const AmrCodecCapabilities& narrow,
                             std::vector<RtpProfile> profiles, RtcpConfig rtcp, bool wideEvents) {
    StreamCapabilities local;
    local.addCodecCapabilities(wide);
    local.addCodecCapabilities(narrow);
    DtmfCodecCapabilities events;
    if (wideEvents) {
        local.addCodecCapabilities(events);
    }
    events.setBandType(BandTypeNb);
    local.addCodecCapabilities(events);
    for (RtpProfile profile : profiles) {
        local.addRtpProfile(profile);
    }
    local.setRtcpCaps(rtcp);
    return local;
}

}  // namespace testing
}  // namespace velmora
