// Reading the audio section of a description in one walk over its lines, with the lines it
// inherits from the session level: during the syntax walk, or again for a section named later.
#ifndef VELMORA_RUNE_SDP_SRC_READ_SECTION_READER_H
#define VELMORA_RUNE_SDP_SRC_READ_SECTION_READER_H

#include <velmora/rune/StreamConfig.h>

#include "read/RemoteMedia.h"
#include "syntax/SdpLine.h"
#include "syntax/SessionDescription.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

// Whether a missing audio section, or a missing c= line for it, is refused as the section is
// read, or later by the caller (an answer's values come before its structure, its missing
// address after).
enum class SectionRule { Required, CheckedLater };

// Reads section, refusing in this order: port, transport, payload types, address, the AMR
// formats' fmtp values in m= order, then a=ptime and a=maxptime (a number above 0) in line order.
StreamConfig::Result readSection(const Description& description, const MediaSection& section,
                                 RemoteMedia& out, SectionRule rule = SectionRule::Required);

// Parses text and, in the same walk, reads its first section that qualifies; when none does,
// refuses as the first active audio section would be refused, and "No audio stream" when there
// is none. With CheckedLater, no audio section leaves out's section without an m= line.
StreamConfig::Result readDescription(std::string_view text, Description& parsed, RemoteMedia& out,
                                     SectionRule rule);

// 1003 "No connection address", context the section's m= line.
StreamConfig::Result noConnectionAddress(const MediaSection& section);

// The first audio section with a port other than 0; false when there is none.
bool findFirstActiveAudio(const Description& description, MediaSection& section);
// 1003 "No audio stream".
StreamConfig::Result noAudioStream();

// The lines that may come from either level; the first one of each counts.
struct SharedLines {
    Line connection;
    // Of the connection line.
    std::string_view address;
    std::optional<StreamConfig::Direction> direction;
    std::optional<uint32_t> as;
    std::optional<uint32_t> rs;
    std::optional<uint32_t> rr;

    void takeConnection(const Line& line, const LineValues& values);
    void takeBandwidth(const LineValues& values);
    // Nothing when direction is known already or text is no direction.
    void takeDirection(std::string_view text);
};

// The session-level lines that sections inherit.
void takeSessionLine(SharedLines& session, const Line& line, const LineValues& values);

// One section read in one walk: its payload types first, then its lines one by one, then the
// checks in their order.
class SectionScan {
  public:
    explicit SectionScan(RemoteMedia& out) : mOut(out) {}

    // Starts reading section, once a scan; its lines are worth scanning only when scanning() says
    // so.
    void start(const MediaSection& section);
    bool scanning() const { return mPayloadTypes.isSuccess(); }
    void take(const Line& line, const LineValues& values);
    // Session-level lines fill in per kind what the section does not say.
    StreamConfig::Result finish(const SharedLines& session, SectionRule rule);

  private:
    void takeAttribute(const Line& line);
    void takeRtpmap(std::string_view value);
    void takeFmtp(const Line& line, std::string_view value);
    // Keeps the first bad value of either line for its refusal.
    void takePacketTime(const Line& line, std::string_view value, std::optional<uint32_t>& target);

    RemoteMedia& mOut;
    std::array<uint8_t, kMaxPayloadType + 1> mIndex{};
    StreamConfig::Result mPayloadTypes = successResult();
    SharedLines mShared;
    // The first a=ptime or a=maxptime whose value is not a number above 0.
    Line mBadPacketTime;
    std::string_view mBadPacketTimeValue;
};

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_READ_SECTION_READER_H
