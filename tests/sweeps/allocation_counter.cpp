#include "tests/sweeps/allocation_counter.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <new>

// The allocator below: the C library's own, or the one of AddressSanitizer, which then sees every block.
#ifdef FIO_ABOVE_ADDRESS_SANITIZER
#define BELOW(name) __interceptor_##name
#else
#define BELOW(name) __libc_##name
#endif

extern "C" {
void* BELOW(malloc)(std::size_t size);
void* BELOW(calloc)(std::size_t count, std::size_t size);
void* BELOW(realloc)(void* block, std::size_t size);
void* BELOW(memalign)(std::size_t alignment, std::size_t size);
void BELOW(free)(void* block);
}

namespace {

// Constant-initialised: memory is asked for before any code of this program runs.
bool armed = false;
failing_mode mode = failing_mode::once;
long first_number = 0;
long asked = 0;
long failures = 0;
failure_kind first_kind = failure_kind::none;
long blocks = 0;

// Whether the allocation that is being asked for is to fail.
bool refuses(failure_kind kind) {
  if (!armed) {
    return false;
  }
  ++asked;
  bool const fails = first_number != 0 && (asked == first_number || (mode == failing_mode::for_ever && failures != 0));
  if (fails && failures++ == 0) {
    first_kind = kind;
  }
  return fails;
}

void* counted(void* block) {
  blocks += block != nullptr ? 1 : 0;
  return block;
}

void* out_of_memory() {
  errno = ENOMEM;
  return nullptr;
}

void release(void* block) {
  blocks -= block != nullptr ? 1 : 0;
  BELOW(free)(block);
}

void* allocate_or_throw(std::size_t size, std::size_t alignment = 0) {
  void* const block = refuses(failure_kind::thrown)
                          ? nullptr
                          : counted(alignment == 0 ? BELOW(malloc)(size) : BELOW(memalign)(alignment, size));
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  return block;
}

void* allocate_or_null(std::size_t size, std::size_t alignment = 0) {
  if (refuses(failure_kind::answered)) {
    return out_of_memory();
  }
  return counted(alignment == 0 ? BELOW(malloc)(size) : BELOW(memalign)(alignment, size));
}

std::size_t number(std::align_val_t alignment) { return static_cast<std::size_t>(alignment); }

} // namespace

allocation_injection::allocation_injection(long first_to_fail, failing_mode failing) {
  mode = failing;
  first_number = first_to_fail;
  asked = 0;
  failures = 0;
  first_kind = failure_kind::none;
  armed = true;
}

allocation_injection::~allocation_injection() { stop(); }

void allocation_injection::stop() { armed = false; }

long allocation_injection::asked_for() const { return asked; }

long allocation_injection::failed() const { return failures; }

failure_kind allocation_injection::first_failure() const { return first_kind; }

long live_blocks() { return blocks; }

// The C library's family

extern "C" void* malloc(std::size_t size) noexcept { return allocate_or_null(size); }

extern "C" void* calloc(std::size_t count, std::size_t size) noexcept {
  return refuses(failure_kind::answered) ? out_of_memory() : counted(BELOW(calloc)(count, size));
}

extern "C" void* realloc(void* block, std::size_t size) noexcept {
  if (block == nullptr) {
    return allocate_or_null(size);
  }
  if (size == 0) {
    release(block);
    return nullptr;
  }
  return refuses(failure_kind::answered) ? out_of_memory() : BELOW(realloc)(block, size);
}

extern "C" void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
  return allocate_or_null(size, alignment);
}

extern "C" int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept {
  *block = allocate_or_null(size, alignment);
  return *block != nullptr ? 0 : ENOMEM;
}

extern "C" void free(void* block) noexcept { release(block); }

// The family of `new`

void* operator new(std::size_t size) { return allocate_or_throw(size); }
void* operator new[](std::size_t size) { return allocate_or_throw(size); }
void* operator new(std::size_t size, std::align_val_t alignment) { return allocate_or_throw(size, number(alignment)); }
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return allocate_or_throw(size, number(alignment));
}
void* operator new(std::size_t size, std::nothrow_t const& /*tag*/) noexcept { return allocate_or_null(size); }
void* operator new[](std::size_t size, std::nothrow_t const& /*tag*/) noexcept { return allocate_or_null(size); }
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { release(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { release(block); }
void operator delete(void* block, std::align_val_t /*alignment*/) noexcept { release(block); }
void operator delete[](void* block, std::align_val_t /*alignment*/) noexcept { release(block); }
void operator delete(void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept { release(block); }
void operator delete[](void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept { release(block); }
