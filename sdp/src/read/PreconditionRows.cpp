#include "read/PreconditionRows.h"

namespace velmora {
namespace rune {
namespace sdp {

void PreconditionRows::addToHeap(size_t index, const PreconditionRow& row) {
    if (mHeap.empty()) {
        // More rows than a usual exchange has: all of them go to the heap, once.
        mHeap.assign(mInside.begin(), mInside.end());
    }
    mHeap.insert(mHeap.begin() + static_cast<std::ptrdiff_t>(index), row);
    ++mSize;
}

Preconditions toPreconditions(const PreconditionRows& rows) {
    Preconditions preconditions;
    for (const PreconditionRow& row : rows) {
        preconditions.add(Preconditions::Row{row.kind, std::string(row.type), row.strength,
                                             row.statusType, row.direction});
    }
    return preconditions;
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
