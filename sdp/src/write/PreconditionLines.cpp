#include "write/PreconditionLines.h"

#include "syntax/PreconditionWords.h"

namespace velmora {
namespace rune {
namespace sdp {

void writePreconditionRow(LineWriter& writer, const PreconditionRow& row) {
    writer.text("a=").text(wordOf(kPreconditionKindWords, row.kind)).text(":");
    writer.token(row.type).text(" ");
    if (row.kind == Preconditions::Kind::Desired) {
        writer.text(wordOf(kStrengthWords, row.strength)).text(" ");
    }
    writer.text(wordOf(kStatusTypeWords, row.statusType)).text(" ");
    writer.text(wordOf(kDirectionTagWords, row.direction));
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
