#include "engine/allocation_watch.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

std::size_t g_largest = 0;

} // namespace

void allocation_watch::restart() {
    g_largest = 0;
}

std::size_t allocation_watch::largest() {
    return g_largest;
}

void* operator new(std::size_t size) {
    g_largest = std::max(g_largest, size);
    if (void* memory = std::malloc(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
