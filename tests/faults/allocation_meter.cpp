#include "tests/faults/allocation_meter.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

// Each case is a process with one thread.
long in_use = 0;
long at_start = 0;
long highest = 0;

void* allocate(std::size_t size) {
  void* const memory = std::malloc(size);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  in_use += static_cast<long>(::malloc_usable_size(memory));
  highest = std::max(highest, in_use);
  return memory;
}

void release(void* memory) {
  in_use -= static_cast<long>(::malloc_usable_size(memory));
  std::free(memory);
}

} // namespace

namespace allocation_meter {

void start() { at_start = highest = in_use; }

long peak() { return highest - at_start; }

} // namespace allocation_meter

void* operator new(std::size_t size) { return allocate(size); }

void* operator new[](std::size_t size) { return allocate(size); }

void* operator new(std::size_t size, std::nothrow_t const& /*tag*/) noexcept {
  try {
    return allocate(size);
  } catch (std::bad_alloc const&) {
    return nullptr;
  }
}

void* operator new[](std::size_t size, std::nothrow_t const& tag) noexcept { return operator new(size, tag); }

void operator delete(void* memory) noexcept { release(memory); }

void operator delete(void* memory, std::size_t /*size*/) noexcept { release(memory); }

void operator delete[](void* memory) noexcept { release(memory); }

void operator delete[](void* memory, std::size_t /*size*/) noexcept { release(memory); }
