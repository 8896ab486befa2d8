#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <boost/iterator/iterator_categories.hpp>
#include <boost/iterator/iterator_facade.hpp>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "ccl/fio/fio_iterator.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/calls.h"
#include "tests/support/ever_more_memory.h"
#include "tests/support/path_texts.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

namespace {

using platform_double::replaced;
using strings = std::vector<std::string>;

using facade =
    boost::iterators::iterator_facade<FIO_DIRECTORY_ITERATOR, FIO_DIRECTORY_ENTRY,
                                      boost::iterators::single_pass_traversal_tag, FIO_DIRECTORY_ENTRY&, long>;

static_assert(std::is_base_of_v<facade, FIO_DIRECTORY_ITERATOR>);
static_assert(std::is_base_of_v<FIO_DIRECTORY_ITERATOR, FIO_RECURSIVE_DIRECTORY_ITERATOR>);
static_assert(std::is_convertible_v<FIO_RECURSIVE_DIRECTORY_ITERATOR*, FIO_DIRECTORY_ITERATOR*>);
static_assert(std::is_polymorphic_v<FIO_DIRECTORY_ITERATOR>);
static_assert(std::is_polymorphic_v<FIO_RECURSIVE_DIRECTORY_ITERATOR>);
static_assert(!std::has_virtual_destructor_v<FIO_DIRECTORY_ITERATOR>);
static_assert(std::has_virtual_destructor_v<FIO_RECURSIVE_DIRECTORY_ITERATOR>);
static_assert(!std::is_polymorphic_v<FIO_DIRECTORY_ENTRY>);
static_assert(!std::is_polymorphic_v<FIO_DIRECTORY_ITERATOR_IMPL>);
static_assert(std::is_copy_constructible_v<FIO_DIRECTORY_ITERATOR>);
static_assert(std::is_copy_assignable_v<FIO_DIRECTORY_ITERATOR>);
static_assert(std::is_copy_constructible_v<FIO_RECURSIVE_DIRECTORY_ITERATOR>);
static_assert(std::is_copy_assignable_v<FIO_RECURSIVE_DIRECTORY_ITERATOR>);
static_assert(std::is_constructible_v<FIO_DIRECTORY_ITERATOR, char const*>);
static_assert(std::is_constructible_v<FIO_RECURSIVE_DIRECTORY_ITERATOR, char const*>);
static_assert(std::is_constructible_v<FIO_DIRECTORY_ITERATOR_IMPL, char const*>);
static_assert(std::is_same_v<decltype(*std::declval<FIO_DIRECTORY_ITERATOR const&>()), FIO_DIRECTORY_ENTRY&>);
static_assert(std::is_same_v<decltype(*std::declval<FIO_RECURSIVE_DIRECTORY_ITERATOR const&>()), FIO_DIRECTORY_ENTRY&>);
static_assert(std::is_same_v<FIO_DIRECTORY_ITERATOR::value_type, FIO_DIRECTORY_ENTRY>);
static_assert(std::is_same_v<FIO_DIRECTORY_ITERATOR::difference_type, long>);
static_assert(std::is_same_v<boost::iterators::iterator_traversal<FIO_DIRECTORY_ITERATOR>::type,
                             boost::iterators::single_pass_traversal_tag>);
static_assert(std::is_same_v<decltype(FIO_DIRECTORY_ENTRY::is_directory), bool>);
static_assert(std::is_same_v<decltype(FIO_DIRECTORY_ENTRY::path), std::string>);
static_assert(std::is_same_v<decltype(std::declval<FIO_DIRECTORY_ENTRY const&>().derive_path()), FIO_PATH>);
static_assert(std::is_same_v<decltype(FIO_DIRECTORY_ITERATOR_IMPL::directory), std::string>);
static_assert(std::is_same_v<decltype(FIO_DIRECTORY_ITERATOR_IMPL::entry), FIO_DIRECTORY_ENTRY>);
static_assert(std::is_same_v<decltype(FIO_DIRECTORY_ITERATOR_IMPL::stream), DIR*>);
// A pointer to the table of virtual operations and one counted pointer for each class.
static_assert(sizeof(FIO_DIRECTORY_ITERATOR) == sizeof(void*) + sizeof(std::shared_ptr<int>));
static_assert(sizeof(FIO_RECURSIVE_DIRECTORY_ITERATOR) == sizeof(void*) + 2 * sizeof(std::shared_ptr<int>));

// What a directory says of one entry.
struct told_entry {
  std::string name;
  unsigned char type;
};

// A double of `readdir64` that tells of these entries, whatever the stream, and then of the end for ever.
class told_entries {
public:
  explicit told_entries(std::vector<told_entry> entries) : m_entries(std::move(entries)) {}

