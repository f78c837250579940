#include "write/PreconditionLines.h"

#include "syntax/PreconditionWords.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

using Kind = Preconditions::Kind;

const size_t kStatusTypes = kStatusTypeWords.size();
const size_t kDirections = kDirectionTagWords.size();
// A line without a strength, then one per strength.
const size_t kStrengthSlots = kStrengthWords.size() + 1;

// What a line says after its type: " mandatory local sendrecv".
struct LineEnd {
    std::array<char, 32> bytes{};
    size_t size = 0;

    constexpr void add(std::string_view word) {
        bytes[size++] = ' ';
        for (const char c : word) {
            bytes[size++] = c;
        }
    }
    std::string_view text() const { return {bytes.data(), size}; }
};

// Every line end, so that a row's is written at once: by strength slot, status type, direction.
constexpr std::array<LineEnd, kStrengthSlots * kStatusTypes * kDirections> makeLineEnds() {
    std::array<LineEnd, kStrengthSlots * kStatusTypes * kDirections> ends{};
    for (size_t strength = 0; strength < kStrengthSlots; ++strength) {
        for (size_t statusType = 0; statusType < kStatusTypes; ++statusType) {
            for (size_t direction = 0; direction < kDirections; ++direction) {
                LineEnd& end =
                    ends[(strength * kStatusTypes + statusType) * kDirections + direction];
                if (strength > 0) {
                    end.add(kStrengthWords[strength - 1]);
                }
                end.add(kStatusTypeWords[statusType]);
                end.add(kDirectionTagWords[direction]);
            }
        }
    }
    return ends;
}

constexpr std::array<LineEnd, kStrengthSlots* kStatusTypes* kDirections> kLineEnds = makeLineEnds();

// By Preconditions::Kind: the start of a line of a qos row.
constexpr std::array<std::string_view, 3> kQosLineStarts = {"a=curr:qos", "a=des:qos",
                                                            "a=conf:qos"};

void writeLineStart(LineWriter& writer, const PreconditionRow& row) {
    const auto kind = static_cast<size_t>(row.kind);
    // The usual type, known to be a token: nothing to quote.
    if (row.type == kQosType && kind < kQosLineStarts.size()) {
        writer.text(kQosLineStarts[kind]);
        return;
    }
    writer.text("a=").text(wordOf(kPreconditionKindWords, row.kind)).text(":");
    writer.token(row.type);
}

void writeLineEnd(LineWriter& writer, const PreconditionRow& row) {
    const bool desired = row.kind == Kind::Desired;
    const size_t strength = desired ? static_cast<size_t>(row.strength) + 1 : 0;
    const auto statusType = static_cast<size_t>(row.statusType);
    const auto direction = static_cast<size_t>(row.direction);
    if (strength < kStrengthSlots && statusType < kStatusTypes && direction < kDirections) {
        writer.text(
            kLineEnds[(strength * kStatusTypes + statusType) * kDirections + direction].text());
        return;
    }
    // A value outside its enumeration.
    if (desired) {
        writer.text(" ").text(wordOf(kStrengthWords, row.strength));
    }
    writer.text(" ").text(wordOf(kStatusTypeWords, row.statusType));
    writer.text(" ").text(wordOf(kDirectionTagWords, row.direction));
}

}  // namespace

void writePreconditionRow(LineWriter& writer, const PreconditionRow& row) {
    writeLineStart(writer, row);
    writeLineEnd(writer, row);
}

void writePreconditions(LineWriter& writer, const PreconditionRows& rows) {
    for (const PreconditionRow& row : rows) {
        writePreconditionRow(writer, row);
        writer.end();
    }
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
