#include "write/RejectedMedia.h"

namespace velmora {
namespace rune {
namespace sdp {

void writeRejectedMedia(LineWriter& writer, const MediaSection& section) {
    writer.text("m=").token(section.type).text(" 0 ").token(section.protocol);
    std::string_view formats = section.formats;
    for (std::string_view token = nextField(formats); !token.empty(); token = nextField(formats)) {
        writer.text(" ").token(token);
    }
    writer.end();
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