  dirent64* operator()(DIR* /*stream*/) {
    if (m_next == m_entries.size()) {
      errno = EIO;
      return nullptr;
    }
    told_entry const& told = m_entries[m_next++];
    m_entry = {};
    m_entry.d_type = told.type;
    told.name.copy(m_entry.d_name, sizeof m_entry.d_name - 1);
    return &m_entry;
  }

private:
  std::vector<told_entry> m_entries;
  std::size_t m_next = 0;
  dirent64 m_entry = {};
};

dirent64* readdir64_of_the_system(DIR* stream) {
  dirent64* (*original)(DIR*);
  *reinterpret_cast<void**>(&original) = ::dlsym(RTLD_NEXT, "readdir64");
  return original(stream);
}

// The double of `osi_status` that leaves no call of `stat` in the record: one that is there is the library's own.
int status_without_a_trace(char const* path, struct stat* buffer) { return ::fstatat(AT_FDCWD, path, buffer, 0); }

// An entry as one text: a directory has a mark in front.
std::string shown(FIO_DIRECTORY_ENTRY const& entry) { return (entry.is_directory ? "[d]" : "") + entry.path; }

template <typename Iterator>
strings walked(std::string const& path) {
  strings result;
  FIO_DIRECTORY_ITERATOR const end;
  for (Iterator iterator(path.c_str()); iterator != end; ++iterator) {
    result.push_back(shown(*iterator));
  }
  return result;
}

strings flat(std::string const& path) { return walked<FIO_DIRECTORY_ITERATOR>(path); }
strings deep(std::string const& path) { return walked<FIO_RECURSIVE_DIRECTORY_ITERATOR>(path); }

// A tree as its rule reads: each entry, then what is below it.
void append_tree(std::string const& path, strings& result) {
  for (FIO_DIRECTORY_ENTRY const& entry : FIO_DIRECTORY_ITERATOR(path.c_str())) {
    result.push_back(shown(entry));
    if (entry.is_directory) {
      append_tree(entry.path, result);
    }
  }
}

bool at_end(FIO_DIRECTORY_ITERATOR const& iterator) { return iterator == FIO_DIRECTORY_ITERATOR(); }

strings only(std::string const& name, strings const& calls) {
  strings result;
  for (std::string const& call : calls) {
    if (call.rfind(name + '(', 0) == 0) {
      result.push_back(call);
    }
  }
  return result;
}

// The name of the function in this place of an object's table of virtual operations.
std::string virtual_operation(void const* object, std::size_t place) {
  void* const* table;
  std::memcpy(&table, object, sizeof table);
  Dl_info found = {};
  ::dladdr(table[place], &found);
  return found.dli_sname != nullptr ? found.dli_sname : "";
}

class directory_iterator : public fio_test {};

} // namespace

TEST_F(directory_iterator, virtual_operations_stand_in_their_order) {
  FIO_DIRECTORY_ITERATOR const one;
  FIO_RECURSIVE_DIRECTORY_ITERATOR const tree;
  EXPECT_EQ(virtual_operation(&one, 0), "_ZN22FIO_DIRECTORY_ITERATOR9incrementEv");
  EXPECT_EQ(virtual_operation(&tree, 0), "_ZN32FIO_RECURSIVE_DIRECTORY_ITERATOR9incrementEv");
  EXPECT_EQ(virtual_operation(&tree, 2), "_ZN32FIO_RECURSIVE_DIRECTORY_ITERATORD0Ev");
}

TEST_F(directory_iterator, delivers_one_directory) {
  m_tree.draw({"file", "empty/", "hidden/.a", "hidden/..b", "hidden/...", "d/f", "d/sub/below", "to_d -> d",
               "links/to_d -> ../d", "links/to_f -> ../d/f", "links/dangling -> nowhere"});
  enter(m_tree);
  struct {
    char const* path;
    strings entries;
  } const rows[] = {
      // no directory
      {"file", {}},
      {"missing", {}},
      {"missing/below", {}},
      {"file/below", {}},
      {"", {}},
      {"links/dangling", {}},
      {"links/to_f", {}},
      // no entries
      {"empty", {}},
      {"empty/", {}},
      // entries, with the text as it was given
      {"hidden", {"hidden/...", "hidden/..b", "hidden/.a"}},
      {"d", {"[d]d/sub", "d/f"}},
      {"d/", {"[d]d//sub", "d//f"}},
      {"d//", {"[d]d///sub", "d///f"}},
      {"./d", {"[d]./d/sub", "./d/f"}},
      {"d/../d/.", {"[d]d/../d/./sub", "d/../d/./f"}},
      {"to_d", {"[d]to_d/sub", "to_d/f"}},
      // links are plain entries
      {"links", {"links/dangling", "links/to_d", "links/to_f"}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.path);
    EXPECT_EQ(sorted(flat(row.path)), sorted(row.entries));
    EXPECT_EQ(FIO_DIRECTORY_ITERATOR(row.path) == FIO_DIRECTORY_ITERATOR(), row.entries.empty());
    EXPECT_EQ(FIO_RECURSIVE_DIRECTORY_ITERATOR(row.path) == FIO_RECURSIVE_DIRECTORY_ITERATOR(), row.entries.empty());
  }
  EXPECT_EQ(messages(), strings());
}

