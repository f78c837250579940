#include "AllocationCounter.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

namespace {

std::atomic<uint64_t> allocationCount{0};
bool overBudget = false;

void* allocate(std::size_t size) {
    allocationCount.fetch_add(1, std::memory_order_relaxed);
    if (void* memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void* allocateAligned(std::size_t size, std::align_val_t alignment) {
    allocationCount.fetch_add(1, std::memory_order_relaxed);
    const auto align = static_cast<std::size_t>(alignment);
    // aligned_alloc wants a multiple of the alignment.
    if (void* memory = std::aligned_alloc(align, (size + align - 1) / align * align)) {
        return memory;
    }
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
    return allocate(size);
}
void* operator new[](std::size_t size) {
    return allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return allocate(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
    return operator new(size, tag);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return allocateAligned(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return allocateAligned(size, alignment);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::align_val_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept {
    std::free(memory);
}

namespace velmora {
namespace rune {
namespace bench {

AllocationScope::AllocationScope() : mStart(allocationCount.load(std::memory_order_relaxed)) {}

void AllocationScope::report(benchmark::State& state, double budget) const {
    const uint64_t count = allocationCount.load(std::memory_order_relaxed) - mStart;
    const double perIteration =
        static_cast<double>(count) / static_cast<double>(state.iterations());
    state.counters["allocs"] = perIteration;
    if (perIteration > budget) {
        overBudget = true;
        const std::string message = "allocations per iteration " + std::to_string(perIteration) +
                                    " over budget " + std::to_string(budget);
        state.SkipWithError(message.c_str());
    }
}

int runBenchmarks(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    if (overBudget) {
        std::fprintf(stderr, "a benchmark allocates more than its budget\n");
        return 1;
    }
    return 0;
}

}  // namespace bench
}  // namespace rune
}  // namespace velmora
