// An object of every type that the debugger knows how to show, and some that hold no value. A test stops the program in
// `look_at` and prints them.

#include <cstring>
#include <initializer_list>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "ccl/fio/fio.h"
#include "ccl/fio/fio_errc.h"

namespace {

struct vocabulary {
  FIO_FILE_TYPE file_type = FIO_FILE_TYPE_VHDL_FILE;
  FIO_FILE_TYPE any_file_type = FIO_FILE_TYPE_ANY;
  FIO_FILE_TYPE unknown_file_type = static_cast<FIO_FILE_TYPE>(999);
  FIO_EXTENSION_TYPE extension = FIO_EXTENSION_TYPE_V;
  FIO_EXTENSION_TYPE extension_of_no_default = FIO_EXTENSION_TYPE_HTML;
  FIO_EDITOR_TYPE editor = FIO_EDITOR_TYPE_TEXT_FILES;
  FIO_EDITOR_TYPE all_editors = FIO_EDITOR_TYPE_ALL_FILES;
  FIO_FILE_TYPE_FLAG traits = static_cast<FIO_FILE_TYPE_FLAG>(2 | 4);
  FIO_FILE_TYPE_FLAG no_traits = static_cast<FIO_FILE_TYPE_FLAG>(0);
  FIO_FILE_TYPE_FLAG unknown_traits = static_cast<FIO_FILE_TYPE_FLAG>(2 | 0x40000000);
  FIO_EXTENSION_TYPE_FLAG all_extensions = FIO_EXTENSION_TYPE_FLAG_ALL_EXTENSIONS;
  _GUID document_class = VFC_CLSID_TED_DEFAULT_DOC;
  _GUID unknown_class = {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 255}};
};

// Memory in which there is no object.
template <typename T>
struct no_object {
  explicit no_object(int byte) { std::memset(memory, byte, sizeof memory); }
  T const& as_object() const { return *reinterpret_cast<T const*>(memory); }

  alignas(T) unsigned char memory[sizeof(T)];
};

// The objects are in memory here, whatever the compiler does.
__attribute__((noinline)) void look_at(std::initializer_list<void const*> objects) {
  asm volatile("" : : "g"(objects.begin()) : "memory");
}

} // namespace

int main() {
  FIO_PATH const path("rtl//core\\alu.v");
  FIO_PATH const empty_path;
  FIO_PATH long_path("rtl/core/alu.v");
  long_path.base(std::string(1500, 'x'));
  FIO_PATH const refused_path(std::string(2000, 'x'));
  FIO_PATH moved_path("a");
  FIO_PATH const moved_to_path = std::move(moved_path);
  FIO_PATH other_path;
  other_path.path_separator('\\');
  other_path.drive('C').directory("lib").base("na\303\251\"me").extension("sv", FIO_EXTENSION_TYPE_ANY);
  no_object<FIO_PATH> const no_path(0x5a);
  no_object<FIO_PATH> const cleared_path(0);

  FIO_FIND find("rtl; lib/sv ;inc", false);
  find.set_directory_for_results_to_become_absolute_to("/design");
  no_object<FIO_FIND> const no_find(0x5a);
  FIO_FIND endless_find("rtl;lib", false);
  // A list whose last element is followed by its first, as after a write past the end of something.
  void** const first_node = *reinterpret_cast<void***>(&endless_find.m_search_list);
  void** const second_node = static_cast<void**>(*first_node);
  void* const end_node = *second_node;
  *second_node = first_node;

  FIO_DIRECTORY_ENTRY entry;
  entry.path = "rtl/core";
  entry.is_directory = true;
  FIO_DIRECTORY_ITERATOR const iterator("tree/only");
  FIO_RECURSIVE_DIRECTORY_ITERATOR tree("tree");
  ++tree;
  FIO_DIRECTORY_ITERATOR const end;
  no_object<FIO_DIRECTORY_ITERATOR> const no_iterator(0x5a);
  _finddata_t found = {0x01, 0, 0, 86400, 42, "alu.v"};

  auto made_error = make_korvane_error<FIO::ERRC::NOT_A_DIRECTORY_ERRC>("rtl/core/alu.v");
  std::unique_ptr<FIO_ERRC> const error = make_korvane_error<FIO::ERRC::FAILED_TO_REMOVE_DIRECTORY_ERRC>("rtl");
  KORVANE_ERROR_MESSAGE message = error->message();
  std::vector<KORVANE_ERROR_MESSAGE> const reasons = {made_error->message()};
  message.unpack_submsgs(reasons);
  message.m_lines.back().m_code = 7;
  message.m_lines.back().m_aux_text = "seen twice";

  no_object<FIO::ERRC::NOT_A_DIRECTORY_ERRC> const no_error(0x5a);

  vocabulary const words;
  look_at({&path,         &empty_path, &long_path, &refused_path, &moved_path, &moved_to_path, &other_path, &no_path,
           &cleared_path, &find,       &no_find,   &endless_find, &entry,      &iterator,      &tree,       &end,
           &no_iterator,  &found,      &error,     &message,      &made_error, &no_error,      &words});
  *second_node = end_node;
}