TEST_F(directory_iterator, delivers_absolute_paths_for_an_absolute_text) {
  m_tree.draw({"d/f"});
  EXPECT_EQ(flat(m_tree.path("d")), strings({m_tree.path("d/f")}));
  EXPECT_EQ(deep(m_tree.path("d")), strings({m_tree.path("d/f")}));
}

TEST_F(directory_iterator, the_type_byte_alone_tells_a_directory) {
  m_tree.draw({"d/"});
  std::string const directory = m_tree.path("d");
  for (int type = 0; type != 256; ++type) {
    SCOPED_TRACE(type);
    replaced().readdir64 = told_entries({{"name", static_cast<unsigned char>(type)}});
    FIO_DIRECTORY_ITERATOR const iterator(directory.c_str());
    ASSERT_FALSE(at_end(iterator));
    EXPECT_EQ(iterator->is_directory, type / 4 % 2 == 1);
    EXPECT_EQ(iterator->path, directory + "/name");
  }
  struct {
    unsigned char type;
    bool is_directory;
  } const rows[] = {
      {DT_UNKNOWN, false}, {DT_FIFO, false}, {DT_CHR, false}, {DT_DIR, true},
      {DT_BLK, true},      {DT_REG, false},  {DT_LNK, false}, {DT_SOCK, true},
  };
  for (auto const& row : rows) {
    replaced().readdir64 = told_entries({{"name", row.type}});
    EXPECT_EQ(FIO_DIRECTORY_ITERATOR(directory.c_str())->is_directory, row.is_directory) << int{row.type};
  }
}

TEST_F(directory_iterator, only_the_two_dot_entries_are_passed_over) {
  m_tree.draw({"d/"});
  enter(m_tree);
  told_entries const told({{"..", DT_DIR},
                           {".", DT_DIR},
                           {"...", DT_REG},
                           {".", DT_DIR},
                           {".", DT_DIR},
                           {".a", DT_REG},
                           {"..", DT_REG},
                           {"..b", DT_REG},
                           {". ", DT_REG},
                           {"", DT_REG},
                           {"a.", DT_REG},
                           {".", 0}});
  strings const expected = {"d/...", "d/.a", "d/..b", "d/. ", "d/", "d/a."};
  replaced().readdir64 = told;
  EXPECT_EQ(flat("d"), expected);
  replaced().readdir64 = told;
  EXPECT_EQ(deep("d"), expected);
}

TEST_F(directory_iterator, a_read_error_is_an_end) {
  m_tree.draw({"d/f"});
  enter(m_tree);
  replaced().readdir64 = told_entries({});
  EXPECT_EQ(flat("d"), strings());
  replaced().readdir64 = told_entries({{"a", DT_REG}});
  EXPECT_EQ(flat("d"), strings({"d/a"}));
  EXPECT_EQ(messages(), strings());
}

TEST_F(directory_iterator, opens_what_has_the_directory_bit_in_its_status) {
  m_tree.draw({"d/f", "file"});
  enter(m_tree);
  replaced().osi_status = status_without_a_trace;
  struct {
    char const* path;
    strings calls;
  } const rows[] = {
      {"missing", {"osi_status(missing)"}},
      {"file", {"osi_status(file)"}},
      {"d", {"osi_status(d)", "opendir(d)", "readdir64()", "readdir64()", "closedir()"}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.path);
    replaced().readdir64 = told_entries({{".", DT_DIR}});
    EXPECT_EQ(calls_of([&row] { FIO_DIRECTORY_ITERATOR const unused(row.path); }), row.calls);
    replaced().readdir64 = told_entries({{".", DT_DIR}});
    EXPECT_EQ(calls_of([&row] { FIO_RECURSIVE_DIRECTORY_ITERATOR const unused(row.path); }), row.calls);
  }
  replaced() = {};
  replaced().osi_status = [](char const*, struct stat* buffer) {
    *buffer = record_of_mode(S_IFSOCK);
    return 0;
  };
  EXPECT_EQ(calls_of([] { EXPECT_EQ(flat("file"), strings()); }), strings({"osi_status(file)", "opendir(file)"}));
  replaced().osi_status = [](char const*, struct stat*) { return -1; };
  EXPECT_EQ(calls_of([] { EXPECT_EQ(flat("d"), strings()); }), strings({"osi_status(d)"}));
}

