// The formats of an m= line, in its order. The usual few live inside the list; the formats of a
// longer line take their room from the heap, once.
#ifndef VELMORA_RUNE_SDP_SRC_READ_FORMAT_LIST_H
#define VELMORA_RUNE_SDP_SRC_READ_FORMAT_LIST_H

#include "read/RemoteFormat.h"

#include <cstddef>
#include <new>
#include <type_traits>
#include <vector>

namespace velmora {
namespace rune {
namespace sdp {

class FormatList {
  public:
    FormatList() = default;
    // The formats' addresses are handed out: the list stays where it is.
    FormatList(const FormatList&) = delete;
    FormatList& operator=(const FormatList&) = delete;
    ~FormatList() = default;

    // Empties the list, with room for count formats.
    void reset(size_t count) {
        mSize = 0;
        mHeap.clear();
        if (count > kInside) {
            mHeap.reserve(count);
        }
    }
    // A default format after the others, within the room that reset gave.
    RemoteFormat& add() {
        if (mHeap.capacity() > 0) {
            ++mSize;
            return mHeap.emplace_back();
        }
        return *new (&data()[mSize++]) RemoteFormat;
    }

    size_t size() const { return mSize; }
    RemoteFormat& operator[](size_t index) { return data()[index]; }
    RemoteFormat* begin() { return data(); }
    RemoteFormat* end() { return data() + mSize; }
    const RemoteFormat* begin() const { return data(); }
    const RemoteFormat* end() const { return data() + mSize; }

  private:
    // Formats are left behind without their destructor.
    static_assert(std::is_trivially_destructible_v<RemoteFormat>, "formats own nothing");
    static const size_t kInside = 8;

    RemoteFormat* data() {
        return mHeap.capacity() > 0 ? mHeap.data() : reinterpret_cast<RemoteFormat*>(mInside);
    }
    const RemoteFormat* data() const {
        return mHeap.capacity() > 0 ? mHeap.data() : reinterpret_cast<const RemoteFormat*>(mInside);
    }

    alignas(RemoteFormat) unsigned char mInside[kInside * sizeof(RemoteFormat)];
    std::vector<RemoteFormat> mHeap;
    size_t mSize = 0;
};

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_READ_FORMAT_LIST_H
