#include <velmora/rune/sdp/Session.h>

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

// The order a body writes rows in: by kind, then local, remote, e2e.
int rank(const Preconditions::Row& row) {
    const int status = row.statusType == Preconditions::StatusType::Local    ? 0
                       : row.statusType == Preconditions::StatusType::Remote ? 1
                                                                             : 2;
    return static_cast<int>(row.kind) * 3 + status;
}

}  // namespace

bool Preconditions::Row::operator==(const Row& other) const {
    return kind == other.kind && type == other.type && strength == other.strength &&
           statusType == other.statusType && direction == other.direction;
}

std::string Preconditions::Row::toString() const {
    std::string text;
    {
        LineWriter writer(text);
        writePreconditionRow(writer, *this);
    }
    return text;
}

const Preconditions::Row* Preconditions::find(Kind kind, const std::string& type,
                                              StatusType statusType) const {
    for (const Row& row : mRows) {
        if (row.kind == kind && row.statusType == statusType && row.type == type) {
            return &row;
        }
    }
    return nullptr;
}

void Preconditions::add(const Row& row) {
    const Row* same = find(row.kind, row.type, row.statusType);
    if (same != nullptr) {
        mRows[static_cast<size_t>(same - mRows.data())] = row;
        return;
    }
    if (mRows.capacity() == 0) {
        // Room for a usual answer's rows, in one allocation.
        mRows.reserve(kUsualRows);
    }
    // After the last row that goes before it or beside it; rows mostly come in order.
    const auto after = std::find_if(mRows.rbegin(), mRows.rend(),
                                    [&row](const Row& kept) { return rank(kept) <= rank(row); });
    mRows.insert(after.base(), row);
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
