#include "read/PreconditionReader.h"

#include "syntax/PreconditionWords.h"
#include "syntax/SdpLine.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// RFC 3261 token characters, by byte: one look-up tells a byte.
constexpr std::array<bool, 256> makeTokenCharacters() {
    std::array<bool, 256> token{};
    for (size_t c = 0; c < token.size(); ++c) {
        token[c] = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    }
    for (const char c : std::string_view("-.!%*_+`'~")) {
        token[static_cast<unsigned char>(c)] = true;
    }
    return token;
}

constexpr std::array<bool, 256> kTokenCharacters = makeTokenCharacters();

bool isTokenCharacter(char c) {
    return kTokenCharacters[static_cast<unsigned char>(c)];
}

// "<type> [<strength>] <status-type> <direction-tag>", the strength for a=des only.
bool readRow(std::string_view value, PreconditionRow& row) {
    // The type is a token ended by a blank or the end: one pass over it.
    value = trimStart(value);
    size_t end = 0;
    while (end < value.size() && isTokenCharacter(value[end])) {
        ++end;
    }
    row.type = value.substr(0, end);
    value.remove_prefix(end);
    if (row.type.empty() || (!value.empty() && !isBlank(value.front()))) {
        return false;
    }
    value = trimStart(value);
    size_t strength = 0;
    size_t statusType;
    size_t direction;
    if ((row.kind == Preconditions::Kind::Desired && !takeWord<kStrengthWords>(value, strength)) ||
        !takeWord<kStatusTypeWords>(value, statusType) ||
        !takeWord<kDirectionTagWords>(value, direction) || !value.empty()) {
        return false;
    }
    row.strength = static_cast<Strength>(strength);
    row.statusType = static_cast<Preconditions::StatusType>(statusType);
    row.direction = static_cast<StreamConfig::Direction>(direction);
    return true;
}

// Whether the value of an a= line is the name of that kind, then a colon and a value, or nothing;
// the name and the colon are taken off it. Names are compared as written, as the other
// attributes' are.
template <size_t Kind>
bool takeKindName(std::string_view& attribute) {
    constexpr std::string_view name = kPreconditionKindWords[Kind];
    if ((attribute.size() > name.size() && attribute[name.size()] != ':') ||
        !startsWithBytes<name.size()>(attribute, name.data())) {
        return false;
    }
    attribute.remove_prefix(std::min(name.size() + 1, attribute.size()));
    return true;
}

// The kind of an a=curr, a=des or a=conf line, its value left in attribute; false for others.
bool takeKind(std::string_view& attribute, Preconditions::Kind& kind) {
    static_assert(kPreconditionKindWords.size() == 3, "three kinds");
    size_t index = 0;
    if (takeKindName<0>(attribute)) {
        index = 0;
    } else if (takeKindName<1>(attribute)) {
        index = 1;
    } else if (takeKindName<2>(attribute)) {
        index = 2;
    } else {
        return false;
    }
    kind = static_cast<Preconditions::Kind>(index);
    return true;
}

bool isUnsupported(const PreconditionRow& row) {
    return row.kind == Preconditions::Kind::Desired && row.strength == Strength::Mandatory &&
           row.statusType != Preconditions::StatusType::Local &&
           !equalsIgnoreCase(row.type, kQosType);
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
        std::string_view value = line.value();
        PreconditionRow row;
        if (!takeKind(value, row.kind)) {
            continue;
        }
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
