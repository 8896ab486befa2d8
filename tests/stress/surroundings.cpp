#include "tests/stress/surroundings.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <locale>

void stress::prefer_memory_for_scratch() {
  char const* const memory = "/dev/shm";
  if (::access(memory, W_OK | X_OK) == 0) {
    ::setenv("TMPDIR", memory, 0);
  }
}

void stress::fill_cache_of_locale() {
  auto const& facet = std::use_facet<std::ctype<char>>(std::locale());
  for (int character = 1; character != 256; ++character) {
    facet.narrow(static_cast<char>(character), '\0');
  }
}

int stress::open_descriptors() {
  int count = 0;
  for (int descriptor = 0; descriptor != 1024; ++descriptor) {
    count += ::fcntl(descriptor, F_GETFD) != -1 ? 1 : 0;
  }
  return count;
}
