#include "SdpTestSupport.h"

#include <sstream>

#ifdef RUNE_SDP_GSTREAMER
#include <gst/sdp/gstsdpmessage.h>
#endif

namespace velmora {
namespace testing {

std::string refusal(const std::string& message, const std::string& text, int number,
                    const std::string& textName) {
    std::istringstream lines(text);
    std::string line;
    for (int i = 0; i < number; ++i) {
        std::getline(lines, line);
    }
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    return message + " {" + textName + "line " + std::to_string(number) + ": " + line + "}";
}

std::vector<Case> dataCases(const std::string& name, const std::string& textName) {
    std::vector<Case> cases;
    int number = 0, quoted = 0;
    const auto quote = [&] {
        if (quoted != 0) {
            cases.back().expected =
                refusal(cases.back().expected, cases.back().text, quoted, textName);
        }
    };
    std::istringstream lines(dataText(name, "\n"));
    for (std::string line; std::getline(lines, line);) {
        if (line.compare(0, 2, "> ") == 0) {
            quote();
            cases.push_back({line.substr(2), ""});
            number = quoted = 0;
        } else if (!cases.empty() && line[0] != '#') {
            const bool marked = line[0] == '!';
            line.erase(0, marked ? 1 : 0);
            if (number == 0 && line.compare(0, 2, "m=") == 0) {
                cases.back().text = offer({});
                number = 5;
            }
            quoted = marked ? number + 1 : quoted;
            cases.back().text += line + "\r\n";
            ++number;
        }
    }
    quote();
    return cases;
}

// GStreamer writes the body again from the fields it read (version, origin, connections,
// bandwidths, times, media with port, protocol and formats, attributes), in the order of RFC 8866,
// which is ours.
void expectOthersReadAlike(const std::string& body) {
#ifdef RUNE_SDP_GSTREAMER
    const std::string whole =
        body.compare(0, 2, "v=") == 0
            ? body
            : sdpText({"v=0", "o=- 42 42 IN IP4 192.0.2.99", "s=-", "t=0 0"}) + body;
    GstSDPMessage* message = nullptr;
    gst_sdp_message_new(&message);
    EXPECT_EQ(GST_SDP_OK,
              gst_sdp_message_parse_buffer(reinterpret_cast<const guint8*>(whole.data()),
                                           whole.size(), message));
    // GStreamer 1.22 keeps no t= line, and writes one "t=0 0" for them all.
    std::string expected = whole;
    const size_t time = expected.find("\r\nt=") + 2;
    size_t end = time;
    while (expected.compare(end, 2, "t=") == 0) end = expected.find('\n', end) + 1;
    expected.replace(time, end - time, "t=0 0\r\n");
    gchar* text = gst_sdp_message_as_text(message);
    EXPECT_EQ(expected, text);
    g_free(text);
    gst_sdp_message_free(message);
#else
    (void)body;
#endif
}

}  // namespace testing
}  // namespace velmora
