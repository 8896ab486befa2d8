/// @file
/// Declares iterators over a directory and over a whole tree.
///
///     for (FIO_DIRECTORY_ENTRY const& entry : FIO_RECURSIVE_DIRECTORY_ITERATOR("rtl")) {
///       std::puts(entry.path.c_str());    // rtl/core, rtl/core/alu.v, rtl/top.v in the order of the file system
///     }
///
/// "." and ".." never appear, and names with a leading dot do. Whether an entry is a directory is read from the
/// directory itself, without a status call: a symbolic link is not one and is never entered, and on a file system that
/// reports no types no entry is one. A tree is traversed depth first, a directory before its contents. Nothing is
/// sorted.
///
/// The iterators are single-pass: copies share the open directory and the entry. Only one copy of an iterator over a
/// tree may be incremented, since each has levels of its own below the ones that they share.
///
/// @par Failure
/// Nothing is reported. What is not a directory, or cannot be opened or read, has no entries. Only `std::bad_alloc` may
/// be thrown. The string given to an iterator must not be null.
///
/// @warning A directory without permission appears to be empty, at the top and at each level below. Where that matters,
/// test it first: a directory that may be listed and searched has at least the entry ".", which a wildcard matches.
///
///     if (!FIO_FILE_SYSTEM::exists("rtl/*"))   // missing, no directory, or no permission: see errno
///
/// For a directory below, that is `FIO_FILE_SYSTEM::exists((entry.path + "/*").c_str())`. The test finds nothing in the
/// root, nor in a directory whose path contains a wildcard or has more than 1021 characters.
///
/// @par Thread safety
/// An iterator and its copies may be used by one thread at a time. A directory is held open for each level of the tree.

#ifndef CCL_FIO_FIO_ITERATOR_H
#define CCL_FIO_FIO_ITERATOR_H

#include <dirent.h>

#include <boost/iterator/iterator_categories.hpp>
#include <boost/iterator/iterator_facade.hpp>
#include <memory>
#include <string>

#include "ccl/fio/fio_export.h"
#include "ccl/fio/fio_path.h"

/// Represents an entry of a directory.
class FIO_DIRECTORY_ENTRY {
public:
  bool is_directory = false; ///< as the directory reports it; also true for block devices and sockets
  std::string path;          ///< the string given to the iterator, "/" and the name; below the top level likewise

  /// Returns the path of the entry, with every `\` of its string taken for a separator. A string that is too long for a
  /// path makes an empty one of illegal length.
  ///
  /// @throws std::bad_alloc if the path cannot be stored
  [[nodiscard]] FIO_EXPORT FIO_PATH derive_path() const;
};

/// Holds the state of one open directory, which the copies of an iterator share.
class FIO_DIRECTORY_ITERATOR_IMPL {
public:
  /// Stores the directory's path. There is no entry and no stream yet.
  FIO_EXPORT explicit FIO_DIRECTORY_ITERATOR_IMPL(char const* directory);

  /// Closes the stream.
  FIO_EXPORT ~FIO_DIRECTORY_ITERATOR_IMPL();

  FIO_DIRECTORY_ITERATOR_IMPL(FIO_DIRECTORY_ITERATOR_IMPL const&) = delete;
  FIO_DIRECTORY_ITERATOR_IMPL& operator=(FIO_DIRECTORY_ITERATOR_IMPL const&) = delete;

  /// Makes the entry with this name the current one.
  FIO_EXPORT void set_filename(char const* name, bool is_directory);

  std::string directory;     ///< the directory as it was given
  FIO_DIRECTORY_ENTRY entry; ///< the current entry
  DIR* stream = nullptr;     ///< the open stream, owned
};

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // nobody owns an iterator by a pointer to its base

/// Iterates over one directory.
///
/// @copydetails fio_iterator.h
class FIO_EXPORT FIO_DIRECTORY_ITERATOR
    : public boost::iterators::iterator_facade<FIO_DIRECTORY_ITERATOR, FIO_DIRECTORY_ENTRY,
                                               boost::iterators::single_pass_traversal_tag, FIO_DIRECTORY_ENTRY&,
                                               long> {
public:
  /// Constructs the end iterator of every directory.
  FIO_DIRECTORY_ITERATOR() = default;

  /// Opens a directory and moves to its first entry, or to the end.
  explicit FIO_DIRECTORY_ITERATOR(char const* path);

  /// Moves to the next entry. Has no effect at the end.
  virtual void increment();

protected:
  /// Returns true if there is no entry any more.
  bool is_at_end() const { return m_impl == nullptr; }

  std::shared_ptr<FIO_DIRECTORY_ITERATOR_IMPL> m_impl; ///< null at the end

private:
  friend class boost::iterators::iterator_core_access;

  FIO_DIRECTORY_ENTRY& dereference() const { return m_impl->entry; }
  bool equal(FIO_DIRECTORY_ITERATOR const& other) const { return m_impl == other.m_impl; }
};

/// Iterates over a tree.
///
/// @copydetails fio_iterator.h
class FIO_EXPORT FIO_RECURSIVE_DIRECTORY_ITERATOR : public FIO_DIRECTORY_ITERATOR {
public:
  /// Constructs the end iterator of every tree.
  FIO_RECURSIVE_DIRECTORY_ITERATOR() = default;

  /// Opens the top directory and moves to its first entry, or to the end.
  explicit FIO_RECURSIVE_DIRECTORY_ITERATOR(char const* path);

  /// Shares the open directories and the entry of the other iterator.
  FIO_RECURSIVE_DIRECTORY_ITERATOR(FIO_RECURSIVE_DIRECTORY_ITERATOR const&) = default;

  /// Shares the open directories and the entry of the other iterator.
  FIO_RECURSIVE_DIRECTORY_ITERATOR& operator=(FIO_RECURSIVE_DIRECTORY_ITERATOR const&) = default;

  /// Moves to the next entry of the tree: the first one in a directory, and otherwise the next one of this level.
  void increment() override;

  virtual ~FIO_RECURSIVE_DIRECTORY_ITERATOR();

  /// Copies the current entry of the level below over that of this level.
  ///
  /// @pre The iteration is below this level.
  void update_entry_from_subdir_iter();

private:
  std::shared_ptr<FIO_RECURSIVE_DIRECTORY_ITERATOR> m_subdir_iter; ///< null while the iteration is at this level
};

#pragma GCC diagnostic pop

/// @name Ranges
/// An iterator is the range of the entries that it has not delivered yet. A loop increments a copy of it: do not use a
/// named iterator after the loop.
/// @{

/// Returns a copy of `iterator`.
inline FIO_DIRECTORY_ITERATOR begin(FIO_DIRECTORY_ITERATOR const& iterator) { return iterator; }

/// Returns the end iterator of every directory.
inline FIO_DIRECTORY_ITERATOR end(FIO_DIRECTORY_ITERATOR const& /*iterator*/) { return {}; }

/// Returns a copy of `iterator`.
inline FIO_RECURSIVE_DIRECTORY_ITERATOR begin(FIO_RECURSIVE_DIRECTORY_ITERATOR const& iterator) { return iterator; }

/// Returns the end iterator of every tree.
inline FIO_RECURSIVE_DIRECTORY_ITERATOR end(FIO_RECURSIVE_DIRECTORY_ITERATOR const& /*iterator*/) { return {}; }
/// @}

#endif
