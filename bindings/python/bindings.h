/// @file
/// What the areas of the module share.

#ifndef CCL_BINDINGS_PYTHON_BINDINGS_H
#define CCL_BINDINGS_PYTHON_BINDINGS_H

#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <mutex>
#include <utility>

#include "bindings/python/names.h"

namespace py = pybind11;

/// @name The areas
/// @{
void bind_errors(py::module_& module);
void bind_path(py::module_& module);
void bind_find(py::module_& module);
void bind_iterators(py::module_& module);
void bind_file_system(py::module_& module);
void bind_vocabulary(py::module_& module);
/// @}

/// Releases the lock of the interpreter. A thread that takes it back while the interpreter is ending is ended itself, by
/// unwinding its stack, and the destructor lets that pass: that of `py::gil_scoped_release` would end the program.
class lock_release {
public:
  lock_release() : m_state(PyEval_SaveThread()) {}
  ~lock_release() noexcept(false) { PyEval_RestoreThread(m_state); }
  lock_release(lock_release const&) = delete;
  lock_release& operator=(lock_release const&) = delete;

private:
  PyThreadState* m_state;
};

/// Calls `work` without the lock of the interpreter. No Python object may be touched in it.
template <typename Work>
auto without_interpreter(Work work) {
  lock_release const released;
  return work();
}

/// An object of the library that serves one thread at a time, for Python objects that any thread may use.
template <typename T>
class one_at_a_time {
public:
  template <typename... Arguments>
  explicit one_at_a_time(Arguments&&... arguments) : m_object(std::forward<Arguments>(arguments)...) {}

  /// Calls `work` with the object, without the lock of the interpreter.
  template <typename Work>
  auto use(Work work) {
    return without_interpreter([&] {
      std::lock_guard<std::mutex> const lock(m_mutex);
      return work(m_object);
    });
  }

private:
  std::mutex m_mutex;
  T m_object;
};

/// A class of Python whose objects always have a value. Those of pybind11 have none when `__new__` is called by itself,
/// when a subclass forgets the constructor, or when an object is given another class, and a use of them is undefined.
template <typename... Types>
class whole_class : public py::class_<Types...> {
public:
  whole_class(py::handle scope, char const* name, char const* documentation)
      : py::class_<Types...>(scope, name, documentation, py::is_final(), py::custom_type_setup(set_up)) {}

  /// To be called when all members are there.
  void seal() {
    auto* const self = reinterpret_cast<PyTypeObject*>(this->ptr());
    self->tp_flags |= Py_TPFLAGS_IMMUTABLETYPE;
    PyType_Modified(self);
  }

private:
  static void set_up(PyHeapTypeObject* heap) { heap->ht_type.tp_new = make; }

  /// Calls the constructor at once. The second call, by `type.__call__`, does nothing.
  static PyObject* make(PyTypeObject* python_class, PyObject* arguments, PyObject* keywords) {
    PyObject* self = python_class->tp_base->tp_new(python_class, arguments, keywords);
    if (self != nullptr && python_class->tp_init(self, arguments, keywords) < 0) {
      Py_CLEAR(self);
    }
    return self;
  }
};

#endif
