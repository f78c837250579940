#include "read/PreconditionReader.h"

#include "syntax/PreconditionWords.h"
#include "syntax/SdpLine.h"

#include <algorithm>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// RFC 3261 token characters.
bool isTokenCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-.!%*_+`'~").find(c) != std::string_view::npos;
}

bool isToken(std::string_view text) {
    for (char c : text) {
        if (!isTokenCharacter(c)) {
            return false;
        }
    }
    return !text.empty();
}

// "<type> [<strength>] <status-type> <direction-tag>", the strength for a=des only.
bool readRow(std::string_view value, Preconditions::Row& row) {
    const std::string_view type = nextField(value);
    size_t strength = 0;
    if (row.kind == Preconditions::Kind::Desired &&
        !findWord(kStrengthWords, nextField(value), strength)) {
        return false;
    }
    size_t statusType;
    size_t direction;
    if (!isToken(type) || !findWord(kStatusTypeWords, nextField(value), statusType) ||
        !findWord(kDirectionTagWords, nextField(value), direction) || !trim(value).empty()) {
        return false;
    }
    // A row is read into the one before: rows mostly share their type, which then stays.
    if (row.type != type) {
        row.type.assign(type);
    }
    row.strength = static_cast<Strength>(strength);
    row.statusType = static_cast<Preconditions::StatusType>(statusType);
    row.direction = static_cast<StreamConfig::Direction>(direction);
    return true;
}

bool isUnsupported(const Preconditions::Row& row) {
    return row.kind == Preconditions::Kind::Desired && row.strength == Strength::Mandatory &&
           row.statusType != Preconditions::StatusType::Local && !equalsIgnoreCase(row.type, "qos");
}

// Of the lines, those of a=curr, a=des and a=conf.
StreamConfig::Result readLines(LineCursor lines, PreconditionUse use, Preconditions& out) {
    Preconditions read;
    // One row for every line: its type's string is made once.
    Preconditions::Row row;
    Line line;
    while (lines.next(line)) {
        // a=curr, a=des and a=conf only: most lines of a section go at their third byte.
        const std::string_view text = line.text;
        if (text.size() < 3 || text[0] != 'a' || (text[2] != 'c' && text[2] != 'd')) {
            continue;
        }
        std::string_view name;
        std::string_view value;
        Description::splitAttribute(line, name, value);
        // Attribute names are compared as written, as the other attributes are.
        const auto* const kind =
            std::find(kPreconditionKindWords.begin(), kPreconditionKindWords.end(), name);
        if (kind == kPreconditionKindWords.end()) {
            continue;
        }
        row.kind = static_cast<Preconditions::Kind>(kind - kPreconditionKindWords.begin());
        if (!readRow(value, row)) {
            return refusalAt(line, StreamConfig::InvalidParam, "Bad precondition");
        }
        if (use == PreconditionUse::Answered && isUnsupported(row)) {
            return refusalAt(line, StreamConfig::InvalidConfiguration,
                             "Unsupported precondition: ", row.type);
        }
        if (read.find(row.kind, row.type, row.statusType) == nullptr) {
            read.add(row);
        }
    }
    out = std::move(read);
    return successResult();
}

}  // namespace

StreamConfig::Result readPreconditions(const MediaSection& section, PreconditionUse use,
                                       Preconditions& out) {
    if (section.port == 0) {
        out = Preconditions();
        return successResult();
    }
    return readLines(section.lines(), use, out);
}

StreamConfig::Result readPreconditions(const RemoteMedia& media, PreconditionUse use,
                                       Preconditions& out) {
    return readLines(media.preconditionLines(), use, out);
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
