#include "tests/support/allocation_failure.h"

#include <climits>
#include <cstdlib>
#include <new>

namespace {

thread_local long asked = 0;
thread_local long first_failure = LONG_MAX;

void* allocate(std::size_t size) {
  if (++asked >= first_failure) {
    throw std::bad_alloc();
  }
  if (void* const memory = std::malloc(size)) {
    return memory;
  }
  throw std::bad_alloc();
}

} // namespace

allocation_failure::allocation_failure(long first_to_fail) {
  asked = 0;
  first_failure = first_to_fail;
}

allocation_failure::~allocation_failure() { first_failure = LONG_MAX; }

long allocation_failure::asked_for() const { return asked; }

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

void operator delete(void* memory) noexcept { std::free(memory); }

void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

void operator delete[](void* memory) noexcept { std::free(memory); }

void operator delete[](void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
