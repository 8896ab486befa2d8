#include "ccl/fio/internal/module.h"

namespace {

MEM_INITIALIZER const mem_initializer(fio_internal::module_name);

} // namespace
