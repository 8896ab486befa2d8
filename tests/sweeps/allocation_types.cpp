// The vocabulary of files, the class identifiers and the binary streams.

#include <array>
#include <istream>
#include <list>
#include <ostream>
#include <streambuf>
#include <string>
#include <vector>

#include "ccl/fio/fio_clsid.h"
#include "ccl/fio/fio_extension_type_info.h"
#include "ccl/fio/fio_file_bin.h"
#include "ccl/fio/fio_file_ext_type_info.h"
#include "ccl/fio/fio_file_type_info.h"
#include "tests/sweeps/allocation_operation.h"

namespace {

std::string const file_name = "a_folder_of_some_length/a_name_of_some_length.an_extension_of_its_own";
std::string const name_without_extension = "a_name_of_some_length_that_stands_for_an_extension";
std::string const clsid_text = "{a1357891-7ae8-49e4-9fe1-94bb50409105}";

nothing no_object() { return {}; }

using extension_list = std::list<FIO_EXTENSION_TYPE>;
using file_type_list = std::list<FIO_FILE_TYPE>;

// A list that something stands in already.
extension_list some_extensions() { return {FIO_EXTENSION_TYPE_VHD}; }
file_type_list some_file_types() { return {FIO_FILE_TYPE_VHDL_FILE}; }

// What was appended before memory ran out stays.
bool some_are_appended(std::string const& state, std::string const& before, std::string const& clean) {
  return clean.rfind(state, 0) == 0 && state.rfind(before, 0) == 0;
}

void add_lists(operation_table& table) {
  auto const add = [&table](std::vector<std::string> covers, auto prepare, auto call) {
    table.add(std::move(covers), prepare, call).may_leave(some_are_appended).goes_on_after_failure();
  };
  add({"fio_get_extension_type_list(std::list<FIO_EXTENSION_TYPE>*, FIO_EXTENSION_TYPE, FIO_FILE_TYPE)"},
      some_extensions, [](extension_list& list) {
        fio_get_extension_type_list(&list, FIO_EXTENSION_TYPE_ANY, FIO_FILE_TYPE_VHDL_FILE);
      });
  add({"FIO_EXTENSION_TYPE_INFO::get_extension_type_list(std::list<FIO_EXTENSION_TYPE>*, FIO_EXTENSION_TYPE, "
       "FIO_FILE_TYPE, long)"},
      some_extensions, [](extension_list& list) {
        FIO_EXTENSION_TYPE_INFO::get_extension_type_list(&list, FIO_EXTENSION_TYPE_V, FIO_FILE_TYPE_ANY, 0);
      });
  add({"fio_get_list_of_extensions_valid_for_trait(FIO_EXTENSION_TYPE_FLAG, std::list<FIO_EXTENSION_TYPE>*)"},
      some_extensions, [](extension_list& list) {
        fio_get_list_of_extensions_valid_for_trait(FIO_EXTENSION_TYPE_FLAG_CORE_VARIATION_EXTENSION, &list);
      });
  add({"fio_get_file_type_list(std::list<FIO_FILE_TYPE>*, FIO_FILE_TYPE, FIO_EDITOR_TYPE, long)"}, some_file_types,
      [](file_type_list& list) {
        fio_get_file_type_list(&list, FIO_FILE_TYPE_ANY, FIO_EDITOR_TYPE_WAVEFORM_VECTOR_FILES, -1);
      });
  add({"FIO_FILE_TYPE_INFO::get_file_type_list(std::list<FIO_FILE_TYPE>*, FIO_FILE_TYPE, FIO_EDITOR_TYPE, long)"},
      some_file_types, [](file_type_list& list) {
        FIO_FILE_TYPE_INFO::get_file_type_list(&list, FIO_FILE_TYPE_ANY, FIO_EDITOR_TYPE_MEMORY_FILES, -1);
      });
}

void add_texts(operation_table& table) {
  auto const add = [&table](char const* covered, auto call) {
    table.add({covered}, no_object, [call](nothing) { return call(); });
  };
  add("fio_get_extension_type(std::string const&)", [] { return fio_get_extension_type(file_name); });
  add("fio_get_extension_type(std::string const&)", [] { return fio_get_extension_type(name_without_extension); });
  add("fio_get_file_type(std::string const&)", [] { return fio_get_file_type(file_name); });
  add("FIO_EXTENSION_TYPE_INFO::get_extension_type(std::string const&)",
      [] { return FIO_EXTENSION_TYPE_INFO::get_extension_type(file_name); });
  add("FIO_FILE_TYPE_INFO::get_file_type(std::string const&)",
      [] { return FIO_FILE_TYPE_INFO::get_file_type(file_name); });
  add("FIO_FILE_TYPE_INFO::get_file_type_name(FIO_FILE_TYPE)",
      [] { return FIO_FILE_TYPE_INFO::get_file_type_name(FIO_FILE_TYPE_COMPRESSED_VECTOR_WAVEFORM_FILE); });
  add("FIO_FILE_TYPE_INFO::get_file_description(FIO_FILE_TYPE)",
      [] { return FIO_FILE_TYPE_INFO::get_file_description(FIO_FILE_TYPE_COMPRESSED_VECTOR_WAVEFORM_FILE); });
  add("fio_get_file_type_filter(FIO_FILE_TYPE, bool)",
      [] { return fio_get_file_type_filter(FIO_FILE_TYPE_VHDL_FILE, true); });
  add("fio_get_extension_type_filter(FIO_EXTENSION_TYPE, bool)",
      [] { return fio_get_extension_type_filter(FIO_EXTENSION_TYPE_VHD, true); });
  add("fio_clsid_to_str(_GUID const&, FIO_CLSID_FORMAT)",
      [] { return fio_clsid_to_str(VFC_CLSID_TED_DEFAULT_DOC, FIO_CLSID_FORMAT_INITIALIZER); });
}

void add_queries(operation_table& table) {
  auto const add = [&table](std::vector<std::string> covers, auto call) {
    table.add_quiet(std::move(covers), no_object, [call](nothing) { return call(); });
  };
  add({"fio_get_file_type_name(FIO_FILE_TYPE)"}, [] { return fio_get_file_type_name(FIO_FILE_TYPE_VHDL_FILE); });
  add({"fio_get_file_description(FIO_FILE_TYPE)"}, [] { return fio_get_file_description(FIO_FILE_TYPE_VHDL_FILE); });
  add({"fio_get_editor_type(FIO_FILE_TYPE)", "FIO_FILE_TYPE_INFO::get_editor_type(FIO_FILE_TYPE)"}, [] {
    return fio_get_editor_type(FIO_FILE_TYPE_VHDL_FILE) + FIO_FILE_TYPE_INFO::get_editor_type(FIO_FILE_TYPE_VHDL_FILE);
  });
  add({"fio_test_trait_of(FIO_FILE_TYPE, FIO_FILE_TYPE_FLAG)", "FIO_FILE_TYPE_INFO::is_design_file(FIO_FILE_TYPE)"},
      [] {
        return fio_test_trait_of(FIO_FILE_TYPE_VHDL_FILE, FIO_FILE_TYPE_FLAG_DESIGN_FILES) +
               FIO_FILE_TYPE_INFO::is_design_file(FIO_FILE_TYPE_VHDL_FILE);
      });
  add({"fio_get_default_extension_type(FIO_FILE_TYPE)",
       "FIO_EXTENSION_TYPE_INFO::get_default_extension_type(FIO_FILE_TYPE)"},
      [] {
        return fio_get_default_extension_type(FIO_FILE_TYPE_VHDL_FILE) +
               FIO_EXTENSION_TYPE_INFO::get_default_extension_type(FIO_FILE_TYPE_VHDL_FILE);
      });
  add({"fio_get_default_extension_string(FIO_FILE_TYPE)"},
      [] { return fio_get_default_extension_string(FIO_FILE_TYPE_VHDL_FILE); });
  add({"fio_get_extension_string(FIO_EXTENSION_TYPE)"},
      [] { return fio_get_extension_string(FIO_EXTENSION_TYPE_VHD); });
  // The text of every extension fits into a string without memory of its own.
  add({"FIO_EXTENSION_TYPE_INFO::get_extension_string(FIO_EXTENSION_TYPE)"},
      [] { return FIO_EXTENSION_TYPE_INFO::get_extension_string(FIO_EXTENSION_TYPE_VHD); });
  add({"fio_get_file_type(FIO_EXTENSION_TYPE)", "FIO_EXTENSION_TYPE_INFO::get_file_type(FIO_EXTENSION_TYPE)",
       "fio_get_file_type(_GUID const&)", "FIO_FILE_TYPE_INFO::get_file_type(_GUID const&)"},
      [] {
        return fio_get_file_type(FIO_EXTENSION_TYPE_VHD) +
               FIO_EXTENSION_TYPE_INFO::get_file_type(FIO_EXTENSION_TYPE_VHD) +
               fio_get_file_type(VFC_CLSID_TED_DEFAULT_DOC) +
               FIO_FILE_TYPE_INFO::get_file_type(VFC_CLSID_TED_DEFAULT_DOC);
      });
  add({"fio_get_editor_type_string(FIO_EDITOR_TYPE)"},
      [] { return fio_get_editor_type_string(FIO_EDITOR_TYPE_TEXT_FILES); });
  add({"fio_get_file_type_trait_string(FIO_FILE_TYPE_FLAG)"},
      [] { return fio_get_file_type_trait_string(FIO_FILE_TYPE_FLAG_DESIGN_FILES); });
  add({"fio_get_extension_type_trait_string(FIO_EXTENSION_TYPE_FLAG)"},
      [] { return fio_get_extension_type_trait_string(FIO_EXTENSION_TYPE_FLAG_DEFAULT_EXTENSION); });
  add({"fio_str_to_clsid(std::string const&)"}, [] { return fio_str_to_clsid(clsid_text); });
}

// A stream that needs no memory: what is written can be read again.
class fixed_buffer : public std::streambuf {
public:
  fixed_buffer() { setp(m_bytes.data(), m_bytes.data() + m_bytes.size()); }
  void turn() { setg(m_bytes.data(), m_bytes.data(), pptr()); }

private:
  std::array<char, 64> m_bytes = {};
};

struct buffered_streams {
  fixed_buffer buffer;
  std::ostream out{&buffer};
  std::istream in{&buffer};
};

std::string text_of(buffered_streams const& streams) { return streams.in && streams.out ? "good" : "bad"; }

template <typename Value>
void add_stream_operators(operation_table& table, std::string const& type) {
  table.add_quiet(
      {"FIO_BIN_OFILE::operator<<(" + type + ")", "FIO_BIN_IFILE::operator>>(" + type + "&)"},
      [] { return buffered_streams(); },
      [](buffered_streams& streams) {
        Value value = 'x';
        FIO_BIN_OFILE(streams.out) << value;
        streams.buffer.turn();
        FIO_BIN_IFILE(streams.in) >> value;
        return value;
      });
}

void add_streams(operation_table& table) {
  add_stream_operators<char>(table, "char");
  add_stream_operators<short>(table, "short");
  add_stream_operators<unsigned short>(table, "unsigned short");
  add_stream_operators<int>(table, "int");
  add_stream_operators<unsigned int>(table, "unsigned int");
  add_stream_operators<long>(table, "long");
  add_stream_operators<unsigned long>(table, "unsigned long");
}

} // namespace

void add_type_operations(operation_table& table) {
  add_lists(table);
  add_texts(table);
  add_queries(table);
  add_streams(table);
}
