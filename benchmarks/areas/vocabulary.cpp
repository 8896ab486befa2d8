// The vocabulary: the type of a file by its name.

#include <string>
#include <unordered_map>

#include "benchmarks/floors/vocabulary.h"
#include "benchmarks/registry.h"
#include "benchmarks/texts.h"
#include "ccl/fio/fio_file_ext_type_info.h"

namespace bench {

namespace {

// A table that is built before it is needed: what a caller of many look-ups can have.
class hash_table {
public:
  hash_table() {
    for (short value = 1; *fio_get_extension_string(static_cast<FIO_EXTENSION_TYPE>(value)) != '\0'; ++value) {
      auto const type = static_cast<FIO_EXTENSION_TYPE>(value);
      m_types.try_emplace(fio_get_extension_string(type), fio_get_file_type(type));
    }
  }

  FIO_FILE_TYPE type_of(std::string const& name) const {
    std::size_t const dot = name.find_last_of("./");
    std::string text = dot != std::string::npos && name[dot] == '.' ? name.substr(dot) : '.' + name;
    for (char& byte : text) {
      byte = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
    }
    auto const found = m_types.find(text);
    return found != m_types.end() ? found->second : FIO_FILE_TYPE_INVALID;
  }

private:
  std::unordered_map<std::string, FIO_FILE_TYPE> m_types;
};

template <typename Table>
void look_up(char const* name, std::string note) {
  add(
      "vocabulary.type_by_name", name, names,
      [](texts const& from, std::size_t item, auto visit) {
        static Table const table;
        visit(static_cast<int>(table.type_of(from[item])));
      },
      std::move(note));
}

} // namespace

void add_vocabulary_workloads() {
  add_workload("vocabulary.type_by_name", "the type of a file by its name");
  add("vocabulary.type_by_name", library, names,
      [](texts const& from, std::size_t item, auto visit) { visit(static_cast<int>(fio_get_file_type(from[item]))); });
  look_up<floors::vocabulary>(least_code, "");
  look_up<hash_table>("hash table", "an index that is built first");
}

} // namespace bench