TEST_F(directory_iterator, asks_for_no_status_of_an_entry) {
  m_tree.draw({"d/a", "d/b -> a", "d/c/"});
  enter(m_tree);
  replaced().osi_status = status_without_a_trace;
  strings const calls = calls_of([] { EXPECT_EQ(flat("d").size(), 3u); });
  strings expected = {"osi_status(d)", "opendir(d)"};
  expected.insert(expected.end(), 6, "readdir64()"); // three entries, two dots and the end
  expected.emplace_back("closedir()");
  EXPECT_EQ(calls, expected);
}

TEST_F(directory_iterator, what_cannot_be_opened_has_no_entries) {
  m_tree.draw({"d/a/below", "d/b/below"});
  enter(m_tree);
  replaced().opendir = [](char const*) -> DIR* {
    errno = EMFILE;
    return nullptr;
  };
  EXPECT_EQ(flat("d"), strings());
  EXPECT_EQ(deep("d"), strings());
  replaced().opendir = [](char const* path) -> DIR* {
    return std::string(path) == "d/a" ? nullptr : opendir_of_the_system(path);
  };
  EXPECT_EQ(sorted(deep("d")), strings({"[d]d/a", "[d]d/b", "d/b/below"}));
  EXPECT_EQ(messages(), strings());
}

TEST_F(directory_iterator, an_unreadable_subdirectory_is_delivered_without_contents) {
  m_tree.draw({"a/below", "b"});
  ASSERT_EQ(::chmod(m_tree.path("a").c_str(), 0), 0);
  EXPECT_TRUE(holds_for_ordinary_user(
      [](scratch_tree const& tree) {
        return sorted(deep(tree.root())) == sorted({"[d]" + tree.path("a"), tree.path("b")}) &&
               flat(tree.path("a")).empty();
      },
      m_tree));
}

TEST_F(directory_iterator, an_end_stays_an_end) {
  m_tree.draw({"d/f", "empty/"});
  enter(m_tree);
  for (char const* path : {"missing", "empty", "d"}) {
    SCOPED_TRACE(path);
    FIO_DIRECTORY_ITERATOR one(path);
    FIO_RECURSIVE_DIRECTORY_ITERATOR tree(path);
    one.increment();
    tree.increment();
    EXPECT_TRUE(at_end(one));
    EXPECT_TRUE(at_end(tree));
    EXPECT_EQ(calls_of([&one, &tree] {
                one.increment();
                ++one;
                tree.increment();
                ++tree;
              }),
              strings());
    EXPECT_TRUE(at_end(one));
    EXPECT_TRUE(at_end(tree));
    EXPECT_TRUE(one == tree);
    EXPECT_FALSE(one != tree);
  }
  FIO_DIRECTORY_ITERATOR end;
  end.increment();
  EXPECT_TRUE(at_end(end));
}

TEST_F(directory_iterator, a_positioned_iterator_differs_from_the_end) {
  m_tree.draw({"d/f"});
  enter(m_tree);
  FIO_DIRECTORY_ITERATOR const one("d");
  FIO_RECURSIVE_DIRECTORY_ITERATOR const tree("d");
  EXPECT_FALSE(one == FIO_DIRECTORY_ITERATOR());
  EXPECT_TRUE(one != FIO_DIRECTORY_ITERATOR());
  EXPECT_FALSE(FIO_RECURSIVE_DIRECTORY_ITERATOR() == tree);
  EXPECT_TRUE(FIO_RECURSIVE_DIRECTORY_ITERATOR() != tree);
}

TEST_F(directory_iterator, copies_share_the_position_and_the_entry) {
  m_tree.draw({"d/a", "d/b", "d/c"});
  enter(m_tree);
  replaced().readdir64 = told_entries({{"a", DT_REG}, {"b", DT_REG}, {"c", DT_REG}});
  FIO_DIRECTORY_ITERATOR first("d");
  FIO_DIRECTORY_ITERATOR second = first;
  EXPECT_EQ(&*first, &*second);
  ++first;
  EXPECT_EQ(second->path, "d/b");
  ++second;
  EXPECT_EQ(first->path, "d/c");
  int const open = platform_double::open_streams();
  ++first;
  EXPECT_TRUE(at_end(first));
  EXPECT_FALSE(at_end(second));
  EXPECT_EQ(second->path, "d/c");
  EXPECT_EQ(platform_double::open_streams(), open) << "the copy still holds the stream";
  EXPECT_EQ(calls_of([&second] { ++second; }), strings({"readdir64()", "closedir()"}));
  EXPECT_TRUE(at_end(second));
}

TEST_F(directory_iterator, copies_of_a_tree_walk_share_the_level_that_was_reached) {
  m_tree.draw({"d/a/b/c"});
  enter(m_tree);
  FIO_RECURSIVE_DIRECTORY_ITERATOR first("d");
  ++first;
  FIO_RECURSIVE_DIRECTORY_ITERATOR const second = first;
  EXPECT_EQ(second->path, "d/a/b");
  ++first;
  EXPECT_EQ(first->path, "d/a/b/c");
  EXPECT_EQ(&*first, &*second);
}

