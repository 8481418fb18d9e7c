#include "largest_allocation.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> g_largest{0};

}  // namespace

// The program's own operators, which all of its allocations go through.

void* operator new(std::size_t size) {
  g_largest = std::max<std::size_t>(g_largest, size);
  void* const block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  return block;
}

void operator delete(void* block) noexcept {
  std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
  std::free(block);
}

namespace quorvel::test {

LargestAllocation::LargestAllocation() {
  g_largest = 0;
}

std::size_t LargestAllocation::Bytes() const {
  return g_largest;
}

}  // namespace quorvel::test
