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

const size_t kKinds = kPreconditionKindWords.size();
const size_t kStatusTypes = kStatusTypeWords.size();
const size_t kDirections = kDirectionTagWords.size();
// A line without a strength, then one per strength.
const size_t kStrengthSlots = kStrengthWords.size() + 1;

// A piece of a line in room of a known size, written whole by LineWriter::firstBytes.
template <size_t N>
struct Piece {
    std::array<char, N> bytes{};
    size_t size = 0;

    constexpr Piece& add(std::string_view text) {
        for (const char c : text) {
            bytes[size++] = c;
        }
        return *this;
    }
};

// What a line says after its type, " mandatory local sendrecv".
using LineEnd = Piece<32>;
using LineEnds = std::array<LineEnd, kStrengthSlots * kStatusTypes * kDirections>;

// Every line end, by strength slot, status type and direction.
constexpr LineEnds makeLineEnds() {
    LineEnds ends{};
    for (size_t strength = 0; strength < kStrengthSlots; ++strength) {
        for (size_t statusType = 0; statusType < kStatusTypes; ++statusType) {
            for (size_t direction = 0; direction < kDirections; ++direction) {
                LineEnd& end =
                    ends[(strength * kStatusTypes + statusType) * kDirections + direction];
                if (strength > 0) {
                    end.add(" ").add(kStrengthWords[strength - 1]);
                }
                end.add(" ").add(kStatusTypeWords[statusType]);
                end.add(" ").add(kDirectionTagWords[direction]);
            }
        }
    }
    return ends;
}

constexpr LineEnds kLineEnds = makeLineEnds();

// The start of a line of a qos row, "a=des:qos", by kind.
using QosLineStarts = std::array<Piece<16>, kKinds>;

constexpr QosLineStarts makeQosLineStarts() {
    QosLineStarts starts{};
    for (size_t kind = 0; kind < kKinds; ++kind) {
        starts[kind].add("a=").add(kPreconditionKindWords[kind]).add(":").add(kQosType);
    }
    return starts;
}

constexpr QosLineStarts kQosLineStarts = makeQosLineStarts();

// Any row, word by word, its type quoted as untrusted text, "?" for a value outside its
// enumeration.
void writeAnyRow(LineWriter& writer, const PreconditionRow& row) {
    writer.text("a=").text(wordOf(kPreconditionKindWords, row.kind)).text(":");
    writer.token(row.type);
    if (row.kind == Kind::Desired) {
        writer.text(" ").text(wordOf(kStrengthWords, row.strength));
    }
    writer.text(" ").text(wordOf(kStatusTypeWords, row.statusType));
    writer.text(" ").text(wordOf(kDirectionTagWords, row.direction));
}

}  // namespace

void writePreconditionRow(LineWriter& writer, const PreconditionRow& row) {
    const auto kind = static_cast<size_t>(row.kind);
    const size_t strength = row.kind == Kind::Desired ? static_cast<size_t>(row.strength) + 1 : 0;
    const auto statusType = static_cast<size_t>(row.statusType);
    const auto direction = static_cast<size_t>(row.direction);
    // A qos row, the usual one, in two pieces; its type is known to be a token: nothing to quote.
    if (isQosType(row.type) && kind < kKinds && strength < kStrengthSlots &&
        statusType < kStatusTypes && direction < kDirections) {
        const Piece<16>& start = kQosLineStarts[kind];
        const LineEnd& end =
            kLineEnds[(strength * kStatusTypes + statusType) * kDirections + direction];
        writer.firstBytes(start.bytes, start.size).firstBytes(end.bytes, end.size);
        return;
    }
    writeAnyRow(writer, row);
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