TEST_F(directory_iterator, walks_a_tree_depth_first_with_whole_paths) {
  m_tree.draw({"root/a/b/c"});
  enter(m_tree);
  EXPECT_EQ(deep("root"), strings({"[d]root/a", "[d]root/a/b", "root/a/b/c"}));
  EXPECT_EQ(deep("root/"), strings({"[d]root//a", "[d]root//a/b", "root//a/b/c"}));
  std::string const absolute = m_tree.path("root");
  EXPECT_EQ(deep(absolute), strings({"[d]" + absolute + "/a", "[d]" + absolute + "/a/b", absolute + "/a/b/c"}));
}

TEST_F(directory_iterator, a_subtree_comes_behind_its_directory_and_before_the_next_sibling) {
  m_tree.draw({"r/a/1", "r/a/2/x", "r/a/2/y/z", "r/a/3/", "r/b", "r/c/", "r/d/e/f/g/", "r/.h/i", "r/j/k/l", "r/m/n/"});
  enter(m_tree);
  strings expected;
  append_tree("r", expected);
  EXPECT_EQ(expected.size(), 20u);
  EXPECT_EQ(deep("r"), expected);
}

TEST_F(directory_iterator, a_link_to_a_directory_is_never_entered) {
  m_tree.draw({"root/real/f", "other/g", "root/to_other -> ../other", "root/real/loop -> .."});
  enter(m_tree);
  EXPECT_EQ(sorted(deep("root")), strings({"[d]root/real", "root/real/f", "root/real/loop", "root/to_other"}));
}

TEST_F(directory_iterator, where_types_are_unknown_nothing_is_entered) {
  m_tree.draw({"d/a/below", "d/b"});
  enter(m_tree);
  replaced().readdir64 = [](DIR* stream) {
    dirent64* const entry = readdir64_of_the_system(stream);
    if (entry != nullptr) {
      entry->d_type = DT_UNKNOWN;
    }
    return entry;
  };
  EXPECT_EQ(sorted(deep("d")), strings({"d/a", "d/b"}));
}

TEST_F(directory_iterator, what_looks_like_a_directory_and_is_none_has_no_contents) {
  m_tree.draw({"d/file"});
  enter(m_tree);
  replaced().osi_status = status_without_a_trace;
  for (unsigned char const type : {DT_DIR, DT_BLK, DT_SOCK}) {
    replaced().readdir64 = told_entries({{"file", type}});
    strings const calls = calls_of([] { EXPECT_EQ(deep("d"), strings({"[d]d/file"})); });
    EXPECT_EQ(calls, strings({"osi_status(d)", "opendir(d)", "readdir64()", "osi_status(d/file)", "readdir64()",
                              "closedir()"}));
  }
}

TEST_F(directory_iterator, an_empty_directory_at_the_end_is_opened_by_each_level_above) {
  struct {
    char const* drawn;
    strings opened;
  } const rows[] = {
      {"r/", {"opendir(r)"}},
      {"r/a/", {"opendir(r)", "opendir(r/a)"}},
      {"r/a/b/", {"opendir(r)", "opendir(r/a)", "opendir(r/a/b)", "opendir(r/a/b)"}},
      {"r/a/b/c/",
       {"opendir(r)", "opendir(r/a)", "opendir(r/a/b)", "opendir(r/a/b/c)", "opendir(r/a/b/c)", "opendir(r/a/b/c)"}},
      {"r/a/b/file", {"opendir(r)", "opendir(r/a)", "opendir(r/a/b)"}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.drawn);
    scratch_tree const tree;
    tree.draw({row.drawn});
    enter(tree);
    EXPECT_EQ(only("opendir", calls_of([] { deep("r"); })), row.opened);
    enter(m_tree);
  }
}

TEST_F(directory_iterator, what_a_directory_gained_before_the_repeated_attempt_is_delivered) {
  m_tree.draw({"r/a/b/"});
  enter(m_tree);
  int attempts = 0;
  replaced().opendir = [this, &attempts](char const* path) {
    if (std::string(path) == "r/a/b" && ++attempts == 2) {
      m_tree.draw({"r/a/b/gained"});
    }
    return opendir_of_the_system(path);
  };
  EXPECT_EQ(deep("r"), strings({"[d]r/a", "[d]r/a/b", "r/a/b/gained"}));
  EXPECT_EQ(attempts, 2);
}

