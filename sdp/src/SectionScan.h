// Reading one audio section in one walk over its lines, with the lines it inherits from the
// session level: the pieces that the syntax walk and a later re-read share.
#ifndef VELMORA_RUNE_SDP_SRC_SECTION_SCAN_H
#define VELMORA_RUNE_SDP_SRC_SECTION_SCAN_H

#include <velmora/rune/StreamConfig.h>

#include "AudioSection.h"
#include "syntax/SdpLine.h"
#include "syntax/SessionDescription.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

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

    // Starts reading section; its lines are worth scanning only when scanning() says so.
    void start(const MediaSection& section);
    bool scanning() const { return mPayloadTypes.isSuccess(); }
    void take(const Line& line, const LineValues& values);
    // Session-level lines fill in per kind what the section does not say.
    StreamConfig::Result finish(const SharedLines& session, SectionRule rule, AddressCheck check);

  private:
    void takeAttribute(const Line& line);

    RemoteMedia& mOut;
    std::array<uint8_t, kMaxPayloadType + 1> mIndex{};
    StreamConfig::Result mPayloadTypes = successResult();
    SharedLines mShared;
    // The first a=ptime or a=maxptime whose value is not a number.
    Line mBadPacketTime;
    std::string_view mBadPacketTimeValue;
};

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_SECTION_SCAN_H
