#include "bindings/python/bindings.h"
#include "ccl/fio/fio_version.h"

PYBIND11_MODULE(_native, module) {
  module.doc() = "What ccl_fio is made of; import that.";
  // The classes and functions carry the name of the package, which is where they are imported from.
  py::object const own_name = module.attr("__name__");
  module.attr("__name__") = "ccl_fio";
  module.attr("__version__") = CCL_FIO_VERSION_STRING;
  bind_errors(module);
  bind_path(module);
  bind_find(module);
  bind_iterators(module);
  bind_file_system(module);
  bind_vocabulary(module);
  module.attr("__name__") = own_name;
}