TEST_F(directory_iterator, holds_one_stream_for_each_level) {
  m_tree.draw({"r/a/b/c/d"});
  enter(m_tree);
  int const before = platform_double::open_streams();
  strings const expected = {"r/a", "r/a/b", "r/a/b/c", "r/a/b/c/d"};
  FIO_RECURSIVE_DIRECTORY_ITERATOR iterator("r");
  for (std::size_t level = 0; level != expected.size(); ++level) {
    ASSERT_FALSE(at_end(iterator));
    EXPECT_EQ(iterator->path, expected[level]);
    EXPECT_EQ(platform_double::open_streams() - before, static_cast<int>(level) + 1) << expected[level];
    ++iterator;
  }
  EXPECT_TRUE(at_end(iterator));
  EXPECT_EQ(platform_double::open_streams(), before);
}

TEST_F(directory_iterator, dropping_a_walk_closes_the_deepest_level_first) {
  m_tree.draw({"r/a/b/c"});
  enter(m_tree);
  std::vector<DIR*> opened;
  std::vector<DIR*> closed;
  replaced().opendir = [&opened](char const* path) { return opened.emplace_back(opendir_of_the_system(path)); };
  replaced().closedir = [&closed](DIR* stream) { return closedir_of_the_system(closed.emplace_back(stream)); };
  {
    FIO_RECURSIVE_DIRECTORY_ITERATOR iterator("r");
    ++iterator;
    ++iterator;
    EXPECT_EQ(iterator->path, "r/a/b/c");
    EXPECT_EQ(closed.size(), 0u);
  }
  ASSERT_EQ(opened.size(), 3u);
  EXPECT_EQ(closed, std::vector<DIR*>(opened.rbegin(), opened.rend()));
}

TEST_F(directory_iterator, a_walk_goes_by_the_entry_that_the_caller_sees) {
  m_tree.draw({"r/a/b", "s/t"});
  enter(m_tree);
  FIO_RECURSIVE_DIRECTORY_ITERATOR pruned("r");
  pruned->is_directory = false;
  ++pruned;
  EXPECT_TRUE(at_end(pruned));
  FIO_RECURSIVE_DIRECTORY_ITERATOR redirected("r");
  redirected->path = "s";
  ++redirected;
  EXPECT_EQ(shown(*redirected), "s/t");
}

TEST_F(directory_iterator, a_tree_walk_moves_through_a_reference_to_its_base) {
  m_tree.draw({"r/a/b"});
  enter(m_tree);
  FIO_RECURSIVE_DIRECTORY_ITERATOR iterator("r");
  FIO_DIRECTORY_ITERATOR& base = iterator;
  base.increment();
  EXPECT_EQ(shown(*base), "r/a/b");
  iterator.update_entry_from_subdir_iter();
  EXPECT_EQ(shown(*iterator), "r/a/b");
}

TEST_F(directory_iterator, the_entry_of_the_level_below_replaces_both_fields) {
  m_tree.draw({"r/a/b"});
  enter(m_tree);
  FIO_RECURSIVE_DIRECTORY_ITERATOR iterator("r");
  ++iterator;
  iterator->path = "changed";
  iterator->is_directory = true;
  iterator.update_entry_from_subdir_iter();
  EXPECT_EQ(iterator->path, "r/a/b");
  EXPECT_FALSE(iterator->is_directory);
}

TEST_F(directory_iterator, ranges_end_where_the_iterator_does) {
  m_tree.draw({"r/a/b"});
  enter(m_tree);
  strings one;
  for (FIO_DIRECTORY_ENTRY const& entry : FIO_DIRECTORY_ITERATOR("r")) {
    one.push_back(shown(entry));
  }
  EXPECT_EQ(one, strings({"[d]r/a"}));
  strings tree;
  for (FIO_DIRECTORY_ENTRY const& entry : FIO_RECURSIVE_DIRECTORY_ITERATOR("r")) {
    tree.push_back(shown(entry));
  }
  EXPECT_EQ(tree, strings({"[d]r/a", "r/a/b"}));
  for (FIO_DIRECTORY_ENTRY const& entry : FIO_RECURSIVE_DIRECTORY_ITERATOR("missing")) {
    ADD_FAILURE() << entry.path;
  }
  static_assert(std::is_same_v<decltype(begin(std::declval<FIO_RECURSIVE_DIRECTORY_ITERATOR const&>())),
                               FIO_RECURSIVE_DIRECTORY_ITERATOR>);
}

TEST_F(directory_iterator, paths_may_be_longer_than_a_parsed_path) {
  std::string const directory = directory_of_length(m_tree, 1100);
  m_tree.make_file(directory.substr(m_tree.root().size() + 1) + "/name");
  EXPECT_EQ(flat(directory), strings({directory + "/name"}));
  EXPECT_EQ(deep(directory), strings({directory + "/name"}));
  EXPECT_EQ(messages(), strings());
}

