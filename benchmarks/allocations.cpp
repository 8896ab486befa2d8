// The peers are written in several languages, and in the end all of them allocate by these functions, which stand in
// front of those of the C library.

#include "benchmarks/allocations.h"

#include <atomic>
#include <cstddef>

extern "C" {
// The names by which the C library offers its own. NOLINTBEGIN(bugprone-reserved-identifier)
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
// NOLINTEND(bugprone-reserved-identifier)
}

namespace {

std::atomic<unsigned long> calls{0};
std::atomic<unsigned long> bytes{0};

void count(std::size_t size) {
  calls.fetch_add(1, std::memory_order_relaxed);
  bytes.fetch_add(size, std::memory_order_relaxed);
}

} // namespace

allocation_counts allocations() { return {calls, bytes}; }

extern "C" void* malloc(std::size_t size) {
  count(size);
  return __libc_malloc(size);
}

extern "C" void* calloc(std::size_t number, std::size_t size) {
  count(number * size);
  return __libc_calloc(number, size);
}

extern "C" void* realloc(void* memory, std::size_t size) {
  count(size);
  return __libc_realloc(memory, size);
}
