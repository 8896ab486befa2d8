#include "ccl/err/err.h"

#include <cstdio>
#include <cstdlib>

void err_report_internal_error(char const* condition, char const* module, char const* file, int line) {
  std::fprintf(stderr, "internal error: %s (module %s, %s:%d)\n", condition, module, file, line);
  std::abort();
}
