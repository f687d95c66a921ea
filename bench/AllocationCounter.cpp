#include "AllocationCounter.hpp"

#include <cstdlib>
#include <new>

namespace {

thread_local std::uint64_t allocations = 0;

void* allocate(std::size_t size) {
    ++allocations;
    if (void* block = std::malloc(size == 0 ? 1 : size)) return block;
    throw std::bad_alloc();
}

void* allocateAligned(std::size_t size, std::align_val_t alignment) {
    ++allocations;
    const auto align = static_cast<std::size_t>(alignment);
    // aligned_alloc wants a size that is a multiple of the alignment.
    const std::size_t rounded = (size + align - 1) / align * align;
    if (void* block = std::aligned_alloc(align, rounded == 0 ? align : rounded)) return block;
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
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
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { std::free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { std::free(block); }
void operator delete(void* block, std::align_val_t) noexcept { std::free(block); }
void operator delete[](void* block, std::align_val_t) noexcept { std::free(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept { std::free(block); }

namespace vastrel::bench {

std::uint64_t allocationCount() noexcept { return allocations; }

void AllocationMeter::report(benchmark::State& state, double elementsPerIteration) const {
    const auto iterations = static_cast<double>(state.iterations());
    if (iterations == 0) return;
    const double perIteration = static_cast<double>(allocationCount() - start_) / iterations;
    state.counters["allocs"] = perIteration;
    if (elementsPerIteration > 0) {
        state.counters["allocs_per_element"] = perIteration / elementsPerIteration;
    }
}

}  // namespace vastrel::bench
