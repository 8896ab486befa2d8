// Preloaded into a console: operator new fails once, the time that CCL_FAILING_NEW says, counted from when it was set.

#include <cstdlib>
#include <new>

namespace {

bool fails_now() {
  static long last_wanted = 0;
  static long remaining = 0;
  char const* const text = std::getenv("CCL_FAILING_NEW");
  long const wanted = text == nullptr ? 0 : std::strtol(text, nullptr, 10);
  if (wanted != last_wanted) {
    last_wanted = wanted;
    remaining = wanted;
  }
  return remaining != 0 && --remaining == 0;
}

} // namespace

void* operator new(std::size_t size) {
  void* const memory = fails_now() ? nullptr : std::malloc(size);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
