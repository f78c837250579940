#include "AudioSection.h"

#include "SectionScan.h"
#include "syntax/SdpLine.h"

#include <optional>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// Reads the first qualifying section as the syntax check walks the description; remembers the
// first active audio section, whose refusal explains why none qualifies.
class ChosenSectionReader final : public LineObserver {
  public:
    explicit ChosenSectionReader(RemoteMedia& out) : mScan(out) {}

    void sessionLine(const Line& line, const LineValues& values) override {
        takeSessionLine(mSession, line, values);
    }
    bool mediaLine(const MediaSection& section) override;
    void sectionLine(const Line& line, const LineValues& values) override {
        mScan.take(line, values);
    }

    StreamConfig::Result finish(const Description& description, SectionRule rule,
                                AddressCheck check, RemoteMedia& out);

  private:
    SectionScan mScan;
    SharedLines mSession;
    bool mChosen = false;
    std::optional<unsigned> mFirstActive;
};

bool ChosenSectionReader::mediaLine(const MediaSection& section) {
    if (!mFirstActive && section.isActiveAudio()) {
        mFirstActive = section.index;
    }
    if (mChosen || !qualifies(section)) {
        return false;
    }
    mChosen = true;
    mScan.start(section);
    return mScan.scanning();
}

StreamConfig::Result ChosenSectionReader::finish(const Description& description, SectionRule rule,
                                                 AddressCheck check, RemoteMedia& out) {
    if (mChosen) {
        return mScan.finish(mSession, rule, check);
    }
    MediaSection section;
    if (mFirstActive && description.section(*mFirstActive, section)) {
        return readSection(description, section, out, rule, check);
    }
    return rule == SectionRule::Required ? noAudioStream() : successResult();
}

}  // namespace

const RemoteFormat* RemoteMedia::find(int payloadType) const {
    for (const RemoteFormat& format : *this) {
        if (format.payloadType == payloadType) {
            return &format;
        }
    }
    return nullptr;
}

bool isSupportedTransport(std::string_view protocol) {
    return protocol == "RTP/AVP" || protocol == "RTP/AVPF";
}

bool qualifies(const MediaSection& section) {
    return section.isActiveAudio() && isSupportedTransport(section.protocol);
}

StreamConfig::Result readSection(const Description& description, const MediaSection& section,
                                 RemoteMedia& out, SectionRule rule, AddressCheck check) {
    SectionScan scan(out);
    scan.start(section);
    LineCursor lines = section.lines();
    Line line;
    while (scan.scanning() && lines.next(line)) {
        LineValues values;
        Description::readValues(line, values);
        scan.take(line, values);
    }
    SharedLines session;
    lines = description.sessionLines();
    while (lines.next(line)) {
        LineValues values;
        Description::readValues(line, values);
        takeSessionLine(session, line, values);
    }
    return scan.finish(session, rule, check);
}

StreamConfig::Result readDescription(std::string_view text, Description& parsed, RemoteMedia& out,
                                     SectionRule rule, AddressCheck check) {
    ChosenSectionReader reader(out);
    StreamConfig::Result result = Description::parse(text, parsed, &reader);
    return result.isFailure() ? result : reader.finish(parsed, rule, check, out);
}

bool findFirstActiveAudio(const Description& description, MediaSection& section) {
    SectionCursor sections = description.sections();
    while (sections.next(section)) {
        if (section.isActiveAudio()) {
            return true;
        }
    }
    return false;
}

StreamConfig::Result noAudioStream() {
    return makeResult<StreamConfig::ResultTrait>(StreamConfig::InvalidConfiguration,
                                                 "No audio stream");
}

StreamConfig::Result noConnectionAddress(const MediaSection& section) {
    return refusalAt(section.mediaLine, StreamConfig::InvalidConfiguration,
                     "No connection address");
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
