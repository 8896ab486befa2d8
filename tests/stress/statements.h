/// @file
/// What the headers of the library say about threads, as a table: for each statement, work that leans on it.

#ifndef CCL_TESTS_STRESS_STATEMENTS_H
#define CCL_TESTS_STRESS_STATEMENTS_H

#include <list>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "ccl/fio/fio_errc.h"
#include "ccl/fio/fio_path.h"
#include "tests/support/scratch_tree.h"

namespace stress {

/// What all threads read and none changes.
struct shared_objects {
  explicit shared_objects(scratch_tree const& tree);

  std::string files;  ///< a tree of files, with a "/" at its end
  std::string common; ///< a directory in which the threads make the same things, with a "/" at its end
  std::vector<FIO_PATH> paths;
  std::list<FIO_PATH> search_list;
  std::unique_ptr<FIO_ERRC> error;
};

/// What one thread works with.
struct workplace {
  shared_objects const& shared;
  std::string directory; ///< its own directory, empty at first and again at the end, with a "/" at its end
  std::string round;     ///< the same text for all who work at the same time, and another one each time
};

/// What a piece of work came to. Work that is done in several places comes to the same there.
class transcript {
public:
  transcript& operator<<(std::string const& value) {
    m_text += value;
    m_text += '\n';
    return *this;
  }
  transcript& operator<<(char const* value) { return *this << std::string(value != nullptr ? value : "(null)"); }
  template <typename Number, std::enable_if_t<std::is_arithmetic_v<Number> || std::is_enum_v<Number>, int> = 0>
  transcript& operator<<(Number value) {
    return *this << std::to_string(static_cast<long>(value));
  }

  std::string const& text() const { return m_text; }

private:
  std::string m_text;
};

/// One statement of a header.
struct statement {
  char const* header;
  char const* words;     ///< the statement as it stands there
  char const* exercised; ///< what all threads do at the same time
  void (*work)(workplace const&, transcript&);
};

std::vector<statement> path_statements();
std::vector<statement> file_statements();
std::vector<statement> search_statements();
std::vector<statement> vocabulary_statements();
std::vector<statement> error_statements();
std::vector<statement> binary_statements();

} // namespace stress

#endif
