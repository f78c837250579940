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
bool readRow(std::string_view value, PreconditionRow& row) {
    row.type = nextField(value);
    value = trimStart(value);
    size_t strength = 0;
    size_t statusType;
    size_t direction;
    if (!isToken(row.type) ||
        (row.kind == Preconditions::Kind::Desired && !takeWord(kStrengthWords, value, strength)) ||
        !takeWord(kStatusTypeWords, value, statusType) ||
        !takeWord(kDirectionTagWords, value, direction) || !value.empty()) {
        return false;
    }
    row.strength = static_cast<Strength>(strength);
    row.statusType = static_cast<Preconditions::StatusType>(statusType);
    row.direction = static_cast<StreamConfig::Direction>(direction);
    return true;
}

bool isUnsupported(const PreconditionRow& row) {
    return row.kind == Preconditions::Kind::Desired && row.strength == Strength::Mandatory &&
           row.statusType != Preconditions::StatusType::Local && !equalsIgnoreCase(row.type, "qos");
}

// Of the lines, those of a=curr, a=des and a=conf.
StreamConfig::Result readLines(LineCursor lines, PreconditionUse use, PreconditionRows& out) {
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
        PreconditionRow row;
        row.kind = static_cast<Preconditions::Kind>(kind - kPreconditionKindWords.begin());
        if (!readRow(value, row)) {
            return refusalAt(line, StreamConfig::InvalidParam, "Bad precondition");
        }
        if (use == PreconditionUse::Answered && isUnsupported(row)) {
            return refusalAt(line, StreamConfig::InvalidConfiguration,
                             "Unsupported precondition: ", row.type);
        }
        out.add(row, PreconditionRows::Same::Kept);
    }
    return successResult();
}

}  // namespace

StreamConfig::Result readPreconditions(const RemoteMedia& media, PreconditionUse use,
                                       PreconditionRows& out) {
    return readLines(media.preconditionLines(), use, out);
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
