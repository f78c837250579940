// The media section of a stream as this side writes it.
#ifndef VELMORA_RUNE_SDP_SRC_WRITE_STREAM_MEDIA_H
#define VELMORA_RUNE_SDP_SRC_WRITE_STREAM_MEDIA_H

#include <velmora/rune/StreamConfig.h>

#include "amr/AmrFmtp.h"
#include "read/PreconditionRows.h"
#include "write/LineWriter.h"

#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

// Whether a telephone-event gets the a=fmtp that an offer gives it.
enum class EventsFmtp { Left, Offered };

// The media section of stream from its m= line on, as writeMediaDescription describes it; the
// AMR codecs' a=fmtp from amrFmtp when it is given, else from each codec's configuration; the
// precondition rows, when given, before the direction.
void writeStreamMedia(LineWriter& writer, const StreamConfig& stream, std::string_view localIp,
                      int localPort, const AmrFmtpText* amrFmtp,
                      EventsFmtp events = EventsFmtp::Left,
                      const PreconditionRows* preconditions = nullptr);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_WRITE_STREAM_MEDIA_H