TEST_F(directory_iterator, the_state_of_a_directory_begins_without_an_entry) {
  strings const calls = calls_of([] {
    FIO_DIRECTORY_ITERATOR_IMPL const state("some/dir/");
    EXPECT_EQ(state.directory, "some/dir/");
    EXPECT_EQ(state.entry.path, "");
    EXPECT_FALSE(state.entry.is_directory);
    EXPECT_EQ(state.stream, nullptr);
  });
  EXPECT_EQ(calls, strings());
}

TEST_F(directory_iterator, the_state_of_a_directory_closes_its_stream) {
  strings const calls = calls_of([this] {
    FIO_DIRECTORY_ITERATOR_IMPL state("d");
    state.stream = ::opendir(m_tree.root().c_str());
  });
  EXPECT_EQ(calls, strings({"opendir(" + m_tree.root() + ")", "closedir()"}));
}

TEST_F(directory_iterator, an_entry_is_the_directory_a_slash_and_the_name) {
  struct {
    char const* directory;
    char const* name;
    char const* path;
  } const rows[] = {
      {"d", "n", "d/n"}, {"d/", "n", "d//n"},   {"/", "n", "//n"},           {"", "n", "/n"},
      {"d", "", "d/"},   {"d\\", "n", "d\\/n"}, {"d/../e", ".", "d/../e/."}, {".", "a\\b", "./a\\b"},
  };
  for (auto const& row : rows) {
    for (bool const is_directory : {true, false}) {
      FIO_DIRECTORY_ITERATOR_IMPL state(row.directory);
      state.entry = {!is_directory, "before"};
      state.set_filename(row.name, is_directory);
      EXPECT_EQ(state.entry.path, row.path);
      EXPECT_EQ(state.entry.is_directory, is_directory);
      EXPECT_EQ(state.directory, row.directory);
    }
  }
}

TEST_F(directory_iterator, a_name_may_lie_in_the_state_that_it_is_stored_in) {
  FIO_DIRECTORY_ITERATOR_IMPL state("the_text_of_a_directory");
  state.set_filename("the_name_of_an_entry", false);
  state.set_filename(state.entry.path.c_str() + 10, true);
  EXPECT_EQ(state.entry.path, "the_text_of_a_directory/f_a_directory/the_name_of_an_entry");
  state.set_filename(state.directory.c_str() + 4, false);
  EXPECT_EQ(state.entry.path, "the_text_of_a_directory/text_of_a_directory");
}

TEST_F(directory_iterator, entries_use_the_room_of_those_before_them) {
  std::string const name = repeated(40, 'n');
  m_tree.draw({(name + "/1" + name).c_str(), (name + "/2" + name).c_str(), (name + "/3" + name).c_str()});
  FIO_RECURSIVE_DIRECTORY_ITERATOR walk(m_tree.root().c_str());
  ++walk;
  for (int step = 0; step != 2; ++step) {
    std::string const before = walk->path;
    allocation_failure const failing(1);
    ++walk;
    EXPECT_EQ(failing.asked_for(), 0);
    EXPECT_EQ(walk->path.size(), before.size());
  }
  EXPECT_TRUE(++walk == FIO_RECURSIVE_DIRECTORY_ITERATOR());
}

TEST_F(directory_iterator, an_entry_derives_a_path_with_every_backslash_turned) {
  struct {
    char const* text;
    char const* path;
    int levels;
  } const rows[] = {
      {"", "", 0},
      {"a", "a", 0},
      {"d/a.v", "d/a.v", 1},
      {"d/a\\b.v", "d/a/b.v", 2},
      {"/d/e/a\\b\\c", "/d/e/a/b/c", 4},
      {"\\d\\a", "/d/a", 1},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.text);
    FIO_DIRECTORY_ENTRY const entry{true, row.text};
    FIO_PATH const path = entry.derive_path();
    EXPECT_EQ(path.fullpath(), row.path);
    EXPECT_EQ(path.levels(), row.levels);
    EXPECT_EQ(separator_of(path), '/');
    EXPECT_EQ(entry.path, row.text);
  }
  EXPECT_FALSE(FIO_DIRECTORY_ENTRY().is_directory);
}

TEST_F(directory_iterator, a_name_with_a_backslash_derives_a_path_with_one_more_level) {
  m_tree.make_file("d/a\\b");
  enter(m_tree);
  FIO_DIRECTORY_ITERATOR const iterator("d");
  EXPECT_EQ(iterator->path, "d/a\\b");
  EXPECT_EQ(iterator->derive_path().fullpath(), "d/a/b");
  EXPECT_EQ(iterator->derive_path().levels(), FIO_PATH("d/a").levels() + 1);
}

