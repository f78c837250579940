#include <velmora/rune/sdp/Session.h>

#include "read/PreconditionRows.h"
#include "stream/PreconditionRules.h"
#include "write/LineWriter.h"
#include "write/PreconditionLines.h"

#include <algorithm>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// Both segments' a=curr and a=des, and an a=conf or two.
const size_t kUsualRows = 8;

}  // namespace

bool Preconditions::Row::operator==(const Row& other) const {
    return kind == other.kind && type == other.type && strength == other.strength &&
           statusType == other.statusType && direction == other.direction;
}

std::string Preconditions::Row::toString() const {
    std::string text;
    {
        LineWriter writer(text);
        writePreconditionRow(writer, viewOf(*this));
    }
    return text;
}

const Preconditions::Row* Preconditions::find(Kind kind, const std::string& type,
                                              StatusType statusType) const {
    return findRow(mRows.data(), mRows.data() + mRows.size(), kind, type, statusType);
}

void Preconditions::add(const Row& row) {
    if (mRows.capacity() == 0) {
        // Room for a usual answer's rows, in one allocation.
        mRows.reserve(kUsualRows);
    }
    // Rows mostly come in a body's order: one that goes after the last needs no search.
    if (mRows.empty() || rankOf(mRows.back()) < rankOf(row)) {
        mRows.push_back(row);
        return;
    }
    Row* same = nullptr;
    const size_t index = placeOf(mRows.data(), mRows.data() + mRows.size(), row, same);
    if (same != nullptr) {
        *same = row;
        return;
    }
    mRows.insert(mRows.begin() + static_cast<std::ptrdiff_t>(index), row);
}

bool Preconditions::met() const {
    return std::all_of(mRows.begin(), mRows.end(), [this](const Row& row) {
        if (row.kind != Kind::Desired || row.strength != Strength::Mandatory) {
            return true;
        }
        const Row* current = find(Kind::Current, row.type, row.statusType);
        return current != nullptr && covers(current->direction, row.direction);
    });
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
