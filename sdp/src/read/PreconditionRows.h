// The RFC 3312 precondition rows as the library reads, answers and writes them: each row's type is
// a view into the description it was read from or the rows it was made from, and the rows of a
// usual exchange live inside the list. Preconditions, the public rows, own their types; the rows
// become public only where a Session keeps them.
#ifndef VELMORA_RUNE_SDP_SRC_READ_PRECONDITION_ROWS_H
#define VELMORA_RUNE_SDP_SRC_READ_PRECONDITION_ROWS_H

#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Session.h>

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace velmora {
namespace rune {
namespace sdp {

// Preconditions::Row with a view for its type. Every field is set where a row is made.
struct PreconditionRow {
    Preconditions::Kind kind;
    std::string_view type;
    Strength strength;
    Preconditions::StatusType statusType;
    StreamConfig::Direction direction;
};

// A view of row; valid while row is.
inline PreconditionRow viewOf(const Preconditions::Row& row) {
    return {row.kind, row.type, row.strength, row.statusType, row.direction};
}

// The order a body writes rows in: by kind, then local, remote, e2e.
template <typename Row>
int rankOf(const Row& row) {
    const int status = row.statusType == Preconditions::StatusType::Local    ? 0
                       : row.statusType == Preconditions::StatusType::Remote ? 1
                                                                             : 2;
    return static_cast<int>(row.kind) * 3 + status;
}

// Of rows, the one of that kind, type and status type; null when there is none.
template <typename Row>
const Row* findRow(const Row* begin, const Row* end, Preconditions::Kind kind,
                   std::string_view type, Preconditions::StatusType statusType) {
    for (const Row* row = begin; row != end; ++row) {
        if (row->kind == kind && row->statusType == statusType && row->type == type) {
            return row;
        }
    }
    return nullptr;
}

// Where row goes among rows kept in a body's order: after the last one that goes before it or
// beside it; same gets the row of the same kind, type and status type, when there is one. Rows
// mostly come in order: the search starts at the end.
template <typename Row>
size_t placeOf(Row* begin, Row* end, const Row& row, Row*& same) {
    const int rank = rankOf(row);
    while (end != begin && rankOf(*(end - 1)) > rank) {
        --end;
    }
    // Rows beside it have its kind and status type.
    for (Row* beside = end; beside != begin && rankOf(*(beside - 1)) == rank; --beside) {
        if ((beside - 1)->type == row.type) {
            same = beside - 1;
            break;
        }
    }
    return static_cast<size_t>(end - begin);
}

// Rows kept as Preconditions keeps them. Filled in place: the list is not copied.
class PreconditionRows {
  public:
    PreconditionRows() = default;
    PreconditionRows(const PreconditionRows&) = delete;
    PreconditionRows& operator=(const PreconditionRows&) = delete;
    ~PreconditionRows() = default;

    const PreconditionRow* begin() const { return data(); }
    const PreconditionRow* end() const { return data() + mSize; }
    size_t size() const { return mSize; }
    bool empty() const { return mSize == 0; }
    const PreconditionRow& operator[](size_t index) const { return data()[index]; }

    // The row of that kind, type and status type; null when there is none.
    const PreconditionRow* find(Preconditions::Kind kind, std::string_view type,
                                Preconditions::StatusType statusType) const {
        return findRow(begin(), end(), kind, type, statusType);
    }
    // What add does when a row of the same kind, type and status type is there already.
    enum class Same { Replaced, Kept };
    // Puts row in its place, or a row of the same kind, type and status type as same says.
    void add(const PreconditionRow& row, Same same = Same::Replaced) {
        // Rows mostly come in a body's order: one that goes after the last needs no search.
        if (mSize < kInside && (mSize == 0 || rankOf(mInside[mSize - 1]) < rankOf(row))) {
            mInside[mSize++] = row;
            return;
        }
        place(row, same);
    }

  private:
    // Every kind and status type of one precondition type.
    static const size_t kInside = 9;

    // The rows are inside while they fit.
    bool inside() const { return mSize <= kInside; }
    PreconditionRow* data() { return inside() ? mInside.data() : mHeap.data(); }
    const PreconditionRow* data() const { return inside() ? mInside.data() : mHeap.data(); }
    // add, where the row goes before another or beyond the room inside.
    void place(const PreconditionRow& row, Same same);

    // Set up to mSize while the rows are inside; beyond, mHeap holds every row.
    std::array<PreconditionRow, kInside> mInside;
    std::vector<PreconditionRow> mHeap;
    size_t mSize = 0;
};

// The rows, owning their types.
Preconditions toPreconditions(const PreconditionRows& rows);

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_READ_PRECONDITION_ROWS_H
