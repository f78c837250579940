// A session description split into its session part and its media sections, with the syntax
// of every line checked: x=value, and the forms of m=, c=, b= and t=. Nothing is copied: the views
// point into the text that was parsed, which must outlive the description, and the sections are
// found again by scanning, so that reading costs no memory per line.
#ifndef VELMORA_RUNE_SDP_SRC_SYNTAX_SESSION_DESCRIPTION_H
#define VELMORA_RUNE_SDP_SRC_SYNTAX_SESSION_DESCRIPTION_H

#include <velmora/rune/StreamConfig.h>

#include "syntax/SdpLine.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

// One media section: its m= line read, and the lines after it up to the next m= line.
struct MediaSection {
    Line mediaLine;
    // "audio", "video", ...
    std::string_view type;
    // Without any "/count" suffix.
    int port = 0;
    // "RTP/AVP", ...
    std::string_view protocol;
    // The format tokens of the m= line, unread, blank-separated.
    std::string_view formats;
    // 0 for the first media section.
    unsigned index = 0;

    LineCursor lines() const { return {mBody, mBodyNumber}; }
    bool isActiveAudio() const { return type == "audio" && port != 0; }

  private:
    friend class SectionCursor;
    std::string_view mBody;
    unsigned mBodyNumber = 0;
};

// The media sections of a description, in order.
class SectionCursor {
  public:
    SectionCursor(std::string_view text, unsigned firstNumber, unsigned count)
        : mRest(text), mNumber(firstNumber), mCount(count) {}

    bool next(MediaSection& section);

  private:
    // From the next m= line on.
    std::string_view mRest;
    unsigned mNumber;
    unsigned mCount;
    unsigned mIndex = 0;
};

// The values of a c=, b= or t= line, read once by the syntax check.
struct LineValues {
    // c=: without a "/ttl" or "/count" suffix.
    std::string_view address;
    // b=
    std::string_view modifier;
    uint32_t bandwidth = 0;
    // t=
    uint64_t start = 0;
    uint64_t stop = 0;
};

// Sees the lines as the syntax check reads them, so that a reader needs no second walk. Lines
// come in order, but a later line may still fail the syntax check. Of the values, only the fields
// of the line's own type are its; the others are left from earlier lines.
class LineObserver {
  public:
    // A line before the first m= line.
    virtual void sessionLine(const Line& line, const LineValues& values) = 0;
    // The section as its m= line gives it, without its body; true to see the section's lines.
    virtual bool mediaLine(const MediaSection& section) = 0;
    // A line after an m= line that mediaLine wanted to see.
    virtual void sectionLine(const Line& line, const LineValues& values) = 0;

  protected:
    ~LineObserver() = default;
};

class Description {
  public:
    // Refuses a text longer than 64 KiB, then the first line whose syntax is wrong; out is
    // complete only on success. The observer, when given, sees the lines on the way.
    static StreamConfig::Result parse(std::string_view text, Description& out,
                                      LineObserver* observer = nullptr);
    // Whether count lines of text at least start with "m=": its sectionCount() is count or more
    // when it parses. Read without a parse, up to the count-th such line.
    static bool hasMediaLines(std::string_view text, unsigned count);
    // The offset of the first line end at or after at that an "m=" line follows; npos when there
    // is none. One search a line end, the two bytes after it compared in place.
    static size_t findMediaLineEnd(std::string_view text, size_t at) {
        for (at = text.find('\n', at); at != std::string_view::npos; at = text.find('\n', at + 1)) {
            if (at + 2 < text.size() && text[at + 1] == 'm' && text[at + 2] == '=') {
                return at;
            }
        }
        return std::string_view::npos;
    }

    // The session-level lines, v= included.
    LineCursor sessionLines() const { return {mSession, 1}; }
    SectionCursor sections() const {
        return {mText.substr(mSession.size()), mFirstMediaNumber, mSectionCount};
    }
    // The number of m= lines.
    unsigned sectionCount() const { return mSectionCount; }
    // The media section at index; false when there is none.
    bool section(unsigned index, MediaSection& section) const;
    // The same number of m= lines, of the same media types and protocols in the same order.
    bool hasSameMediaLines(const Description& other) const;

    // The values of a c=, b= or t= line; false when its form is wrong. Other lines have none.
    static bool readValues(const Line& line, LineValues& values) {
        switch (line.type()) {
            case 'c':
                return parseConnection(line.value(), values.address);
            case 'b':
                return parseBandwidth(line.value(), values.modifier, values.bandwidth);
            case 't':
                return parseTiming(line.value(), values.start, values.stop);
            default:
                return true;
        }
    }
    // The address of a c= value "IN IP4 a" or "IN IP6 a", without a "/ttl" or "/count" suffix.
    static bool parseConnection(std::string_view value, std::string_view& address);
    // A b= value "modifier:number".
    static bool parseBandwidth(std::string_view value, std::string_view& modifier,
                               uint32_t& bandwidth);
    // A t= value: two decimal numbers, the start and stop times.
    static bool parseTiming(std::string_view value, uint64_t& start, uint64_t& stop);
    // The name and value of an a= line: "rtpmap" and "97 AMR/8000" for "a=rtpmap:97 AMR/8000".
    static void splitAttribute(const Line& line, std::string_view& name, std::string_view& value) {
        const std::string_view text = line.value();
        const size_t colon = text.find(':');
        name = text.substr(0, colon);
        value = colon == std::string_view::npos ? std::string_view() : text.substr(colon + 1);
    }

    // Whether text, the value of an a= line, names the attribute name ("rtpmap" for
    // "rtpmap:97 AMR/8000"), and then its value as splitAttribute gives it. A name of a length
    // known when compiling is compared in a word or two.
    template <size_t N>
    static bool isAttribute(std::string_view text, const char (&name)[N], std::string_view& value) {
        const size_t size = N - 1;
        if (text.size() < size || std::memcmp(text.data(), name, size) != 0) {
            return false;
        }
        if (text.size() == size) {
            value = std::string_view();
            return true;
        }
        value = text.substr(size + 1);
        return text[size] == ':';
    }

    static bool parseMedia(const Line& line, MediaSection& media);

  private:
    std::string_view mText;
    // The text before the first m= line.
    std::string_view mSession;
    // The number of the first m= line.
    unsigned mFirstMediaNumber = 0;
    unsigned mSectionCount = 0;
    // The media types and protocols of the first sections, so that usual descriptions compare
    // without a walk.
    static const unsigned kKnownTypes = 4;
    std::array<std::string_view, kKnownTypes> mTypes;
    std::array<std::string_view, kKnownTypes> mProtocols;
};

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_SYNTAX_SESSION_DESCRIPTION_H
