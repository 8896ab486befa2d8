/// @file
/// The floor of the vocabulary: a walk over the first four letters of the extensions, several at a time.

#ifndef CCL_BENCHMARKS_FLOORS_VOCABULARY_H
#define CCL_BENCHMARKS_FLOORS_VOCABULARY_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "benchmarks/floors/path.h"
#include "ccl/fio/fio_file_ext_type_info.h"

namespace floors {

class vocabulary {
public:
  /// Takes the rows from the library.
  vocabulary() {
    for (short value = 0; *fio_get_extension_string(static_cast<FIO_EXTENSION_TYPE>(value)) != '\0'; ++value) {
      auto const type = static_cast<FIO_EXTENSION_TYPE>(value);
      m_rows.push_back({key_of(fio_get_extension_string(type)), fio_get_file_type(type)});
      m_starts.push_back(start_of(m_rows.back().extension));
    }
    m_starts.resize((m_starts.size() + group - 1) / group * group);
  }

  FIO_FILE_TYPE type_of(std::string_view name) const {
    division const parts = name.size() <= 1023 ? divide(name) : division();
    std::string_view extension = name.substr(parts.directory + parts.base, parts.extension);
    char dotted[key_size] = {'.'};
    if (extension.empty() && name.size() < key_size && !name.empty() && name.front() != '.') {
      name.copy(dotted + 1, name.size());
      extension = {dotted, name.size() + 1};
    } else if (extension.empty()) {
      extension = name;
    }
    if (extension.size() < 2 || extension.size() >= key_size) {
      return FIO_FILE_TYPE_INVALID;
    }
    key const wanted = key_of(extension);
    std::uint32_t const start = start_of(wanted);
    for (std::size_t first = 0; first != m_starts.size(); first += group) {
      bool found = false;
      for (std::size_t i = 0; i != group; ++i) {
        found |= m_starts[first + i] == start;
      }
      for (std::size_t i = first; found && i != std::min(first + group, m_rows.size()); ++i) {
        if (m_rows[i].extension == wanted) {
          return m_rows[i].type;
        }
      }
    }
    return FIO_FILE_TYPE_INVALID;
  }

private:
  static constexpr std::size_t key_size = 16;
  static constexpr std::size_t group = 16; ///< the rows that are compared at once
  using key = std::array<char, key_size>;

  struct row {
    key extension;
    FIO_FILE_TYPE type;
  };

  static key key_of(std::string_view extension) {
    key lower = {};
    for (std::size_t i = 0; i != extension.size(); ++i) {
      char const byte = extension[i];
      lower[i] = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
    }
    return lower;
  }

  // What stands behind the dot.
  static std::uint32_t start_of(key const& extension) {
    std::uint32_t start;
    std::memcpy(&start, extension.data() + 1, sizeof start);
    return start;
  }

  std::vector<row> m_rows;
  std::vector<std::uint32_t> m_starts; ///< of the rows, up to a whole group
};

} // namespace floors

#endif