TEST_F(directory_iterator, only_exhausted_memory_leaves_an_iterator) {
  std::string const name = repeated(100, 'n');
  m_tree.make_file(name + '/' + name + '/' + name);
  enter(m_tree);
  int const before = platform_double::open_streams();
  int entries = 0;
  auto const walk = [&entries] {
    entries = 0;
    FIO_DIRECTORY_ITERATOR const end;
    for (FIO_RECURSIVE_DIRECTORY_ITERATOR iterator("."); iterator != end; ++iterator) {
      ++entries;
    }
  };
  auto const check = [before](bool /*succeeded*/) { EXPECT_EQ(platform_double::open_streams(), before); };
  EXPECT_GT(with_ever_more_memory(walk, check), 0);
  EXPECT_EQ(entries, 3);
}

TEST_F(directory_iterator, a_copy_of_a_tree_walk_has_no_part_in_the_levels_below) {
  enter(m_tree);
  m_tree.draw({"d/a/b/c"});
  FIO_RECURSIVE_DIRECTORY_ITERATOR first("d");
  FIO_RECURSIVE_DIRECTORY_ITERATOR second = first;
  ++first;
  ++first;
  EXPECT_EQ(second->path, "d/a/b/c") << "the entry is shared";
  ++second;
  EXPECT_TRUE(second == FIO_RECURSIVE_DIRECTORY_ITERATOR()) << "the file is the entry, and the top level has no other";
  EXPECT_FALSE(first == FIO_RECURSIVE_DIRECTORY_ITERATOR());
  ++first;
  EXPECT_TRUE(first == FIO_RECURSIVE_DIRECTORY_ITERATOR());
}

TEST_F(directory_iterator, a_level_below_is_closed_before_the_repeated_attempt) {
  enter(m_tree);
  m_tree.draw({"r/a/b/"});
  strings streams;
  for (std::string const& call : calls_of([] {
         for (FIO_DIRECTORY_ENTRY const& entry : FIO_RECURSIVE_DIRECTORY_ITERATOR("r")) {
           EXPECT_TRUE(entry.is_directory);
         }
       })) {
    if (call.rfind("opendir", 0) == 0 || call == "closedir()") {
      streams.push_back(call);
    }
  }
  EXPECT_EQ(streams, (strings{"opendir(r)", "opendir(r/a)", "opendir(r/a/b)", "closedir()", "closedir()",
                              "opendir(r/a/b)", "closedir()", "closedir()"}));
}

TEST_F(directory_iterator, an_entry_that_is_too_long_for_a_path_derives_an_empty_one) {
  FIO_DIRECTORY_ENTRY entry;
  entry.path = repeated(1100);
  FIO_PATH const path = entry.derive_path();
  EXPECT_EQ(path.fullpath(), "");
  EXPECT_FALSE(path.is_legal_length());
}

TEST_F(directory_iterator, an_iterator_with_a_name_is_no_end_behind_a_loop_over_it) {
  enter(m_tree);
  m_tree.draw({"r/f"});
  FIO_RECURSIVE_DIRECTORY_ITERATOR walk("r");
  int count = 0;
  for (FIO_DIRECTORY_ENTRY const& entry : walk) {
    count += entry.path == "r/f" ? 1 : 0;
  }
  EXPECT_EQ(count, 1);
  EXPECT_FALSE(walk == FIO_RECURSIVE_DIRECTORY_ITERATOR());
}

TEST_F(directory_iterator, without_memory_for_the_next_entry_the_present_one_stays_whole) {
  unsigned char const types[][2] = {{DT_REG, DT_DIR}, {DT_DIR, DT_REG}};
  for (auto const& [present, next] : types) {
    replaced().readdir64 = told_entries({{repeated(40, 'n'), present}, {repeated(200, 'n'), next}});
    FIO_DIRECTORY_ITERATOR entries(m_tree.root().c_str());
    FIO_DIRECTORY_ENTRY const first = *entries;
    {
      allocation_failure const failing(1);
      EXPECT_THROW(++entries, std::bad_alloc);
    }
    EXPECT_EQ(entries->path, first.path);
    EXPECT_EQ(entries->is_directory, first.is_directory) << "the kind of an entry that was never reached";
  }
}

TEST_F(directory_iterator, without_memory_for_an_entry_below_the_directory_stays_the_entry) {
  std::string const name = repeated(200, 'n');
  m_tree.make_file(name + '/' + name);
  enter(m_tree);
  int failed = 0;
  for (bool done = false; !done; ++failed) {
    FIO_RECURSIVE_DIRECTORY_ITERATOR walk(".");
    {
      allocation_failure const failing(failed + 1);
      try {
        ++walk;
        done = true;
      } catch (std::bad_alloc const&) {
      }
    }
    EXPECT_EQ(walk->is_directory, walk->path == "./" + name) << failed << ": " << walk->path;
    EXPECT_EQ(walk->path.size(), done ? 403u : 202u);
  }
  EXPECT_GT(failed, 2);
}
