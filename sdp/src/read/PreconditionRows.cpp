#include "read/PreconditionRows.h"

#include <algorithm>

namespace velmora {
namespace rune {
namespace sdp {

void PreconditionRows::place(const PreconditionRow& row, Same same) {
    PreconditionRow* const rows = data();
    PreconditionRow* sameRow = nullptr;
    const size_t index = placeOf(rows, rows + mSize, row, sameRow);
    if (sameRow != nullptr) {
        if (same == Same::Replaced) {
            *sameRow = row;
        }
        return;
    }
    if (mSize < kInside) {
        std::copy_backward(rows + index, rows + mSize, rows + mSize + 1);
        rows[index] = row;
        ++mSize;
        return;
    }
    if (inside()) {
        // More rows than a usual exchange has: all of them go to the heap, once.
        mHeap.assign(mInside.begin(), mInside.end());
    }
    mHeap.insert(mHeap.begin() + static_cast<std::ptrdiff_t>(index), row);
    ++mSize;
}

Preconditions toPreconditions(const PreconditionRows& rows) {
    Preconditions preconditions;
    // One row reused, as add copies it; rows mostly share one type, made again where it changes.
    Preconditions::Row owned;
    for (const PreconditionRow& row : rows) {
        owned.kind = row.kind;
        if (owned.type != row.type) {
            owned.type.assign(row.type);
        }
        owned.strength = row.strength;
        owned.statusType = row.statusType;
        owned.direction = row.direction;
        preconditions.add(owned);
    }
    return preconditions;
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
